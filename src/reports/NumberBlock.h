// The numbers of some rows of a report, made column by column: the values lie in columns, so that going along
// a row touches another piece of memory for each, and going down a column of 64 rows only eight.
#pragma once

#include "reports/QuickNumber.h"
#include "reports/ReportColumns.h"
#include "reports/ReportRows.h"

#include <span>
#include <vector>

namespace korvel {

class NumberBlock {
  public:
    static constexpr std::size_t mostRows = 64;

    // The columns must outlive it.
    explicit NumberBlock(std::span<const ValueColumn> columns)
        : m_columns(columns), m_codes(mostRows * m_columns.size()) {}

    // At most mostRows.
    void take(std::vector<ReportRow> rows);
    const std::vector<ReportRow>& rows() const { return m_rows; }
    std::span<const NumberCode> codes(std::size_t row) const {
        return {m_codes.data() + row * m_columns.size(), m_columns.size()};
    }
    double value(std::size_t row, std::size_t column) const {
        return m_columns[column][static_cast<std::size_t>(m_rows[row].point)];
    }

  private:
    std::span<const ValueColumn> m_columns;
    std::vector<ReportRow> m_rows;
    std::vector<NumberCode> m_codes; // row by row
};

} // namespace korvel
