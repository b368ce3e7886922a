#include "engine/MonteCarlo.h"

#include "engine/ExactFunctions.h"

#include <cmath>
#include <utility>

namespace korvel::engine {

namespace {

constexpr double quantile95 = 1.6448536269514722;

// A normal of the given correlation with `with`, made of it and of an independent one.
Shots correlated(const Shots& with, Shots independent, double correlation) {
    const double rest = std::sqrt(1 - correlation * correlation);
    for (std::size_t i = 0; i < independent.size(); ++i)
        independent[i] = correlation * with[i] + rest * independent[i];
    return independent;
}

// exp(sigma z) scaled to the mean; sigma 0 is a constant.
Shots logNormal(const Shots& normals, double mean, double sigma) {
    Shots values(normals.size(), mean);
    if (sigma > 0)
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = mean * exponential(sigma * normals[i] - sigma * sigma / 2);
    return values;
}

// From mean = exp(mu + sigma^2 / 2) and low = exp(mu - 1.645 sigma).
double sigmaOfFlow(const FlowSet& set) {
    if (set.mean <= 0) return 0;
    return std::sqrt(quantile95 * quantile95 + 2 * naturalLog(set.mean / set.low)) - quantile95;
}

double sigmaOfQuality(const QualityValue& value) {
    if (value.mean <= 0) return 0;
    const double spread = value.deviation / value.mean;
    return std::sqrt(naturalLog(1 + spread * spread));
}

} // namespace

std::uint64_t RandomNumbers::next() {
    m_state += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31);
}

double RandomNumbers::uniform() {
    return (static_cast<double>(next() >> 11) + 0.5) / 9007199254740992.0;
}

MonteCarlo::MonteCarlo(const Settings& settings)
    : m_seed(static_cast<std::uint64_t>(settings.seed)), m_shots(static_cast<std::size_t>(settings.shots)) {
    m_hydrology = standardNormals({Source::hydrology}, 0);
}

// One value from each of as many equal slices of the distribution, in random order: the mean and the
// percentiles of a source then come out close to what was asked for with few shots.
Shots MonteCarlo::standardNormals(SourceKey key, int part) const {
    RandomNumbers seeds(m_seed * 1000003 + static_cast<std::uint64_t>(key.source));
    const std::uint64_t number =
        static_cast<std::uint64_t>(key.number) * 64 + static_cast<std::uint64_t>(part);
    RandomNumbers random(seeds.next() ^ (number * 0xD1342543DE82EF95U));
    Shots normals(m_shots);
    for (std::size_t i = 0; i < m_shots; ++i)
        normals[i] =
            normalQuantile((static_cast<double>(i) + random.uniform()) / static_cast<double>(m_shots));
    for (std::size_t i = m_shots; i > 1; --i)
        std::swap(normals[i - 1], normals[random.next() % i]);
    return normals;
}

Shots MonteCarlo::flowNormals(const FlowSet& set, SourceKey key) const {
    return correlated(m_hydrology, standardNormals(key, 0), set.correlation);
}

Shots MonteCarlo::flow(const FlowSet& set, SourceKey key) const {
    return logNormal(flowNormals(set, key), set.mean, sigmaOfFlow(set));
}

Water MonteCarlo::water(const Catchment& catchment, int flowSet, int qualitySet, SourceKey key) const {
    const FlowSet set = catchment.flow(flowSet);
    const Shots normals = flowNormals(set, key);
    Water water{logNormal(normals, set.mean, sigmaOfFlow(set)), {}};
    for (const Determinand& determinand : catchment.determinands) {
        const QualityValue value = catchment.quality(qualitySet, determinand.number);
        const Shots own = standardNormals(key, determinand.number);
        water.quality.push_back(
            logNormal(correlated(normals, own, value.correlation), value.mean, sigmaOfQuality(value)));
    }
    return water;
}

} // namespace korvel::engine
