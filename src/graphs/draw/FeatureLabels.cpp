#include "graphs/draw/FeatureLabels.h"

#include "basic/Numbers.h"
#include "basic/Text.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvel {

namespace {

constexpr int reachBoundary = 0;
constexpr int otherReachBoundary = 10;
constexpr int lastFeatureType = 50;
constexpr int onlyReachesLevel = 2;
constexpr int noLabelsLevel = 3;

} // namespace

bool labelsType(const GraphHandOver& graph, int featureType) {
    if (featureType < 0 || featureType > lastFeatureType || graph.displayLevel >= noLabelsLevel) return false;
    const bool boundary = featureType == reachBoundary || featureType == otherReachBoundary;
    if (graph.displayLevel >= onlyReachesLevel && !boundary) return false;
    return graph.labelFeatureTypes[featureType];
}

std::string featureText(const GraphInputs& inputs, int column, int j) {
    const std::string distance = formatPattern(inputs.graph.graphDistances[column][j], "##0.0");
    if (!inputs.graph.displayMode1 && inputs.view.LargeTextMode == 1) return distance + "km";
    const int point = inputs.graph.graphPoints[column][j];
    return inputs.results.pointLabel[point] + " (" + trim(distance) + "km)";
}

std::vector<FeatureLabel> featureLabels(const GraphInputs& inputs, int column, double perKm, double spacing) {
    const GraphHandOver& graph = inputs.graph;
    std::vector<FeatureLabel> labels;
    const int count = graph.graphPointCounts[column];
    for (int j = 1; j <= count; ++j) {
        const int type = inputs.results.pointFeatureType[graph.graphPoints[column][j]];
        if (!labelsType(graph, type)) continue;
        const double distance = graph.graphDistances[column][j];
        const bool first = labels.empty();
        const bool last = j == count;
        if (first || last || std::abs(distance - labels.back().distance) * perKm > spacing)
            labels.push_back({distance, featureText(inputs, column, j), first || last});
    }
    return labels;
}

FeatureRows arrangeFeatures(const GraphSheet& sheet, std::vector<FeatureLabel> labels,
                            const DistanceScale& scale, const LabelStrip& strip) {
    std::vector<LabelRequest> requests;
    requests.reserve(labels.size());
    for (const FeatureLabel& label : labels)
        requests.push_back({scale.x(label.distance), sheet.narrowWidth(label.text), label.required});
    FeatureRows features{std::move(labels), {}, placeLabels(requests, strip), 0};
    for (const LabelRequest& request : requests)
        features.widths.push_back(request.width);
    for (const auto& place : features.places)
        if (place) features.rows = std::max(features.rows, place->row + 1);
    return features;
}

void drawFeatures(const GraphSheet& sheet, const FeatureRows& features, const DistanceScale& scale,
                  const FeatureHeights& heights) {
    const double firstRow = heights.axis - heights.gap;
    for (std::size_t k = 0; k < features.labels.size(); ++k) {
        const double x = scale.x(features.labels[k].distance);
        double leaderEnd = firstRow;
        if (const std::optional<LabelPlace>& place = features.places[k]) {
            const double rowTop = firstRow - heights.row * place->row;
            const double bottom = rowTop - heights.row;
            const bool aboveText = x > place->left && x < place->left + features.widths[k];
            leaderEnd = aboveText ? rowTop : bottom + 0.2 * heights.row;
            sheet.narrowText({place->left, bottom}, align::left, features.labels[k].text);
        }
        sheet.line(looks::leader, {x, heights.axis}, {x, leaderEnd});
    }
}

} // namespace korvel
