#include "reports/NumberBlock.h"

#include <utility>

void NumberBlock::take(std::vector<ReportRow> rows) {
    m_rows = std::move(rows);
    const std::size_t width = m_columns.size();
    for (std::size_t column = 0; column < width; ++column)
        for (std::size_t row = 0; row < m_rows.size(); ++row)
            m_codes[row * width + column] = numberCode(value(row, column));
}
