// The top of the graph: titles in bold, the product's heading and the date.
#pragma once

#include "graphs/draw/GraphInputs.h"
#include "graphs/draw/GraphSheet.h"
#include "graphs/draw/PlotFrame.h"

#include <string>
#include <vector>

namespace korvel {

struct PlacedText { // graph coordinates
    DrawnPoint at;  // the bottom of the text
    TextAlign align = TextAlign::left;
    std::string text;
};

struct GraphHeading {
    double titleSize = 0; // points
    std::vector<PlacedText> titles;
    std::vector<PlacedText> sides; // the product's name and the date, in the ordinary font
    double bottom = 0;             // where the heading ends
};

// Points of all texts but the titles.
double ordinaryFontSize(const GraphInputs& inputs);

// Titles are as large as both fit, found for the whole graph and then zoomed, so that every view shows the
// same picture in another size. Gives their size in points.
double setTitleFont(const GraphSheet& sheet, const GraphInputs& inputs);
void setOrdinaryFont(const GraphSheet& sheet, const GraphInputs& inputs);

// Leaves the ordinary font set.
GraphHeading layOutHeading(const GraphSheet& sheet, const GraphInputs& inputs, const PlotFrame& frame);

// Leaves the ordinary font set.
void paintHeading(const GraphSheet& sheet, const GraphHeading& heading, double ordinarySize);

} // namespace korvel
