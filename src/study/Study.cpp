#include "study/Study.h"

#include "study/RunNames.h"

namespace korvel {

namespace {

std::optional<std::string> differingDeterminands(const ResultsDataSet& base, const ResultsDataSet& later) {
    const int count = base.determinandCount;
    if (count != later.determinandCount)
        return "the number of determinands (" + std::to_string(count) + " and " +
               std::to_string(later.determinandCount) + ")";
    for (int d = 1; d <= count; ++d) {
        if (base.determinandNames[d] != later.determinandNames[d] ||
            base.determinandTypes[d] != later.determinandTypes[d])
            return "determinand " + std::to_string(d);
    }
    return {};
}

std::string reachOnlyIn(int reach, const std::string& name) {
    return "reach " + std::to_string(reach) + " (only in " + name + ")";
}

std::optional<std::string> differingReaches(const StudyRun& base, const StudyRun& later) {
    for (const int reach : base.reaches().numbers()) {
        const std::string named = "reach " + std::to_string(reach);
        if (later.reaches().placeOf(reach) < 0) return reachOnlyIn(reach, base.name);
        if (base.results().reachLengths[reach] != later.results().reachLengths[reach])
            return "the length of " + named;
        if (base.results().reachNext[reach] != later.results().reachNext[reach])
            return "the next reach of " + named;
    }
    for (const int reach : later.reaches().numbers())
        if (base.reaches().placeOf(reach) < 0) return reachOnlyIn(reach, later.name);
    return {};
}

std::optional<std::string> refusalOf(const StudyRun& base, const StudyRun& later) {
    const auto difference = differenceOf(base, later);
    if (!difference) return {};
    return base.name + " and " + later.name + " differ in " + *difference;
}

// The runs with the names that they have together.
std::vector<StudyRun> named(const std::vector<SharedRun>& files) {
    std::vector<std::string> paths;
    for (const SharedRun& file : files)
        paths.push_back(file->file);
    const std::vector<std::string> names = runNames(paths);
    std::vector<StudyRun> runs;
    for (std::size_t k = 0; k < files.size(); ++k)
        runs.push_back({names[k], files[k]});
    return runs;
}

// In files' order: the first that can't be read.
std::optional<Message> failureOf(const std::vector<ReadRun>& read, const std::vector<std::string>& files) {
    const std::vector<std::string> names = runNames(files);
    for (std::size_t k = 0; k < read.size(); ++k) {
        if (!read[k].failure) continue;
        Message message = *read[k].failure;
        message.text = names[k] + ": " + message.text;
        return message;
    }
    return {};
}

} // namespace

std::optional<std::string> differenceOf(const StudyRun& base, const StudyRun& later) {
    if (const auto difference = differingDeterminands(base.results(), later.results())) return difference;
    return differingReaches(base, later);
}

std::optional<std::string> Study::add(SharedRun run) {
    std::vector<SharedRun> files;
    for (const StudyRun& there : m_runs)
        files.push_back(there.file);
    files.push_back(std::move(run));
    std::vector<StudyRun> runs = named(files);
    if (const auto refusal = refusalOf(runs.front(), runs.back())) return refusal;
    m_runs = std::move(runs);
    return {};
}

LoadedStudy loadStudy(Files& files, const std::vector<std::string>& names, const RunProgress& progress) {
    const std::vector<ReadRun> read = readRuns(files, names, progress);
    LoadedStudy loaded;
    loaded.refusal = failureOf(read, names);
    if (loaded.refusal) return loaded;
    std::vector<SharedRun> runs;
    for (const ReadRun& each : read)
        runs.push_back(each.run);
    std::vector<StudyRun> together = named(runs);
    for (const StudyRun& run : together) {
        const auto refusal = refusalOf(together.front(), run);
        if (!refusal) continue;
        loaded.refusal = Message{*refusal, "Study", Icon::exclamation, Buttons::ok};
        return loaded;
    }
    loaded.study = Study(std::move(together));
    return loaded;
}

} // namespace korvel
