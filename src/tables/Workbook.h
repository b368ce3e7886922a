// Tables as a workbook for spreadsheet programs, a sheet a table. Rows go to the disk as they come. The same
// content gives the same bytes.
#pragma once

#include "tables/OutputBytes.h"
#include "tables/Sheets.h"
#include "tables/Writing.h"

#include <string>
#include <vector>

namespace korvel {

struct WorkbookContent {
    Taken taken; // on a first sheet of its own; there is none without facts
    std::vector<Sheet> sheets;
};

inline constexpr std::size_t mostSheetRows = 1048575; // below the heading

// The rows are asked for twice: counted first, so that too many are refused before anything is written.
// Throws TableRefused, WritingStopped, RunTimeError.
void writeWorkbook(const WorkbookContent& content, const Writing& writing, OutputBytes& out);

} // namespace korvel
