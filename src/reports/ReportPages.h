// The report on paper before it is drawn: how wide the table is, how many lines a page holds, and which rows
// stand on which page.
#pragma once

#include "platform/Paper.h"
#include "reports/PrintedPage.h"
#include "reports/ReportTable.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel {

// Page units, inches.
struct TableGeometry {
    Orientation orientation = Orientation::portrait;
    double left = 0.4;
    double right = 7.7;
    double lowestLine = 10.2; // a row that would start below it goes to another page
    double columnWidth = 0;
    double inset = 0; // between a cell's rule and its text

    static constexpr double top = 0.5;
    static constexpr double labelRight = 2.8;
    static constexpr double ruleAbove = 0.002; // a rule lies so far above the line that it belongs to

    // Where the k-th value column ends, counted from 1; with 0, where the first begins.
    double columnEnd(int k) const { return labelRight + k * columnWidth; }
    // Between the insets of a cell. A number is never cut.
    TextRoom labelRoom() const { return {labelRight - left - 2 * inset, TooWide::cut}; }
    TextRoom valueRoom() const { return {columnWidth - 2 * inset, TooWide::printed}; }
};
TableGeometry tableGeometry(int columns);

// A reach's heading line and the lines of its rows below it. Lines count from 0 at the top of the page.
struct PlannedReach {
    int headingLine = 0;
    std::string heading;
    std::vector<int> points;

    int firstRow() const { return headingLine + 1; }
    int end() const { return firstRow() + static_cast<int>(points.size()); }
};

struct PlannedPage {
    int number = 0;
    std::vector<PlannedReach> reaches;
    int end = 0; // the line above which the table is closed
};

// Breaks the rows into pages, one at a time.
class ReportPages {
  public:
    static constexpr int headingLines = 8; // on every page, an empty one included

    // `lineHeight` in inches.
    ReportPages(const ReportTable& table, double lowestLine, double lineHeight);

    std::optional<PlannedPage> next(); // nothing after the last page
    int reachesBegun() const { return m_reachesBegun; }

  private:
    PlannedReach begunReach(int line, const std::string& suffix);

    const ReportTable& m_table;
    ReportRows m_rows;
    int m_lastLine; // the last on which a row may stand
    int m_page = 0;
    int m_reachesBegun = 0;
};

} // namespace korvel
