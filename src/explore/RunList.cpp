#include "explore/RunList.h"

#include "basic/ModelName.h"
#include "explore/PathChoice.h"

#include <algorithm>
#include <numeric>

namespace korvel {

namespace {

constexpr int concentrationsAtFirst = 3;

struct Arranged {
    std::shared_ptr<const Study> study;
    std::optional<std::string> refusal;
};

std::vector<SharedRun> filesOf(const ExploreState& state) {
    std::vector<SharedRun> files;
    if (!state.isEmpty())
        for (const StudyRun& run : state.study->runs())
            files.push_back(run.file);
    return files;
}

Arranged arranged(const std::vector<SharedRun>& files) {
    auto study = std::make_shared<Study>();
    for (const SharedRun& file : files)
        if (auto refusal = study->add(file)) return {nullptr, std::move(refusal)};
    return {study, {}};
}

void keepPath(ExploreState& state) {
    const RunFile& base = *state.study->base().file;
    if (isPath(base, *state.network, {state.from, state.to})) return;
    const PathEnds first = firstPath(base, *state.network);
    state.from = first.from;
    state.to = first.to;
    state.visible.reset();
    state.cursor.reset();
    state.cursorPinned = false;
}

void keepSeries(ExploreState& state) {
    const ResultsDataSet& results = state.study->base().results();
    std::erase_if(state.series, [&](int series) { return series > results.seriesCount; });
    if (state.series.empty()) state.series = firstSeries(results);
}

void take(ExploreState& state, std::shared_ptr<const Study> study) {
    const bool hasBase = !state.isEmpty() && state.study->base().file == study->base().file;
    state.study = std::move(study);
    if (!hasBase) state.network = std::make_shared<const Network>(networkOf(*state.study->base().file));
    keepSeries(state);
    keepPath(state);
}

// The runs in another order or fewer of them, given by their former places.
void keepRuns(ExploreState& state, const std::vector<std::size_t>& places) {
    const std::vector<SharedRun> before = filesOf(state);
    std::vector<SharedRun> files;
    std::set<std::size_t> hidden;
    for (const std::size_t place : places) {
        if (state.hidden.contains(place)) hidden.insert(files.size());
        files.push_back(before[place]);
    }
    state.hidden = std::move(hidden);
    take(state, arranged(files).study);
}

std::vector<std::size_t> placesOf(const ExploreState& state) {
    std::vector<std::size_t> places(state.isEmpty() ? 0 : state.study->runs().size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    return places;
}

} // namespace

std::vector<int> firstSeries(const ResultsDataSet& results) {
    std::vector<int> series(
        static_cast<std::size_t>(1 + std::min(concentrationsAtFirst, results.determinandCount)));
    std::iota(series.begin(), series.end(), 0);
    return series;
}

std::optional<std::string> addRun(ExploreState& state, SharedRun run) {
    std::vector<SharedRun> files = filesOf(state);
    if (files.size() == MaxRuns)
        return fileOf(run->file) + ": there are " + std::to_string(MaxRuns) +
               " runs already, as many as there can be.";
    files.push_back(std::move(run));
    Arranged together = arranged(files);
    if (together.refusal) return together.refusal;
    take(state, std::move(together.study));
    return {};
}

void removeRun(ExploreState& state, std::size_t run) {
    std::vector<std::size_t> places = placesOf(state);
    places.erase(places.begin() + static_cast<std::ptrdiff_t>(run));
    if (!places.empty()) return keepRuns(state, places);
    state.study.reset();
    state.network.reset();
    state.hidden.clear();
    state.visible.reset();
    state.cursor.reset();
    state.cursorPinned = false;
}

void moveRun(ExploreState& state, std::size_t run, std::size_t to) {
    if (run == to) return;
    std::vector<std::size_t> places = placesOf(state);
    places.erase(places.begin() + static_cast<std::ptrdiff_t>(run));
    places.insert(places.begin() + static_cast<std::ptrdiff_t>(to), run);
    keepRuns(state, places);
}

std::optional<std::string> replaceRun(ExploreState& state, std::size_t run, SharedRun fresh) {
    std::vector<SharedRun> files = filesOf(state);
    files[run] = std::move(fresh);
    Arranged together = arranged(files);
    if (together.refusal) return together.refusal;
    take(state, std::move(together.study));
    return {};
}

} // namespace korvel
