// Small rivers for the analyses: one determinand, BOD, whose concentration is series 1 and load series 2.
#pragma once

#include "analysis/MainRiver.h"
#include "fakes/StudySample.h"

namespace korvel {

struct PointSample {
    double distance = 0;
    double value = 0; // mean concentration
    double target = 0;
    double low = 0; // limits of the mean
    double high = 0;
    int type = 10;
    double observed = 0;
    std::string label = "P";
};

inline ResultsFileBuilder riverOf(const std::vector<std::pair<int, double>>& reaches, int statistic = 1,
                                  const std::string& determinand = "BOD") {
    ResultsFileBuilder file;
    file.determinand(1, determinand, statistic);
    for (std::size_t k = 0; k < reaches.size(); ++k) {
        const int next = k + 1 < reaches.size() ? reaches[k + 1].first : 0;
        file.reach(reaches[k].first, "Reach " + std::to_string(reaches[k].first), reaches[k].second, next);
    }
    return file;
}

inline ResultsFileBuilder& addPoints(ResultsFileBuilder& file, int reach,
                                     const std::vector<PointSample>& points) {
    using enum ValueField;
    for (const PointSample& point : points) {
        file.point(reach, point.distance, point.label, point.type).setAll(0);
        file.set(meanValue, 1, point.value).set(targetValue, 1, point.target);
        file.set(meanLimit1, 1, point.low).set(meanLimit2, 1, point.high);
        file.set(observedMean, 1, point.observed);
    }
    return file;
}

// One reach of 10 km.
inline ResultsFileBuilder oneReach(const std::vector<PointSample>& points,
                                   const std::string& determinand = "BOD") {
    ResultsFileBuilder file = riverOf({{1, 10}}, 1, determinand);
    return addPoints(file, 1, points);
}

// The places of the reaches that a study is shown along where nobody has chosen others.
inline std::vector<int> mainReaches(const Study& study) {
    const Network network = networkOf(*study.base().file);
    return mainRiver(*study.base().file, network)->reaches;
}

} // namespace korvel
