#include "analysis/SourceWalk.h"

#include "basic/Numbers.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace korvel {

namespace {

// Figures in files are rounded: loads that differ by no more of the larger are the same.
constexpr double roundingShare = 1e-5;

bool isSameRounded(double a, double b) {
    return std::abs(a - b) <= roundingShare * std::max(a, b);
}

SourceKind kindOfFeature(int featureType) {
    switch (featureType) {
    case 2: return SourceKind::stream;
    case 3: return SourceKind::sewageWorks;
    case 5: return SourceKind::industry;
    case 7: return SourceKind::abstraction;
    default: return SourceKind::other;
    }
}

void scale(std::vector<double>& amounts, double factor) {
    for (double& amount : amounts)
        amount *= factor;
}

} // namespace

SourceWalk::SourceWalk(const RunFile& run, const Network& network, int series)
    : m_run(run),
      m_network(network),
      m_series(series),
      m_load(seriesValues(run.results, series, Statistic::mean).value),
      m_mixtures(network.next.size()) {}

void SourceWalk::through(int place, std::span<const int> points) {
    refuseNegative(place, points);
    m_diffuseSource = -1;
    m_alongLoss = -1;
    Mixture mixture = inflowInto(place);
    if (!points.empty()) begin(mixture, place, points.front());
    for (std::size_t k = 1; k < points.size(); ++k)
        step(mixture, place, points[k - 1], points[k]);
    m_mixtures[static_cast<std::size_t>(place)] = std::move(mixture);
}

// What runs into a reach comes together; nobody asks for the parts again.
SourceWalk::Mixture SourceWalk::inflowInto(int place) {
    Mixture all;
    for (const int inflow : m_network.inflows[static_cast<std::size_t>(place)]) {
        Mixture part = std::move(m_mixtures[static_cast<std::size_t>(inflow)]);
        if (all.sources.empty()) {
            all.sources = std::move(part.sources);
            all.amounts = std::move(part.amounts);
        } else {
            all.sources.insert(all.sources.end(), part.sources.begin(), part.sources.end());
            all.amounts.insert(all.amounts.end(), part.amounts.begin(), part.amounts.end());
        }
        all.load += part.load;
    }
    return all;
}

void SourceWalk::begin(Mixture& mixture, int place, int firstPoint) {
    const double load = loadAt(firstPoint);
    if (m_network.inflows[static_cast<std::size_t>(place)].empty()) {
        rise(
            mixture, place, load,
            {SourceKind::headwater, "Head of " + reachTitle(place), m_run.results.pointDistance[firstPoint]});
        mixture.load = load;
    } else if (isSameRounded(mixture.load, load)) {
        if (mixture.load != 0) scale(mixture.amounts, load / mixture.load);
        mixture.load = load;
    } else {
        change(mixture, place, load, {SourceKind::startOfReach, "Start of " + reachTitle(place), {}});
    }
}

void SourceWalk::step(Mixture& mixture, int place, int from, int to) {
    const double load = loadAt(to);
    if (load != mixture.load) change(mixture, place, load, isFeature(from, to) ? feature(to) : along(place));
}

void SourceWalk::change(Mixture& mixture, int place, double load, const Entry& entry) {
    if (load > mixture.load) {
        rise(mixture, place, load - mixture.load, entry);
    } else {
        lose(place, mixture.load - load, entry);
        scale(mixture.amounts, load / mixture.load);
    }
    mixture.load = load;
}

void SourceWalk::rise(Mixture& mixture, int place, double amount, const Entry& entry) {
    const bool diffuse = entry.kind == SourceKind::diffuse;
    if (diffuse && m_diffuseSource >= 0) {
        m_contributions[static_cast<std::size_t>(m_diffuseSource)].load += amount;
        mixture.amounts[m_diffuseAt] += amount;
        return;
    }
    const int source = static_cast<int>(m_contributions.size());
    if (diffuse) {
        m_diffuseSource = source;
        m_diffuseAt = mixture.sources.size();
    }
    m_contributions.push_back(
        {entry.kind, entry.name, m_run.reaches.number(place), entry.distance, amount, 0, {}});
    mixture.sources.push_back(source);
    mixture.amounts.push_back(amount);
}

void SourceWalk::lose(int place, double amount, const Entry& entry) {
    const bool along = entry.kind == SourceKind::diffuse;
    if (along && m_alongLoss >= 0) {
        m_losses[static_cast<std::size_t>(m_alongLoss)].load += amount;
        return;
    }
    if (along) m_alongLoss = static_cast<int>(m_losses.size());
    m_losses.push_back({entry.name, m_run.reaches.number(place), entry.distance, amount});
}

LoadSources SourceWalk::at(int place) const {
    const Mixture& mixture = m_mixtures[static_cast<std::size_t>(place)];
    std::vector<std::size_t> order(mixture.sources.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t k) { return mixture.sources[k]; });
    LoadSources sources;
    sources.load = mixture.load;
    sources.losses = m_losses;
    for (const std::size_t k : order) {
        Contribution contribution = m_contributions[static_cast<std::size_t>(mixture.sources[k])];
        contribution.arrives = mixture.amounts[k];
        sources.contributions.push_back(std::move(contribution));
    }
    return sources;
}

SourceWalk::Entry SourceWalk::along(int place) const {
    return {SourceKind::diffuse, "Along " + reachTitle(place), {}};
}

// A feature stands between its two sides.
bool SourceWalk::isFeature(int from, int to) const {
    const ResultsDataSet& results = m_run.results;
    return results.pointSide[from] == "U/S" && results.pointSide[to] != "U/S" &&
           results.pointDistance[from] == results.pointDistance[to];
}

SourceWalk::Entry SourceWalk::feature(int point) const {
    const ResultsDataSet& results = m_run.results;
    return {kindOfFeature(results.pointFeatureType[point]), results.pointLabel[point],
            results.pointDistance[point]};
}

std::string SourceWalk::reachTitle(int place) const {
    const int number = m_run.reaches.number(place);
    std::string name = m_run.reachName(number);
    return name.empty() ? std::to_string(number) : name;
}

double SourceWalk::loadAt(int point) const {
    return m_load[static_cast<std::size_t>(point)];
}

void SourceWalk::refuseNegative(int place, std::span<const int> points) const {
    const ResultsDataSet& results = m_run.results;
    for (const int point : points) {
        if (loadAt(point) >= 0) continue;
        const std::string& label = results.pointLabel[point];
        throw SourcesRefused(results.seriesNames[m_series] + " is " + shortestNumber(loadAt(point)) +
                             ", below 0, in reach " + std::to_string(m_run.reaches.number(place)) + " at " +
                             shortestNumber(results.pointDistance[point]) + " km" +
                             (label.empty() ? "" : " (" + label + ")"));
    }
}

} // namespace korvel
