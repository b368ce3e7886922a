#include "graphs/draw/GraphHeading.h"

#include "basic/Text.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr double ordinaryTextSize = 7; // points, times ScaleX and over ZoomFactor
constexpr double largestTitle = 12;    // points, times ScaleX
constexpr double titleMargin = 200;    // units
constexpr double leastTitle = 0.5;     // points; only an area without width asks for less

struct Titles {
    std::vector<std::string> lines;

    explicit Titles(const GraphHandOver& graph) {
        for (const std::string& title : {trim(graph.graphTitle), trim(graph.graphSubTitle)})
            if (!title.empty()) lines.push_back(title);
    }
    double width(const GraphSheet& sheet) const {
        double widest = 0;
        for (const std::string& line : lines)
            widest = std::max(widest, sheet.width(line));
        return widest;
    }
};

// The product's name at the left and the date at the right, on one line.
struct SideTexts {
    std::string name = "KORVEL RESULTS";
    std::string date;

    double widest(const GraphSheet& sheet) const { return std::max(sheet.width(name), sheet.width(date)); }
    std::vector<PlacedText> at(const PlotFrame& frame, double margin, double bottom) const {
        return {{{frame.left + margin, bottom}, TextAlign::left, name},
                {{frame.right - margin, bottom}, TextAlign::right, date}};
    }
};

} // namespace

double ordinaryFontSize(const GraphInputs& inputs) {
    return ordinaryTextSize * inputs.constants.ScaleX / inputs.view.ZoomFactor;
}

double setTitleFont(const GraphSheet& sheet, const GraphInputs& inputs) {
    const Titles titles(inputs.graph);
    double size = largestTitle * inputs.constants.ScaleX;
    do {
        size *= 0.9;
        sheet.setFont(size, true);
    } while (titles.width(sheet) > inputs.area.rightEdge - titleMargin && size > leastTitle);
    size /= inputs.view.ZoomFactor;
    sheet.setFont(size, true);
    return size;
}

void setOrdinaryFont(const GraphSheet& sheet, const GraphInputs& inputs) {
    sheet.setFont(ordinaryFontSize(inputs), false);
}

GraphHeading layOutHeading(const GraphSheet& sheet, const GraphInputs& inputs, const PlotFrame& frame) {
    const Titles titles(inputs.graph);
    const SideTexts sides{.date = "Date: " + inputs.date};
    setOrdinaryFont(sheet, inputs);
    const double ordinary = sheet.lineHeight();
    const double sideRoom = sides.widest(sheet) + ordinary;
    GraphHeading heading;
    heading.titleSize = setTitleFont(sheet, inputs);
    const double lineHeight = sheet.lineHeight();

    double y = frame.top - 0.2 * ordinary;
    // Beside the first title where there is room, otherwise above it.
    const bool beside = !titles.lines.empty() && titles.width(sheet) / 2 + sideRoom < frame.width() / 2;
    const double sideBottom = beside ? y - lineHeight + 0.18 * (lineHeight - ordinary) : y - ordinary;
    if (!beside) y = sideBottom;
    for (const std::string& title : titles.lines) {
        y -= lineHeight;
        heading.titles.push_back({{(frame.left + frame.right) / 2, y}, TextAlign::centre, title});
    }
    setOrdinaryFont(sheet, inputs);
    heading.sides = sides.at(frame, 0.5 * sheet.lineHeight(), sideBottom);
    heading.bottom = y;
    return heading;
}

void paintHeading(const GraphSheet& sheet, const GraphHeading& heading, double ordinarySize) {
    sheet.setFont(heading.titleSize, true);
    for (const PlacedText& title : heading.titles)
        sheet.text(title.at, title.align, title.text);
    sheet.setFont(ordinarySize, false);
    for (const PlacedText& side : heading.sides)
        sheet.text(side.at, side.align, side.text);
}

} // namespace korvel
