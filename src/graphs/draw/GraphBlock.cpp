#include "graphs/draw/GraphBlock.h"

#include <algorithm>
#include <utility>

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
        if (x > block.scale.left && x < block.scale.right) found.push_back(x);
    }
    return found;
}

std::vector<double> asX(const DistanceScale& scale, const std::vector<double>& distances) {
    std::vector<double> x(distances.size());
    std::transform(distances.begin(), distances.end(), x.begin(),
                   [&](double distance) { return scale.x(distance); });
    return x;
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

void drawBlock(const GraphSheet& sheet, const GraphBlock& block, const BlockMeasures& measures,
               int featureRows) {
    const double axis = axisHeight(block, measures);
    const double names = namesHeight(block, measures);
    const double base = axis + names + featuresHeight(measures, featureRows);
    const double ticksRoom = sheet.width("000.0") * (1.3 + 0.7 * measures.largeTextMode);
    const std::vector<double> ticks = distanceTicks(block.scale, ticksRoom);

    const PanelColumn column{block.column, block.scale, asX(block.scale, ticks), boundaries(block)};
    const double share = (block.place.top - base) / static_cast<double>(block.panels.size());
    double top = block.place.top;
    for (const Panel& panel : block.panels) {
        const PlotArea area{block.scale.left, block.scale.right, top - share, top - measures.header()};
        drawPanel(sheet, panel, area, column, {measures.line, measures.largeTextMode});
        top -= share;
    }
    drawFeatures(sheet, block.features, block.scale,
                 {base, measures.featureMark(), measures.featureGap(), measures.featureRow});
    drawReachNames(sheet, block.scale, block.reaches, axis, names);
    drawDistanceAxis(sheet, block.scale, ticks, axis);
}

} // namespace korvel
