// "&Print" of the graph form: the graph on a landscape page, as it stands on the screen.
#pragma once

#include "graphs/draw/PlotFrame.h"
#include "platform/Platform.h"

namespace korvel {

// The shared state's graph, drawn for the printer in the units of the screen's drawing area.
Drawing printedGraph(Platform& platform, const DrawingArea& area);

// A printer that fails is told; nothing else happens.
void PrintGraph(Platform& platform, const DrawingArea& area);

} // namespace korvel
