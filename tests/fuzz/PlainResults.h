// A results file read by the rules told once more, letter by letter and without care for speed: what the
// results reader is held against.
#pragma once

#include "results/ResultsDataSet.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel {

struct PlainPoint {
    int reach = 0;
    double distance = 0;
    std::string label; // as in the file
    int featureType = 0;
    std::vector<double> values; // in the file's order
};

struct PlainDeterminand {
    int type = 0;
    std::string name; // as in the file
    int statistic = 0;
};

struct PlainReach {
    int number = 0;
    std::string name;
    double length = 0;
    int next = 0;
};

struct PlainResults {
    std::string title; // the whole line
    int percentileMode = 0;
    std::vector<PlainDeterminand> determinands;
    std::vector<PlainReach> reaches;
    std::vector<PlainPoint> points;
};

// Nothing where reading into the first slot must fail.
std::optional<PlainResults> plainResults(const std::string& text);

} // namespace korvel
