#include "analysis/ComplianceTable.h"

#include <array>
#include <functional>
#include <limits>
#include <memory>

namespace korvel {

namespace {

std::vector<Column> namedColumns(std::initializer_list<const char*> names) {
    std::vector<Column> columns;
    for (const char* name : names)
        columns.push_back({name});
    return columns;
}

void append(std::vector<Column>& columns, const std::vector<Column>& more) {
    columns.insert(columns.end(), more.begin(), more.end());
}

std::vector<Column> sumColumns() {
    return namedColumns({"judged_length", "failing_length", "judged_points", "failing_points", "sure_fails",
                         "sure_passes", "unsure"});
}

void addSums(std::vector<Cell>& cells, const ComplianceSums& sums) {
    addCells(cells, {sums.judgedLength, sums.failingLength, sums.judgedPoints, sums.failingPoints,
                     sums.sureFails, sums.surePasses, sums.unsure});
}

std::vector<Column> reachColumns() {
    std::vector<Column> columns = namedColumns({"reach", "determinand", "statistic"});
    append(columns, sumColumns());
    append(columns, namedColumns({"verdict", "confident_verdict"}));
    for (const char* name : {"distance", "feature", "value", "target", "ratio"})
        columns.push_back({name, "worst"});
    append(columns, namedColumns({"needed", "headroom"}));
    for (const char* name : {"verdict", "failing_length", "deteriorated"})
        columns.push_back({name, "change"});
    return columns;
}

void addWorst(std::vector<Cell>& cells, const ResultsDataSet& results,
              const std::optional<WorstPoint>& worst) {
    if (!worst) {
        cells.insert(cells.end(), 5, Nothing());
        return;
    }
    cells.insert(cells.end(),
                 {results.pointDistance[worst->point], std::string_view(results.pointLabel[worst->point]),
                  worst->judgement.value, worst->judgement.target, cellOf(worst->judgement.ratio)});
}

void giveReachRow(const ComplianceRow& row, const StudyRun& run, RowTaker& taker) {
    const std::string name = determinandName(run.results(), row.determinand.number);
    std::vector<Cell> cells = {run.reaches().number(row.place), std::string_view(name),
                               nameOf(row.determinand.statistic)};
    addSums(cells, row.reach.sums);
    cells.emplace_back(nameOf(row.reach.verdict));
    cells.emplace_back(nameOf(row.reach.confident));
    addWorst(cells, run.results(), row.reach.worst);
    cells.push_back(cellOf(row.reach.needed));
    cells.push_back(cellOf(row.reach.headroom));
    const std::string words = row.change ? row.change->words() : "";
    if (row.change)
        cells.insert(cells.end(),
                     {std::string_view(words), row.change->failingLength, cellOf(row.change->deteriorated)});
    else
        cells.insert(cells.end(), 3, Nothing());
    taker.row(cells);
}

void giveOverallRow(const OverallRow& row, const StudyRun& run, RowTaker& taker) {
    std::vector<std::string> failing;
    for (const int determinand : row.overall.failing)
        failing.push_back(determinandName(run.results(), determinand));
    const std::array<Cell, 4> cells = {run.reaches().number(row.place), nameOf(row.overall.verdict),
                                       nameOf(row.overall.confident), std::span<const std::string>(failing)};
    taker.row(cells);
}

enum class SumsOf { file, river };

Table sumTable(const StudyRun& run, SumsOf what, const std::function<std::vector<ComplianceSumRow>()>& sums) {
    std::vector<Column> columns = namedColumns({"determinand", "statistic"});
    if (what == SumsOf::river) columns.insert(columns.begin(), {"river"});
    append(columns, sumColumns());
    append(columns, namedColumns({"reaches_failing", "reaches_judged"}));
    const auto rows = [run, sums, what](RowTaker& taker) {
        for (const ComplianceSumRow& row : sums()) {
            const std::string name = determinandName(run.results(), row.determinand.number);
            std::vector<Cell> cells;
            if (what == SumsOf::river) cells.emplace_back(std::string_view(row.group.river));
            addCells(cells, {std::string_view(name), nameOf(row.determinand.statistic)});
            addSums(cells, row.sums);
            addCells(cells, {row.reachesFailing, row.reachesJudged});
            taker.row(cells);
        }
    };
    return {what == SumsOf::river ? "rivers" : "determinands", columns, rows};
}

Table sumTable(const StudyRun& run, std::vector<ReachGroup> groups, const ComplianceRequest& request,
               SumsOf what) {
    return sumTable(run, what, [run, groups = std::move(groups), request] {
        return complianceSums(run, groups, request);
    });
}

// A determinand and one of its points, for rows point by point.
struct JudgedPlace {
    int point;
    std::size_t determinand; // index into those judged
};

std::vector<JudgedPlace> judgedPlaces(const StudyRun& run, const std::vector<JudgedDeterminand>& determinands,
                                      const ReachChoice& reaches) {
    std::vector<JudgedPlace> places;
    for (const ReachGroup& reach : groupsByReach(*run.file, reaches))
        for (std::size_t d = 0; d < determinands.size(); ++d)
            for (const int point : judgedPointsOf(*run.file, reach.places.front(),
                                                  judgedValues(run.results(), determinands[d])))
                places.push_back({point, d});
    std::ranges::sort(places, [](const JudgedPlace& a, const JudgedPlace& b) {
        return a.point != b.point ? a.point < b.point : a.determinand < b.determinand;
    });
    return places;
}

std::string_view nameOf(Sureness sure) {
    static constexpr std::array<std::string_view, 3> names = {"pass", "fail", "unsure"};
    return names[static_cast<std::size_t>(sure)];
}

std::string_view passOrFail(bool fails) {
    return fails ? "fail" : "pass";
}

void givePoints(const StudyRun& run, const ComplianceRequest& request, RowTaker& taker) {
    const ResultsDataSet& results = run.results();
    const std::vector<JudgedDeterminand> determinands = judgedBy(run, request);
    std::vector<SeriesValues> columns;
    std::vector<std::string> names;
    for (const JudgedDeterminand& determinand : determinands) {
        columns.push_back(judgedValues(results, determinand));
        names.push_back(determinandName(results, determinand.number));
    }
    for (const auto& [point, d] : judgedPlaces(run, determinands, request.reaches)) {
        const SeriesValues& values = columns[d];
        const PointJudgement judgement = judgePoint(values, point, determinands[d].side);
        const std::array<Cell, 13> cells = {results.pointReach[point],
                                            results.pointDistance[point],
                                            std::string_view(results.pointSide[point]),
                                            std::string_view(results.pointLabel[point]),
                                            std::string_view(names[d]),
                                            nameOf(determinands[d].statistic),
                                            judgement.value,
                                            values.low(point),
                                            values.high(point),
                                            judgement.target,
                                            cellOf(judgement.ratio),
                                            passOrFail(judgement.fails),
                                            judgement.sure ? Cell(nameOf(*judgement.sure)) : Cell(Nothing())};
        taker.row(cells);
    }
}

ComplianceChange changeOf(const JudgedRun& run, const PointMatch& match, const ComplianceRow& row,
                          const ComplianceRequest& request) {
    const RunFile& base = *run.base->file;
    const int basePlace = base.reaches.placeOf(run.run.reaches().number(row.place));
    JudgedDeterminand inBase = row.determinand;
    inBase.statistic = judgedStatistic(base.results, inBase.number);
    const ReachCompliance before = judgeReach(base, basePlace, inBase);
    return {before.verdict, row.reach.verdict, row.reach.sums.failingLength - before.sums.failingLength,
            hasDeteriorated(base, *run.run.file, match, row.place, row.determinand, request.deterioration)};
}

void addReach(ComplianceSumRow& row, const ReachCompliance& reach) {
    row.sums += reach.sums;
    if (reach.verdict == Verdict::fail) ++row.reachesFailing;
    if (reach.verdict != Verdict::none) ++row.reachesJudged;
}

void giveStation(const StationRow& row, const ResultsDataSet& results, RowTaker& taker) {
    const auto& [determinand, station] = row;
    const std::string name = determinandName(results, determinand.number);
    const std::array<Cell, 10> cells = {results.pointReach[station.point],
                                        results.pointDistance[station.point],
                                        std::string_view(results.pointLabel[station.point]),
                                        std::string_view(name),
                                        nameOf(determinand.statistic),
                                        station.value,
                                        station.observed,
                                        station.target,
                                        passOrFail(station.fails),
                                        passOrFail(station.observedFails)};
    taker.row(cells);
}

std::vector<Column> stationColumns() {
    return namedColumns({"reach", "distance", "feature", "determinand", "statistic", "value", "observed",
                         "target", "verdict", "observed_verdict"});
}

} // namespace

std::vector<JudgedDeterminand> judgedBy(const StudyRun& run, const ComplianceRequest& request) {
    std::vector<JudgedDeterminand> judged = judgedDeterminands(run.results(), request.lowIsBad);
    std::erase_if(judged,
                  [&](const JudgedDeterminand& each) { return !request.determinands.contains(each.number); });
    return judged;
}

std::vector<ComplianceRow> complianceRows(const JudgedRun& run, const ComplianceRequest& request) {
    const RunFile& file = *run.run.file;
    std::optional<PointMatch> match;
    if (run.base) match = matchPoints(*run.base->file, file);
    std::vector<ComplianceRow> rows;
    for (const ReachGroup& reach : groupsByReach(file, request.reaches)) {
        for (const JudgedDeterminand& determinand : judgedBy(run.run, request)) {
            const int place = reach.places.front();
            ComplianceRow row{place, determinand, judgeReach(file, place, determinand), {}};
            if (match) row.change = changeOf(run, *match, row, request);
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

std::vector<OverallRow> overallRows(const StudyRun& run, const ComplianceRequest& request,
                                    const std::vector<ComplianceRow>& rows) {
    std::vector<OverallRow> overall;
    auto row = rows.begin();
    for (const ReachGroup& reach : groupsByReach(*run.file, request.reaches)) {
        const int place = reach.places.front();
        std::vector<DeterminandVerdict> verdicts;
        for (; row != rows.end() && row->place == place; ++row)
            verdicts.push_back({row->determinand.number, row->reach.verdict, row->reach.confident});
        overall.push_back({place, overallVerdict(verdicts)});
    }
    return overall;
}

std::vector<ComplianceSumRow> complianceSums(const StudyRun& run, const std::vector<ReachGroup>& groups,
                                             const ComplianceRequest& request) {
    std::vector<ComplianceSumRow> rows;
    for (const ReachGroup& group : groups) {
        for (const JudgedDeterminand& determinand : judgedBy(run, request)) {
            ComplianceSumRow row{group, determinand, {}, 0, 0};
            for (const int place : group.places) {
                addReach(row, judgeReach(*run.file, place, determinand));
            }
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

std::vector<ComplianceSumRow> complianceSums(const StudyRun& run, const ComplianceRequest& request,
                                             const std::vector<ComplianceRow>& rows) {
    std::vector<ComplianceSumRow> sums;
    for (const JudgedDeterminand& determinand : judgedBy(run, request))
        sums.push_back({wholeGroup(*run.file, request.reaches), determinand, {}, 0, 0});
    for (std::size_t k = 0; k < rows.size(); ++k)
        addReach(sums[k % sums.size()], rows[k].reach);
    return sums;
}

namespace {

void sortByPoint(std::vector<StationRow>& rows) {
    std::ranges::stable_sort(rows, {}, [](const StationRow& row) { return row.station.point; });
}

// Keeps the first ones by point, and of what comes later only what may still belong to them.
class StationGathering {
  public:
    explicit StationGathering(std::size_t most) : m_most(most) {}

    void take(const JudgedDeterminand& determinand, const std::vector<StationJudgement>& stations) {
        m_stations.count += stations.size();
        for (const StationJudgement& station : stations) {
            m_stations.agreement.take(station);
            if (station.point <= m_last) m_stations.first.push_back({determinand, station});
        }
        if (m_stations.first.size() / 2 > m_most) keepFirst();
    }
    Stations made() {
        keepFirst();
        return std::move(m_stations);
    }

  private:
    void keepFirst() {
        std::vector<StationRow>& rows = m_stations.first;
        sortByPoint(rows);
        if (rows.size() <= m_most) return;
        rows.resize(m_most);
        m_last = rows.empty() ? 0 : rows.back().station.point;
    }

    std::size_t m_most;
    int m_last = std::numeric_limits<int>::max();
    Stations m_stations;
};

template <typename Take>
void forStations(const StudyRun& run, const ComplianceRequest& request, const Take& take) {
    for (const ReachGroup& reach : groupsByReach(*run.file, request.reaches))
        for (const JudgedDeterminand& determinand : judgedBy(run, request))
            take(determinand, judgeStations(*run.file, reach.places.front(), determinand));
}

} // namespace

std::vector<StationRow> stationRows(const StudyRun& run, const ComplianceRequest& request) {
    std::vector<StationRow> rows;
    forStations(run, request, [&](const JudgedDeterminand& determinand, const auto& stations) {
        for (const StationJudgement& station : stations)
            rows.push_back({determinand, station});
    });
    sortByPoint(rows);
    return rows;
}

Stations firstStations(const StudyRun& run, const ComplianceRequest& request, std::size_t most) {
    StationGathering gathering(most);
    forStations(run, request, [&](const JudgedDeterminand& determinand, const auto& stations) {
        gathering.take(determinand, stations);
    });
    return gathering.made();
}

std::vector<Table> complianceByReach(const JudgedRun& run, const ComplianceRequest& request) {
    // Judged once, when the first of the two is asked for.
    const auto judged = std::make_shared<std::optional<std::vector<ComplianceRow>>>();
    const auto rows = [run, request, judged]() -> const std::vector<ComplianceRow>& {
        if (!*judged) *judged = complianceRows(run, request);
        return **judged;
    };
    return {{"reaches", reachColumns(),
             [run, rows](RowTaker& taker) {
                 for (const ComplianceRow& row : rows())
                     giveReachRow(row, run.run, taker);
             }},
            {"overall", namedColumns({"reach", "verdict", "confident_verdict", "failing"}),
             [run, request, rows](RowTaker& taker) {
                 for (const OverallRow& row : overallRows(run.run, request, rows()))
                     giveOverallRow(row, run.run, taker);
             }}};
}

Table complianceByDeterminand(const StudyRun& run, const ComplianceRequest& request) {
    return sumTable(run, {wholeGroup(*run.file, request.reaches)}, request, SumsOf::file);
}

Table complianceByRiver(const StudyRun& run, const Network& network, const ComplianceRequest& request) {
    return sumTable(run, groupsByRiver(*run.file, network, request.reaches), request, SumsOf::river);
}

Table complianceByPoint(const StudyRun& run, const ComplianceRequest& request) {
    return {"points",
            namedColumns({"reach", "distance", "side", "feature", "determinand", "statistic", "value", "low",
                          "high", "target", "ratio", "verdict", "confident"}),
            [run, request](RowTaker& taker) { givePoints(run, request, taker); }};
}

Table complianceByStation(const StudyRun& run, const ComplianceRequest& request) {
    return {"stations", stationColumns(), [run, request](RowTaker& taker) {
                for (const StationRow& row : stationRows(run, request))
                    giveStation(row, run.results(), taker);
            }};
}

Table stationTable(const StudyRun& run, std::vector<StationRow> stations) {
    return {"stations", stationColumns(), [run, stations = std::move(stations)](RowTaker& taker) {
                for (const StationRow& row : stations)
                    giveStation(row, run.results(), taker);
            }};
}

Table reachTable(const StudyRun& run, std::vector<ComplianceRow> rows) {
    return {"reaches", reachColumns(), [run, rows = std::move(rows)](RowTaker& taker) {
                for (const ComplianceRow& row : rows)
                    giveReachRow(row, run, taker);
            }};
}

Table determinandTable(const StudyRun& run, std::vector<ComplianceSumRow> sums) {
    return sumTable(run, SumsOf::file, [sums = std::move(sums)] { return sums; });
}

} // namespace korvel
