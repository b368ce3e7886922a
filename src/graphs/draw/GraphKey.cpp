#include "graphs/draw/GraphKey.h"

#include "graphs/draw/PanelCurves.h"
#include "results/Statistics.h"

#include <algorithm>

namespace korvel {

namespace {

std::string percentileText(int row) {
    const std::string level(nameOf(percentileOfLevel(std::min(row, statistics::levels - 1))));
    // Kept so: the flows are called 95% wherever the quality's percentile is another.
    return level + (row == 0 || row == 2 ? "% values (95% flows)" : "% values");
}

// The one whose observed values are shown; all of it, where two are not compared.
int mainSlot(const GraphHandOver& graph) {
    return graph.plotType == PlotType::secondDataSet ? 1 : 0;
}

std::vector<KeyEntry> comparedEntries(const std::string& text, const ShownSlots& shown) {
    std::vector<KeyEntry> entries;
    if (shown[0]) entries.push_back({text + " for Set 1", looks::first});
    if (shown[1]) entries.push_back({text + " for Set 2", looks::second});
    return entries;
}

std::vector<KeyEntry> mainEntries(const GraphHandOver& graph, const ShownSlots& shown) {
    const std::string means = "Mean values", percentiles = percentileText(graph.percentileRow);
    if (graph.plotType == PlotType::comparison)
        return comparedEntries(graph.plotMeans ? means : percentiles, shown);
    std::vector<KeyEntry> entries;
    if (!shown[mainSlot(graph)]) return entries;
    if (graph.plotMeans) entries.push_back({means, looks::first});
    if (graph.plotPercentiles) entries.push_back({percentiles, looks::second});
    return entries;
}

const char* const caption = "KEY:";

struct KeyMeasures {
    const GraphSheet& sheet;
    double height;
    double sample = 2.2 * height; // length of a sample line
    double toText = 0.4 * height;

    double width(const KeyEntry& entry) const {
        return (entry.sample == KeySample::line ? sample : height) + toText + sheet.width(entry.text);
    }
    void paint(const KeyEntry& entry, double x, double bottom) const {
        const double middle = bottom + height / 2;
        const bool line = entry.sample == KeySample::line;
        if (line)
            sheet.line(entry.look, {x, middle}, {x + sample, middle});
        else
            sheet.cross(entry.look, {x + height / 2, middle}, sheet.crossHalf());
        sheet.text({x + (line ? sample : height) + toText, bottom}, TextAlign::left, entry.text);
    }
};

} // namespace

std::vector<KeyEntry> keyEntries(const GraphHandOver& graph, Targets targets, const ShownSlots& shown) {
    const bool observed = shown[mainSlot(graph)];
    const bool limits = observed || (graph.plotType == PlotType::comparison && shown[1]);
    std::vector<KeyEntry> entries = mainEntries(graph, shown);
    if (graph.plotConfidenceLimits && limits) entries.push_back({"Confidence limits", looks::limits});
    if (targets == Targets::shown) entries.push_back({"Quality targets", looks::targets});
    if (graph.plotObservedValues && observed)
        entries.push_back({"Observed values", looks::observed, KeySample::cross});
    return entries;
}

GraphKey layOutKey(const GraphSheet& sheet, const std::vector<KeyEntry>& entries, const KeyPlace& place) {
    const KeyMeasures measures{sheet, sheet.lineHeight()};
    GraphKey key;
    double bottom = place.top - measures.height;
    key.caption = {place.left, bottom};
    const double indent = place.left + sheet.width(caption) + measures.height;
    double x = indent;
    for (const KeyEntry& entry : entries) {
        const double width = measures.width(entry);
        if (x > indent && x + width > place.right) {
            x = indent;
            bottom -= measures.height;
        }
        key.entries.push_back({entry, {x, bottom}});
        x += width + place.gap;
    }
    key.bottom = bottom;
    return key;
}

void paintKey(const GraphSheet& sheet, const GraphKey& key) {
    const KeyMeasures measures{sheet, sheet.lineHeight()};
    sheet.text(key.caption, TextAlign::left, caption);
    for (const PlacedEntry& placed : key.entries)
        measures.paint(placed.entry, placed.at.x, placed.at.y);
}

} // namespace korvel
