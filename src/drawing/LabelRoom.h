// The room that labels leave beside them on the rows.
#pragma once

#include "drawing/LabelPlacing.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

namespace korvel {

// How far labels reach to the right, row by row. Those at the other side are seen in a mirror: -x for x.
struct LabelEdge {
    static LabelEdge leftOf(const LabelStrip& strip);
    static LabelEdge mirroredRightOf(const LabelStrip& strip);

    void add(const LabelPlace& place, double width);
    void addMirrored(const LabelPlace& place);

    static constexpr double nothing = -std::numeric_limits<double>::infinity();
    double limit = 0;          // where the strip begins
    std::vector<double> ends;  // of the last text on each row
    std::vector<double> ports; // of the last leader that goes to each row
    double lastPort = nothing;
};

// Where a label on a row may have its port and its text.
struct LabelRoom {
    double portFrom = 0;
    double portTo = 0;
    double textFrom = 0;
    double textTo = 0;
};

// From where ports and texts are free, on each row.
struct FreeFrom {
    std::vector<double> port;
    std::vector<double> text;

    void set(const LabelEdge& edge, const LabelStrip& strip);
};

inline LabelRoom roomBetween(const FreeFrom& left, const FreeFrom& mirroredRight, int row) {
    const auto r = static_cast<std::size_t>(row);
    return {left.port[r], -mirroredRight.port[r], left.text[r], -mirroredRight.text[r]};
}

// Where the port of a label of some width may stand; `from` beyond `to` where it has no place.
struct PortRange {
    double from = 0;
    double to = 0;
    bool isEmpty() const { return from > to; }
    double nearestTo(double port) const { return std::clamp(port, from, to); }
};
inline PortRange portsIn(const LabelRoom& room, double width, double clearance) {
    if (room.textTo - room.textFrom < width) return {1, 0};
    return {std::max(room.portFrom, room.textFrom - clearance),
            std::min(room.portTo, room.textTo + clearance)};
}
// The text as far to the left as it goes.
inline double leftmostText(const LabelRoom& room, double port, double width, double clearance) {
    return std::max(room.textFrom, port - width - clearance);
}

// The place in the room whose port is nearest to `port`, the text as far to the left as it goes.
std::optional<LabelPlace> leftmostPlace(const LabelRoom& room, int row, double port, double width,
                                        double clearance);
// The left end of the text nearest to `wished`, where the port stays.
double textNearestTo(double wished, const LabelRoom& room, double port, double width, double clearance);

} // namespace korvel
