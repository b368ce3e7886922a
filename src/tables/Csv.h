// Tables as comma-separated values, for spreadsheet programs and scripts.
#pragma once

#include "tables/OutputBytes.h"
#include "tables/Table.h"

namespace korvel {

// As it stands between commas: UTF-8, quoted where needed, with a ' before what a spreadsheet program would
// take for a formula.
std::string csvText(std::string_view text);

// A heading line, then one line a row: the facts that hold for all rows of a run, and the cells.
void writeCsv(const TableReport& report, OutputBytes& out);
void writeCsv(const Table& table, OutputBytes& out);

} // namespace korvel
