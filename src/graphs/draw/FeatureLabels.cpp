#include "graphs/draw/FeatureLabels.h"

#include "basic/Fitting.h"
#include "basic/Numbers.h"
#include "basic/Text.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
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
    return cut(mostFitting(0, shownLength(name),
                           [&](std::size_t length) { return sheet.labelWidth(cut(length)) <= width; }));
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

namespace {

constexpr double unmeasured = std::numeric_limits<double>::infinity(); // has no place
constexpr std::size_t mostMeasured = 2000;                             // measuring takes longer than placing

// Of very many labels the required ones and one for each slot of the strip, an important one where there is.
std::vector<std::size_t> worthMeasuring(const std::vector<LabelRequest>& requests, const LabelStrip& strip) {
    constexpr auto none = static_cast<std::size_t>(-1);
    std::vector<std::size_t> worth, best(mostMeasured, none);
    const bool few = requests.size() <= mostMeasured;
    const double slotsPerUnit = mostMeasured / (strip.right - strip.left);
    for (std::size_t k = 0; k < requests.size(); ++k) {
        const double slot = (requests[k].at - strip.left) * slotsPerUnit;
        if (few || requests[k].required) {
            worth.push_back(k);
        } else if (slot >= 0 && slot < mostMeasured) {
            std::size_t& one = best[static_cast<std::size_t>(slot)];
            if (one == none || (requests[k].important && !requests[one].important)) one = k;
        }
    }
    std::ranges::copy_if(best, std::back_inserter(worth), [](std::size_t k) { return k != none; });
    return worth;
}

} // namespace

FeatureRows arrangeFeatures(const GraphSheet& sheet, std::vector<FeatureLabel> labels,
                            const DistanceScale& scale, const LabelStrip& strip) {
    std::vector<LabelRequest> requests;
    requests.reserve(labels.size());
    for (const FeatureLabel& label : labels)
        requests.push_back({scale.x(label.distance), unmeasured, label.important, label.required});
    for (const std::size_t k : worthMeasuring(requests, strip)) {
        labels[k].text = shortened(sheet, labels[k].text, strip.right - strip.left);
        requests[k].width = sheet.labelWidth(labels[k].text);
    }
    FeatureRows features{std::move(labels), {}, placeLabels(requests, strip), 0};
    for (const LabelRequest& request : requests)
        features.widths.push_back(request.width);
    for (const auto& place : features.places)
        if (place) features.rows = std::max(features.rows, place->row + 1);
    return features;
}

namespace {

constexpr double besideLeader = 0.15; // of a line

// A text narrower than its place lies in it so that its leader meets it where it would meet the place, or
// stands a little off beside it.
double textLeft(const GraphSheet& sheet, const FeatureRows& features, std::size_t k) {
    const LabelPlace& place = *features.places[k];
    const double spare = features.widths[k] - sheet.narrowWidth(features.labels[k].text);
    const double inset = std::min(spare / 2, besideLeader * sheet.lineHeight());
    const double along = (place.port - place.left) / features.widths[k];
    if (along <= 0) return place.left + inset;
    if (along >= 1) return place.left + spare - inset;
    return place.left + along * spare;
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
    sheet.narrowText({textLeft(sheet, features, k), bottom}, TextAlign::left, features.labels[k].text);
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
