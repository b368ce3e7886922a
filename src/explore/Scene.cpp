#include "explore/Scene.h"

#include "analysis/Judging.h"
#include "explore/PathChoice.h"

#include <cmath>

namespace korvel {

namespace {

constexpr ProfileKind kindOf(ExploreView view) {
    return view == ExploreView::change  ? ProfileKind::change
           : view == ExploreView::ratio ? ProfileKind::ratio
                                        : ProfileKind::values;
}

std::shared_ptr<const StudyPath> wayOf(const ExploreState& state) {
    return std::make_shared<const StudyPath>(studyPath(*state.study, pathOf(state)));
}

} // namespace

std::set<int> lowIsBadOf(const ExploreState& state) {
    if (state.lowIsBad) return *state.lowIsBad;
    return state.isEmpty() ? std::set<int>() : lowBadByName(state.study->base().results());
}

ProfileView profileView(const ExploreState& state) {
    ProfileView view;
    view.series = state.series;
    view.statistic = state.statistic;
    view.kind = kindOf(state.view);
    view.scale = state.scale;
    view.fromZero = state.fromZero;
    view.limits = state.limits;
    view.targets = state.targets;
    view.observed = state.observed;
    view.interpolated = state.interpolated;
    if (state.visible) {
        view.fromKm = state.visible->from;
        view.toKm = state.visible->to;
    }
    view.hidden = state.hidden;
    view.lowIsBad = lowIsBadOf(state);
    return view;
}

void ExploreScene::show(const ExploreState& state) {
    const PathKey key{state.study, state.from, state.to};
    const ProfileView view = profileView(state);
    if (!m_data || key != m_key)
        m_data = profileData(*state.study, wayOf(state), view);
    else if (!servesAlso(m_view, view))
        m_data = profileData(*state.study, m_data->path, view);
    m_key = key;
    m_view = view;
}

std::optional<std::size_t> ExploreScene::placeOf(const ExplorePlace& place) const {
    std::optional<std::size_t> best;
    double bestGap = 0;
    for (std::size_t k = 0; k < path().places.size(); ++k) {
        const ExplorePlace there = placeAt(k);
        if (there.reach != place.reach) continue;
        const double gap = std::abs(there.distance - place.distance) + (there.side == place.side ? 0 : 1e-9);
        if (best && gap >= bestGap) continue;
        best = k;
        bestGap = gap;
    }
    return best;
}

ExplorePlace ExploreScene::placeAt(std::size_t place) const {
    const PathPlace& there = path().places[place];
    const ResultsDataSet& results = study().runs()[there.run].results();
    return {path().reaches[there.reach].number, results.pointDistance[there.point], sideAt(study(), there)};
}

std::string cursorText(const Readout& readout, ProfileKind kind, std::size_t panel) {
    if (panel >= readout.panels.size()) return readoutText(readout, kind);
    return placeText(readout) + " \u00b7 " + panelText(readout.panels[panel], kind);
}

} // namespace korvel
