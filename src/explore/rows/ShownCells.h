// Cells as people read them, and as they are copied.
#pragma once

#include "explore/rows/RowSource.h"

#include <memory>
#include <span>
#include <string>

namespace korvel {

struct ShownCell {
    std::string text;  // 8-bit, as in the files; symbols stand beside it
    int decimals = -1; // behind the point; -1 where it doesn't line up by its point
};

ShownCell shownCell(const Cell& cell, CellLook look);

// The symbol that stands before a verdict, in UTF-8; "" for any other word.
std::string_view verdictSymbol(std::string_view verdict);

// Rows of a table with headings, parted by tabs and line ends, numbers unrounded: what a spreadsheet program
// takes. UTF-8.
std::string copiedRows(const RowSource& source, std::span<const int> rows, std::span<const int> columns);

// The rows for files in which other programs read them.
Table tableOf(std::shared_ptr<const RowSource> source, std::vector<int> rows);

} // namespace korvel
