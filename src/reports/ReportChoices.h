// What the report form's check boxes and lists hold, and how they act upon each other.
#pragma once

#include "basic/CheckedArray.h"
#include "reports/ReportSelection.h"
#include "results/ResultsDataSet.h"

#include <array>
#include <string>
#include <vector>

namespace korvel {

// The check boxes by their index.
enum class ReportBox {
    allDeterminands,
    means,
    percentiles90,
    percentiles95,
    percentiles99,
    targets,
    observed,
    limits,
    allReaches,
    upstream
};

// The box of each statistic's columns.
inline constexpr std::array statisticBoxes{ReportBox::means, ReportBox::percentiles90,
                                           ReportBox::percentiles95, ReportBox::percentiles99};
static_assert(statisticBoxes.size() == allStatistics.size());
constexpr ReportBox boxOf(Statistic statistic) {
    return statisticBoxes[static_cast<std::size_t>(statistic)];
}

struct ListEntry {
    std::string text;
    bool selected = false;
    bool operator==(const ListEntry&) const = default;
};

// What the menus of the lists offer. The list of determinands holds all concentrations, then all loads.
enum class ListPick { all, none, inverted, concentrations, loads };
std::vector<bool> picked(const std::vector<ListEntry>& list, ListPick pick);

// The series numbers of the list's selected lines; the 21st is error 9.
std::vector<int> selectedDeterminands(const std::vector<ListEntry>& list);

class ReportChoices {
  public:
    bool ticked(ReportBox box) const { return m_boxes[static_cast<int>(box)]; }
    // Ticking "Select all ..." selects every line of its list; unticking it changes no selection.
    void tick(ReportBox which, bool on);

    const std::vector<ListEntry>& determinands() const { return m_determinands; }
    const std::vector<ListEntry>& reaches() const { return m_reaches; }
    // As after a click in the list: "Select all ..." is unticked. Positions count from 0.
    void chooseDeterminands(const std::vector<bool>& selected);
    void chooseReaches(const std::vector<bool>& selected);

    const std::string& targetsCaption() const { return m_targetsCaption; }

    ReportSelection selection() const;

    friend void FillReportLists(ReportChoices& choices, const ResultsDataSet& results);

  private:
    bool& box(ReportBox box) { return m_boxes[static_cast<int>(box)]; }

    CheckedArray<bool, 0, static_cast<int>(ReportBox::upstream)> m_boxes;
    std::vector<ListEntry> m_determinands;
    std::vector<ListEntry> m_reaches;
    std::vector<int> m_reachNumbers; // by line of the list
    std::string m_targetsCaption = "Print quality targets ";
};

// After every load of results: both lists anew, all selected, and the boxes as the results suggest.
void FillReportLists(ReportChoices& choices, const ResultsDataSet& results);

} // namespace korvel
