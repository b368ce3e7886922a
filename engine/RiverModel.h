// The whole catchment, reach by reach from the headwaters to the mouth.
#pragma once

#include "engine/EffluentStandards.h"
#include "engine/Percentiles.h"

#include <functional>
#include <map>

namespace korvel::engine {

struct PointResult {
    Point point;
    Summary flow;
    std::vector<Summary> concentrations, loads; // by determinand; mg/l and kg/day
};

struct ReachResult {
    const Reach* reach = nullptr;
    Balance balance;
};

struct ModelResult {
    std::vector<PointResult> points;
    std::vector<ReachResult> reaches;
    std::vector<EffluentStandard> standards;
};

enum class GapSearch { none, flows, qualities };

// Called before each reach, with its place from 1.
using ReachProgress = std::function<void(std::size_t place, const Reach&)>;

class RiverModel {
  public:
    // The catchment must outlive the model and its results.
    explicit RiverModel(const Catchment& catchment)
        : m_catchment(catchment), m_monteCarlo(catchment.settings) {}

    // Finds the fills of this kind and adds them to those that are there.
    void search(GapSearch what, GapFills& fills, const ReachProgress& progress) const;
    ModelResult run(const GapFills& fills, EffluentStandards* standards, const ReachProgress& progress) const;

  private:
    using ReachVisitor = std::function<Water(const ReachRun&)>;
    void walk(const ReachVisitor& visit, const ReachProgress& progress) const;
    PointResult resultAt(const Point& point, const Water& river) const;

    const Catchment& m_catchment;
    MonteCarlo m_monteCarlo;
};

} // namespace korvel::engine
