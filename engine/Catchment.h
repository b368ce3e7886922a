// A catchment as its data file describes it: plain values, checked by the parser. Sets (flows, qualities,
// targets) are named by their number in the file; 0 means none.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace korvel::engine {

inline constexpr int maxDeterminands = 10;
inline constexpr int maxPoints = 59999; // as many as the graph results file can hold
inline constexpr int maxReachNumber = 9999;

// The statistic that a target limits, by the codes of the graph results file.
enum class StandardStatistic { mean = 1, percentile95 = 2, percentile90 = 3, percentile99 = 6 };

struct Determinand {
    int number = 0;
    std::string name;
    std::string units;
    int type = 1; // 4: carries no targets
    StandardStatistic statistic = StandardStatistic::mean;
    double decay = 0; // first-order loss, 1/day
    double best = 0;  // lowest and highest mean that an effluent standard may ask for; 0 and 0: none is set
    double worst = 0;
};

struct Reach {
    int number = 0;
    std::string name;
    double length = 0;           // km
    int next = 0;                // number of the reach downstream, 0 at the mouth
    double velocity = 0;         // km/day at 1 Ml/day ...
    double velocityExponent = 0; // ... and the power of the flow that it grows with
    int headFlow = 0, headQuality = 0;
    int diffuseFlow = 0, diffuseQuality = 0; // over the whole reach, evenly
    int targets = 0;
    int line = 0; // of the data file
};

// Feature types, by the codes of the graph results file.
enum class FeatureType {
    reachBoundary = 0,
    monitoringStation = 1,
    stream = 2,
    sewageDischarge = 3,
    flowGauge = 4,
    industrialEffluent = 5,
    abstraction = 7,
    weir = 9,
    headOfReach = 10,
    stormOverflow = 17,
    interpolated = 99
};

bool isEffluent(FeatureType type); // sewage, industry, storm overflows
bool isInflow(FeatureType type);   // effluents and streams
bool changesFlow(FeatureType type);

struct Feature {
    int number = 0;
    int reach = 0;
    double distance = 0; // km from the head of the reach
    FeatureType type = FeatureType::monitoringStation;
    std::string name;
    int flow = 0, quality = 0;
    int line = 0;
};

// Log-normal flow, Ml/day.
struct FlowSet {
    double mean = 0;
    double low = 0;         // exceeded for 95 % of the time
    double correlation = 0; // with the flow of the whole catchment
};

// Log-normal quality of one determinand, mg/l.
struct QualityValue {
    double mean = 0;
    double deviation = 0;
    double correlation = 0; // with the flow that it comes with
};

struct TargetValue {
    double value = 0;
    double better = 0; // limit of the next better class
};

// What was measured at a feature; 0 where nothing was.
struct Observed {
    double mean = 0;
    double percentile90 = 0, percentile95 = 0, percentile99 = 0; // a flow's low flow stands in all three
};

struct Settings {
    std::string title;
    int shots = 1000;
    int seed = 1;
    double spacing = 0;     // km between interpolated points, 0: none
    int percentileMode = 0; // of the graph results file
    int samples = 36;       // samples behind the quality data, for the confidence limits
};

using BySetAndDeterminand = std::pair<int, int>;

struct Catchment {
    Settings settings;
    std::vector<Determinand> determinands; // numbered 1, 2, ... in this order
    std::vector<Reach> reaches;            // each before the one that it runs into
    std::vector<Feature> features;         // in the order of reaches and distances
    std::map<int, FlowSet> flows;
    std::map<BySetAndDeterminand, QualityValue> qualities;
    std::map<BySetAndDeterminand, TargetValue> targets;
    std::map<std::pair<int, int>, Observed> observed; // by feature number and determinand, 0 flow

    FlowSet flow(int set) const;                             // all 0 for set 0
    QualityValue quality(int set, int determinand) const;    // likewise where nothing is given
    TargetValue target(int set, int determinand) const;      // likewise
    Observed observedAt(int feature, int determinand) const; // likewise
    const Reach* findReach(int number) const;
};

} // namespace korvel::engine
