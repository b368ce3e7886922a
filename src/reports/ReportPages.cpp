#include "reports/ReportPages.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

// Inches: less than any pen could show, more than a sum of lines errs.
constexpr double epsilon = 1e-9;

int lastLineBefore(double lowest, double lineHeight) {
    return static_cast<int>(std::floor((lowest - TableGeometry::top + epsilon) / lineHeight));
}

} // namespace

TableGeometry tableGeometry(int columns) {
    TableGeometry table;
    if (pageFit(columns) != PageFit::portrait) {
        table.orientation = Orientation::landscape;
        table.left = 0.3;
        table.right = 10.7;
        table.lowestLine = 7.3;
    }
    table.columnWidth = (table.right - TableGeometry::labelRight) / std::max(columns, 1);
    table.inset = table.columnWidth / 10;
    return table;
}

ReportPages::ReportPages(const ReportTable& table, double lowestLine, double lineHeight)
    : m_table(table), m_rows(table.rows()), m_lastLine(lastLineBefore(lowestLine, lineHeight)) {}

// Kept so: the lowest line is asked for before rows alone, not before a reach's heading, and the first reach
// of every further page is marked as continued even where it begins there.
std::optional<PlannedPage> ReportPages::next() {
    if (m_page > 0 && m_rows.atEnd()) return std::nullopt;
    PlannedPage page{++m_page, {}, headingLines};
    while (!m_rows.atEnd() && (page.end <= m_lastLine || page.reaches.empty())) {
        const bool continued = m_page > 1 && page.reaches.empty();
        if (continued || m_rows.row().newReach)
            page.reaches.push_back(begunReach(page.end, continued ? " (Cont'd)" : ""));
        page.reaches.back().points.push_back(m_rows.row().point);
        page.end = page.reaches.back().end();
        m_rows.next();
    }
    return page;
}

PlannedReach ReportPages::begunReach(int line, const std::string& suffix) {
    ++m_reachesBegun;
    return {line, m_table.reachName(m_rows.row()) + suffix, {}};
}

} // namespace korvel
