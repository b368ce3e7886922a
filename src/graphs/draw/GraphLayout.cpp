#include "graphs/draw/GraphLayout.h"

#include "basic/Text.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr int suppressReachesLevel = 3;

std::vector<ReachSpan> reachSpans(const GraphInputs& inputs) {
    std::vector<ReachSpan> spans;
    if (inputs.graph.displayLevel >= suppressReachesLevel) return spans;
    double from = 0;
    for (int k = 0; k < inputs.graph.graphReachCount; ++k) {
        const int reach = inputs.graph.graphReaches.at(static_cast<std::size_t>(k));
        const double to = from + inputs.results.reachLengths[reach];
        spans.push_back({from, to, trim(inputs.results.reachNames[reach])});
        from = to;
    }
    return spans;
}

GraphBlock seriesBlock(const GraphInputs& inputs) {
    GraphBlock block;
    block.column = plottedColumn(inputs.results, inputs.graph, 1);
    for (const int series : inputs.graph.selectedDeterminands)
        block.panels.push_back(makePanel(inputs, block.column, series, 0));
    block.reaches = reachSpans(inputs);
    return block;
}

GraphBlock reachBlock(const GraphInputs& inputs, int series, int column) {
    GraphBlock block;
    block.column = plottedColumn(inputs.results, inputs.graph, column);
    const int reach = inputs.graph.graphReaches.at(static_cast<std::size_t>(column - 1));
    block.panels.push_back(makePanel(inputs, block.column, series, reach));
    return block;
}

std::vector<GraphBlock> makeBlocks(const GraphInputs& inputs) {
    std::vector<GraphBlock> blocks;
    if (inputs.graph.selectedDeterminands.empty()) return blocks;
    if (inputs.graph.displayMode1) {
        blocks.push_back(seriesBlock(inputs));
        return blocks;
    }
    for (int column = 1; column <= inputs.graph.graphReachCount; ++column)
        blocks.push_back(reachBlock(inputs, inputs.graph.selectedDeterminands.front(), column));
    return blocks;
}

bool anyTargets(const GraphInputs& inputs) {
    const std::vector<int>& series = inputs.graph.selectedDeterminands;
    return std::any_of(series.begin(), series.end(),
                       [&](int one) { return showsTargets(inputs.results, inputs.graph, one); });
}

BlockMeasures measuresOf(const GraphSheet& sheet, const GraphInputs& inputs, const PlotFrame& frame,
                         const std::vector<GraphBlock>& blocks) {
    BlockMeasures measures;
    measures.line = sheet.lineHeight();
    measures.largeTextMode = inputs.view.LargeTextMode;
    measures.featureRow = measures.line * (1 + 0.1 * measures.largeTextMode);
    measures.spacing = 13 * (measures.largeTextMode + 1) * frame.unit;
    for (const GraphBlock& block : blocks)
        for (const Panel& panel : block.panels)
            measures.gutter = std::max(measures.gutter, gutterOf(sheet, panel));
    return measures;
}

// The blocks share the frame's width and the height under the key. The lowest numbers hang under the frame;
// where a line of text is higher than the room there, the graph begins higher.
void placeBlocks(std::vector<GraphBlock>& blocks, const PanelGrid& grid, const PlotFrame& frame, double top,
                 const BlockMeasures& measures, double lowest) {
    const double bottom = std::max(frame.bottom - measures.numbers(), lowest);
    const double height = (top - bottom) / grid.rows;
    const double width = frame.width() / grid.columns;
    for (std::size_t k = 0; k < blocks.size(); ++k) {
        const int row = grid.row(static_cast<int>(k)), column = grid.column(static_cast<int>(k));
        blocks[k].place = {frame.left + column * width, frame.left + (column + 1) * width,
                           top - (row + 1) * height, top - row * height};
    }
}

GraphKey layOutKeyOf(const GraphSheet& sheet, const GraphInputs& inputs, const PlotFrame& frame, double left,
                     double top) {
    const double line = sheet.lineHeight();
    const KeyPlace place{left, frame.right - 0.5 * line, top - 0.25 * line,
                         line * (0.8 + 0.7 * inputs.view.LargeTextMode)};
    const Targets targets = anyTargets(inputs) ? Targets::shown : Targets::hidden;
    return layOutKey(sheet, keyEntries(inputs.graph, targets, inputs.results.slotLoaded), place);
}

