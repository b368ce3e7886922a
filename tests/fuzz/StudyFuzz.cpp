// Two results files as a study: what is before a byte 1E is the base. Where they can stand together, every
// analysis holds its sums, and its tables can be written.
#include "analysis/ChangeTable.h"
#include "analysis/Check.h"
#include "analysis/ComplianceTable.h"
#include "analysis/FitTable.h"
#include "analysis/Sources.h"
#include "analysis/TidyTable.h"
#include "fuzz/Fuzzing.h"
#include "study/SeriesValues.h"
#include "study/Study.h"
#include "tables/Csv.h"
#include "tables/Json.h"

#include <cmath>
#include <map>
#include <nlohmann/json.hpp>

namespace korvel {

namespace {

constexpr char between = '\x1E';
const Statistic statistics[] = {Statistic::mean, Statistic::p95};

class TwoFiles : public Files {
  public:
    TwoFiles(std::string base, std::string run) : m_base(std::move(base)), m_run(std::move(run)) {}

    std::unique_ptr<ByteSource> open(const std::string& name) override {
        return std::make_unique<TextSource>(name == "A.SGR" ? m_base : m_run);
    }
    std::unique_ptr<NewFile> create(const std::string&) override {
        throw RunTimeError(errors::pathFileAccessError);
    }
    bool exists(const std::string&) override { return true; }
    bool areOne(const std::string& name, const std::string& other) override { return name == other; }
    void remove(const std::string&) override {}
    std::vector<std::string> filesIn(const std::string&) override { return {}; }
    std::string currentFolder() override { return ""; }
    void setCurrentFolder(const std::string&) override {}

