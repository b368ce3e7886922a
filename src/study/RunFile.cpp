#include "study/RunFile.h"

#include "basic/Text.h"
#include "results/ResultsReader.h"

#include <new>

namespace korvel {

namespace {

constexpr auto betweenTellings = std::chrono::milliseconds(50);

ReadRun runOf(const std::string& file, ReadDataSet read) {
    if (!read.data) return {{}, read.refusal};
    try {
        const auto run = std::make_shared<RunFile>();
        run->file = file;
        run->results = std::move(*read.data);
        run->reaches = ReachPoints(run->results);
        return {run, {}};
    } catch (const std::bad_alloc&) {
        return {{}, unreadableResults()};
    }
}

} // namespace

std::string RunFile::reachName(int number) const {
    return trim(results.reachNames[number]);
}

ReadRun readRun(Files& files, const std::string& file, const RunProgress& progress) {
    return runOf(file, readDataSet(files, file, {.progress = progress}));
}

std::vector<ReadRun> readRuns(Files& files, const std::vector<std::string>& names,
                              const RunProgress& progress) {
    RunReading reading(files, names);
    for (bool isDone = !progress; !isDone;) {
        isDone = reading.waitFor(betweenTellings);
        progress(reading.share());
    }
    return reading.take();
}

RunReading::RunReading(Files& files, std::vector<std::string> names)
    : m_names(std::move(names)), m_reading(files, m_names) {}

std::vector<ReadRun> RunReading::take() {
    std::vector<ReadDataSet> read = m_reading.take();
    std::vector<ReadRun> runs;
    for (std::size_t k = 0; k < m_names.size(); ++k)
        runs.push_back(runOf(m_names[k], std::move(read[k])));
    return runs;
}

} // namespace korvel
