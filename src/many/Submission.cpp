#include "many/Submission.h"

#include "basic/RunTimeError.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <unistd.h>

namespace korvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* jobFile = "/job";
constexpr const char* stopFile = "/stop";

void writeFile(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) throw runTimeErrorOfErrno(errno);
    file << text << std::flush;
    if (!file) throw RunTimeError(errors::diskFull);
}

std::string textOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char c : word)
        text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return text + '\'';
}

// Sorts by time, and is nobody else's on any machine.
std::string newKey() {
    std::string key = timeNow().substr(0, 19);
    std::erase_if(key, [](char c) { return c == '-' || c == ':'; });
    constexpr int letters = 8;
    std::random_device source;
    std::uniform_int_distribution<int> letter('a', 'z');
    key += '-';
    for (int i = 0; i < letters; ++i)
        key += static_cast<char>(letter(source));
    return key;
}

std::string rowsText(const std::vector<const PlannedRun*>& rows, std::size_t first, std::size_t end) {
    std::string text;
    for (std::size_t i = first; i < end; ++i) {
        RunRecord record;
        record.name = rows[i]->name;
        record.dataFile = rows[i]->dataFile;
        record.type = rows[i]->type;
        record.title = rows[i]->title;
        text += recordLine(record) + '\n';
    }
    return text;
}

std::string scriptText(const std::vector<std::string>& program, const std::string& folder) {
    std::string text = "#!/bin/sh\nexec";
    for (const std::string& word : program)
        text += ' ' + quoted(word);
    return text + ' ' + quoted(folder) + '\n';
}

} // namespace

std::string Submission::jobName() const {
    return "korvel-" + m_folder.substr(m_folder.rfind('/') + 1);
}

std::size_t Submission::tasks() const {
    std::size_t count = 0;
    std::error_code ignored;
    while (fs::exists(numbered(count, ".rows"), ignored))
        ++count;
    return count;
}

std::vector<RunRecord> Submission::rows(std::size_t task) const {
    std::vector<RunRecord> rows;
    std::istringstream lines(textOf(numbered(task, ".rows")));
    for (std::string line; std::getline(lines, line);)
        if (auto record = recordOfLine(line)) rows.push_back(std::move(*record));
    return rows;
}

std::string Submission::job() const {
    return textOf(m_folder + jobFile);
}

void Submission::keepJob(const std::string& number) const {
    writeFile(m_folder + jobFile, number);
}

void Submission::askToStop() const {
    writeFile(m_folder + stopFile, "");
}

bool Submission::stopAsked() const {
    std::error_code ignored;
    return fs::exists(m_folder + stopFile, ignored);
}

bool Submission::isGone() const {
    std::error_code ignored;
    return !fs::exists(script(), ignored);
}

void Submission::remove() const {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
    rmdir(m_folder.substr(0, m_folder.rfind('/')).c_str()); // where it was the last one
}

Submission makeSubmission(const PlanPlaces& places, const std::vector<const PlannedRun*>& rows,
                          std::size_t mostTasks, const std::vector<std::string>& program) {
    Submission submission(places.cluster + '/' + newKey());
    std::error_code problem;
    fs::create_directories(submission.folder(), problem);
    if (problem) throw runTimeErrorOfErrno(problem.value());
    const std::size_t tasks = std::min(mostTasks, rows.size());
    for (std::size_t task = 0; task < tasks; ++task)
        writeFile(submission.numbered(task, ".rows"),
                  rowsText(rows, task * rows.size() / tasks, (task + 1) * rows.size() / tasks));
    writeFile(submission.script(), scriptText(program, submission.folder()));
    return submission;
}

std::vector<Submission> submissionsOf(const PlanPlaces& places) {
    std::vector<std::string> folders;
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(places.cluster, ignored))
        if (entry.is_directory(ignored)) folders.push_back(entry.path().string());
    std::ranges::sort(folders);
    return {folders.begin(), folders.end()};
}

} // namespace korvel