  private:
    std::string m_base, m_run;
};

bool sameDeterminands(const ResultsDataSet& a, const ResultsDataSet& b) {
    return a.determinandCount == b.determinandCount && a.determinandNames == b.determinandNames &&
           a.determinandTypes == b.determinandTypes;
}

bool sameReaches(const RunFile& a, const RunFile& b) {
    const auto reachesOf = [](const RunFile& run) {
        std::map<int, std::pair<double, int>> reaches;
        for (const int number : run.reaches.numbers())
            reaches[number] = {run.results.reachLengths[number], run.results.reachNext[number]};
        return reaches;
    };
    return reachesOf(a) == reachesOf(b);
}

bool isAbout(double value, double other) {
    if (!std::isfinite(value) || !std::isfinite(other)) return true; // too large to be summed up
    return std::abs(value - other) <= 1e-6 * std::max({std::abs(value), std::abs(other), 1e-300});
}

void requireWritable(const Table& table) {
    std::string csv, json;
    OutputBytes csvBytes([&](std::string_view text) { csv += text; });
    writeCsv(table, csvBytes);
    csvBytes.flush();
    require(csv.ends_with("\r\n"), "rows end with CR LF");
    OutputBytes jsonBytes([&](std::string_view text) { json += text; });
    writeJson(table, jsonBytes);
    jsonBytes.flush();
    require(nlohmann::json::accept(json), "a table is JSON");
}

void requireNetwork(const RunFile& run, const Network& network) {
    std::size_t reaches = 0;
    for (const River& river : network.rivers) {
        reaches += river.reaches.size();
        require(river.joins == network.next[static_cast<std::size_t>(river.reaches.back())],
                "a river joins what its last reach runs into");
    }
    const auto count = static_cast<std::size_t>(run.reaches.count());
    require(network.hasCircles() || reaches == count, "each reach is in one river");
    require(network.hasCircles() || network.downward.size() == count, "the walk downward meets each reach");
}

void requireMatch(const StudyRun& base, const StudyRun& run) {
    const PointMatch match = matchPoints(*base.file, *run.file);
    for (int point = 1; point <= base.results().pointCount; ++point) {
        const int partner = match.ofBase[static_cast<std::size_t>(point)];
        if (partner == 0) continue;
        require(match.ofRun[static_cast<std::size_t>(partner)] == point, "partners are each other's");
        require(base.results().pointDistance[point] == run.results().pointDistance[partner] &&
                    base.results().pointSide[point] == run.results().pointSide[partner] &&
                    base.results().pointReach[point] == run.results().pointReach[partner],
                "partners are at one place");
    }
}

void requireChanges(const StudyRun& base, const StudyRun& run, const Network& network) {
    const ComparedRun pair = compared(base, run);
    for (const Statistic statistic : statistics) {
        const ChangeRequest request{allSeries(base.results()), statistic, {}, true};
        for (const ChangeRow& row : changeRows(pair, groupsByReach(*base.file, {}), request)) {
            const ChangeSummary& sums = row.summary;
            require(sums.clearRises + sums.clearFalls <= sums.points, "clear changes are at points");
            require(sums.baseMean.has_value() == (sums.points > 0), "points have a mean");
            require(!sums.largestRise || sums.largestRise->value > 0, "a rise is above 0");
            require(!sums.largestFall || sums.largestFall->value < 0, "a fall is below 0");
        }
        requireWritable(changesByReach(pair, request));
        requireWritable(changesByPoint(pair, request));
        if (!network.hasCircles()) requireWritable(changesByRiver(pair, network, request));
    }
}

void requireCounts(const ComplianceSums& sums) {
    require(sums.failingPoints <= sums.judgedPoints, "failing points are judged");
    require(sums.sureFails + sums.surePasses + sums.unsure <= sums.judgedPoints, "sure ones are judged");
    require(!(sums.failingLength > sums.judgedLength * (1 + 1e-9)), "failing length is judged");
}

void requireCompliance(const StudyRun& base, const StudyRun& run, const Network& network) {
    ComplianceRequest request;
    for (int d = 1; d <= base.results().determinandCount; ++d)
        request.determinands.insert(d);
    request.lowIsBad = lowBadByName(base.results());
    const auto rows = complianceRows({run, base}, request);
    std::map<int, ComplianceSums> sums;
    for (const ComplianceRow& row : rows) {
        requireCounts(row.reach.sums);
        require(row.reach.worst.has_value() == (row.reach.verdict != Verdict::none), "a verdict has a worst");
        sums[row.determinand.number] += row.reach.sums;
    }
    for (const ComplianceSumRow& whole : complianceSums(run, {wholeGroup(*run.file, {})}, request)) {
        const ComplianceSums& ofReaches = sums[whole.determinand.number];
        require(whole.sums.judgedPoints == ofReaches.judgedPoints, "points add up");
        require(isAbout(whole.sums.failingLength, ofReaches.failingLength), "lengths add up");
    }
    for (const Table& table : complianceByReach({run, base}, request))
        requireWritable(table);
    requireWritable(complianceByPoint(run, request));
    requireWritable(complianceByStation(run, request));
    if (!network.hasCircles()) requireWritable(complianceByRiver(run, network, request));
}

void requireFit(const StudyRun& run) {
    FitRequest request;
    request.series = allSeries(run.results());
    request.series.resize(static_cast<std::size_t>(run.results().determinandCount) + 1);
    request.statistics = {allStatistics.begin(), allStatistics.end()};
    for (const FitRow& row : fitRows(run, {wholeGroup(*run.file, {})}, request)) {
        const FitFigures& fit = row.figures;
        require(fit.n > 0 && fit.withinLimits <= fit.bounded && fit.bounded <= fit.n, "points are counted");
        require(!fit.typicalFactor || !(*fit.typicalFactor < 1), "a typical factor is 1 or more");
        require(!fit.efficiency || !(*fit.efficiency > 1), "no fit is better than perfect");
    }
    requireWritable(fitOfWhole(run, request));
    requireWritable(fitByPoint(run, request));
}

void requireSources(const StudyRun& run, const Network& network) {
    const int n = run.results().determinandCount;
    for (const int series : {0, n + 1, 2 * n}) {
        if (series > 2 * n || network.hasCircles()) continue;
        const auto mouth = largestMouth(*run.file, network, series);
        if (!mouth) continue;
        try {
            const LoadSources sources = sourcesOf(*run.file, network, series, *mouth);
            double sum = 0;
            for (const Contribution& each : sources.contributions) {
                require(!(each.arrives < 0), "nothing arrives less than nothing");
                sum += each.arrives;
            }
            require(isAbout(sum, sources.load), "what arrives adds up to the load");
        } catch (const SourcesRefused& refused) {
            require(*refused.what() != '\0', "a refusal says why");
        }
    }
}

void requireCheck(const StudyRun& run) {
    for (const CheckFinding& finding : checkRun(*run.file)) {
        const auto most = std::min<std::size_t>(FirstPlaces, static_cast<std::size_t>(finding.count));
        require(finding.count > 0 && finding.places.size() == most, "the first places are shown");
    }
}

void requireAnalyses(const Study& study) {
    const StudyRun &base = study.runs().front(), &run = study.runs().back();
    const Network network = networkOf(*base.file);
    requireNetwork(*base.file, network);
    requireMatch(base, run);
    requireChanges(base, run, network);
    for (const StudyRun& each : study.runs()) {
        requireCompliance(base, each, networkOf(*each.file));
        requireFit(each);
        requireSources(each, networkOf(*each.file));
        requireCheck(each);
    }
    requireWritable(tidyTable(sequenceOf(study),
                              {allSeries(base.results()), {Statistic::mean, Statistic::p99}, {}, true}));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    const std::size_t cut = std::min(text.find(between), text.size());
    const std::string base = text.substr(0, cut), run = cut < text.size() ? text.substr(cut + 1) : base;
    TwoFiles files(base, run);
    const ReadRun first = readRun(files, "A.SGR"), second = readRun(files, "B.SGR");
    const LoadedStudy loaded = loadStudy(files, {"A.SGR", "B.SGR"});
    if (!first.run || !second.run) {
        require(loaded.refusal && loaded.study.runs().empty(), "a file that can't be read is refused");
        require(loaded.refusal->text.starts_with(first.run ? "B.SGR: " : "A.SGR: "), "by its name");
        return 0;
    }
    const bool fit =
        sameDeterminands(first.run->results, second.run->results) && sameReaches(*first.run, *second.run);
    require(fit != loaded.refusal.has_value(), "runs that fit stand in one study, others don't");
    if (fit)
        requireAnalyses(loaded.study);
    else
        require(loaded.refusal->text.starts_with("A.SGR and B.SGR differ in "), "a refusal says why");
    return 0;
}

} // namespace korvel
