// The catchment as a picture: every river a line along its distance to the mouth, which is at the right, and
// tributaries on lanes of their own. Plain values that can be asked, and painted. Twips, y downward.
#pragma once

#include "analysis/Compliance.h"
#include "drawing/Axis.h"
#include "drawing/Curve.h"
#include "panels/PanelLook.h"
#include "panels/RangePyramid.h"
#include "study/Network.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

enum class NetworkColours { plain, byVerdict, byValue };

// Lists go by the reaches' places in the run.
struct NetworkView {
    NetworkColours colours = NetworkColours::plain;
    std::vector<Verdict> verdicts;
    std::vector<std::optional<double>> values;
    std::string valueName; // "BOD (Conc), mean"
};

struct NetworkReach {
    int place = 0;
    double from = 0; // x of its upper end
    double to = 0;
    double y = 0;
    double length = 0; // km
    Pen pen;
    Verdict verdict = Verdict::none; // only where reaches are coloured by it
};

struct NetworkFeature {
    int place = 0; // of the reach
    int point = 0; // in the run
    DrawnPoint at;
};

struct NetworkName {
    std::size_t river = 0; // index into the network's
    DrawnText text;
};

enum class NetworkSymbol { none, pass, unsure, fail };

struct NetworkKeyEntry {
    Pen pen;
    NetworkSymbol symbol = NetworkSymbol::none;
    DrawnPoint at; // left end and middle of the sample
    double width = 0;
    DrawnText text;
};

// Where a reach is coloured by value.
struct NetworkColourBar {
    PlotArea area; // empty where there is none
    Axis values;
};

struct NetworkLayout {
    double width = 0;
    double height = 0;
    PanelLook look;
    Axis distance; // km to the mouth; its largest at the left
    double axisY = 0;
    double symbolHalf = 0;
    std::vector<NetworkReach> reaches; // by place; empty where reaches run in a circle
    std::vector<DrawnLine> joins;      // from a tributary's end to the river that it runs into
    std::vector<NetworkFeature> features;
    std::vector<NetworkName> names; // of rivers, as far as there is room
    std::vector<DrawnText> texts;
    std::vector<NetworkKeyEntry> key;
    NetworkColourBar bar;
};

NetworkLayout layOutNetwork(const RunFile& run, const Network& network, const NetworkView& view,
                            const PanelLook& look, double width, double height, const TextMetrics& metrics);

void paint(const NetworkLayout& layout, Drawing& drawing);

// A place on a reach: km from its upper end.
struct NetworkSpot {
    int place = 0;
    double distance = 0;
    bool operator==(const NetworkSpot&) const = default;
};

// The nearest one within a distance.
std::optional<NetworkSpot> spotAt(const NetworkLayout& layout, DrawnPoint at, double within);
std::optional<std::size_t> featureAt(const NetworkLayout& layout, DrawnPoint at, double within);
std::optional<DrawnPoint> placeOf(const NetworkLayout& layout, const NetworkSpot& spot);

// A ground under the reaches that are chosen, to be painted before the network itself.
void paintChosen(const NetworkLayout& layout, const std::vector<int>& places, Drawing& drawing);
void paintSpot(const NetworkLayout& layout, const NetworkSpot& spot, Drawing& drawing);

// Of each reach, by place: the mean of a series along it, none without points.
std::vector<std::optional<double>> reachMeans(const RunFile& run, int series, Statistic statistic);

// Light to dark or dark to light, as stands out from the ground. `share`: 0 to 1.
Rgb valueColour(double share, Theme theme);

} // namespace korvel
