// What tables are about, from results files in memory.
#pragma once

#include "analysis/RiverSample.h"
#include "explore/rows/ShownCells.h"
#include "explore/rows/TableScope.h"

namespace korvel {

// All runs, all reaches of the base in file order, BOD.
inline TableScope scopeWith(const Study& study) {
    TableScope scope;
    scope.base = study.base();
    scope.runs = study.runs();
    scope.network = std::make_shared<Network>(networkOf(*scope.base.file));
    for (int place = 0; place < scope.base.reaches().count(); ++place)
        scope.path.push_back(place);
    scope.series = {1};
    scope.interpolated = true;
    return scope;
}

inline TableScope scopeOfFiles(const std::vector<ResultsFileBuilder>& files) {
    return scopeWith(studyOf(files));
}

// The texts of a row as they are shown, parted by '|'.
inline std::string rowText(const RowSource& rows, int row) {
    std::string text;
    for (int column = 0; column < rows.columnCount(); ++column)
        text += (column == 0 ? "" : "|") + shownCell(rows.cell(row, column), rows.column(column).look).text;
    return text;
}

// The cells of a table, a row a line.
class TableLines : public RowTaker {
  public:
    void row(std::span<const Cell> cells) override {
        std::string line;
        for (const Cell& cell : cells)
            line += shownCell(cell, CellLook::exact).text + "|";
        lines.push_back(line);
    }
    ReadyCells ready(std::size_t, std::span<const Cell>) override { return {}; }
    void row(const ReadyCells&, const ReadyCells&, std::span<const Cell> last) override { row(last); }

    std::vector<std::string> lines;
};

} // namespace korvel
