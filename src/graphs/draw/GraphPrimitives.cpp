#include "graphs/draw/GraphPrimitives.h"

#include <algorithm>
#include <span>
#include <utility>

namespace korvel {

namespace {

constexpr int thickStyle = 4;
constexpr double pixel = 15; // units

bool isSeriesColour(int colour) {
    return colour == colours::lightCyan || colour == colours::lightGreen || colour == colours::lightBlue ||
           colour == colours::yellow;
}

// The copies of a wide line: all nine for width 3, the first four for 2, the first for 1.
constexpr DrawnPoint copies[] = {{0, 0},      {0, pixel},       {pixel, 0},      {pixel, pixel}, {0, -pixel},
                                 {-pixel, 0}, {-pixel, -pixel}, {pixel, -pixel}, {-pixel, pixel}};

std::span<const DrawnPoint> copiesOfWidth(int width) {
    constexpr std::size_t counts[] = {0, 1, 4, 9};
    const int known = width < 0 ? 0 : width > 3 ? 3 : width;
    return std::span(copies).first(counts[known]);
}

std::vector<DrawnPoint> moved(std::vector<DrawnPoint> points, DrawnPoint by) {
    for (DrawnPoint& point : points)
        point = {point.x + by.x, point.y + by.y};
    return points;
}

} // namespace

GraphPrimitives::GraphPrimitives(Drawing& drawing, GraphForm form, const TextMetrics& screen,
                                 const TextMetrics& printer)
    : m_drawing(drawing), m_form(form), m_screen(screen), m_printer(printer) {}

Pen GraphPrimitives::pen(bool pr, int Thick, int Style, int Col) const {
    if (Thick != thickStyle) return {paletteColour(Col), 1, static_cast<Dash>(Style)};
    if (pr) return {paletteColour(Col), 4.0 * Style, Dash::solid};
    // Kept so: on screen only the colours of the series are thick, on paper every colour.
    return {paletteColour(Col), isSeriesColour(Col) ? 4.0 : 1.0, Dash::solid};
}

void GraphPrimitives::DisplayLine(bool pr, double x1, double y1, double x2, double y2, int Thick, int Style,
                                  int Col) {
    if (Thick == thickStyle && !pr && m_form == GraphForm::capture)
        WideLine(x1, surfaceY(y1), x2, surfaceY(y2), Style, paletteColour(Col));
    else
        m_drawing.commands.emplace_back(
            DrawnLine{{x1, surfaceY(y1)}, {x2, surfaceY(y2)}, pen(pr, Thick, Style, Col)});
}

void GraphPrimitives::DisplayRun(bool pr, std::vector<DrawnPoint> points, int Thick, int Style, int Col) {
    for (DrawnPoint& point : points)
        point.y = surfaceY(point.y);
    if (Thick != thickStyle || pr || m_form != GraphForm::capture) {
        m_drawing.commands.emplace_back(DrawnRun{std::move(points), pen(pr, Thick, Style, Col)});
        return;
    }
    for (const DrawnPoint& copy : copiesOfWidth(Style))
        m_drawing.commands.emplace_back(DrawnRun{moved(points, copy), {paletteColour(Col), 1, Dash::solid}});
}

void GraphPrimitives::DisplayCross(bool pr, DrawnPoint centre, double half, int Thick, int Style, int Col) {
    centre.y = surfaceY(centre.y);
    if (Thick != thickStyle || pr || m_form != GraphForm::capture) {
        m_drawing.commands.emplace_back(DrawnMarker{centre, half, pen(pr, Thick, Style, Col)});
        return;
    }
    for (const DrawnPoint& copy : copiesOfWidth(Style))
        m_drawing.commands.emplace_back(
            DrawnMarker{{centre.x + copy.x, centre.y + copy.y}, half, {paletteColour(Col), 1, Dash::solid}});
}

void GraphPrimitives::WideLine(double x1, double y1, double x2, double y2, int DWidth, Rgb Color) {
    for (const DrawnPoint& copy : copiesOfWidth(DWidth))
        m_drawing.commands.emplace_back(
            DrawnLine{{x1 + copy.x, y1 + copy.y}, {x2 + copy.x, y2 + copy.y}, {Color, 1, Dash::solid}});
}

Font GraphPrimitives::font(const std::string& name) const {
    return {name, GraphFontSize, GraphFontBold};
}

std::string GraphPrimitives::narrowFontName() const {
    return m_form == GraphForm::capture ? "Arial" : "Arial Narrow";
}

double GraphPrimitives::TxtWidth(bool pr, const std::string& Text) const {
    return metrics(pr).measure(Text, font("Arial")).width;
}

double GraphPrimitives::narrowWidth(bool pr, const std::string& text) const {
    return metrics(pr).measure(text, font(narrowFontName())).width;
}

double GraphPrimitives::widestWidth(const std::string& text) const {
    return std::max(TxtWidth(false, text), TxtWidth(true, text));
}

double GraphPrimitives::widestNarrowWidth(const std::string& text) const {
    const double screen = m_screen.measure(text, font("Arial Narrow")).width;
    const double paper = m_printer.measure(text, font("Arial Narrow")).width;
    return std::max({screen, paper, TxtWidth(false, text)});
}

double GraphPrimitives::TxtHeight(const std::string& Text) const {
    return m_screen.measure(Text, font("Arial")).height;
}

void GraphPrimitives::DisplayText(bool pr, double x, double y, int align, const std::string& text) {
    addText(pr, x, y, align, text, font("Arial"));
}

void GraphPrimitives::DisplayTextY(bool pr, double x, double y, int align, const std::string& text) {
    addText(pr, x, y, align, text, font(narrowFontName()));
}

void GraphPrimitives::addText(bool pr, double x, double y, int align, const std::string& text,
                              const Font& font) {
    const TextSize size = metrics(pr).measure(text, font);
    const double offset = align == 0 ? 0 : align == 2 ? size.width / 2 : size.width;
    m_drawing.commands.emplace_back(DrawnText{{x - offset, surfaceY(y) - size.height},
                                              size.width,
                                              size.height,
                                              text,
                                              font,
                                              paletteColour(colours::black)});
    if (!pr) ++LabelCount;
}

void GraphPrimitives::CloseGraph() {
    m_drawing.clear();
    LabelCount = 0;
}

} // namespace korvel
