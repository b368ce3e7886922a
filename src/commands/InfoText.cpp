#include "basic/Numbers.h"
#include "basic/Text.h"
#include "commands/InfoReport.h"
#include "results/Statistics.h"
#include "tables/TextTable.h"

#include <map>
#include <ostream>

namespace korvel {

namespace {

std::string counted(int count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

void printLoads(const InfoReport& report, std::ostream& out) {
    for (const LoadReport& load : report.loads) {
        out << "Data file " << load.slot + 1 << "  " << load.file << (load.loadFailed ? "  (failed)" : "")
            << '\n';
    }
    out << '\n';
}

void printSummary(const ResultsDataSet& results, std::ostream& out) {
    out << shownUtf8(results.resultsTitle) << '\n'
        << counted(results.determinandCount, "determinand", "determinands") << ", "
        << counted(results.reachCount, "reach", "reaches") << ", "
        << counted(results.pointCount, "plotting point", "plotting points")
        << (results.hasInterpolatedPoints ? " (some auto-interpolated)" : "") << "; level "
        << results.percentileCaption << "\n\n";
}

void printReaches(const ResultsDataSet& results, std::ostream& out) {
    std::map<int, int> pointsOfReach;
    for (int i = 1; i <= results.pointCount; ++i)
        ++pointsOfReach[results.pointReach[i]];
    TextTable table({"Reach", "Name", "Length", "Next", "Points"}, {1});
    for (int number : results.reachOrder) {
        const int next = results.reachNext[number];
        table.row({std::to_string(number), trim(results.reachNames[number]),
                   shortestNumber(results.reachLengths[number]), next == 0 ? "-" : std::to_string(next),
                   std::to_string(pointsOfReach[number])});
    }
    table.print(out);
}

void printSeries(const ResultsDataSet& results, std::ostream& out) {
    TextTable table({"No", "Series", "Largest value"}, {1});
    for (int c = 0; c <= lastSeries(results); ++c)
        table.row({std::to_string(c), results.seriesNames[c], shortestNumber(results.seriesMaximum[c])});
    table.print(out);
}

void printPoints(const ResultsDataSet& results, std::ostream& out) {
    TextTable table({"Point", "Reach", "Distance", "Side", "Type", "Label"}, {3, 5});
    for (int i = 1; i <= results.pointCount; ++i)
        table.row({std::to_string(i), std::to_string(results.pointReach[i]),
                   shortestNumber(results.pointDistance[i]), results.pointSide[i],
                   std::to_string(results.pointFeatureType[i]), results.pointLabel[i]});
    table.print(out);
}

std::vector<std::string> valueHeadings() {
    std::vector<std::string> headings{"Point", "Series", "Mean"};
    for (const StatisticFacts& each : statistics::percentiles)
        headings.emplace_back(each.name);
    headings.insert(headings.end(), {"Observed", "Target"});
    return headings;
}

void printValues(const ResultsDataSet& results, int slot, std::ostream& out) {
    const ValueStore& values = results.values[slot];
    TextTable table(valueHeadings(), {1});
    for (int i = 1; i <= results.pointCount; ++i) {
        for (int c = 0; c <= lastSeries(results); ++c) {
            const auto shown = [&](ValueField field, int level) {
                return shortestNumber(values.at(field, i, c, level));
            };
            std::vector<TextCell> cells{std::to_string(i), results.seriesNames[c]};
            for (const StatisticFacts& each : statistics::table)
                cells.push_back(shown(each.value, each.level));
            cells.push_back(shown(ValueField::observedMean, 0));
            cells.push_back(c == 0 ? "" : shown(ValueField::targetValue, 0));
            table.row(std::move(cells));
        }
    }
    out << "Values of data file " << slot + 1 << '\n';
    table.print(out);
}

} // namespace

void printInfoText(const InfoReport& report, std::ostream& out) {
    const ResultsDataSet& results = report.results;
    printLoads(report, out);
    if (report.loads.size() == 1 && report.loads.front().loadFailed) return;
    printSummary(results, out);
    printReaches(results, out);
    printSeries(results, out);
    if (report.withPoints) printPoints(results, out);
    for (int slot : {0, 1}) {
        if (report.withValues && results.values[slot].everWritten()) printValues(results, slot, out);
    }
}

} // namespace korvel
