#include "reports/NumberBlock.h"

#include <utility>

namespace korvel {

void NumberBlock::take(std::vector<ReportRow> rows) {
    m_rows = std::move(rows);
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
        const ValueColumn values = m_columns[column];
        std::size_t at = column;
        for (const ReportRow& row : m_rows) {
            m_codes[at] = numberCode(values[static_cast<std::size_t>(row.point)]);
            at += m_columns.size();
        }
    }
}

} // namespace korvel
