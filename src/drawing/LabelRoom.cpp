#include "drawing/LabelRoom.h"

#include <algorithm>

namespace korvel {

namespace {

LabelEdge emptyEdge(double limit, int rows) {
    const std::vector<double> none(static_cast<std::size_t>(rows), LabelEdge::nothing);
    return {limit, none, none, LabelEdge::nothing};
}

void addTo(LabelEdge& edge, int row, double end, double port) {
    edge.ends[static_cast<std::size_t>(row)] = end;
    edge.ports[static_cast<std::size_t>(row)] = port;
    edge.lastPort = port;
}

} // namespace

LabelEdge LabelEdge::leftOf(const LabelStrip& strip) {
    return emptyEdge(strip.left, strip.rows);
}

LabelEdge LabelEdge::mirroredRightOf(const LabelStrip& strip) {
    return emptyEdge(-strip.right, strip.rows);
}

void LabelEdge::add(const LabelPlace& place, double width) {
    addTo(*this, place.row, place.left + width, place.port);
}

void LabelEdge::addMirrored(const LabelPlace& place) {
    addTo(*this, place.row, -place.left, -place.port);
}

// A leader passes the texts of all rows above its own; a text the leaders to all rows below its own.
void FreeFrom::set(const LabelEdge& edge, const LabelStrip& strip) {
    const std::size_t rows = edge.ends.size();
    port.resize(rows);
    text.resize(rows);
    double free = std::max(edge.limit, edge.lastPort + strip.clearance());
    for (std::size_t row = 0; row < rows; ++row) {
        port[row] = free;
        free = std::max(free, edge.ends[row] + strip.clearance());
    }
    double passing = edge.limit;
    for (std::size_t row = rows; row-- > 0;) {
        text[row] = std::max(edge.ends[row] + strip.gap, passing);
        passing = std::max(passing, edge.ports[row] + strip.clearance());
    }
}

std::optional<LabelPlace> leftmostPlace(const LabelRoom& room, int row, double port, double width,
                                        double clearance) {
    const PortRange ports = portsIn(room, width, clearance);
    if (ports.isEmpty()) return {};
    const double nearest = ports.nearestTo(port);
    return LabelPlace{row, leftmostText(room, nearest, width, clearance), nearest};
}

double textNearestTo(double wished, const LabelRoom& room, double port, double width, double clearance) {
    const double from = std::max(room.textFrom, port - width - clearance);
    const double to = std::min(room.textTo - width, port + clearance);
    return std::max(from, std::min(wished, to));
}

} // namespace korvel
