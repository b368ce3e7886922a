// The top of the graph: titles in bold, the product's heading and the date.
#pragma once

#include "graphs/draw/GraphInputs.h"
#include "graphs/draw/GraphSheet.h"
#include "graphs/draw/PlotFrame.h"

namespace korvel {

inline constexpr double ordinaryTextSize = 7; // points, times ScaleX and over ZoomFactor

// Sets the font of the titles: as large as both fit, found for the whole graph and then zoomed, so that every
// view shows the same picture in another size.
void setTitleFont(const GraphSheet& sheet, const GraphInputs& inputs);
void setOrdinaryFont(const GraphSheet& sheet, const GraphInputs& inputs);

// Gives the height at which the heading ends, and leaves the ordinary font set.
double drawHeading(const GraphSheet& sheet, const GraphInputs& inputs, const PlotFrame& frame);

} // namespace korvel
