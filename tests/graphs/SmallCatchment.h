// A made-up catchment for tests of the graph set-up: reaches 1 -> 2 -> 3 and 7 -> 3, in the order 1, 7, 2, 3
// of the reach lines, three points each, two determinands.
#pragma once

#include "results/ResultsDataSet.h"

#include <memory>
#include <string>

namespace korvel {

// In memory, as a load leaves it.
std::unique_ptr<ResultsDataSet> smallCatchment();

// As a results file. A file cut short ends within its last point.
enum class FileEnd { whole, cutShort };
std::string smallResultsFile(int percentileMode = 0, FileEnd end = FileEnd::whole,
                             const std::string& title = "Small catchment");

} // namespace korvel
