// Sets the quality of discharges so that the river below them just meets its targets.
#pragma once

#include "engine/ReachRun.h"

#include <string>
#include <vector>

namespace korvel::engine {

enum class StandardsRule {
    meetTargets,     // a discharge may become better or worse, between the best and the worst standards
    noDeterioration, // none may become worse than it is
    midClassUpstream // likewise, and the river above is taken to be in the middle of its class
};

struct EffluentStandard {
    const Feature* feature = nullptr;
    int determinand = 0;
    double present = 0;  // mean effluent quality, mg/l
    double standard = 0; // the mean that is set
    double target = 0;
    double below = 0; // the target's statistic below the discharge with the standard
    bool meets() const { return below <= target * 1.001; }
};

class EffluentStandards {
  public:
    EffluentStandards(const Catchment& catchment, StandardsRule rule)
        : m_catchment(catchment), m_rule(rule) {}

    void treat(const Feature& feature, const Water& river, Water& effluent);
    const std::vector<EffluentStandard>& standards() const { return m_standards; }

  private:
    void treatDeterminand(const Feature& feature, const Determinand& determinand, const TargetValue& target,
                          const Water& river, Water& effluent);
    Shots upstreamQuality(const Determinand& determinand, const TargetValue& target,
                          const Water& river) const;

    const Catchment& m_catchment;
    StandardsRule m_rule;
    std::vector<EffluentStandard> m_standards;
};

// The statistic that a determinand's targets limit.
double statisticOf(Shots quality, StandardStatistic statistic);

} // namespace korvel::engine
