#include "reports/ReportSelection.h"

#include "basic/Numbers.h"
#include "basic/Palette.h"

#include <algorithm>

namespace korvel {

int CountCols(const ReportSelection& selection) {
    const auto percentiles = std::ranges::count(selection.percentiles, true);
    const int statistics = static_cast<int>(percentiles) + (selection.means ? 1 : 0);
    const int perStatistic = 1 + (selection.observed ? 1 : 0) + (selection.limits ? 2 : 0);
    const int perDeterminand = perStatistic * statistics + (selection.targets ? 1 : 0);
    return perDeterminand * static_cast<int>(selection.determinands.size());
}

PageFit pageFit(int columns) {
    if (columns <= 10) return PageFit::portrait;
    return columns <= 18 ? PageFit::landscape : PageFit::tooWide;
}

ColumnVerdict verdictOn(int columns) {
    const std::string countText = "Number of columns selected for printing = " + withLeadingBlank(columns);
    switch (pageFit(columns)) {
    case PageFit::portrait:
        return {PageFit::portrait, countText, "Print orientation: Portrait", colours::lightGreen};
    case PageFit::landscape:
        return {PageFit::landscape, countText, "Print orientation: Landscape", colours::yellow};
    case PageFit::tooWide: break;
    }
    return {PageFit::tooWide, countText, "Too wide to print", colours::lightRed};
}

} // namespace korvel
