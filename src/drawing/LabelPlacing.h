// Finds places for labels that hang under an axis on a few rows, each on a leader that comes down from its
// anchor: no label covers another, no leader crosses a label or another leader, all texts lie inside. As many
// as fit are shown, the important ones first, spread along the axis, with straight leaders where that is
// possible.
#pragma once

#include <optional>
#include <vector>

namespace korvel {

struct LabelRequest {
    double at = 0;          // x of the anchor
    double width = 0;       // of the text
    bool important = false; // worth more than the others
    bool required = false;  // always shown; where not all of them fit, the later ones
    bool operator==(const LabelRequest&) const = default;
};

// A leader goes slanting from its anchor to its port above the rows, and on straight down to its label: to
// the top of the text where the port is above it, otherwise along the text's side.
struct LabelPlace {
    int row = 0; // 0 is nearest to the axis
    double left = 0;
    double port = 0;
    bool operator==(const LabelPlace&) const = default;
};

struct LabelStrip {
    double left = 0;
    double right = 0;
    double gap = 0; // kept clear between texts; half of it between a text and a leader that passes
    double reach =
        0; // how far a port may stand from its anchor; that of a required label farther, if it must
    int rows = 1;
    int candidates = 200; // labellings held against each other on the way: with fewer it is sooner done, and
                          // a leader more is bent

    double clearance() const { return gap / 2; }
};

// One entry a request, empty where it has no place. A text wider than the strip has none.
std::vector<std::optional<LabelPlace>> placeLabels(const std::vector<LabelRequest>& requests,
                                                   const LabelStrip& strip);

} // namespace korvel
