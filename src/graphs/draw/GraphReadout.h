// What the graph tells of one plotted point, as values; shown beside the graph, never part of it.
#pragma once

#include "graphs/draw/GraphLayout.h"

#include <string>
#include <vector>

namespace korvel {

struct ReadoutValue {
    std::string name;
    std::string value;
    int colour = 0; // of the curve, in the palette
    CurveRole role = CurveRole::main;
    bool operator==(const ReadoutValue&) const = default;
};

struct ReadoutPanel {
    std::string series;
    std::vector<ReadoutValue> values; // those that the graph draws for the point
    bool operator==(const ReadoutPanel&) const = default;
};

struct GraphReadout {
    std::string distance; // along the plotted run
    std::string reach;
    std::string feature;
    std::vector<ReadoutPanel> panels;
    bool operator==(const GraphReadout&) const = default;
};

// `point` exists in the layout.
GraphReadout graphReadout(const ResultsDataSet& results, const GraphLayout& layout, const GraphPoint& point);

// The next point along the graph, from block to block; at its ends the same. Without a point: the first, or
// going back the last. Nothing where the graph has none.
enum class PointStep { back, on };
std::optional<GraphPoint> steppedFrom(const GraphLayout& layout, const std::optional<GraphPoint>& point,
                                      PointStep step);

// In one line, for those who listen.
std::string spokenText(const GraphReadout& readout);

struct ReadoutLine {
    enum class Kind { place, series, value, more };
    Kind kind = Kind::place;
    std::string text = {};
    std::string value = {};
    int colour = 0;
    CurveRole role = CurveRole::main;
    bool operator==(const ReadoutLine&) const = default;
};

// At most that many lines: where there is less room limits are left out first, then all but the main series;
// the last line tells so.
std::vector<ReadoutLine> readoutLines(const GraphReadout& readout, std::size_t most);

// Which file is which, while two are compared; "" otherwise.
std::string comparisonNote(const GraphHandOver& graph, const CheckedArray<std::string, 0, 1>& fileNames,
                           const ShownSlots& shown);

} // namespace korvel
