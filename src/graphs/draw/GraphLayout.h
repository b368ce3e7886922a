// Where everything of the profile graph stands: plain values that can be asked, and painted. The layout sees
// values of the data set, which must outlive it.
#pragma once

#include "graphs/draw/GraphBlock.h"
#include "graphs/draw/GraphHeading.h"
#include "graphs/draw/GraphInputs.h"
#include "graphs/draw/GraphKey.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace korvel {

// Panels are numbered from the first down the first column, then down the next.
struct PanelGrid {
    int rows = 1;
    int columns = 1;
    int row(int panel) const { return panel % rows; }
    int column(int panel) const { return panel / rows; }
};

PanelGrid panelGrid(bool displayMode1, int panels);

struct GraphLayout {
    double ordinarySize = 0; // points, of all texts but the titles
    BlockMeasures measures;
    GraphHeading heading;
    GraphKey key;
    std::vector<GraphBlock> blocks;
};

// The sheet measures texts; nothing is painted on it.
GraphLayout layOutGraph(const GraphInputs& inputs, const GraphSheet& sheet);

void paint(const GraphLayout& layout, const GraphSheet& sheet);

// A plotted point: the index-th one of a block's column.
struct GraphPoint {
    std::size_t block = 0;
    std::size_t index = 0;
    bool operator==(const GraphPoint&) const = default;
};

// The point whose distance is nearest to a place in graph coordinates, on the block that lies there.
std::optional<GraphPoint> nearestPoint(const GraphLayout& layout, DrawnPoint at);

// The panel of its block in whose plot area a place lies.
std::optional<std::size_t> panelAt(const GraphLayout& layout, DrawnPoint at);

// Another layout of another selection may not have the point.
bool exists(const GraphLayout& layout, const GraphPoint& point);

// Graph coordinates. The y of a curve's point is NaN where nothing is drawn for it.
double xOf(const GraphLayout& layout, const GraphPoint& point);
DrawnPoint placeOf(const GraphLayout& layout, const GraphPoint& point, std::size_t panel, std::size_t curve);

} // namespace korvel
