#include "reports/ReportChoices.h"

#include "basic/Numbers.h"
#include "basic/Text.h"

namespace korvel {

namespace {

void selectAll(std::vector<ListEntry>& list) {
    for (ListEntry& entry : list)
        entry.selected = true;
}

void choose(std::vector<ListEntry>& list, const std::vector<bool>& selected) {
    for (std::size_t i = 0; i < list.size(); ++i)
        list[i].selected = i < selected.size() && selected[i];
}

std::vector<ListEntry> determinandLines(const ResultsDataSet& results) {
    std::vector<ListEntry> lines;
    for (int series = 1; series <= results.seriesCount; ++series)
        lines.push_back({trim(results.seriesNames[series]), true});
    return lines;
}

std::vector<ListEntry> reachLines(const ResultsDataSet& results) {
    std::vector<ListEntry> lines;
    for (const int reach : results.reachOrder)
        lines.push_back({formatPattern(reach, "####") + ' ' + results.reachNames[reach], true});
    return lines;
}

} // namespace

void ReportChoices::tick(ReportBox which, bool on) {
    box(which) = on;
    if (on && which == ReportBox::allDeterminands) selectAll(m_determinands);
    if (on && which == ReportBox::allReaches) selectAll(m_reaches);
}

void ReportChoices::chooseDeterminands(const std::vector<bool>& selected) {
    choose(m_determinands, selected);
    box(ReportBox::allDeterminands) = false;
}

void ReportChoices::chooseReaches(const std::vector<bool>& selected) {
    choose(m_reaches, selected);
    box(ReportBox::allReaches) = false;
}

std::vector<bool> picked(const std::vector<ListEntry>& list, ListPick pick) {
    const auto isPicked = [&](std::size_t line) {
        switch (pick) {
        case ListPick::all: return true;
        case ListPick::none: break;
        case ListPick::inverted: return !list[line].selected;
        case ListPick::concentrations: return line < list.size() / 2;
        case ListPick::loads: return line >= list.size() / 2;
        }
        return false;
    };
    std::vector<bool> lines;
    for (std::size_t line = 0; line < list.size(); ++line)
        lines.push_back(isPicked(line));
    return lines;
}

std::vector<int> selectedDeterminands(const std::vector<ListEntry>& list) {
    std::vector<int> selected;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (!list[i].selected) continue;
        if (selected.size() == MaxSelectedDeterminands) throw RunTimeError(errors::subscriptOutOfRange);
        selected.push_back(static_cast<int>(i) + 1);
    }
    return selected;
}

ReportSelection ReportChoices::selection() const {
    ReportSelection chosen;
    for (const Statistic statistic : allStatistics)
        if (ticked(boxOf(statistic))) chosen.statistics.push_back(statistic);
    chosen.targets = ticked(ReportBox::targets);
    chosen.observed = ticked(ReportBox::observed);
    chosen.limits = ticked(ReportBox::limits);
    chosen.upstream = ticked(ReportBox::upstream);
    chosen.determinands = selectedDeterminands(m_determinands);
    for (std::size_t i = 0; i < m_reaches.size(); ++i)
        if (m_reaches[i].selected) chosen.reaches.push_back(m_reachNumbers[i]);
    return chosen;
}

void FillReportLists(ReportChoices& choices, const ResultsDataSet& results) {
    choices.m_determinands = determinandLines(results);
    choices.m_reaches = reachLines(results);
    choices.m_reachNumbers = results.reachOrder;

    const bool upstream = choices.ticked(ReportBox::upstream);
    choices.m_boxes.fill(false);
    choices.box(ReportBox::upstream) = upstream;
    choices.box(ReportBox::allDeterminands) = true;
    choices.box(ReportBox::means) = true;
    choices.box(ReportBox::allReaches) = true;
    // Kept so: a target that is a mean (1) ticks the 95 percentiles, as a 95 percentile (0) does.
    if (const auto percentile = percentileOfMode(results.percentileMode))
        choices.box(boxOf(*percentile)) = true;
    choices.m_targetsCaption = "Print quality targets (" + results.percentileCaption + ")";
}

} // namespace korvel
