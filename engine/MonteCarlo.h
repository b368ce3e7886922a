// Random flows and qualities. Every source has a stream of random numbers of its own, told by its key, so
// that a change to one source leaves the draws of all others as they were and two runs can be compared shot
// by shot.
#pragma once

#include "engine/Catchment.h"

#include <cstdint>
#include <vector>

namespace korvel::engine {

using Shots = std::vector<double>; // one value a shot

// What a stream of random numbers belongs to.
enum class Source : std::uint64_t { hydrology = 1, head, diffuse, feature, gapFilling };

struct SourceKey {
    Source source;
    int number = 0; // of the reach or feature
};

class RandomNumbers {
  public:
    explicit RandomNumbers(std::uint64_t seed) : m_state(seed) {}
    std::uint64_t next();
    double uniform(); // above 0, below 1

  private:
    std::uint64_t m_state;
};

// Water from one source: flow in Ml/day, quality in mg/l by determinand.
struct Water {
    Shots flow;
    std::vector<Shots> quality;
};

class MonteCarlo {
  public:
    explicit MonteCarlo(const Settings& settings);

    std::size_t shots() const { return m_shots; }
    Shots flow(const FlowSet& set, SourceKey key) const;
    Water water(const Catchment& catchment, int flowSet, int qualitySet, SourceKey key) const;

  private:
    Shots standardNormals(SourceKey key, int part) const;
    Shots flowNormals(const FlowSet& set, SourceKey key) const;

    std::uint64_t m_seed;
    std::size_t m_shots;
    Shots m_hydrology;
};

} // namespace korvel::engine
