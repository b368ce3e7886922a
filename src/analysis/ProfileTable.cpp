#include "analysis/ProfileTable.h"

#include "analysis/MainRiver.h"
#include "study/SeriesValues.h"

#include <array>

namespace korvel {

namespace {

constexpr std::size_t kmColumn = 3, valueColumn = 5;

void giveRun(const StudyRun& run, const TidyRequest& request, RowTaker& taker) {
    const Network network = networkOf(*run.file);
    const River* const river = mainRiver(*run.file, network);
    if (!river || request.series.empty() || request.statistics.empty()) return;
    const ResultsDataSet& results = run.results();
    const auto values = seriesValues(results, request.series.front(), request.statistics.front()).value;
    double start = 0;
    for (const int place : river->reaches) {
        const int reach = run.reaches().number(place);
        const std::string name = run.file->reachName(reach);
        for (const int point : run.reaches().pointsOf(place)) {
            if (!isInTidyTable(results, request, point)) continue;
            const std::array<Cell, 6> cells = {std::string_view(run.name),
                                               reach,
                                               std::string_view(name),
                                               start + results.pointDistance[point],
                                               std::string_view(results.pointLabel[point]),
                                               values[SeriesValues::at(point)]};
            taker.row(cells);
        }
        start += results.reachLengths[reach];
    }
}

LineChart chartOf(const StudyRun& base, const TidyRequest& request) {
    if (request.series.empty() || request.statistics.empty()) return {};
    const std::string series = base.results().seriesNames[request.series.front()];
    const std::string statistic = factsOf(request.statistics.front()).caption;
    const Network network = networkOf(*base.file);
    const River* const river = mainRiver(*base.file, network);
    return {series + ", " + statistic + (river ? ", " + river->name : ""), "km from the head", series,
            kmColumn, valueColumn};
}

} // namespace

ChartedTable mainRiverProfile(const RunSequence& runs, const StudyRun& base, const TidyRequest& request,
                              std::size_t most) {
    const std::vector<Column> columns = {{"run"}, {"reach"}, {"reach_name"}, {"km"}, {"feature"}, {"value"}};
    const auto rows = [runs, request, count = std::min(most, runs.count)](RowTaker& taker) {
        for (std::size_t k = 0; k < count; ++k)
            giveRun(runs.run(k), request, taker);
    };
    return {{"profile", columns, rows}, chartOf(base, request)};
}

} // namespace korvel
