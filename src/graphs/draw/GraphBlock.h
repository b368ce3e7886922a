// A block of the graph: panels stacked over one distance axis with its features. Display mode 1 has one block
// with a panel for each series, mode 2 a block with one panel for each reach.
#pragma once

#include "graphs/draw/DistanceAxis.h"
#include "graphs/draw/FeatureLabels.h"
#include "graphs/draw/Panel.h"

#include <vector>

namespace korvel {

struct BlockPlace { // graph coordinates
    double left = 0;
    double right = 0;
    double bottom = 0; // of the distance axis' numbers
    double top = 0;
};

// Heights and distances that all blocks share, made from the height of a text line.
struct BlockMeasures {
    double line = 0;
    double gutter = 0;
    double featureRow = 0;
    double spacing = 0; // of labelled features
    int largeTextMode = 1;

    double numbers() const { return 1.4 * line; } // the numbers under a distance axis
    double header() const { return 1.25 * line; } // the text above a panel
    double reachNames() const { return 1.25 * line; }
    double featureMark() const { return 0.2 * line; }
    double featureGap() const { return 1.0 * line; } // leaders slant in it
    double featureReach() const { return 4 * line; } // of slanting leaders
    double leastPlot() const { return 3.5 * line; }
};

struct GraphBlock {
    PlottedColumn column;
    std::vector<Panel> panels;
    std::vector<ReachSpan> reaches; // shown by name in display mode 1
    BlockPlace place;
    DistanceScale scale;
    FeatureRows features;

    // Set where the block's panels have found their places.
    Axis distances;
    std::vector<double> boundaries; // x of those between reaches
    double axis = 0;                // y of the distance axis
    double base = 0;                // y of the lowest panel's bottom
};

// Sets the block's distance scale and finds places for its features.
void arrangeBlock(const GraphSheet& sheet, const GraphInputs& inputs, const BlockMeasures& measures,
                  GraphBlock& block);

// `featureRows`: of the block that has the most, so that panels side by side are of one height.
void placePanels(const GraphSheet& sheet, const BlockMeasures& measures, int featureRows, GraphBlock& block);

void paintBlock(const GraphSheet& sheet, const GraphBlock& block, const BlockMeasures& measures);

} // namespace korvel
