// What a report is to hold, as chosen on the report form or the command line, and whether it fits a page.
#pragma once

#include "results/Statistics.h"

#include <string>
#include <vector>

namespace korvel {

inline constexpr int MaxSelectedDeterminands = 20;

struct ReportSelection {
    std::vector<Statistic> statistics; // in their order
    bool targets = false;
    bool observed = false;
    bool limits = false;
    bool upstream = false;         // rows of the upstream ends of reaches, too
    std::vector<int> determinands; // series numbers, in list order
    std::vector<int> reaches;      // reach numbers
    bool operator==(const ReportSelection&) const = default;
};

inline constexpr int mostPrintedColumns = 18;
enum class PageFit { portrait, landscape, tooWide };
PageFit pageFit(int columns);

// What the report form tells about a column count.
struct ColumnVerdict {
    PageFit fit = PageFit::portrait;
    std::string countText;
    std::string fitText;
    int colour = 0; // of the palette, behind both texts
};
ColumnVerdict verdictOn(int columns);

} // namespace korvel
