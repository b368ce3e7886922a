#include "graphs/draw/DistanceAxis.h"

#include "basic/Fitting.h"
#include "basic/Numbers.h"
#include "basic/Text.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr double leastStep = 0.1; // km; distances are shown with one decimal

constexpr std::size_t leastLetters = 2; // of a name that is cut

std::string cutToFit(const GraphSheet& sheet, const std::string& name, double width) {
    if (sheet.narrowWidth(name) <= width) return name;
    const auto cut = [&](std::size_t length) { return trimRight(firstShown(name, length)) + ".."; };
    const auto fits = [&](std::size_t length) { return sheet.narrowWidth(cut(length)) <= width; };
    const std::size_t length = mostFitting(leastLetters - 1, shownLength(name), fits);
    return length < leastLetters ? "" : cut(length);
}

} // namespace

Axis distanceAxis(const DistanceScale& scale, double room) {
    Axis axis{scale, {}};
    for (const double distance : multiplesOf(roundStep(scale, room, leastStep), scale))
        axis.ticks.push_back({distance, scale.x(distance), formatPattern(distance, "##0.0")});
    return axis;
}

void paintDistanceAxis(const GraphSheet& sheet, const Axis& axis, double y) {
    const double height = sheet.lineHeight();
    const double tickLength = 0.15 * height;
    const double bottom = y - 0.3 * height - height; // clear of the 0 of the vertical axis
    sheet.line(looks::axis, {axis.scale.from, y}, {axis.scale.to, y});
    for (const AxisTick& tick : axis.ticks) {
        sheet.line(looks::axis, {tick.place, y}, {tick.place, y - tickLength});
        sheet.text({tick.place, bottom}, TextAlign::centre, tick.text);
    }
    sheet.text({axis.scale.from - sheet.width("0.0"), bottom}, TextAlign::right, "km");
}

void paintReachNames(const GraphSheet& sheet, const DistanceScale& scale,
                     const std::vector<ReachSpan>& reaches, const ReachStrip& strip) {
    const double bottom = strip.bottom + (strip.height - sheet.lineHeight()) / 2;
    for (std::size_t k = 0; k < reaches.size(); ++k) {
        const double from = std::max(scale.x(reaches[k].from), scale.from);
        const double to = std::min(scale.x(reaches[k].to), scale.to);
        if (to <= from) continue;
        if (k > 0) sheet.line(looks::axis, {from, strip.bottom}, {from, strip.bottom + strip.height});
        const std::string name = cutToFit(sheet, reaches[k].name, to - from - 0.4 * strip.height);
        if (!name.empty()) sheet.narrowText({(from + to) / 2, bottom}, TextAlign::centre, name);
    }
}

} // namespace korvel
