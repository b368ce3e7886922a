// The native chart of a sheet: a line for each text of the first column.
#pragma once

#include "tables/Sheets.h"

#include <cstdint>
#include <string>
#include <vector>

struct lxw_workbook;
struct lxw_worksheet;

namespace korvel {

class WorkbookChart {
  public:
    explicit WorkbookChart(const LineChart& chart) : m_chart(chart) {}

    // Of each row in turn, from 1, what its first column says.
    void take(std::uint32_t row, const std::string& name);
    // Puts it beside the columns of its sheet. Nothing without rows.
    void insert(lxw_workbook* workbook, lxw_worksheet* sheet, const Sheet& content) const;

  private:
    struct Line {
        std::string name;
        std::uint32_t first = 0, last = 0; // rows
    };

    const LineChart& m_chart;
    std::vector<Line> m_lines;
};

} // namespace korvel
