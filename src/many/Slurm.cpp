#include "many/Slurm.h"

#include "basic/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>

namespace korvel {

namespace {

constexpr std::size_t usualArraySize = 1001; // as Slurm has it where nobody says otherwise
constexpr std::size_t usualJobCount = 10000;

std::optional<std::size_t> number(std::string_view text) {
    std::size_t value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || read.ec != std::errc() || read.ptr != text.data() + text.size()) return std::nullopt;
    return value;
}

std::size_t limitIn(const std::map<std::string, std::string>& configuration, const char* name,
                    std::size_t usual) {
    const auto found = configuration.find(name);
    return found == configuration.end() ? usual : number(found->second).value_or(usual);
}

std::string firstLine(const std::string& text) {
    return trim(text.substr(0, text.find('\n')));
}

} // namespace

std::string Slurm::ask(const std::vector<std::string>& words) {
    const std::optional<ToolEnd> end = m_tools.run(words);
    if (!end) throw SlurmError("There is no " + words.front() + " on this machine.");
    if (end->status != 0) {
        const std::string said = firstLine(shownUtf8(end->errors));
        const std::string caller = words.front() + ": ";
        throw SlurmError(beginsWith(said, caller) ? said : caller + said);
    }
    return end->output;
}

const std::map<std::string, std::string>& Slurm::configuration() {
    if (m_configuration) return *m_configuration;
    m_configuration.emplace();
    std::istringstream lines(ask({"scontrol", "show", "config"}));
    for (std::string line; std::getline(lines, line);) {
        const auto equals = line.find('=');
        if (equals == std::string::npos) continue;
        (*m_configuration)[trim(line.substr(0, equals))] = trim(line.substr(equals + 1));
    }
    return *m_configuration;
}

// A task counts as a job, and others have jobs too.
std::size_t Slurm::mostTasks() {
    const std::size_t array = limitIn(configuration(), "MaxArraySize", usualArraySize);
    const std::size_t jobs = limitIn(configuration(), "MaxJobCount", usualJobCount);
    if (array < 2) throw SlurmError("This cluster takes no job arrays.");
    return std::max<std::size_t>(1, std::min(array - 1, jobs / 2));
}

// The user's options come first, so that ours hold.
std::string Slurm::submit(const ArrayJob& job) {
    std::vector<std::string> words = {"sbatch"};
    words.insert(words.end(), job.options.begin(), job.options.end());
    for (const std::string& option :
         {std::string("--parsable"), std::string("--no-requeue"), "--job-name=" + job.name,
          "--array=0-" + std::to_string(job.tasks - 1), "--chdir=" + job.folder, "--output=" + job.output})
        words.push_back(option);
    words.push_back(job.script);
    const std::string answer = firstLine(ask(words));
    return answer.substr(0, answer.find(';')); // the cluster's name may follow
}

std::map<std::size_t, std::string> Slurm::states(const std::string& name) {
    std::map<std::size_t, std::string> states;
    std::istringstream lines(
        ask({"squeue", "--noheader", "--array", "--states=all", "--name=" + name, "--format=%K %T"}));
    for (std::string line; std::getline(lines, line);) {
        const auto blank = line.find(' ');
        const auto task = number(line.substr(0, blank));
        if (task && blank != std::string::npos) states[*task] = trim(line.substr(blank));
    }
    return states;
}

std::string Slurm::accountedState(const std::string& job, std::size_t task) {
    try {
        const auto found = configuration().find("AccountingStorageType");
        if (found == configuration().end() || contains(found->second, "none")) return "";
        const std::string state =
            firstLine(ask({"sacct", "--noheader", "--parsable2", "--allocations", "--format=State",
                           "--jobs=" + job + '_' + std::to_string(task)}));
        return state.substr(0, state.find(' ')); // "CANCELLED by 1000"
    } catch (const SlurmError&) {
        return "";
    }
}

void Slurm::cancel(const std::string& name, Which which) {
    std::vector<std::string> words = {"scancel", "--name=" + name};
    if (which == Which::pending) words.emplace_back("--state=PENDING");
    ask(words);
}

bool isOver(const std::string& state) {
    constexpr std::array<std::string_view, 10> ends = {"COMPLETED", "FAILED",        "CANCELLED", "TIMEOUT",
                                                       "NODE_FAIL", "OUT_OF_MEMORY", "PREEMPTED", "BOOT_FAIL",
                                                       "DEADLINE",  "REVOKED"};
    return std::ranges::find(ends, state) != ends.end();
}

std::optional<std::vector<std::string>> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    bool inWord = false;
    char quote = '\0';
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quote == '\0' && (c == ' ' || c == '\t')) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        if (quote != '\0' && c == quote)
            quote = '\0';
        else if (quote == '\0' && (c == '\'' || c == '"'))
            quote = c;
        else if (c == '\\' && quote != '\'' && i + 1 < text.size())
            words.back() += text[++i];
        else
            words.back() += c;
    }
    if (quote != '\0') return std::nullopt;
    return words;
}

} // namespace korvel
