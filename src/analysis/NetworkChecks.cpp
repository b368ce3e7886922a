#include "analysis/NetworkChecks.h"

#include "basic/Numbers.h"
#include "study/Network.h"
#include "study/SeriesValues.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr double confluenceShare = 0.02; // of the larger

void add(CheckFinding& finding, std::size_t most, const CheckPlace& place) {
    if (static_cast<std::size_t>(finding.count++) < most) finding.places.push_back(place);
}

CheckPlace reachPlace(const RunFile& run, int place, const std::string& what) {
    return {run.reaches.number(place), {}, {}, {}, what};
}

CheckFinding reachesWithoutPoints(const RunFile& run, std::size_t most) {
    CheckFinding finding{CheckKind::reachWithoutPoints, 0, {}};
    for (int place = 0; place < run.reaches.count(); ++place)
        if (run.reaches.pointsOf(place).empty())
            add(finding, most, reachPlace(run, place, "the reach has no points"));
    return finding;
}

CheckFinding nextWithoutLine(const RunFile& run, const Network& network, std::size_t most) {
    CheckFinding finding{CheckKind::nextWithoutLine, 0, {}};
    for (const int place : network.nextWithoutLine) {
        const int next = run.results.reachNext[run.reaches.number(place)];
        add(finding, most,
            reachPlace(run, place, "runs into reach " + std::to_string(next) + ", which has no line"));
    }
    return finding;
}

CheckFinding circles(const RunFile& run, const Network& network, std::size_t most) {
    CheckFinding finding{CheckKind::circle, 0, {}};
    for (const std::vector<int>& circle : network.circles)
        add(finding, most, reachPlace(run, circle.front(), circleText(circle, run)));
    return finding;
}

struct Confluence {
    int place = 0;
    int series = 0;
    double inflow = 0;
    double first = 0; // at the reach's first point
};

void findConfluences(const RunFile& run, const Network& network, int series, std::vector<Confluence>& found) {
    const std::span<const double> values = seriesValues(run.results, series, Statistic::mean).value;
    const std::vector<double> outflow = outflowsOf(run, network, values);
    for (int place = 0; place < run.reaches.count(); ++place) {
        const std::vector<int>& inflows = network.inflows[static_cast<std::size_t>(place)];
        const std::span<const int> points = run.reaches.pointsOf(place);
        if (inflows.empty() || points.empty()) continue;
        double sum = 0;
        for (const int inflow : inflows)
            sum += outflow[static_cast<std::size_t>(inflow)];
        const double first = values[static_cast<std::size_t>(points.front())];
        const double larger = std::max(std::abs(sum), std::abs(first));
        if (std::abs(sum - first) > confluenceShare * larger) found.push_back({place, series, sum, first});
    }
}

CheckPlace placeOf(const RunFile& run, const Confluence& confluence) {
    const int point = run.reaches.pointsOf(confluence.place).front();
    return {run.reaches.number(confluence.place), run.results.pointDistance[point],
            run.results.pointLabel[point], run.results.seriesNames[confluence.series],
            shortestNumber(confluence.inflow) + " runs in, the first point has " +
                shortestNumber(confluence.first)};
}

} // namespace

std::vector<CheckFinding> checkNetwork(const RunFile& run, std::size_t places) {
    const Network network = networkOf(run);
    return {reachesWithoutPoints(run, places), nextWithoutLine(run, network, places),
            circles(run, network, places)};
}

std::vector<CheckFinding> checkConfluences(const RunFile& run, std::size_t places) {
    const Network network = networkOf(run);
    std::vector<Confluence> found;
    if (!network.hasCircles()) {
        findConfluences(run, network, 0, found);
        const int n = run.results.determinandCount;
        for (int load = n + 1; load <= 2 * n; ++load)
            findConfluences(run, network, load, found);
    }
    std::ranges::stable_sort(found, {}, &Confluence::place);
    CheckFinding finding{CheckKind::confluence, 0, {}};
    for (const Confluence& confluence : found)
        add(finding, places, placeOf(run, confluence));
    return {finding};
}

} // namespace korvel
