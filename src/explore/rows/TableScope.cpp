#include "explore/rows/TableScope.h"

#include "analysis/Judging.h"
#include "explore/PathChoice.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

TableScope scopeOf(const ExploreState& state) {
    TableScope scope;
    scope.base = state.study->base();
    for (const std::size_t run : state.shownRuns())
        scope.runs.push_back(state.study->runs()[run]);
    scope.network = state.network;
    scope.path = pathOf(state);
    scope.series = state.series;
    scope.statistic = state.statistic;
    scope.lowIsBad = state.lowIsBad.value_or(lowBadByName(scope.base.results()));
    scope.interpolated = state.interpolated;
    return scope;
}

// Two runs of a study may be the same file, but never have the same name.
bool isBase(const TableScope& scope, const StudyRun& run) {
    return run.name == scope.base.name;
}

std::shared_ptr<const RunChange> MatchedRuns::between(const StudyRun& base, const StudyRun& run) {
    for (const Pair& pair : m_pairs)
        if (pair.base == base.file && pair.run == run.file) return pair.change;
    m_pairs.push_back({base.file, run.file, std::make_shared<RunChange>(*base.file, *run.file)});
    return m_pairs.back().change;
}

void MatchedRuns::keepOnly(const StudyRun& base, const std::vector<StudyRun>& runs) {
    std::erase_if(m_pairs, [&](const Pair& pair) {
        const auto isIt = [&](const StudyRun& run) { return run.file == pair.run; };
        return pair.base != base.file || std::ranges::none_of(runs, isIt);
    });
}

std::string reachTitle(const RunFile& run, int number) {
    const std::string name = run.reachName(number);
    return std::to_string(number) + (name.empty() ? "" : " " + name);
}

std::string pointTitle(const ResultsDataSet& results, int point) {
    const std::string& label = results.pointLabel[point];
    return shownKm(results.pointDistance[point]) + (label.empty() ? "" : ", " + label);
}

ExplorePlace placeOf(const ResultsDataSet& results, int point) {
    return {results.pointReach[point], results.pointDistance[point], results.pointSide[point]};
}

ExplorePlace placeOfReach(const RunFile& run, int number) {
    const std::span<const int> points = run.reaches.pointsOf(run.reaches.placeOf(number));
    return points.empty() ? ExplorePlace{number, 0, ""} : placeOf(run.results, points.front());
}

} // namespace korvel
