#include "graphs/draw/ProfileGraph.h"

#include "basic/Text.h"
#include "global/GLOBAL.h"
#include "graphs/draw/GraphBlock.h"
#include "graphs/draw/GraphHeading.h"
#include "graphs/draw/GraphKey.h"

#include <algorithm>

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

double drawKeyOf(const GraphSheet& sheet, const GraphInputs& inputs, const PlotFrame& frame, double left,
                 double top) {
    const double line = sheet.lineHeight();
    const KeyPlace place{left, frame.right - 0.5 * line, top - 0.25 * line,
                         line * (0.8 + 0.7 * inputs.view.LargeTextMode)};
    const Targets targets = anyTargets(inputs) ? Targets::shown : Targets::hidden;
    return drawKey(sheet, keyEntries(inputs.graph, targets, inputs.results.slotLoaded), place);
}

} // namespace

PanelGrid panelGrid(bool displayMode1, int panels) {
    if (displayMode1) return {std::max(panels, 1), 1};
    return {std::max((panels + 1) / 2, 1), 2};
}

void drawProfileGraph(GraphPrimitives& primitives, bool pr, const GraphInputs& inputs) {
    const GraphSheet sheet(primitives, pr);
    const PlotFrame frame = plotFrame(inputs.area, inputs.constants.ScaleY, inputs.view);
    const double headingEnd = drawHeading(sheet, inputs, frame);
    std::vector<GraphBlock> blocks = makeBlocks(inputs);
    const BlockMeasures measures = measuresOf(sheet, inputs, frame, blocks);
    const double keyEnd = drawKeyOf(sheet, inputs, frame, frame.left + measures.gutter, headingEnd);

    // Mode 1 is one block, whose panels are stacked; in mode 2 the blocks stand in the grid.
    const PanelGrid grid = panelGrid(inputs.graph.displayMode1, static_cast<int>(blocks.size()));
    const double lowest = 0.1 * measures.line - inputs.view.ScrollOffsetY;
    placeBlocks(blocks, grid, frame, keyEnd - 0.25 * measures.line, measures, lowest);
    int featureRows = 0;
    for (GraphBlock& block : blocks) {
        arrangeBlock(sheet, inputs, measures, block);
        featureRows = std::max(featureRows, block.features.rows);
    }
    for (const GraphBlock& block : blocks)
        drawBlock(sheet, block, measures, featureRows);
}

void DrawGraphs(GraphPrimitives& primitives, bool pr, const DrawingArea& area, const std::string& date) {
    drawProfileGraph(primitives, pr, {RESULTS, GLOBAL, GLOBAL, GLOBAL, area, date});
}

} // namespace korvel
