// The first sheet of a workbook: what was taken, for a reader who gets nothing but the workbook.
#pragma once

#include "tables/SheetPen.h"
#include "tables/Workbook.h"

#include <vector>

namespace korvel {

struct SheetTally {
    std::vector<std::size_t> rows; // of each sheet
    std::size_t textsCut = 0;
};

void writeAbout(lxw_worksheet* sheet, const SheetLooks& looks, const WorkbookContent& content,
                const SheetTally& tally);

} // namespace korvel
