#include "engine/GapFills.h"

#include "basic/LineOutput.h"
#include "basic/Numbers.h"

#include <algorithm>
#include <cmath>

namespace korvel::engine {

namespace {

constexpr double maxRate = 1000;     // 1/km
constexpr double smallestLow = 1e-4; // of a fill, as a share of its mean

std::string stretchText(const Stretch& stretch) {
    return std::to_string(stretch.reach) + ", " + shortestNumber(stretch.from) + ", " +
           shortestNumber(stretch.to);
}

Stretch readStretch(const DataRow& row, const Catchment& catchment) {
    Stretch stretch;
    stretch.reach = row.integer(1, "the reach", 1, maxReachNumber);
    const Reach* reach = catchment.findReach(stretch.reach);
    if (reach == nullptr) row.fail("reach " + std::to_string(stretch.reach) + " is not in the data file");
    stretch.from = row.number(2, "the start", 0, reach->length);
    stretch.to = row.number(3, "the end", 0, reach->length);
    if (stretch.to <= stretch.from) row.fail("the end lies before the start");
    return stretch;
}

void readFill(const DataRow& row, const Catchment& catchment, GapFills& fills) {
    row.expectFields(6, 6);
    const std::string kind = row.text(0, "the kind", 10);
    const Stretch stretch = readStretch(row, catchment);
    if (kind == "FLOW") {
        const double mean = row.number(4, "the mean flow", -1e6, 1e6);
        const double low = row.number(5, "the low flow", 0, 1e6);
        if (low > std::abs(mean) || low < std::abs(mean) * smallestLow)
            row.fail("the low flow does not fit its mean");
        fills.flows.push_back({stretch, mean, low});
    } else if (kind == "QUALITY") {
        const auto count = static_cast<int>(catchment.determinands.size());
        fills.qualities.push_back({stretch, row.integer(4, "the determinand", 1, count),
                                   row.number(5, "the rate", -maxRate, maxRate)});
    } else
        row.fail("begins neither with FLOW nor with QUALITY");
}

} // namespace

// Figures are kept exactly, so that a later run gives the same results.
std::string gapFillsText(const GapFills& fills, const std::string& title) {
    LineOutput output;
    output.line("; gap filling of " + title);
    output.line("; FLOW, reach, from km, to km, mean Ml/day, low flow");
    for (const FlowFill& fill : fills.flows)
        output.line("FLOW, " + stretchText(fill.stretch) + ", " + shortestNumber(fill.mean) + ", " +
                    shortestNumber(fill.low));
    output.line("; QUALITY, reach, from km, to km, determinand, growth per km");
    for (const QualityFill& fill : fills.qualities)
        output.line("QUALITY, " + stretchText(fill.stretch) + ", " + std::to_string(fill.determinand) + ", " +
                    shortestNumber(fill.rate));
    return output.text();
}

std::variant<GapFills, DataError> parseGapFills(std::string_view text, const Catchment& catchment) {
    GapFills fills;
    try {
        for (int number = 1; !text.empty(); ++number) {
            const auto end = std::min(text.find('\n'), text.size());
            const std::string_view line = withoutComment(text.substr(0, end));
            if (!line.empty()) readFill(DataRow(line, number), catchment, fills);
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        return fills;
    } catch (const DataError& error) {
        return error;
    }
}

} // namespace korvel::engine
