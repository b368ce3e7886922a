#include "reports/ReportSelection.h"

#include "basic/Numbers.h"
#include "basic/Palette.h"

namespace korvel {

PageFit pageFit(int columns) {
    if (columns <= 10) return PageFit::portrait;
    return columns <= mostPrintedColumns ? PageFit::landscape : PageFit::tooWide;
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
