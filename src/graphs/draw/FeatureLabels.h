// The labels of features under a distance axis: which points are labelled, with what text, and where.
#pragma once

#include "drawing/LabelPlacing.h"
#include "graphs/draw/GraphInputs.h"
#include "graphs/draw/GraphSheet.h"
#include "graphs/draw/PlottedColumn.h"

#include <string>
#include <vector>

namespace korvel {

struct FeatureLabel {
    double distance = 0; // km along the plotted run
    std::string text;
    bool important = false; // reach boundaries, discharges and stations
    bool required = false;  // the first of its column, and the column's last point
    bool operator==(const FeatureLabel&) const = default;
};

// Whether points of a feature type are labelled at all.
bool labelsType(const GraphHandOver& graph, int featureType);

// The label of the j-th point of a column.
std::string featureText(const GraphInputs& inputs, int column, int j);

// The points of a column that are to be labelled: farther apart than the spacing (graph units), and the last
// point.
std::vector<FeatureLabel> featureLabels(const GraphInputs& inputs, int column, double perKm, double spacing);

// Labels with their places; `rows` is how many rows they take.
struct FeatureRows {
    std::vector<FeatureLabel> labels;
    std::vector<double> widths;
    std::vector<std::optional<LabelPlace>> places;
    int rows = 0;
};

FeatureRows arrangeFeatures(const GraphSheet& sheet, std::vector<FeatureLabel> labels,
                            const DistanceScale& scale, const LabelStrip& strip);

// How the rows hang under an axis.
struct FeatureHeights {
    double axis = 0; // y
    double mark = 0; // length of those under the axis
    double gap = 0;  // above the first row
    double row = 0;
};

// Every candidate has a mark under the axis, those with a place a leader to their label.
void drawFeatures(const GraphSheet& sheet, const FeatureRows& features, const DistanceScale& scale,
                  const FeatureHeights& heights);

} // namespace korvel
