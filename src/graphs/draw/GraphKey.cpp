#include "graphs/draw/GraphKey.h"

#include "graphs/draw/PanelCurves.h"
#include "results/Statistics.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr int comparison = 2;

std::string percentileText(int row) {
    const std::string level(nameOf(percentileOfLevel(std::min(row, statistics::levels - 1))));
    // Kept so: the flows are called 95% wherever the quality's percentile is another.
    return level + (row == 0 || row == 2 ? "% values (95% flows)" : "% values");
}

std::vector<KeyEntry> mainEntries(const GraphHandOver& graph) {
    const std::string means = "Mean values", percentiles = percentileText(graph.percentileRow);
    if (graph.plotType == comparison) {
        const std::string& text = graph.plotMeans ? means : percentiles;
        return {{text + " for Set 1", looks::first}, {text + " for Set 2", looks::second}};
    }
    std::vector<KeyEntry> entries;
    if (graph.plotMeans) entries.push_back({means, looks::first});
    if (graph.plotPercentiles) entries.push_back({percentiles, looks::second});
    return entries;
}

struct KeyLayout {
    const GraphSheet& sheet;
    double height;
    double sample = 2.2 * height; // length of a sample line
    double toText = 0.4 * height;

    double width(const KeyEntry& entry) const {
        return (entry.sample == KeySample::line ? sample : height) + toText + sheet.width(entry.text);
    }
    void draw(const KeyEntry& entry, double x, double bottom) const {
        const double middle = bottom + height / 2;
        const bool line = entry.sample == KeySample::line;
        if (line)
            sheet.line(entry.look, {x, middle}, {x + sample, middle});
        else
            sheet.cross(entry.look, {x + height / 2, middle}, sheet.crossHalf());
        sheet.text({x + (line ? sample : height) + toText, bottom}, align::left, entry.text);
    }
};

} // namespace

std::vector<KeyEntry> keyEntries(const GraphHandOver& graph, Targets targets) {
    std::vector<KeyEntry> entries = mainEntries(graph);
    if (graph.plotConfidenceLimits) entries.push_back({"Confidence limits", looks::limits});
    if (targets == Targets::shown) entries.push_back({"Quality targets", looks::targets});
    if (graph.plotObservedValues) entries.push_back({"Observed values", looks::observed, KeySample::cross});
    return entries;
}

double drawKey(const GraphSheet& sheet, const std::vector<KeyEntry>& entries, const KeyPlace& place) {
    const KeyLayout layout{sheet, sheet.lineHeight()};
    const std::string caption = "KEY:";
    double bottom = place.top - layout.height;
    sheet.text({place.left, bottom}, align::left, caption);
    const double indent = place.left + sheet.width(caption) + layout.height;
    double x = indent;
    for (const KeyEntry& entry : entries) {
        const double width = layout.width(entry);
        if (x > indent && x + width > place.right) {
            x = indent;
            bottom -= layout.height;
        }
        layout.draw(entry, x, bottom);
        x += width + place.gap;
    }
    return bottom;
}

} // namespace korvel
