// Finds places for labels that hang on leaders under an axis, on a few rows, so that none covers another and
// no leader passes through a label.
#pragma once

#include <optional>
#include <vector>

namespace korvel {

struct LabelRequest {
    double at = 0;         // x of the leader
    double width = 0;      // of the text
    bool required = false; // is given a place before the others
};

struct LabelPlace {
    int row = 0; // 0 is nearest to the axis
    double left = 0;
    bool operator==(const LabelPlace&) const = default;
};

struct LabelStrip {
    double left = 0;
    double right = 0;
    double gap = 0; // kept clear between texts, and between a text and a leader
    int rows = 1;
};

// One entry a request, empty where no row is free. Requests come in order of `at`.
std::vector<std::optional<LabelPlace>> placeLabels(const std::vector<LabelRequest>& requests,
                                                   const LabelStrip& strip);

} // namespace korvel
