#include "many/Plan.h"

#include "basic/DiskNames.h"
#include "basic/FieldCharacters.h"
#include "basic/ModelName.h"
#include "basic/Text.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_map>

namespace korvel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t mostProblemsTold = 20;
enum Column : std::size_t { nameColumn, dataFileColumn, typeColumn, titleColumn };
constexpr std::array<std::string_view, 4> columnNames = {"name", "data_file", "type", "title"};

bool holdsControlCharacter(std::string_view text) {
    return std::ranges::any_of(text,
                               [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
}

// Why a data file can't be read, or nothing.
std::optional<std::string> whyUnreadable(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return "The data file is not there.";
    if (!S_ISREG(status.st_mode)) return "This is no file.";
    if (access(path.c_str(), R_OK) != 0) return "The data file can't be read.";
    return std::nullopt;
}

class PlanReader {
  public:
    PlanReader(std::string_view text, const std::string& folder, const EngineRules& rules)
        : m_text(text), m_folder(folder), m_rules(rules) {}

    Plan read() {
        const CsvRecords csv = csvRecords(m_text);
        m_problems = csv.problems;
        if (csv.records.empty()) {
            if (m_problems.empty()) refuse(m_text.size(), "The plan has no heading.");
        } else if (takeHeading(csv.records.front())) {
            m_plan.runs.reserve(csv.records.size());
            for (std::size_t i = 1; i < csv.records.size(); ++i)
                takeRow(csv.records[i]);
            if (csv.records.size() == 1 && m_problems.empty())
                refuse(csv.records.front().front().offset, "The plan has a heading and no row.");
        }
        tellProblems();
        return std::move(m_plan);
    }

  private:
    void refuse(std::size_t offset, std::string text) { m_problems.push_back({offset, std::move(text)}); }

    bool takeHeading(const CsvRecord& heading) {
        const std::size_t before = m_problems.size();
        m_width = heading.size();
        for (std::size_t i = 0; i < heading.size(); ++i)
            takeColumn(heading[i], i);
        for (const Column column : {nameColumn, dataFileColumn, typeColumn})
            if (!m_columns[column])
                refuse(heading.front().offset,
                       "The column " + std::string(columnNames[column]) + " is missing.");
        return m_problems.size() == before;
    }

    void takeColumn(const CsvField& field, std::size_t index) {
        const auto known = std::ranges::find(columnNames, field.text);
        if (known == columnNames.end())
            return refuse(field.offset, "There is no column \"" + field.text +
                                            "\" in a plan, only name, data_file, type and title.");
        std::optional<std::size_t>& column = m_columns[static_cast<std::size_t>(known - columnNames.begin())];
        if (column) return refuse(field.offset, "The column " + field.text + " stands here twice.");
        column = index;
    }

    const CsvField& fieldOf(const CsvRecord& record, Column column) const {
        return record[*m_columns[column]];
    }

    void takeRow(const CsvRecord& record) {
        if (record.size() != m_width) {
            const std::size_t at = record.size() > m_width ? record[m_width].offset : record.back().offset;
            return refuse(at, "The row has " + std::to_string(record.size()) + " fields, the heading " +
                                  std::to_string(m_width) + ".");
        }
        PlannedRun run;
        takeName(fieldOf(record, nameColumn), run);
        takeDataFile(fieldOf(record, dataFileColumn), run);
        takeType(fieldOf(record, typeColumn), run);
        if (m_columns[titleColumn]) run.title = fieldOf(record, titleColumn).text;
        m_plan.runs.push_back(std::move(run));
    }

    void takeName(const CsvField& field, PlannedRun& run) {
        run.name = field.text;
        const std::size_t length = shownLength(field.text);
        if (length == 0 || length > LongestRunName)
            return refuse(field.offset,
                          "A name has 1 to 60 characters, this one " + std::to_string(length) + ".");
        if (holdsControlCharacter(field.text))
            return refuse(field.offset, "A name holds no line end, tab or other control character.");
        const auto [first, isNew] = m_names.try_emplace(field.text, field.offset);
        if (!isNew)
            refuse(field.offset,
                   "The name \"" + field.text + "\" stands in " + whereElse(first->second) + " already.");
    }

    void takeType(const CsvField& field, PlannedRun& run) {
        if (field.text.size() != 1 || !isDigit(field.text[0]))
            return refuse(field.offset, "The run type is a digit, 0 to 9, not \"" + field.text + "\".");
        run.type = field.text[0] - '0';
    }

    void takeDataFile(const CsvField& field, PlannedRun& run) {
        run.dataFile = field.text;
        if (field.text.empty()) return refuse(field.offset, "The row names no data file.");
        if (field.text.find('\0') != std::string::npos)
            return refuse(field.offset, "A file name holds no such character.");
        run.dataPath = (fs::path(m_folder) / field.text).lexically_normal().string();
        if (!m_rules.dataFile) return; // its runs are over
        if (const auto refusal = whyRefused(run)) return refuse(field.offset, *refusal);
        const auto [first, isNew] = m_outputs.try_emplace(outputsOf(run), field.offset);
        if (!isNew)
            refuse(field.offset,
                   "This run would write the same outputs as that of " + whereElse(first->second) + ".");
    }

    // As for a single run, and the file has to be there.
    std::optional<std::string> whyRefused(PlannedRun& run) {
        if (auto refusal = whyNotAModelName(run.dataPath, NameUse::inUpperCase, m_known)) return refusal;
        const auto verdict = m_rules.dataFile(modelNameOfHostPath(run.dataPath));
        if (const std::string* refusal = std::get_if<std::string>(&verdict)) return *refusal;
        run.files = std::get<RunFiles>(verdict);
        return whyUnreadable(run.dataPath);
    }

    // The same text for two rows whose outputs have the same names in the same folder, links followed.
    std::string outputsOf(const PlannedRun& run) {
        const auto slash = run.dataPath.rfind('/');
        const std::string folder = run.dataPath.substr(0, slash + 1);
        const auto [place, isNew] = m_realFolders.try_emplace(folder, folder);
        std::error_code unresolved;
        if (isNew) place->second = fs::canonical(folder, unresolved).string();
        return (place->second.empty() ? folder : place->second) + '/' + run.files.base;
    }

    // Counting lines takes time, which a long list of refusals that nobody is told isn't worth.
    std::string whereElse(std::size_t offset) const {
        if (m_problems.size() >= mostProblemsTold) return "an earlier line";
        return "line " + std::to_string(placeInText(m_text, offset).line);
    }

    void tellProblems() {
        std::ranges::stable_sort(m_problems, {}, &CsvProblem::offset);
        m_plan.problemCount = m_problems.size();
        m_problems.resize(std::min(m_problems.size(), mostProblemsTold));
        for (const CsvProblem& problem : m_problems)
            m_plan.problems.push_back({placeInText(m_text, problem.offset), problem.text});
    }

    std::string_view m_text;
    std::string m_folder;
    EngineRules m_rules;
    std::size_t m_width = 0;
    std::array<std::optional<std::size_t>, columnNames.size()> m_columns;
    std::unordered_map<std::string, std::size_t> m_names;   // where each stands
    std::unordered_map<std::string, std::size_t> m_outputs; // the same
    std::unordered_map<std::string, std::string> m_realFolders;
    KnownFolders m_known;
    std::vector<CsvProblem> m_problems;
    Plan m_plan;
};

} // namespace

Plan readPlan(std::string_view text, const std::string& folder, const EngineRules& rules) {
    return PlanReader(text, folder, rules).read();
}

Plan readFinishedPlan(std::string_view text, const std::string& folder) {
    return PlanReader(text, folder, {}).read();
}

std::vector<std::string> problemLines(const Plan& plan, const std::string& fileName) {
    std::vector<std::string> lines;
    for (const PlanProblem& problem : plan.problems)
        lines.push_back(fileName + ", line " + std::to_string(problem.place.line) + ", column " +
                        std::to_string(problem.place.column) + ": " + problem.text);
    const std::size_t more = plan.problemCount - plan.problems.size();
    if (more > 0) lines.push_back(fileName + ": " + std::to_string(more) + " more like these.");
    return lines;
}

} // namespace korvel
