// A results file in the first slot.
#include "basic/Text.h"
#include "fuzz/ResultsFuzz.h"
#include "results/FirstDataSet.h"
#include "results/PointLabels.h"
#include "results/PointValues.h"

namespace korvel {

namespace {

void requireHeader(const ResultsDataSet& results, const PlainResults& plain) {
    const auto count = static_cast<int>(plain.determinands.size());
    require(plain.title.ends_with(results.resultsTitle), "the title is the first line's");
    require(results.percentileMode == plain.percentileMode, "the mode is the file's");
    require(results.determinandCount == count && results.seriesCount == 2 * count, "the counts agree");
    for (int d = 1; d <= count; ++d) {
        const PlainDeterminand& determinand = plain.determinands[static_cast<std::size_t>(d - 1)];
        require(results.determinandTypes[d] == determinand.type, "types are the file's");
        require(results.determinandStatistics[d] == determinand.statistic, "statistics are the file's");
        require(results.determinandNames[d] == determinand.name, "names are the file's");
        require(results.seriesNames[d] == shownDeterminandName(determinand.name) + " (Conc)",
                "so are series");
    }
}

void requireReaches(const ResultsDataSet& results, const PlainResults& plain) {
    require(results.reachCount == static_cast<int>(plain.reaches.size()), "every reach is counted");
    require(results.reachOrder.size() == plain.reaches.size(), "every reach has its place");
    for (std::size_t j = 0; j < plain.reaches.size(); ++j) {
        const PlainReach& reach = plain.reaches[j];
        require(results.reachOrder[j] == reach.number, "reaches keep their order");
        const auto isLater = [&](const PlainReach& other) { return other.number == reach.number; };
        if (std::any_of(plain.reaches.begin() + static_cast<std::ptrdiff_t>(j) + 1, plain.reaches.end(),
                        isLater))
            continue; // the last line of a reach holds
        require(results.reachNames[reach.number] == reach.name, "reach names are the file's");
        require(results.reachLengths[reach.number] == reach.length, "reach lengths are the file's");
        require(results.reachNext[reach.number] == reach.next, "next reaches are the file's");
    }
}

void requirePoint(const ResultsDataSet& results, int index, const PlainPoint& point) {
    require(results.pointReach[index] == point.reach, "a point's reach is the file's");
    require(results.pointDistance[index] == point.distance, "so is its distance");
    require(results.pointFeatureType[index] == point.featureType, "so is its type");
    const PointLabel label =
        makePointLabel(withoutLast(point.label, 3), [&] { return results.reachNames[point.reach]; });
    require(results.pointLabel[index] == label.text, "so is its label");
    require(results.pointSide[index] == label.side, "so is its side");
}

void requirePoints(const ResultsDataSet& results, const PlainResults& plain) {
    require(results.pointCount == static_cast<int>(plain.points.size()), "every point is counted");
    bool interpolated = false;
    for (int i = 1; i <= results.pointCount; ++i) {
        requirePoint(results, i, plain.points[static_cast<std::size_t>(i - 1)]);
        interpolated |= results.pointFeatureType[i] == InterpolatedPointType;
    }
    require(results.pointReach[results.pointCount + 1] == 0, "beyond the last point there is none");
    require(results.hasInterpolatedPoints == interpolated, "interpolated points are noticed");
}

void requireMaxima(const ResultsDataSet& results, const PlainResults& plain) {
    CheckedArray<double, 0, MaxSeries> largest;
    const auto places = valuePlacesOfPoint(results.determinandCount);
    for (const PlainPoint& point : plain.points) {
        if (point.featureType == InterpolatedPointType) continue;
        for (std::size_t k = 0; k < places.size(); ++k)
            largest[places[k].series] = std::max(largest[places[k].series], point.values[k]);
    }
    for (int c = 0; c <= results.seriesCount; ++c)
        require(results.seriesMaximum[c] == largest[c], "the scale is set by the largest value");
}

bool hasTwoLinesForAReach(const ResultsDataSet& results) {
    std::vector<int> order = results.reachOrder;
    std::ranges::sort(order);
    return std::ranges::adjacent_find(order) != order.end();
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    const std::optional<PlainResults> plain = plainResults(text);
    ResultsDataSet results;
    const Load first = load(TextSource(text), results, 0);
    require(first.messages.empty() && first.ending != Ending::abandoned, "a first file is not compared");
    require((first.ending == Ending::loaded) == plain.has_value(), "a file loads where it is whole");
    if (!plain) return 0;
    requireHeader(results, *plain);
    requireReaches(results, *plain);
    requirePoints(results, *plain);
    requireMaxima(results, *plain);
    requireValues(results, 0, *plain);

    require(load(ShortReads(text, 7), results, 0) == first, "reading again, in any pieces, gives the same");
    requirePoints(results, *plain);
    requireValues(results, 0, *plain);
    if (hasTwoLinesForAReach(results)) return 0;
    require(load(ShortReads(text, 61), results, 1) == first, "a file compared with itself is the same");
    requireValues(results, 1, *plain);
    return 0;
}

} // namespace korvel
