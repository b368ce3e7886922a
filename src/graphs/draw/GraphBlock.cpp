#include "graphs/draw/GraphBlock.h"

#include <algorithm>

namespace korvel {

namespace {

double axisHeight(const GraphBlock& block, const BlockMeasures& measures) {
    return block.place.bottom + measures.numbers();
}

double namesHeight(const GraphBlock& block, const BlockMeasures& measures) {
    return block.reaches.empty() ? 0 : measures.reachNames();
}

double featuresHeight(const BlockMeasures& measures, int rows) {
    return rows == 0 ? 0 : rows * measures.featureRow + measures.featureGap() + 0.2 * measures.line;
}

// At most a quarter of the column, and never so many that the panels have no height left.
int mostFeatureRows(const GraphBlock& block, const BlockMeasures& measures) {
    const double column = block.place.top - axisHeight(block, measures);
    const double panels =
        static_cast<double>(block.panels.size()) * (measures.header() + measures.leastPlot());
    const double free = column - namesHeight(block, measures) - panels - 0.4 * measures.line;
    return std::max(1, static_cast<int>(std::min(column / 4, free) / measures.featureRow));
}

std::vector<double> boundaries(const GraphBlock& block) {
    std::vector<double> found;
    for (std::size_t k = 1; k < block.reaches.size(); ++k) {
        const double x = block.scale.x(block.reaches[k].from);
        if (x > block.scale.from && x < block.scale.to) found.push_back(x);
    }
    return found;
}

} // namespace

void arrangeBlock(const GraphSheet& sheet, const GraphInputs& inputs, const BlockMeasures& measures,
                  GraphBlock& block) {
    const double rightMargin = sheet.width("00.0") / 2 + 0.2 * measures.line;
    block.scale = {block.column.lowest, block.column.highest, block.place.left + measures.gutter,
                   block.place.right - rightMargin};
    const double perKm = block.scale.perKm();
    const LabelStrip strip{block.place.left + 0.3 * measures.line, block.place.right - 0.3 * measures.line,
                           0.3 * measures.line, measures.featureReach(), mostFeatureRows(block, measures)};
    block.features = arrangeFeatures(
        sheet, featureLabels(inputs, block.column.number, perKm, measures.spacing), block.scale, strip);
}

void placePanels(const GraphSheet& sheet, const BlockMeasures& measures, int featureRows, GraphBlock& block) {
    block.axis = axisHeight(block, measures);
    block.base = block.axis + namesHeight(block, measures) + featuresHeight(measures, featureRows);
    block.boundaries = boundaries(block);
    const double ticksRoom = sheet.width("000.0") * (1.3 + 0.7 * measures.largeTextMode);
    block.distances = distanceAxis(block.scale, ticksRoom);
    const double share = (block.place.top - block.base) / static_cast<double>(block.panels.size());
    double top = block.place.top;
    for (Panel& panel : block.panels) {
        const PlotArea area{block.scale.from, block.scale.to, top - share, top - measures.header()};
        placePanel(panel, area, measures.line, measures.largeTextMode);
        top -= share;
    }
}

void paintBlock(const GraphSheet& sheet, const GraphBlock& block, const BlockMeasures& measures) {
    for (const Panel& panel : block.panels)
        paintPanel(sheet, panel, {block.column, block.scale, block.distances, block.boundaries});
    drawFeatures(sheet, block.features, block.scale,
                 {block.base, measures.featureMark(), measures.featureGap(), measures.featureRow});
    paintReachNames(sheet, block.scale, block.reaches, {block.axis, namesHeight(block, measures)});
    paintDistanceAxis(sheet, block.distances, block.axis);
}

} // namespace korvel
