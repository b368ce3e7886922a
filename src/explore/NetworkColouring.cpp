#include "explore/NetworkColouring.h"

#include "analysis/ComplianceTable.h"
#include "explore/Scene.h"

namespace korvel {

namespace {

std::vector<Verdict> overallVerdicts(const ExploreState& state, const StudyRun& run) {
    ComplianceRequest request;
    for (int d = 1; d <= run.results().determinandCount; ++d)
        request.determinands.insert(d);
    request.lowIsBad = lowIsBadOf(state);
    std::vector<Verdict> verdicts(static_cast<std::size_t>(run.reaches().count()), Verdict::none);
    for (const OverallRow& row : overallRows(run, request, complianceRows({run, {}}, request)))
        verdicts[static_cast<std::size_t>(row.place)] =
            row.overall.confident == Verdict::unsure ? Verdict::unsure : row.overall.verdict;
    return verdicts;
}

} // namespace

NetworkView networkView(const ExploreState& state, NetworkColours colours, std::size_t run, int series) {
    const StudyRun& shown = state.study->runs()[run];
    NetworkView view;
    view.colours = colours;
    if (colours == NetworkColours::byVerdict) view.verdicts = overallVerdicts(state, shown);
    if (colours != NetworkColours::byValue) return view;
    view.values = reachMeans(*shown.file, series, state.statistic);
    view.valueName = shown.results().seriesNames[series] + ", " + std::string(nameOf(state.statistic));
    return view;
}

const NetworkView& KnownColouring::of(const ExploreState& state, NetworkColours colours, std::size_t run,
                                      int series) {
    const int seriesShown = colours == NetworkColours::byValue ? series : 0;
    Key key{state.study, colours, run, seriesShown, state.statistic, lowIsBadOf(state)};
    if (key == m_key) return m_view;
    m_view = networkView(state, colours, run, series);
    m_key = std::move(key);
    return m_view;
}

} // namespace korvel
