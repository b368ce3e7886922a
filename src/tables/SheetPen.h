// Writes the cells of one sheet, row by row. The library's errors are RunTimeErrors.
#pragma once

#include "tables/SheetNumbers.h"
#include "tables/Table.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace korvel {

// The looks of cells, made once a workbook.
struct SheetLooks {
    explicit SheetLooks(lxw_workbook* workbook);

    std::array<lxw_format*, numberLooks.size()> numbers{};
    lxw_format *text = nullptr, *heading = nullptr, *title = nullptr, *label = nullptr, *wrapped = nullptr;
};

class SheetPen {
  public:
    SheetPen(lxw_worksheet* sheet, const SheetLooks& looks, const std::vector<std::string>& headings);

    void nextRow();
    void put(const Cell& cell);
    // A cell made ready before, whose text is one of a workbook already.
    void putReady(const OwnedCell& cell);
    OwnedCell ready(const Cell& cell);

    // Widths, filter and what else is known at the end.
    void finish();

    const std::string& firstText() const { return m_columns.front().shown; } // of the row's first cell
    std::uint32_t row() const { return m_row; }                              // from 0, the headings' one
    std::size_t textsCut() const { return m_textsCut; }

  private:
    struct ColumnState {
        bool holdsPlaces = false; // on the river: shown as they were read
        bool holdsTexts = false;
        double width = 0;       // of the widest cell, in characters
        std::string raw, shown; // the text before, which often comes again
    };

    ColumnState& column() { return m_columns.at(m_column); }
    const std::string& shownText(std::string_view text);
    void putText(const std::string& text);
    void putNumber(double value);
    void putWhole(int value);
    void putTruth(bool value);
    void setPages(const std::vector<double>& widths);

    lxw_worksheet* m_sheet;
    const SheetLooks& m_looks;
    std::vector<ColumnState> m_columns;
    std::uint32_t m_row = 0;
    std::size_t m_column = 0;
    std::size_t m_textsCut = 0;
};

} // namespace korvel
