// What the graph set-up form shows and the user has chosen in it, as one value, and the rules that hold while
// the user clicks. The form refreshes from it after each of them.
#pragma once

#include "global/GraphHandOver.h"
#include "graphs/setup/ReachLists.h"
#include "platform/Message.h"
#include "results/Statistics.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

inline constexpr std::size_t MostPlottedSeries = 5;
inline constexpr std::size_t MostPlottedReaches = 6;
inline constexpr std::size_t LongestTitle = 60; // characters as shown
inline constexpr int NothingChosen = -1;

// There is no entry 6, deliberately.
inline constexpr std::array<const char*, 7> FeatureTypeTexts = {
    "0  Reach boundary",   "1  Monitoring station",  "2  Stream or tributary", "3  Sewage discharge",
    "4  River flow gauge", "5  Industrial effluent", "7  Abstraction"};

struct GraphChoices {
    std::array<std::string, 2> fileLabels; // short names of the results files, by slot
    bool firstDataSetLoaded = false;
    std::string firstFile; // model name of what the form shows as the first data set
    int firstLoad = 0;     // by number, see ResultsHandOver::firstSlotLoads
    bool waiting = false;  // a file is being read
    bool plotEnabled = true;

    std::vector<ListedReach> reaches;           // of the upstream combo and of lstSites
    std::vector<ListedReach> downstreamReaches; // the upstream reach and all below it
    std::vector<std::string> series;            // by series number

    bool displayMode1 = true;
    int upstream = NothingChosen;     // index in `reaches`
    int downstream = NothingChosen;   // index in `downstreamReaches`
    std::vector<bool> selectedSeries; // lstDets, mode 1
    int determinand = NothingChosen;  // series number, mode 2
    std::vector<bool> selectedSites;  // lstSites, mode 2

    std::vector<bool> selectedFeatures = std::vector<bool>(FeatureTypeTexts.size(), true);
    bool plotMeans = true;
    bool plotPercentiles = false;
    bool plotConfidenceLimits = false;
    bool plotQualityTargets = true;
    bool plotObservedValues = true;
    bool offersInterpolatedPoints = true; // the box can be ticked
    bool plotInterpolatedPoints = false;
    int followedLoads = 0; // by number, see ResultsHandOver::loads
    PlotType plotType = PlotType::firstDataSet;
    Statistic percentile = Statistic::p95;
    int displayLevel = 0;
    std::string title;
    std::string subTitle;

    bool operator==(const GraphChoices&) const = default;
};

// After a load. A list that comes out as it was keeps its selections.
void fillLists(GraphChoices& choices, ResultsDataSet& results);

// The display mode follows the focus; the other mode loses its selections.
void enterDisplayMode1(GraphChoices& choices);
void enterDisplayMode2(GraphChoices& choices);
void clearSelections(GraphChoices& choices);

// The selected entries from the top of the list, as many as are allowed; those after them are deselected.
std::vector<bool> firstSelected(std::vector<bool> selected, std::size_t limit);
std::vector<int> selectedIndices(const std::vector<bool>& selected);
void selectSeries(GraphChoices& choices, std::vector<bool> selected);
void selectSites(GraphChoices& choices, std::vector<bool> selected);

// Fills the list of downstream reaches, and shows the upstream reach as its default.
void chooseUpstreamReach(GraphChoices& choices, int index, const ResultsDataSet& results);

// Comparing needs the first file's label (kept so: not the second's), and shows means or percentiles, not
// both.
void choosePlotType(GraphChoices& choices, PlotType plotType);
enum class Tick { off, on };
void tickMeans(GraphChoices& choices, Tick tick);
void tickPercentiles(GraphChoices& choices, Tick tick);

void choosePercentile(GraphChoices& choices, Statistic percentile, ResultsDataSet& results);

// The level box is left: whatever was typed becomes the typed level. The message keeps the focus in the box.
std::optional<Message> leaveLevelBox(const std::string& text, ResultsDataSet& results);

// A title box is left.
std::string cutTitle(const std::string& text);

} // namespace korvel
