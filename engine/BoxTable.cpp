#include "engine/BoxTable.h"

#include "basic/LineOutput.h"
#include "engine/NumberText.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace korvel::engine {

namespace {

// Code page 437.
constexpr char horizontal = '\xC4', vertical = '\xB3';
constexpr char topLeft = '\xDA', topRight = '\xBF', bottomLeft = '\xC0', bottomRight = '\xD9';
constexpr char teeDown = '\xC2', teeUp = '\xC1', teeRight = '\xC3', teeLeft = '\xB4';
constexpr char doubleHorizontal = '\xCD', doubleTopLeft = '\xC9', doubleTopRight = '\xBB';
constexpr char doubleBottomLeft = '\xC8', doubleBottomRight = '\xBC', doubleTeeRight = '\xC7',
               doubleTeeLeft = '\xB6';

using Widths = std::vector<std::size_t>;

// A rule whose inner joints are `joint`: cells are one blank wider than their text on either side.
std::string rule(const Widths& widths, char first, char joint, char last) {
    std::string line(1, first);
    for (std::size_t i = 0; i < widths.size(); ++i) {
        line.append(widths[i] + 2, horizontal);
        line += i + 1 < widths.size() ? joint : last;
    }
    return line;
}

std::string cellLine(const Widths& widths, const std::vector<std::string>& cells) {
    std::string line(1, vertical);
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const std::string cell = i < cells.size() ? cells[i] : "";
        line += ' ' + (i == 0 ? padded(cell, widths[i]) : rightAligned(cell, widths[i])) + ' ';
        line += vertical;
    }
    return line;
}

} // namespace

BoxTable::BoxTable(std::string title, std::vector<std::string> headings) : m_title(std::move(title)) {
    m_rows.push_back(std::move(headings));
}

void BoxTable::row(std::vector<std::string> cells) {
    m_rows.push_back(std::move(cells));
}

// Wide enough for every cell, and together for the title.
std::vector<std::size_t> BoxTable::widths() const {
    Widths widths(m_rows.front().size());
    for (const auto& row : m_rows)
        for (std::size_t i = 0; i < std::min(row.size(), widths.size()); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    const std::size_t whole = std::accumulate(widths.begin(), widths.end(), 3 * (widths.size() - 1));
    if (whole < m_title.size()) widths.front() += m_title.size() - whole;
    return widths;
}

void BoxTable::print(LineOutput& output) const {
    const Widths columns = widths();
    const Widths whole{std::accumulate(columns.begin(), columns.end(), 3 * (columns.size() - 1))};
    output.line(rule(columns, topLeft, horizontal, topRight));
    output.line(cellLine(whole, {m_title}));
    output.line(rule(columns, teeRight, teeDown, teeLeft));
    output.line(cellLine(columns, m_rows.front()));
    // No table of this kind has a crossing of two lines among its characters, so that this rule runs straight
    // through.
    output.line(rule(columns, teeRight, horizontal, teeLeft));
    for (std::size_t i = 1; i < m_rows.size(); ++i)
        output.line(cellLine(columns, m_rows[i]));
    output.line(rule(columns, bottomLeft, teeUp, bottomRight));
    output.line("");
}

void printBand(LineOutput& output, std::string_view text) {
    const std::string edge(text.size() + 4, doubleHorizontal);
    const std::string mark(1, horizontal);
    output.line(doubleTopLeft + edge + doubleTopRight);
    output.line(doubleTeeRight + mark + ' ' + std::string(text) + ' ' + mark + doubleTeeLeft);
    output.line(doubleBottomLeft + edge + doubleBottomRight);
    output.line("");
}

} // namespace korvel::engine
