// One reach: the water of its sources, drawn once, and the walk down the river that mixes, loses and takes
// it.
#pragma once

#include "engine/GapFills.h"
#include "engine/MonteCarlo.h"
#include "engine/PointList.h"

#include <array>
#include <functional>
#include <vector>

namespace korvel::engine {

// Where a reach's mean flows and loads come from and go to.
enum class BalanceItem {
    upstream,
    head,
    diffuse,
    streams,
    sewage,
    industry,
    overflows,
    abstractions,
    decay,
    gapFilling,
    downstream
};
inline constexpr std::size_t balanceItems = 11;

struct Amounts {
    double flow = 0;           // Ml/day
    std::vector<double> loads; // kg/day by determinand
};

Amounts amountsOf(const Water& water);
// Adds `sign` times the amounts.
void add(Amounts& to, const Amounts& amounts, double sign);

using Balance = std::array<Amounts, balanceItems>;

// Changes the effluent of a discharge before it is mixed with the river that arrives there.
using EffluentTreatment = std::function<void(const Feature&, const Water& river, Water& effluent)>;
using PointObserver = std::function<void(const Point&, const Water& river)>;

// `first` becomes the mixture of both.
void mix(Water& first, const Water& second);

class ReachRun {
  public:
    ReachRun(const Catchment& catchment, const MonteCarlo& monteCarlo, const Reach& reach, Water upstream);

    // From the head to the end, telling the observer, if there is one, of every point; returns the water at
    // the end.
    Water pass(const GapFills& fills, const EffluentTreatment& treat, const PointObserver& observe,
               Balance* balance = nullptr) const;

    // The river at one of this reach's points.
    Water riverAt(const Point& wanted, const GapFills& fills) const;

    const Reach& reach() const { return m_reach; }
    const std::vector<Point>& points() const { return m_points; }

  private:
    friend class ReachWalk;

    const Catchment& m_catchment;
    const MonteCarlo& m_monteCarlo;
    const Reach& m_reach;
    std::vector<Point> m_points;
    Water m_upstream, m_head, m_diffuse;
    std::vector<Water>
        m_inflows; // by point; empty but for the downstream side of features that change the flow
};

} // namespace korvel::engine
