#include "publish/AtlasSheet.h"

#include "basic/Text.h"
#include "panels/TextFitting.h"

#include <utility>
#include <variant>

namespace korvel {

namespace {

constexpr double fontSize = 8;
const Font headFont{"Arial", 13, true};

DrawnPoint moved(DrawnPoint point, DrawnPoint by) {
    return {point.x + by.x, point.y + by.y};
}
std::vector<DrawnPoint> moved(std::vector<DrawnPoint> points, DrawnPoint by) {
    for (DrawnPoint& point : points)
        point = moved(point, by);
    return points;
}

struct Moving {
    DrawnPoint by;

    DrawnCommand operator()(DrawnLine line) const {
        line.from = moved(line.from, by);
        line.to = moved(line.to, by);
        return line;
    }
    DrawnCommand operator()(DrawnRun run) const {
        run.points = moved(std::move(run.points), by);
        return run;
    }
    DrawnCommand operator()(DrawnMarker marker) const {
        marker.centre = moved(marker.centre, by);
        return marker;
    }
    DrawnCommand operator()(DrawnBand band) const {
        band.above = moved(std::move(band.above), by);
        band.below = moved(std::move(band.below), by);
        return band;
    }
    DrawnCommand operator()(DrawnText text) const {
        text.corner = moved(text.corner, by);
        return text;
    }
};

} // namespace

AtlasSheet::AtlasSheet(const TextMetrics& metrics)
    : m_metrics(metrics),
      m_look(panelLook(Theme::paper, fontSize)),
      m_drawing{atlasWidth, atlasHeight, 1440, {}},
      m_line(metrics.measure("0", m_look.font).height) {}

void AtlasSheet::put(const Drawing& part, DrawnPoint at) {
    for (const DrawnCommand& command : part.commands)
        m_drawing.commands.push_back(std::visit(Moving{at}, command));
}

double AtlasSheet::width(const std::string& text, const Font& font) const {
    return m_metrics.measure(text, font).width;
}

double AtlasSheet::text(DrawnPoint at, TextAlign align, const std::string& text, const Font& font,
                        Rgb colour) {
    const DrawnText drawn = textAt(at, align, text, font, colour, m_metrics);
    if (!text.empty()) m_drawing.commands.push_back(drawn);
    return drawn.corner.x + drawn.width;
}

double AtlasSheet::paragraph(DrawnPoint at, double width, const std::string& text, const Font& font,
                             Rgb colour) {
    for (const std::string& line : wrapped(text, width, font, m_metrics)) {
        this->text(at, TextAlign::left, line, font, colour);
        at.y += 1.25 * m_metrics.measure("0", font).height;
    }
    return at.y;
}

void AtlasSheet::rule(double y, Rgb colour) {
    m_drawing.commands.push_back(DrawnLine{{0, y}, {atlasWidth, y}, {colour, m_look.hairline, Dash::solid}});
}

double AtlasSheet::head(const std::string& title, const std::string& beside) {
    const std::string fitted = fittedText(title, 0.7 * atlasWidth, headFont, m_metrics);
    const double end = text({0, 0}, TextAlign::left, fitted, headFont, m_look.text);
    const double height = m_metrics.measure("0", headFont).height;
    const std::string quiet = fittedText(beside, atlasWidth - end - m_line, m_look.font, m_metrics);
    text({atlasWidth, 0.8 * height - 0.8 * m_line}, TextAlign::right, quiet, m_look.font, m_look.quietText);
    rule(1.25 * height, m_look.grid);
    return 1.25 * height + 0.5 * m_line;
}

void AtlasSheet::foot(const std::string& title, std::size_t page, std::size_t pages) {
    const double y = atlasHeight - 1.2 * m_line;
    const std::string number = std::to_string(page + 1) + " of " + std::to_string(pages);
    text({atlasWidth, y}, TextAlign::right, number, m_look.font, m_look.quietText);
    text({0, y}, TextAlign::left, fittedText(title, 0.8 * atlasWidth, m_look.font, m_metrics), m_look.font,
         m_look.quietText);
}

std::vector<std::string> wrapped(const std::string& utf8, double width, const Font& font,
                                 const TextMetrics& metrics) {
    std::vector<std::string> lines;
    std::string line;
    for (std::size_t at = 0; at < utf8.size();) {
        std::size_t end = utf8.find(' ', at);
        if (end == std::string::npos) end = utf8.size();
        const std::string word = utf8.substr(at, end - at);
        const std::string longer = line.empty() ? word : line + " " + word;
        if (!line.empty() && metrics.measure(longer, font).width > width) {
            lines.push_back(std::exchange(line, word));
        } else {
            line = longer;
        }
        at = end + 1;
    }
    if (!line.empty()) lines.push_back(line);
    for (std::string& each : lines)
        each = fittedText(each, width, font, metrics);
    return lines;
}

} // namespace korvel
