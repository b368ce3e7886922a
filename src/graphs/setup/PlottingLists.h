// From choices to the graph: what is missing, and the lists that the graph reads.
#pragma once

#include "global/GraphHandOver.h"
#include "global/GraphView.h"
#include "graphs/setup/GraphChoices.h"

namespace korvel {

// The first thing that is missing for a graph, in the order in which the user is told.
std::optional<Message> missingData(const GraphChoices& choices);

// Fills the hand-over and resets the view. The determinands' statistics may change the percentile level and
// caption of the results. A message where the results end before the chosen reaches; the view is then left
// alone.
std::optional<Message> prepareGraph(const GraphChoices& choices, ResultsDataSet& results,
                                    GraphHandOver& graph, GraphView& view);

} // namespace korvel
