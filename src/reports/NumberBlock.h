// The numbers of 64 rows of a report, made column by column, since the values lie in columns:
//
//              column 1   column 2   column 3          along a row each value lies in another
//     row 1   | 0.5679 | | 12.35  | | 0.0012 |         piece of memory; down a column eight
//     row 2   | 0.5701 | | 12.40  | | 0.0013 |         neighbours are fetched at once, and one
//       ...   |   v    | |   v    | |   v    |         loop makes all their codes (NumberCode)
//     row 64  | 0.6012 | | 13.02  | | 0.0015 |
//
// The codes are kept row by row, as they are written. Measured: row by row the file takes 1.35 times as long.
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
