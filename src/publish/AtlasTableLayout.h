// Where a table's cells stand on the pages of an atlas. No text is cut: what is too wide for its column goes
// on on further lines.
#pragma once

#include "publish/AtlasTable.h"

#include <cstddef>
#include <vector>

namespace korvel {

// From which row to which on a page.
struct TablePart {
    std::size_t from = 0;
    std::size_t to = 0;
};

class TableLayout {
  public:
    // The metrics must outlive it.
    TableLayout(AtlasTable table, const TextMetrics& metrics);

    const std::vector<TablePart>& parts() const { return m_parts; } // one at least
    void paint(const TablePart& part, AtlasSheet& sheet) const;

  private:
    using Lines = std::vector<std::string>;

    void setWidths();
    void setParts();
    Lines linesOf(const std::string& text, std::size_t column, const Font& font) const;
    double heightOf(std::size_t row) const;
    double headHeight() const;
    double headingHeight() const { return rowPad() + static_cast<double>(m_headingLines) * m_lineHeight; }
    double rowPad() const { return 0.25 * m_lineHeight; }
    bool repeatsFirstCell(const TablePart& part, std::size_t row) const;
    void paintHeadings(double top, AtlasSheet& sheet) const;
    void paintRow(std::size_t row, bool withFirst, double top, AtlasSheet& sheet) const;
    void paintCell(const Lines& lines, std::size_t column, DrawnPoint at, const Font& font, Rgb colour,
                   AtlasSheet& sheet) const;

    AtlasTable m_table;
    const TextMetrics& m_metrics;
    PanelLook m_look;
    double m_line = 0;       // height of a text
    double m_lineHeight = 0; // from one line of a cell to the next
    double m_headTop = 0;    // where the table begins
    std::vector<double> m_widths;
    std::size_t m_headingLines = 1;
    std::vector<TablePart> m_parts;
};

} // namespace korvel
