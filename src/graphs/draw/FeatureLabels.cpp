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

bool isReachBoundary(int featureType) {
    return featureType == reachBoundary || featureType == otherReachBoundary;
}

bool isImportant(int featureType) {
    constexpr int stationTypes[] = {1, 4};   // quality and flow
    constexpr int dischargeTypes[] = {3, 5}; // sewage and industrial
    return isReachBoundary(featureType) || std::ranges::count(stationTypes, featureType) > 0 ||
           std::ranges::count(dischargeTypes, featureType) > 0;
}

} // namespace

bool labelsType(const GraphHandOver& graph, int featureType) {
    if (featureType < 0 || featureType > lastFeatureType || graph.displayLevel >= noLabelsLevel) return false;
    if (graph.displayLevel >= onlyReachesLevel && !isReachBoundary(featureType)) return false;
    return graph.labelFeatureTypes[featureType];
}

namespace {

// A name too long for the strip ends in an ellipsis; its distance stays.
std::string shortened(const GraphSheet& sheet, const std::string& text, double width) {
    const std::size_t bracket = text.rfind(" (");
    if (sheet.labelWidth(text) <= width || bracket == std::string::npos) return text;
    const std::string name = shownUtf8(text.substr(0, bracket));
    const auto cut = [&](std::size_t length) {
        return trimRight(firstShown(name, length)) + "\u2026" + text.substr(bracket);
    };
    std::size_t fits = 0, tooLong = shownLength(name);
    while (tooLong > fits + 1) {
        const std::size_t middle = (fits + tooLong) / 2;
        (sheet.labelWidth(cut(middle)) <= width ? fits : tooLong) = middle;
    }
    return cut(fits);
}

} // namespace

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
            labels.push_back({distance, featureText(inputs, column, j), isImportant(type), first || last});
    }
    return labels;
}

FeatureRows arrangeFeatures(const GraphSheet& sheet, std::vector<FeatureLabel> labels,
                            const DistanceScale& scale, const LabelStrip& strip) {
    std::vector<LabelRequest> requests;
    requests.reserve(labels.size());
    for (FeatureLabel& label : labels) {
        label.text = shortened(sheet, label.text, strip.right - strip.left);
        requests.push_back(
            {scale.x(label.distance), sheet.labelWidth(label.text), label.important, label.required});
    }
    FeatureRows features{std::move(labels), {}, placeLabels(requests, strip), 0};
    for (const LabelRequest& request : requests)
        features.widths.push_back(request.width);
    for (const auto& place : features.places)
        if (place) features.rows = std::max(features.rows, place->row + 1);
    return features;
}

namespace {

// A text narrower than its place lies in it so that its leader meets it where it would meet the place.
double textLeft(const GraphSheet& sheet, const FeatureRows& features, std::size_t k) {
    const LabelPlace& place = *features.places[k];
    const double along = std::clamp((place.port - place.left) / features.widths[k], 0.0, 1.0);
    return place.left + along * (features.widths[k] - sheet.narrowWidth(features.labels[k].text));
}

void drawLabel(const GraphSheet& sheet, const FeatureRows& features, std::size_t k, DrawnPoint mark,
               const FeatureHeights& heights) {
    const LabelPlace& place = *features.places[k];
    const double firstRow = heights.axis - heights.gap;
    const double rowTop = firstRow - heights.row * place.row;
    const double bottom = rowTop - heights.row;
    const bool aboveText = place.port > place.left && place.port < place.left + features.widths[k];
    const double end = aboveText ? rowTop : bottom + 0.2 * heights.row;
    std::vector<DrawnPoint> leader = {mark};
    if (place.port != mark.x) leader.push_back({place.port, firstRow});
    leader.push_back({place.port, end});
    sheet.run(looks::leader, std::move(leader));
    sheet.narrowText({textLeft(sheet, features, k), bottom}, align::left, features.labels[k].text);
}

} // namespace

void drawFeatures(const GraphSheet& sheet, const FeatureRows& features, const DistanceScale& scale,
                  const FeatureHeights& heights) {
    for (std::size_t k = 0; k < features.labels.size(); ++k) {
        const DrawnPoint mark{scale.x(features.labels[k].distance), heights.axis - heights.mark};
        sheet.line(looks::leader, {mark.x, heights.axis}, mark);
        if (features.places[k]) drawLabel(sheet, features, k, mark, heights);
    }
}

} // namespace korvel
