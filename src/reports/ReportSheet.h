// The report as one table for a workbook: the columns of the printed report, every row.
#pragma once

#include "reports/ReportProgress.h"
#include "reports/ReportTable.h"
#include "tables/OutputBytes.h"
#include "tables/Table.h"

namespace korvel {

// It refers to the report.
Table tableOf(const ReportTable& report);

// Throws TableRefused and RunTimeError.
ReportEnd writeReportWorkbook(OutputBytes& out, const ResultsDataSet& results,
                              const ReportSelection& selection, const ReportProgress& progress = {});

} // namespace korvel
