#include "graphs/setup/GraphChoices.h"

#include "basic/Numbers.h"
#include "basic/Text.h"
#include "results/Statistics.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace korvel {

namespace {

void deselectAll(std::vector<bool>& selected) {
    std::fill(selected.begin(), selected.end(), false);
}

void clearMode1(GraphChoices& choices) {
    choices.upstream = choices.downstream = NothingChosen;
    choices.downstreamReaches.clear();
    deselectAll(choices.selectedSeries);
}

void clearMode2(GraphChoices& choices) {
    choices.determinand = NothingChosen;
    deselectAll(choices.selectedSites);
}

bool isComparing(const GraphChoices& choices) {
    return choices.plotType == PlotType::comparison;
}

int wholeNumber(double value) {
    using Limits = std::numeric_limits<int>;
    return roundHalfToEven(
        std::clamp(value, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

// What is no number counts as 0.
double levelOf(const std::string& text) {
    return decimalNumber(trim(text)).value_or(0);
}

} // namespace

void enterDisplayMode1(GraphChoices& choices) {
    choices.displayMode1 = true;
    clearMode2(choices);
}

void enterDisplayMode2(GraphChoices& choices) {
    choices.displayMode1 = false;
    clearMode1(choices);
}

void clearSelections(GraphChoices& choices) {
    clearMode1(choices);
    clearMode2(choices);
}

std::vector<bool> firstSelected(std::vector<bool> selected, std::size_t limit) {
    std::size_t count = 0;
    for (auto entry : selected)
        if (entry && ++count > limit) entry = false;
    return selected;
}

std::vector<int> selectedIndices(const std::vector<bool>& selected) {
    std::vector<int> indices;
    for (std::size_t i = 0; i < selected.size(); ++i)
        if (selected[i]) indices.push_back(static_cast<int>(i));
    return indices;
}

void selectSeries(GraphChoices& choices, std::vector<bool> selected) {
    choices.selectedSeries = firstSelected(std::move(selected), MostPlottedSeries);
}

void selectSites(GraphChoices& choices, std::vector<bool> selected) {
    choices.selectedSites = firstSelected(std::move(selected), MostPlottedReaches);
}

void chooseUpstreamReach(GraphChoices& choices, int index, const ResultsDataSet& results) {
    choices.upstream = index;
    choices.downstreamReaches.clear();
    choices.downstream = NothingChosen;
    if (index == NothingChosen) return;
    choices.downstreamReaches =
        downstreamReaches(results, choices.reaches.at(static_cast<std::size_t>(index)).number);
    choices.downstream = 0;
}

void fillLists(GraphChoices& choices, ResultsDataSet& results) {
    std::vector<ListedReach> reaches = listedReaches(results);
    if (reaches != choices.reaches) {
        choices.reaches = std::move(reaches);
        choices.selectedSites.assign(choices.reaches.size(), false);
        chooseUpstreamReach(choices, NothingChosen, results);
    }
    std::vector<std::string> series = listedSeries(results);
    if (series != choices.series) {
        choices.series = std::move(series);
        choices.selectedSeries.assign(choices.series.size(), false);
        choices.determinand = NothingChosen;
    }
}

void choosePlotType(GraphChoices& choices, PlotType plotType) {
    choices.plotType = plotType;
    if (isComparing(choices) && choices.fileLabels[0].empty()) choices.plotType = PlotType::firstDataSet;
    if (isComparing(choices) && choices.plotMeans) choices.plotPercentiles = false;
}

void tickMeans(GraphChoices& choices, Tick tick) {
    choices.plotMeans = tick == Tick::on;
    if (isComparing(choices) && choices.plotMeans) choices.plotPercentiles = false;
}

void tickPercentiles(GraphChoices& choices, Tick tick) {
    choices.plotPercentiles = tick == Tick::on;
    if (isComparing(choices) && choices.plotPercentiles) choices.plotMeans = false;
}

void choosePercentile(GraphChoices& choices, Statistic percentile, ResultsDataSet& results) {
    results.percentileLevel = nameOf(percentile);
    choices.percentile = percentile;
}

std::optional<Message> leaveLevelBox(const std::string& text, ResultsDataSet& results) {
    if (text.empty()) return std::nullopt;
    const double level = levelOf(text);
    results.typedPercentileLevel() = wholeNumber(level);
    if (level == 90 || level == 95 || level == 99) return std::nullopt;
    return Message{"Percentile level must be 90, 95 or 99.", "Percentile level", Icon::question, Buttons::ok};
}

std::string cutTitle(const std::string& text) {
    return firstShown(text, LongestTitle);
}

} // namespace korvel
