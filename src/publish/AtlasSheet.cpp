#include "publish/AtlasSheet.h"

#include "basic/Fitting.h"
#include "basic/Text.h"
#include "panels/TextFitting.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace korvel {

namespace {

constexpr double fontSize = 8;
constexpr std::size_t longestParagraph = 4000; // letters
const Font headFont{"Arial", 13, true};

struct Moving {
    DrawnPoint by;

    void move(DrawnPoint& point) const {
        point.x += by.x;
        point.y += by.y;
    }
    void move(std::vector<DrawnPoint>& points) const {
        for (DrawnPoint& point : points)
            move(point);
    }
    void operator()(DrawnLine& line) const {
        move(line.from);
        move(line.to);
    }
    void operator()(DrawnRun& run) const { move(run.points); }
    void operator()(DrawnMarker& marker) const { move(marker.centre); }
    void operator()(DrawnBand& band) const {
        move(band.above);
        move(band.below);
    }
    void operator()(DrawnText& text) const { move(text.corner); }
};

// As many letters as fit, one at least.
std::string firstFitting(const std::string& word, double width, const Font& font,
                         const TextMetrics& metrics) {
    return firstShown(word, mostFitting(1, shownLength(word), [&](std::size_t length) {
                          return metrics.measure(firstShown(word, length), font).width <= width;
                      }));
}

} // namespace

AtlasSheet::AtlasSheet(const TextMetrics& metrics, Drawing reused)
    : m_metrics(metrics),
      m_look(panelLook(Theme::paper, fontSize)),
      m_drawing{atlasWidth, atlasHeight, 1440, std::move(reused.commands)},
      m_line(metrics.measure("0", m_look.font).height) {
    m_drawing.clear();
}

void AtlasSheet::add(DrawnPoint at, const std::function<void(Drawing&)>& paint) {
    const std::size_t first = m_drawing.commands.size();
    paint(m_drawing);
    for (std::size_t k = first; k < m_drawing.commands.size(); ++k)
        std::visit(Moving{at}, m_drawing.commands[k]);
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
                             Rgb colour, std::size_t most) {
    std::vector<std::string> lines = wrapped(firstShown(text, longestParagraph), width, font, m_metrics);
    if (lines.size() > most) {
        lines.resize(most);
        lines.back() = fittedText(lines.back() + " \u2026", width, font, m_metrics);
    }
    for (const std::string& line : lines) {
        this->text(at, TextAlign::left, line, font, colour);
        at.y += 1.25 * m_metrics.measure("0", font).height;
    }
    return at.y;
}

void AtlasSheet::rule(double y, Rgb colour) {
    m_drawing.commands.push_back(DrawnLine{{0, y}, {atlasWidth, y}, {colour, m_look.hairline, Dash::solid}});
}

// A title of two long names needs a second line.
double AtlasSheet::head(const std::string& title, const std::string& beside) {
    const double height = m_metrics.measure("0", headFont).height;
    const double widest = 0.75 * atlasWidth, end = std::min(widest, width(title, headFont));
    const double below =
        std::max(height, paragraph({0, 0}, widest, title, headFont, m_look.text, 2) - 0.25 * height);
    const std::string quiet = fittedText(beside, atlasWidth - end - m_line, m_look.font, m_metrics);
    text({atlasWidth, 0.8 * height - 0.8 * m_line}, TextAlign::right, quiet, m_look.font, m_look.quietText);
    rule(below + 0.25 * height, m_look.grid);
    return below + 0.25 * height + 0.5 * m_line;
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
    const auto fits = [&](const std::string& text) { return metrics.measure(text, font).width <= width; };
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t end = std::min(utf8.find(' ', at), utf8.size());
        std::string word = utf8.substr(at, end - at);
        if (line.empty() || !fits(line + " " + word)) {
            if (!line.empty()) lines.push_back(std::exchange(line, {}));
            while (!fits(word)) {
                lines.push_back(firstFitting(word, width, font, metrics));
                word.erase(0, lines.back().size());
            }
            line = word;
        } else {
            line += " " + word;
        }
        at = end + 1;
    }
    if (!line.empty()) lines.push_back(line);
    return lines;
}

} // namespace korvel
