// The numbers behind a graph, as a table for other programs.
#pragma once

#include "global/GraphHandOver.h"
#include "results/ResultsDataSet.h"

#include <string>

namespace korvel {

// One line a plotted point, cells parted by tabs: reach, distance in km, feature, then a cell for every curve
// of every panel, empty where the graph draws nothing for the point. The first line names the columns. In
// display mode 2 the reaches follow one another.
std::string plottedData(const ResultsDataSet& results, const GraphHandOver& graph);

} // namespace korvel
