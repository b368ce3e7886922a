#include "commands/TextTable.h"

#include "basic/Text.h"

#include <algorithm>
#include <ostream>

namespace korvel {

TextTable::TextTable(std::vector<std::string> headings, std::set<std::size_t> leftColumns)
    : m_widths(headings.size()), m_leftColumns(std::move(leftColumns)) {
    row(std::move(headings));
}

void TextTable::row(std::vector<std::string> cells) {
    for (std::size_t k = 0; k < cells.size(); ++k) {
        cells[k] = shownUtf8(cells[k]);
        m_widths[k] = std::max(m_widths[k], shownLength(cells[k]));
    }
    m_rows.push_back(std::move(cells));
}

void TextTable::print(std::ostream& out) const {
    for (const auto& cells : m_rows) {
        std::string line;
        for (std::size_t k = 0; k < cells.size(); ++k) {
            const std::string gap(m_widths[k] - shownLength(cells[k]), ' ');
            line += (k > 0 ? "  " : "") + (m_leftColumns.contains(k) ? cells[k] + gap : gap + cells[k]);
        }
        out << trimRight(line) << '\n';
    }
    out << '\n';
}

} // namespace korvel
