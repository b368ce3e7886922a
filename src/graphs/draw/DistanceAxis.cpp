#include "graphs/draw/DistanceAxis.h"

#include "basic/Numbers.h"
#include "basic/Text.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr double leastStep = 0.1; // km; distances are shown with one decimal

// The first of 1, 2, 5, 10, 20 ... tenths that leaves the room.
double roundStep(double perKm, double room) {
    double decade = leastStep;
    while (std::isfinite(decade)) {
        for (const double factor : {1.0, 2.0, 5.0})
            if (decade * factor * perKm >= room) return decade * factor;
        decade *= 10;
    }
    return decade;
}

std::string cutToFit(const GraphSheet& sheet, const std::string& name, double width) {
    if (sheet.narrowWidth(name) <= width) return name;
    for (std::size_t length = shownLength(name); length-- > 2;) {
        std::string cut = trimRight(firstShown(name, length)) + "..";
        if (sheet.narrowWidth(cut) <= width) return cut;
    }
    return "";
}

} // namespace

std::vector<double> distanceTicks(const DistanceScale& scale, double room) {
    const double step = roundStep(scale.perKm(), room);
    std::vector<double> ticks;
    const double tolerance = step * 1e-6;
    for (double k = std::ceil((scale.lowest - tolerance) / step); k * step <= scale.highest + tolerance; ++k)
        ticks.push_back(k * step);
    return ticks;
}

void drawDistanceAxis(const GraphSheet& sheet, const DistanceScale& scale, const std::vector<double>& ticks,
                      double y) {
    const double height = sheet.lineHeight();
    const double tick = 0.15 * height;
    const double bottom = y - 0.3 * height - height; // clear of the 0 of the vertical axis
    sheet.line(looks::axis, {scale.left, y}, {scale.right, y});
    for (const double distance : ticks) {
        const double x = scale.x(distance);
        sheet.line(looks::axis, {x, y}, {x, y - tick});
        sheet.text({x, bottom}, align::centre, formatPattern(distance, "##0.0"));
    }
    sheet.text({scale.left - sheet.width("0.0"), bottom}, align::right, "km");
}

void drawReachNames(const GraphSheet& sheet, const DistanceScale& scale,
                    const std::vector<ReachSpan>& reaches, double y, double height) {
    const double bottom = y + (height - sheet.lineHeight()) / 2;
    for (std::size_t k = 0; k < reaches.size(); ++k) {
        const double from = std::max(scale.x(reaches[k].from), scale.left);
        const double to = std::min(scale.x(reaches[k].to), scale.right);
        if (to <= from) continue;
        if (k > 0) sheet.line(looks::axis, {from, y}, {from, y + height});
        const std::string name = cutToFit(sheet, reaches[k].name, to - from - 0.4 * height);
        if (!name.empty()) sheet.narrowText({(from + to) / 2, bottom}, align::centre, name);
    }
}

} // namespace korvel
