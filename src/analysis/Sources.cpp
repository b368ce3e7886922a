#include "analysis/Sources.h"

#include "analysis/SourceWalk.h"
#include "basic/Numbers.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <tuple>

namespace korvel {

namespace {

std::optional<double> percentOf(double part, double whole) {
    if (whole == 0) return std::nullopt;
    return 100 * part / whole;
}

// How many of the reach's points lie above the place, it included. All for the reach's end.
std::size_t pointsDownTo(const RunFile& run, int reachPlace, const SourcePlace& place) {
    const std::span<const int> points = run.reaches.pointsOf(reachPlace);
    if (!place.distance) return points.size();
    const auto isAbove = [&](int point) { return run.results.pointDistance[point] <= *place.distance; };
    const auto last = std::find_if(points.rbegin(), points.rend(), isAbove);
    if (last == points.rend()) {
        const std::string reach = "reach " + std::to_string(place.reach);
        throw SourcesRefused(points.empty() ? reach + " has no points"
                                            : shortestNumber(*place.distance) +
                                                  " km lies before the first point of " + reach);
    }
    return static_cast<std::size_t>(points.rend() - last);
}

std::vector<bool> upstreamOf(const Network& network, int place) {
    std::vector<bool> isUpstream(network.next.size(), false);
    isUpstream[static_cast<std::size_t>(place)] = true;
    for (auto reach = network.downward.rbegin(); reach != network.downward.rend(); ++reach) {
        const int next = network.next[static_cast<std::size_t>(*reach)];
        if (next >= 0 && *reach != place && isUpstream[static_cast<std::size_t>(next)])
            isUpstream[static_cast<std::size_t>(*reach)] = true;
    }
    return isUpstream;
}

using SourceKey = std::tuple<SourceKind, int, bool, double>;

SourceKey keyOf(const Contribution& contribution) {
    return {contribution.kind, contribution.reach, contribution.distance.has_value(),
            contribution.distance.value_or(0)};
}

} // namespace

std::string_view nameOf(SourceKind kind) {
    static constexpr std::array<std::string_view, sourceKinds> names = {
        "headwater",   "stream", "sewage works", "industry",
        "abstraction", "other",  "diffuse",      "start of reach"};
    return names[static_cast<std::size_t>(kind)];
}

LoadSources sourcesOf(const RunFile& run, const Network& network, int series, const SourcePlace& place) {
    const int last = run.reaches.placeOf(place.reach);
    if (last < 0) throw SourcesRefused("there is no reach " + std::to_string(place.reach));
    const std::size_t points = pointsDownTo(run, last, place);
    const std::vector<bool> isUpstream = upstreamOf(network, last);

    SourceWalk walk(run, network, series);
    for (const int reach : network.downward) {
        if (!isUpstream[static_cast<std::size_t>(reach)]) continue;
        const std::span<const int> all = run.reaches.pointsOf(reach);
        walk.through(reach, reach == last ? all.first(points) : all);
    }
    LoadSources sources = walk.at(last);
    sources.reach = place.reach;
    if (points > 0) sources.distance = run.results.pointDistance[run.reaches.pointsOf(last)[points - 1]];
    for (Contribution& contribution : sources.contributions)
        contribution.share = percentOf(contribution.arrives, sources.load);
    std::ranges::stable_sort(sources.contributions, std::ranges::greater(), &Contribution::arrives);
    return sources;
}

std::optional<SourcePlace> largestMouth(const RunFile& run, const Network& network, int series) {
    const std::span<const double> load = seriesValues(run.results, series, Statistic::mean).value;
    const std::vector<double> atEnd = outflowsOf(run, network, load);
    const auto largest = std::ranges::max_element(
        network.mouths, {}, [&](int mouth) { return atEnd[static_cast<std::size_t>(mouth)]; });
    if (largest == network.mouths.end()) return std::nullopt;
    return SourcePlace{run.reaches.number(*largest), {}};
}

std::vector<KindSum> sourcesByKind(const LoadSources& sources) {
    std::vector<KindSum> kinds;
    for (int k = 0; k < sourceKinds; ++k) {
        KindSum sum{static_cast<SourceKind>(k), 0, 0, {}};
        bool any = false;
        for (const Contribution& contribution : sources.contributions) {
            if (contribution.kind != sum.kind) continue;
            any = true;
            sum.load += contribution.load;
            sum.arrives += contribution.arrives;
        }
        sum.share = percentOf(sum.arrives, sources.load);
        if (any) kinds.push_back(sum);
    }
    return kinds;
}

const Contribution& ComparedSource::any() const {
    return **std::ranges::find_if(runs, [](const Contribution* each) { return each != nullptr; });
}

std::vector<ComparedSource> compareSources(const std::vector<std::span<const Contribution>>& runs) {
    std::vector<ComparedSource> sources;
    std::map<SourceKey, std::vector<std::size_t>> known; // in the order of the sources
    for (std::size_t run = 0; run < runs.size(); ++run) {
        std::map<SourceKey, std::size_t> taken;
        for (const Contribution& contribution : runs[run]) {
            std::vector<std::size_t>& same = known[keyOf(contribution)];
            const std::size_t next = taken[keyOf(contribution)]++;
            if (next == same.size()) {
                same.push_back(sources.size());
                sources.push_back({std::vector<const Contribution*>(runs.size(), nullptr)});
            }
            sources[same[next]].runs[run] = &contribution;
        }
    }
    return sources;
}

std::vector<Contribution> asContributions(const std::vector<Loss>& losses) {
    std::vector<Contribution> contributions;
    contributions.reserve(losses.size());
    for (const Loss& loss : losses)
        contributions.push_back({SourceKind::other, loss.name, loss.reach, loss.distance, loss.load, 0, {}});
    return contributions;
}

} // namespace korvel
