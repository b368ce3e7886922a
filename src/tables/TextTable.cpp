#include "tables/TextTable.h"

#include "basic/Text.h"

#include <algorithm>
#include <ostream>

namespace korvel {

TextTable::TextTable(std::vector<std::string> headings, std::set<std::size_t> leftColumns)
    : m_widths(headings.size()), m_leftColumns(std::move(leftColumns)) {
    std::vector<TextCell> cells;
    for (std::string& heading : headings)
        cells.emplace_back(std::move(heading), TextTone::heading);
    row(std::move(cells));
}

void TextTable::row(std::vector<TextCell> cells) {
    for (std::size_t k = 0; k < cells.size(); ++k) {
        cells[k].text = withVisibleControls(shownUtf8(cells[k].text));
        m_widths[k] = std::max(m_widths[k], shownLength(cells[k].text));
    }
    m_rows.push_back(std::move(cells));
}

std::string TextTable::text(const TextLook& look) const {
    std::string text;
    for (const auto& cells : m_rows) {
        std::string line;
        for (std::size_t k = 0; k < cells.size(); ++k) {
            const std::string gap(m_widths[k] - shownLength(cells[k].text), ' ');
            const std::string cell = toned(cells[k].text, cells[k].tone, look);
            line += (k > 0 ? "  " : "") + (m_leftColumns.contains(k) ? cell + gap : gap + cell);
        }
        text += trimRight(line) + '\n';
    }
    return text;
}

void TextTable::print(std::ostream& out) const {
    out << text() << '\n';
}

} // namespace korvel
