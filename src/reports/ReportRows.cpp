#include "reports/ReportRows.h"

#include "basic/Text.h"

namespace korvel {

namespace {

constexpr int alwaysReportedType = 10;

std::vector<bool> reachFlags(const std::vector<int>& reaches) {
    std::vector<bool> flags(MaxReachNumber + 1);
    for (const int reach : reaches)
        flags[checkedOffset(reach, 0, MaxReachNumber)] = true;
    return flags;
}

} // namespace

ReportRows::ReportRows(const ResultsDataSet& results, const ReportSelection& selection)
    : m_results(results), m_selection(selection), m_isSelected(reachFlags(selection.reaches)) {
    next();
}

void ReportRows::next() {
    const bool first = m_row.point == 0;
    const int reachBefore = m_row.reach;
    do
        ++m_row.point;
    while (!atEnd() && !isReported(m_row.point));
    if (atEnd()) return;
    m_row.reach = m_results.pointReach[m_row.point];
    m_row.newReach = first || m_row.reach != reachBefore;
}

bool ReportRows::isReported(int point) const {
    const int type = m_results.pointFeatureType[point];
    if (type == InterpolatedPointType) return false;
    const int reach = m_results.pointReach[point];
    if (reach < 0 || reach > MaxReachNumber || !m_isSelected[static_cast<std::size_t>(reach)]) return false;
    return m_selection.upstream || type == alwaysReportedType || m_results.pointSide[point] != "U/S" ||
           beginsWith(m_results.pointLabel[point], "Head of");
}

std::string rowLabel(const ResultsDataSet& results, const ReportSelection& selection, int point) {
    std::string label;
    appendRowLabel(label, results, selection, point);
    return label;
}

void appendRowLabel(std::string& text, const ResultsDataSet& results, const ReportSelection& selection,
                    int point) {
    const std::string& side = results.pointSide[point];
    if (selection.upstream && side.find_first_not_of(' ') != std::string::npos) (text += side) += ' ';
    text += results.pointLabel[point];
}

} // namespace korvel
