// The value columns of a report with their headings: four lines, two over each determinand's group of columns
// and two over each column.
#pragma once

#include "reports/ReportSelection.h"
#include "results/ResultsDataSet.h"

#include <span>
#include <string>
#include <vector>

namespace korvel {

struct ReportColumn {
    ValueField field = ValueField::meanValue;
    int series = 0;
    int level = 0;
    std::string statistic; // third heading line: "Mean", "90%-ile" ... "Target"
    std::string holds;     // fourth: "", "LCL", "UCL" or "(Obs)"
};

// The columns of one determinand, counted from 1 across the whole table.
struct ReportGroup {
    std::string name; // first heading line
    std::string kind; // second: "(Conc)", "(Load)" or ""
    int firstColumn = 0;
    int lastColumn = 0;
};

struct ReportColumns {
    std::vector<ReportGroup> groups; // none without columns
    std::vector<ReportColumn> columns;

    int count() const { return static_cast<int>(columns.size()); }
};

// In the order in which a determinand's columns stand.
std::vector<ReportColumn> columnsOfDeterminand(int series, const ReportSelection& selection);

// The value columns of the report; its two label columns are not counted.
int CountCols(const ReportSelection& selection);

// How many determinands a page takes with the selection's other choices.
int determinandsThatFit(const ReportSelection& selection);

ReportColumns reportColumns(const ResultsDataSet& results, const ReportSelection& selection);

// The values of each column, by point.
using ValueColumn = std::span<const double>;
std::vector<ValueColumn> valueColumns(const ResultsDataSet& results, const ReportColumns& columns);

} // namespace korvel