void layOutBlocks(const GraphSheet& sheet, const GraphInputs& inputs, const PlotFrame& frame,
                  GraphLayout& layout) {
    const BlockMeasures& measures = layout.measures;
    // Mode 1 is one block, whose panels are stacked; in mode 2 the blocks stand in the grid.
    const PanelGrid grid = panelGrid(inputs.graph.displayMode1, static_cast<int>(layout.blocks.size()));
    const double lowest = 0.1 * measures.line - inputs.view.ScrollOffsetY;
    placeBlocks(layout.blocks, grid, frame, layout.key.bottom - 0.25 * measures.line, measures, lowest);
    int featureRows = 0;
    for (GraphBlock& block : layout.blocks) {
        arrangeBlock(sheet, inputs, measures, block);
        featureRows = std::max(featureRows, block.features.rows);
    }
    for (GraphBlock& block : layout.blocks)
        placePanels(sheet, measures, featureRows, block);
}

bool contains(const BlockPlace& place, DrawnPoint at) {
    return at.x >= place.left && at.x < place.right && at.y >= place.bottom && at.y < place.top;
}

} // namespace

PanelGrid panelGrid(bool displayMode1, int panels) {
    if (displayMode1) return {std::max(panels, 1), 1};
    return {std::max((panels + 1) / 2, 1), 2};
}

GraphLayout layOutGraph(const GraphInputs& inputs, const GraphSheet& sheet) {
    const PlotFrame frame = plotFrame(inputs.area, inputs.constants.ScaleY, inputs.view);
    GraphLayout layout;
    layout.ordinarySize = ordinaryFontSize(inputs);
    layout.heading = layOutHeading(sheet, inputs, frame);
    layout.blocks = makeBlocks(inputs);
    layout.measures = measuresOf(sheet, inputs, frame, layout.blocks);
    layout.key =
        layOutKeyOf(sheet, inputs, frame, frame.left + layout.measures.gutter, layout.heading.bottom);
    layOutBlocks(sheet, inputs, frame, layout);
    return layout;
}

void paint(const GraphLayout& layout, const GraphSheet& sheet) {
    paintHeading(sheet, layout.heading, layout.ordinarySize);
    paintKey(sheet, layout.key);
    for (const GraphBlock& block : layout.blocks)
        paintBlock(sheet, block, layout.measures);
}

std::optional<GraphPoint> nearestPoint(const GraphLayout& layout, DrawnPoint at) {
    for (std::size_t k = 0; k < layout.blocks.size(); ++k) {
        const GraphBlock& block = layout.blocks[k];
        const std::vector<double>& distances = block.column.distances;
        if (distances.empty() || !contains(block.place, at)) continue;
        const double sought = block.scale.value(at.x);
        const auto nearer = [&](double a, double b) { return std::abs(a - sought) < std::abs(b - sought); };
        const auto nearest = std::min_element(distances.begin(), distances.end(), nearer);
        return GraphPoint{k, static_cast<std::size_t>(nearest - distances.begin())};
    }
    return std::nullopt;
}

std::optional<std::size_t> panelAt(const GraphLayout& layout, DrawnPoint at) {
    for (const GraphBlock& block : layout.blocks)
        for (std::size_t k = 0; k < block.panels.size(); ++k) {
            const PlotArea& area = block.panels[k].area;
            const BlockPlace place{area.left, area.right, area.bottom, area.top};
            if (contains(place, at)) return k;
        }
    return std::nullopt;
}

bool exists(const GraphLayout& layout, const GraphPoint& point) {
    return point.block < layout.blocks.size() &&
           point.index < layout.blocks[point.block].column.points.size();
}

double xOf(const GraphLayout& layout, const GraphPoint& point) {
    const GraphBlock& block = layout.blocks.at(point.block);
    return block.scale.x(block.column.distances.at(point.index));
}

DrawnPoint placeOf(const GraphLayout& layout, const GraphPoint& point, std::size_t panel, std::size_t curve) {
    const GraphBlock& block = layout.blocks.at(point.block);
    const Panel& shown = block.panels.at(panel);
    const CurvePlace place{shown.area, block.scale, shown.values.scale};
    return placeOf(curveOver(shown.curves.at(curve), block.column), point.index,
                   block.column.distances.at(point.index), place);
}

} // namespace korvel
