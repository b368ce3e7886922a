#include "publish/AtlasTableLayout.h"

#include "panels/TextFitting.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace korvel {

namespace {

constexpr double leastLetters = 9; // of a column of texts that gives way

Rgb colourOf(const std::string& text, const PanelLook& look) {
    if (text == "pass" || text == "fail to pass") return look.pass;
    if (text == "fail" || text == "pass to fail") return look.fail;
    return text == "unsure" ? look.unsure : look.text;
}

double longestWord(const std::string& text, const Font& font, const TextMetrics& metrics) {
    double longest = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        longest = std::max(longest, metrics.measure(text.substr(at, end - at), font).width);
        at = end + 1;
    }
    return longest;
}

// Together no wider than `room`: the widest that may give way do, down to one width for all of them.
void narrow(std::vector<double>& widths, const std::vector<double>& least, double room) {
    const double wide = *std::ranges::max_element(widths);
    const auto sumAt = [&](double most) {
        double sum = 0;
        for (std::size_t k = 0; k < widths.size(); ++k)
            sum += std::max(least[k], std::min(widths[k], most));
        return sum;
    };
    if (sumAt(wide) <= room) return;
    double fits = 0, tooWide = wide;
    for (int step = 0; step < 40; ++step) {
        const double middle = (fits + tooWide) / 2;
        (sumAt(middle) <= room ? fits : tooWide) = middle;
    }
    for (std::size_t k = 0; k < widths.size(); ++k)
        widths[k] = std::max(least[k], std::min(widths[k], fits));
}

} // namespace

TableLayout::TableLayout(AtlasTable table, const TextMetrics& metrics)
    : m_table(std::move(table)), m_metrics(metrics) {
    AtlasSheet sheet(metrics);
    m_look = sheet.look();
    m_line = sheet.line();
    m_lineHeight = 1.05 * m_line;
    m_headTop = sheet.head(m_table.title, "");
    setWidths();
    setParts();
}

// Columns as wide as they need be; where that is too much, those of texts give way.
void TableLayout::setWidths() {
    const std::size_t columns = m_table.headings.size();
    const double letters = leastLetters * m_metrics.measure("0", m_look.font).width;
    std::vector<double> least;
    for (std::size_t k = 0; k < columns; ++k) {
        const double heading = longestWord(m_table.headings[k], m_look.titleFont, m_metrics);
        double width = heading;
        for (const std::vector<std::string>& row : m_table.rows)
            width = std::max(width, m_metrics.measure(row[k], m_look.font).width);
        m_widths.push_back(width);
        least.push_back(m_table.textColumns[k] ? std::max(heading, std::min(width, letters)) : width);
    }
    if (columns == 0) return;
    narrow(m_widths, least, atlasWidth - m_line * static_cast<double>(columns - 1));
    // Room that is left goes to headings, which need fewer lines then.
    double spare = atlasWidth - m_line * static_cast<double>(columns - 1) -
                   std::accumulate(m_widths.begin(), m_widths.end(), 0.0);
    for (std::size_t k = 0; k < columns; ++k) {
        const double more = m_metrics.measure(m_table.headings[k], m_look.titleFont).width - m_widths[k];
        if (more <= 0 || more > spare) continue;
        m_widths[k] += more;
        spare -= more;
    }
    for (std::size_t k = 0; k < columns; ++k)
        m_headingLines = std::max(m_headingLines, linesOf(m_table.headings[k], k, m_look.titleFont).size());
}

void TableLayout::setParts() {
    const double top = m_headTop + headHeight() + headingHeight();
    double y = top;
    TablePart part;
    for (std::size_t row = 0; row < m_table.rows.size(); ++row) {
        const double height = heightOf(row);
        if (y + height > AtlasSheet::bottom() && row > part.from) {
            m_parts.push_back({part.from, row});
            part.from = row;
            y = top;
        }
        y += height;
    }
    m_parts.push_back({part.from, m_table.rows.size()});
}

TableLayout::Lines TableLayout::linesOf(const std::string& text, std::size_t column, const Font& font) const {
    const double room = m_widths[column] + 1; // rounding
    if (text.empty() || m_metrics.measure(text, font).width <= room) return {text};
    return wrapped(text, room, font, m_metrics);
}

double TableLayout::heightOf(std::size_t row) const {
    std::size_t lines = 1;
    for (std::size_t k = 0; k < m_widths.size(); ++k)
        lines = std::max(lines, linesOf(m_table.rows[row][k], k, m_look.font).size());
    return rowPad() + static_cast<double>(lines) * m_lineHeight;
}

double TableLayout::headHeight() const {
    return m_table.note.empty() ? 0 : 1.6 * m_line;
}

bool TableLayout::repeatsFirstCell(const TablePart& part, std::size_t row) const {
    return row > part.from && m_table.textColumns[0] && m_table.rows[row][0] == m_table.rows[row - 1][0];
}

void TableLayout::paint(const TablePart& part, AtlasSheet& sheet) const {
    const std::string all = std::to_string(m_table.rows.size());
    const bool whole = part.from == 0 && part.to == m_table.rows.size();
    const std::string rows =
        whole ? ""
              : "rows " + std::to_string(part.from + 1) + " to " + std::to_string(part.to) + " of " + all;
    double y = sheet.head(m_table.title, rows);
    const auto say = [&](const std::string& words) {
        sheet.text({0, y}, TextAlign::left, fittedText(words, atlasWidth, m_look.font, m_metrics),
                   m_look.font, m_look.quietText);
    };
    say(m_table.note);
    y += headHeight();
    if (m_table.rows.empty()) return say("Nothing to show.");
    paintHeadings(y, sheet);
    y += headingHeight();
    for (std::size_t row = part.from; row < part.to; ++row) {
        const bool repeats = repeatsFirstCell(part, row);
        if (!repeats) sheet.rule(y, row == part.from ? m_look.axis : m_look.grid);
        paintRow(row, !repeats, y + rowPad() / 2, sheet); // said once a page
        y += heightOf(row);
    }
}

// The last lines of all stand side by side.
void TableLayout::paintHeadings(double top, AtlasSheet& sheet) const {
    for (std::size_t k = 0; k < m_widths.size(); ++k) {
        const Lines lines = linesOf(m_table.headings[k], k, m_look.titleFont);
        const double above = static_cast<double>(m_headingLines - lines.size()) * m_lineHeight;
        paintCell(lines, k, {0, top + above}, m_look.titleFont, m_look.text, sheet);
    }
}

void TableLayout::paintRow(std::size_t row, bool withFirst, double top, AtlasSheet& sheet) const {
    const std::vector<std::string>& cells = m_table.rows[row];
    for (std::size_t k = withFirst ? 0 : 1; k < m_widths.size(); ++k)
        paintCell(linesOf(cells[k], k, m_look.font), k, {0, top}, m_look.font, colourOf(cells[k], m_look),
                  sheet);
}

void TableLayout::paintCell(const Lines& lines, std::size_t column, DrawnPoint at, const Font& font,
                            Rgb colour, AtlasSheet& sheet) const {
    for (std::size_t k = 0; k < column; ++k)
        at.x += m_widths[k] + m_line;
    const bool left = m_table.textColumns[column];
    if (!left) at.x += m_widths[column];
    for (const std::string& line : lines) {
        sheet.text(at, left ? TextAlign::left : TextAlign::right, line, font, colour);
        at.y += m_lineHeight;
    }
}

} // namespace korvel
