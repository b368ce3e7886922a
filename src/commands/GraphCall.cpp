#include "commands/GraphCall.h"

#include "commands/Words.h"
#include "results/Statistics.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr int longestSide = 16384; // pixels
constexpr int mostPixels = 100'000'000;
constexpr int mostSteps = 10000; // far beyond any graph

std::pair<std::string, std::string> halves(const std::string& text, char between) {
    const std::size_t at = std::min(text.find(between), text.size());
    return {text.substr(0, at), at < text.size() ? text.substr(at + 1) : ""};
}

int lengthOf(const std::string& text, const std::string& size) {
    const auto length = wholeNumber(text);
    if (!length || *length < 1 || *length > longestSide)
        throw UsageError("'" + size + "' is no size such as 1600x900");
    return *length;
}

void takeSize(const std::string& size, GraphCall& call) {
    const auto [width, height] = halves(size, 'x');
    call.width = lengthOf(width, size);
    call.height = lengthOf(height, size);
    if (call.width > mostPixels / call.height)
        throw UsageError("the size " + size + " is beyond 100 million pixels");
}

double zoomOf(const std::string& text) {
    const std::pair<const char*, double> zooms[] = {
        {"0.25", 0.25}, {"0.5", 0.5}, {"1", 1}, {"2", 2}, {"4", 4}};
    for (const auto& [name, zoom] : zooms)
        if (text == name) return zoom;
    throw UsageError("'" + text + "' is no zoom: 0.25, 0.5, 1, 2 or 4");
}

int stepsOf(const std::string& text, const std::string& scroll) {
    const bool back = text.starts_with('-');
    const auto steps = wholeNumber(back ? text.substr(1) : text);
    if (!steps || *steps > mostSteps) throw UsageError("'" + scroll + "' is no scroll such as 1,-2");
    return back ? -*steps : *steps;
}

void takeScroll(const std::string& scroll, GraphCall& call) {
    const auto [right, up] = halves(scroll, ',');
    call.stepsRight = stepsOf(right, scroll);
    call.stepsUp = stepsOf(up, scroll);
}

std::string required(const CommandLine& line, const char* option) {
    const auto value = line.value(option);
    if (!value) throw UsageError(std::string(option) + " is missing");
    return *value;
}

int reachAt(const std::vector<ListedReach>& reaches, const std::string& text, const std::string& otherwise) {
    const auto number = wholeNumber(text);
    const auto found =
        std::ranges::find_if(reaches, [&](const ListedReach& reach) { return reach.number == number; });
    if (found == reaches.end()) throw UsageError(otherwise);
    return static_cast<int>(found - reaches.begin());
}

std::vector<bool> seriesNamed(const std::vector<std::string>& names, std::string list) {
    std::vector<bool> chosen(names.size(), false);
    do
        chosen[takeNamed(names, list, 0, "series")] = true;
    while (!list.empty());
    return chosen;
}

void refuseMoreThan(std::size_t most, const std::vector<bool>& chosen, const char* option) {
    if (selectedIndices(chosen).size() > most)
        throw UsageError(std::string(option) + " takes at most " + std::to_string(most));
}

// Several series along the reaches from one to another.
void chooseRun(const CommandLine& line, GraphChoices& choices, ResultsDataSet& results) {
    enterDisplayMode1(choices);
    const std::string from = required(line, "--from"), to = required(line, "--to");
    chooseUpstreamReach(choices, reachAt(choices.reaches, from, "the results have no reach " + from),
                        results);
    choices.downstream =
        reachAt(choices.downstreamReaches, to, "reach " + to + " is not downstream of reach " + from);
    const std::vector<bool> series = seriesNamed(choices.series, required(line, "--series"));
    refuseMoreThan(MostPlottedSeries, series, "--series");
    selectSeries(choices, series);
}

// One series in several reaches.
void chooseSites(const CommandLine& line, GraphChoices& choices, const ResultsDataSet& results) {
    if (line.has("--from") || line.has("--to"))
        throw UsageError("--reaches does not go with --from and --to");
    enterDisplayMode2(choices);
    const std::vector<bool> reaches = reachesNamed(required(line, "--reaches"), results.reachOrder);
    refuseMoreThan(MostPlottedReaches, reaches, "--reaches");
    selectSites(choices, reaches);
    const std::vector<bool> series = seriesNamed(choices.series, required(line, "--series"));
    refuseMoreThan(1, series, "--series with --reaches");
    choices.determinand = selectedIndices(series).front();
}

void chooseStatistics(GraphChoices& choices, const std::string& list) {
    tickMeans(choices, Tick::off);
    tickPercentiles(choices, Tick::off);
    for (const std::string& word : partsOf(list)) {
        if (word == "mean")
            tickMeans(choices, Tick::on);
        else if (word == "percentile")
            tickPercentiles(choices, Tick::on);
        else
            throw UsageError("'" + word + "' is neither mean nor percentile");
    }
}

void chooseLevel(GraphChoices& choices, const std::string& level, ResultsDataSet& results) {
    const auto found = std::ranges::find(statistics::percentiles, level, &StatisticFacts::name);
    if (found == statistics::percentiles.end())
        throw UsageError("'" + level + "' is no level: " + levelChoice());
    choosePercentile(choices, percentileOfLevel(found->level), results);
}

std::size_t featureEntry(const std::string& type) {
    for (std::size_t entry = 0; entry < FeatureTypeTexts.size(); ++entry)
        if (type.size() == 1 && FeatureTypeTexts[entry][0] == type[0]) return entry;
    throw UsageError("'" + type + "' is no feature type: 0 to 5, or 7");
}

void chooseLabels(GraphChoices& choices, const std::string& list) {
    choices.selectedFeatures.assign(FeatureTypeTexts.size(), false);
    if (list == "none") return;
    for (const std::string& type : partsOf(list))
        choices.selectedFeatures[featureEntry(type)] = true;
}

} // namespace

GraphCall graphCallBy(const CommandLine& line) {
    GraphCall call;
    call.resultsFile = modelNameOfTyped(line.onlyOperand("results file"));
    call.comparedFile = modelNameOfTyped(line.value("--compare").value_or(""));
    call.outputFile = modelNameOfTyped(required(line, "--output"));
    if (const auto size = line.value("--size")) takeSize(*size, call);
    if (const auto zoom = line.value("--zoom")) call.zoom = zoomOf(*zoom);
    if (const auto scroll = line.value("--scroll")) takeScroll(*scroll, call);
    if (line.has("--small-text")) call.largeTextMode = 0;
    return call;
}

void chooseBy(const CommandLine& line, GraphChoices& choices, ResultsDataSet& results) {
    if (line.has("--reaches"))
        chooseSites(line, choices, results);
    else
        chooseRun(line, choices, results);
    if (line.has("--compare")) choosePlotType(choices, PlotType::comparison);
    if (const auto list = line.value("--plot")) chooseStatistics(choices, *list);
    if (const auto level = line.value("--level")) chooseLevel(choices, *level, results);
    if (line.has("--limits")) choices.plotConfidenceLimits = true;
    if (line.has("--targets")) choices.plotQualityTargets = true;
    if (line.has("--observed")) choices.plotObservedValues = true;
    if (line.has("--no-targets")) choices.plotQualityTargets = false;
    if (line.has("--no-observed")) choices.plotObservedValues = false;
    if (const auto list = line.value("--labels")) chooseLabels(choices, *list);
    if (const auto title = line.value("--title")) choices.title = cutTitle(*title);
    if (const auto title = line.value("--subtitle")) choices.subTitle = cutTitle(*title);
}

} // namespace korvel
