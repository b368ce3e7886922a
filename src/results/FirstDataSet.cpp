#include "results/FirstDataSet.h"

#include "basic/Text.h"
#include "results/PointLabels.h"
#include "results/Statistics.h"

#include <algorithm>

namespace korvel {

std::string shownDeterminandName(std::string_view name) {
    std::string shown = trim(name);
    while (shown.ends_with('.'))
        shown = trimRight(withoutLast(shown, 1));
    return shown;
}

void FirstDataSet::title(std::string_view line) {
    const auto isShown = [](char c) { return static_cast<unsigned char>(c) > ' '; };
    line.remove_prefix(static_cast<std::size_t>(std::ranges::find_if(line, isShown) - line.begin()));
    m_results.resultsTitle = line;
}

std::optional<std::string> FirstDataSet::percentileMode(int mode) {
    m_results.percentileMode = mode;
    const std::optional<Statistic> percentile = percentileOfMode(mode);
    if (!percentile) return {}; // kept so: an unknown mode leaves level and caption as they were
    m_results.percentileLevel = nameOf(*percentile);
    const bool ofMean = mode == 1 || mode < 0;
    m_results.percentileCaption = factsOf(ofMean ? Statistic::mean : *percentile).caption;
    return {};
}

Refusal FirstDataSet::determinandCount(int count) {
    m_results.determinandCount = count;
    m_results.seriesCount = count;
    m_results.seriesNames[0] = "Flow";
    return {};
}

Refusal FirstDataSet::determinand(int number, const DeterminandLine& line) {
    m_results.determinandTypes[number] = line.type;
    m_results.determinandNames[number] = line.name;
    m_results.determinandStatistics[number] = line.statistic;
    return {};
}

void FirstDataSet::determinandsEnd() {
    const int count = m_results.determinandCount;
    for (int d = 1; d <= count; ++d) {
        const std::string name = shownDeterminandName(m_results.determinandNames[d]);
        m_results.seriesNames[count + d] = name + " (Load)";
        m_results.seriesNames[d] = name + " (Conc)";
    }
}

Refusal FirstDataSet::reachCount(int count) {
    m_results.reachCount = count;
    if (count < 0) throw RunTimeError(errors::subscriptOutOfRange);
    m_results.reachOrder.clear();
    return {};
}

Refusal FirstDataSet::reach(const ReachLine& line) {
    m_results.reachNames.set(line.number, std::string(line.name));
    m_results.reachLengths.set(line.number, line.length);
    m_results.reachNext.set(line.number, line.next);
    m_results.reachOrder.push_back(line.number);
    return {};
}

void FirstDataSet::pointsBegin() {
    for (int c = 0; c <= 2 * m_results.determinandCount; ++c)
        m_results.seriesMaximum[c] = 0;
    m_largest.assign(valuePlacesOfPoint(m_results.determinandCount).size(), 0);
}

Refusal FirstDataSet::point(int index, const PointLine& line) {
    m_results.pointReach.set(index, line.reach);
    m_results.pointDistance.set(index, line.distance);
    m_results.pointLabel.set(index, labelInFile(line.label));
    m_results.pointFeatureType.set(index, line.featureType);
    if (line.featureType == InterpolatedPointType) m_results.hasInterpolatedPoints = true;
    return {};
}

void FirstDataSet::pointEnd(int index, std::span<const double> values) {
    // Interpolated points never set the scale.
    if (m_results.pointFeatureType[index] != InterpolatedPointType) raiseMaxima(values);
    makeLabel(index);
}

void FirstDataSet::raiseMaxima(std::span<const double> values) {
    const double* value = values.data();
    for (double& largest : m_largest)
        largest = std::max(largest, *value++);
}

void FirstDataSet::pointsEnd() {
    const std::vector<ValuePlace> places = valuePlacesOfPoint(m_results.determinandCount);
    for (std::size_t k = 0; k < m_largest.size(); ++k) {
        double& largest = m_results.seriesMaximum[places[k].series];
        largest = std::max(largest, m_largest[k]);
    }
}

void FirstDataSet::makeLabel(int index) {
    const auto reachName = [&] { return m_results.reachNames[m_results.pointReach[index]]; };
    PointLabel label = makePointLabel(m_results.pointLabel[index], reachName);
    m_results.pointLabel.set(index, std::move(label.text));
    m_results.pointSide.set(index, std::move(label.side));
}

} // namespace korvel
