// A table of given cells, for the rules that hold for all of them.
#pragma once

#include "explore/rows/RowSource.h"

#include <utility>
#include <vector>

namespace korvel {

class ListedRows : public RowSource {
  public:
    ListedRows(std::vector<ShownColumn> columns, std::vector<std::vector<OwnedCell>> rows)
        : RowSource("rows", std::move(columns)), m_rows(std::move(rows)) {}

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    Cell cell(int row, int column) const override {
        ++asked;
        return viewOf(m_rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
    }
    // Reaches are numbered as rows are.
    std::optional<ExplorePlace> place(int row, int) const override { return ExplorePlace{row, 0.5, "U/S"}; }
    std::vector<int> rowsAt(const ExplorePlace& place) const override {
        return place.reach < rowCount() ? std::vector<int>{place.reach} : std::vector<int>();
    }
    std::string note(int row, int column) const override {
        return "note " + std::to_string(row) + " " + std::to_string(column);
    }
    std::optional<int> series(int, int column) const override { return column; }
    std::string whyEmpty() const override { return "Nothing here."; }

    mutable int asked = 0; // how often for a cell

  private:
    std::vector<std::vector<OwnedCell>> m_rows;
};

} // namespace korvel
