#include "graphs/draw/GraphHeading.h"

#include "basic/Text.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr double largestTitle = 12; // points, times ScaleX
constexpr double titleMargin = 200; // units
constexpr double leastTitle = 0.5;  // points; only an area without width asks for less

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
    void draw(const GraphSheet& sheet, const PlotFrame& frame, double bottom) const {
        const double margin = 0.5 * sheet.lineHeight();
        sheet.text({frame.left + margin, bottom}, align::left, name);
        sheet.text({frame.right - margin, bottom}, align::right, date);
    }
};

} // namespace

void setTitleFont(const GraphSheet& sheet, const GraphInputs& inputs) {
    const Titles titles(inputs.graph);
    double size = largestTitle * inputs.constants.ScaleX;
    do {
        size *= 0.9;
        sheet.setFont(size, true);
    } while (titles.width(sheet) > inputs.area.rightEdge - titleMargin && size > leastTitle);
    sheet.setFont(size / inputs.view.ZoomFactor, true);
}

void setOrdinaryFont(const GraphSheet& sheet, const GraphInputs& inputs) {
    sheet.setFont(ordinaryTextSize * inputs.constants.ScaleX / inputs.view.ZoomFactor, false);
}

double drawHeading(const GraphSheet& sheet, const GraphInputs& inputs, const PlotFrame& frame) {
    const Titles titles(inputs.graph);
    const SideTexts sides{.date = "Date: " + inputs.date};
    setOrdinaryFont(sheet, inputs);
    const double ordinary = sheet.lineHeight();
    const double sideRoom = sides.widest(sheet) + ordinary;
    setTitleFont(sheet, inputs);
    const double lineHeight = sheet.lineHeight();

    double y = frame.top - 0.2 * ordinary;
    // Beside the first title where there is room, otherwise above it.
    const bool beside = !titles.lines.empty() && titles.width(sheet) / 2 + sideRoom < frame.width() / 2;
    const double sideBottom = beside ? y - lineHeight + 0.18 * (lineHeight - ordinary) : y - ordinary;
    if (!beside) y = sideBottom;
    for (const std::string& title : titles.lines) {
        y -= lineHeight;
        sheet.text({(frame.left + frame.right) / 2, y}, align::centre, title);
    }
    setOrdinaryFont(sheet, inputs);
    sides.draw(sheet, frame, sideBottom);
    return y;
}

} // namespace korvel
