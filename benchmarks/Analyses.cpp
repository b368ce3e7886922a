// What the analyses take of a results file that is read, the tidy table against writing the same bytes, and
// twelve runs read side by side against one. Arguments: a folder for the files, the number of rounds.
#include "LargeResultsFile.h"
#include "Rows.h"
#include "analysis/ChangeTable.h"
#include "analysis/Check.h"
#include "analysis/ComplianceTable.h"
#include "analysis/FitTable.h"
#include "analysis/SourcesTable.h"
#include "analysis/TidyTable.h"
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"
#include "tables/Csv.h"
#include "tables/Json.h"

#include <cstdlib>
#include <numeric>

namespace korvel {

namespace {

constexpr double mostSeconds = 0.060;
constexpr std::size_t runsSideBySide = 12;
constexpr std::size_t blockSize = std::size_t{256} * 1024;

std::vector<int> allSeries() {
    std::vector<int> series(2 * largeDeterminands + 1);
    std::iota(series.begin(), series.end(), 0);
    return series;
}

std::vector<int> observedSeries() {
    std::vector<int> series(largeDeterminands + 1);
    std::iota(series.begin(), series.end(), 0);
    return series;
}

// As a command writes it, to nothing.
void give(const Table& table) {
    OutputBytes bytes([](std::string_view) {});
    writeJson(table, bytes);
    bytes.flush();
}

struct Job {
    const char* name;
    std::function<void()> work;
};

std::vector<Job> jobsOn(const StudyRun& run) {
    const StudyRun other{"other.sgr", run.file};
    ComplianceRequest compliance;
    for (int d = 1; d <= largeDeterminands; ++d)
        compliance.determinands.insert(d);
    return {
        {"changes",
         [run, other] {
             give(changesByReach(compared(other, run), {allSeries(), Statistic::mean, {}}));
         }},
        {"compliance",
         [run, other, compliance] {
             for (const Table& table : complianceByReach({other, run}, compliance))
                 give(table);
         }},
        {"fit",
         [run] {
             give(fitOfWhole(run, {observedSeries(), {allStatistics.begin(), allStatistics.end()}, {}}));
         }},
        {"sources",
         [run] {
             const Network network = networkOf(*run.file);
             const int load = largeDeterminands + 1;
             give(sourcesTable(sourcesOf(*run.file, network, load, *largestMouth(*run.file, network, load))));
         }},
        {"network", [run] { networkOf(*run.file); }},
        {"check", [run] { checkRun(*run.file); }}};
}

void measureAnalyses(const StudyRun& run, int rounds) {
    for (const Job& job : jobsOn(run)) {
        const Contest contest(rounds, {[&] { return costOf(job.work); }});
        const Cost cost = contest.medianOf(0);
        print({std::string("korvel ") + job.name + ", beside reading", milliseconds(cost.processor), "bound",
               milliseconds(mostSeconds), twoDecimals(cost.processor / mostSeconds),
               twoDecimals(cost.clock / mostSeconds), "<= 1", cost.processor > mostSeconds});
    }
}

Table tidy(const StudyRun& run) {
    return tidyTable({1, [run](std::size_t) { return run; }},
                     {allSeries(), {allStatistics.begin(), allStatistics.end()}, {}, true});
}

void measureTable(const StudyRun& run, const std::string& name, int rounds) {
    DiskFiles files;
    std::string kept;
    OutputBytes keeping([&](std::string_view text) { kept += text; });
    writeCsv(tidy(run), keeping);
    keeping.flush();
    const auto ours = [&] {
        const auto file = files.create(name);
        OutputBytes bytes([&](std::string_view text) { file->write(text); });
        writeCsv(tidy(run), bytes);
        bytes.flush();
    };
    const auto sameBytes = [&] {
        const auto file = files.create(name);
        for (std::size_t at = 0; at < kept.size(); at += blockSize)
            file->write(std::string_view(kept).substr(at, blockSize));
    };
    const Contest contest(rounds, {[&] { return costOf(ours); }, [&] { return costOf(sameBytes); }});
    printTimes("tidy table, 5.0 million rows, " + megabytes(static_cast<double>(kept.size())),
               "writing the same bytes", contest, 1, 3);
}

void measureSideBySide(const std::string& name, int rounds) {
    DiskFiles files;
    const std::vector<std::string> names(runsSideBySide, name);
    const Contest contest(rounds, {[&] { return costOf([&] { readRuns(files, names); }); },
                                   [&] { return costOf([&] { readRun(files, name); }); }});
    const double ratio = contest.ratio(0, 1).clock;
    print({"reading 12 runs side by side, by the clock", milliseconds(contest.medianOf(0).clock),
           "reading one", milliseconds(contest.medianOf(1).clock), twoDecimals(contest.ratio(0, 1).processor),
           twoDecimals(ratio), atMost(7.5), ratio > 7.5});
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string folder = argv[1], path = folder + "/fixed.sgr";
    const int rounds = std::atoi(argv[2]);
    if (!std::filesystem::exists(path)) writeLargeResultsFile(path, ResultsForm::fixedWidth);
    const std::string name = modelNameOfHostPath(path);
    DiskFiles files;
    const StudyRun run{"fixed.sgr", readRun(files, name).run};
    if (!run.file) return 1;
    measureAnalyses(run, rounds);
    measureTable(run, modelNameOfHostPath(folder + "/table.csv"), rounds);
    measureSideBySide(name, rounds);
}
