#include "app/LastRunWords.h"

#include "basic/ModelName.h"

#include <array>

namespace korvel {

namespace {

constexpr std::array<const char*, 10> typeWords = {
    "basic run",
    "gap filling of river flows",
    "with the gap filled river flows",
    "gap filling of water quality",
    "full gap filled model",
    "options 1 and 3 in sequence",
    "options 1, 3 and 4 in sequence",
    "effluent standards to meet river targets",
    "as 7 with aspects of no deterioration",
    "as 8 assuming mid-class upstream quality standards",
};

constexpr const char* noResults = "The results file is gone.";
constexpr const char* otherResults = "The results file has changed since this run.";
constexpr const char* noData = "The data file is gone.";

bool wasFinished(const LastRun& run) {
    return run.state == "Finished";
}

std::string withoutDot(std::string sentence) {
    sentence.pop_back();
    return sentence;
}

} // namespace

std::string nameOf(const LastRun& run) {
    return fileOf(run.dataFile);
}

std::string runTypeWords(int runType) {
    return "run type " + std::to_string(runType) + ", " + typeWords.at(static_cast<std::size_t>(runType));
}

std::string briefVerdict(const LastRun& run, const RunToday& today) {
    if (!wasFinished(run)) return run.state;
    if (!today.hasResults) return withoutDot(noResults);
    if (today.resultsAreOthers) return withoutDot(otherResults);
    return run.verdict.empty() ? run.state : run.verdict;
}

std::string fullVerdict(const LastRun& run, const RunToday& today) {
    std::string words = wasFinished(run) ? "" : run.state + ".";
    const auto add = [&](const std::string& more) { words += (words.empty() ? "" : " ") + more; };
    if (!today.hasResults)
        add(noResults);
    else if (today.resultsAreOthers)
        add(otherResults);
    else if (!run.verdictInFull.empty())
        add(run.verdictInFull);
    if (!today.hasData) add(noData);
    return words;
}

} // namespace korvel
