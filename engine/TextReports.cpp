#include "engine/TextReports.h"

#include "basic/LineOutput.h"
#include "engine/BoxTable.h"
#include "engine/NumberText.h"

#include <array>
#include <cmath>

namespace korvel::engine {

namespace {

using Cells = std::vector<std::string>;

std::string withUnits(const Determinand& item) {
    return item.name + " (" + item.units + ")";
}

const std::string& determinandName(const Report& report, int number) {
    return report.catchment.determinands[static_cast<std::size_t>(number - 1)].name;
}

std::string pointName(const Point& point) {
    if (point.side == Side::upstream) return "U/S " + point.label;
    return point.side == Side::downstream ? "D/S " + point.label : point.label;
}

std::string reachTitle(const Reach& reach) {
    return "Reach " + std::to_string(reach.number) + ": " + reach.name + ", " + fixed(reach.length, 1) +
           " km";
}

// Calls for every point but the interpolated ones.
template <typename Visit>
void forPointsOf(const ModelResult& result, const Reach& reach, const Visit& visit) {
    for (const PointResult& point : result.points)
        if (point.point.reach == &reach && point.point.type != FeatureType::interpolated) visit(point);
}

void printFlows(const Report& report, const Reach& reach, LineOutput& output) {
    BoxTable table(reachTitle(reach) + " - flow, Ml/day",
                   {"Place", "km", "Mean", "95% low", "Obs. mean", "Obs. low"});
    forPointsOf(report.result, reach, [&](const PointResult& point) {
        Cells cells{pointName(point.point), fixed(point.point.distance, 2), tableNumber(point.flow.mean),
                    tableNumber(point.flow.percentiles[1])};
        if (point.point.type == FeatureType::flowGauge) {
            const Observed observed = report.catchment.observedAt(point.point.feature->number, 0);
            cells.push_back(tableNumber(observed.mean));
            cells.push_back(tableNumber(observed.percentile95));
        }
        table.row(cells);
    });
    table.print(output);
}

void printQuality(const Report& report, const Reach& reach, std::size_t d, LineOutput& output) {
    const Determinand& item = report.catchment.determinands[d];
    BoxTable table(
        reachTitle(reach) + " - " + withUnits(item),
        {"Place", "km", "Mean", "from", "to", "90%-ile", "95%-ile", "from", "to", "99%-ile", "Target"});
    const TargetValue target = report.catchment.target(reach.targets, item.number);
    forPointsOf(report.result, reach, [&](const PointResult& point) {
        const Summary& quality = point.concentrations[d];
        table.row({pointName(point.point), fixed(point.point.distance, 2), tableNumber(quality.mean),
                   tableNumber(quality.meanLimits.lower), tableNumber(quality.meanLimits.upper),
                   tableNumber(quality.percentiles[0]), tableNumber(quality.percentiles[1]),
                   tableNumber(quality.percentileLimits[1].lower),
                   tableNumber(quality.percentileLimits[1].upper), tableNumber(quality.percentiles[2]),
                   target.value > 0 ? tableNumber(target.value) : ""});
    });
    table.print(output);
}

void printFlowFills(const Report& report, LineOutput& output) {
    if (report.fills.flows.empty()) return;
    BoxTable table("Gap filling of river flows, Ml/day", {"Reach", "from km", "to km", "Mean", "95% low"});
    for (const FlowFill& fill : report.fills.flows)
        table.row({report.catchment.findReach(fill.stretch.reach)->name, fixed(fill.stretch.from, 2),
                   fixed(fill.stretch.to, 2), tableNumber(fill.mean), tableNumber(fill.low)});
    table.print(output);
}

void printQualityFills(const Report& report, LineOutput& output) {
    if (report.fills.qualities.empty()) return;
    BoxTable table("Gap filling of water quality, growth per km",
                   {"Reach, determinand", "from km", "to km", "Rate"});
    for (const QualityFill& fill : report.fills.qualities)
        table.row({report.catchment.findReach(fill.stretch.reach)->name + ", " +
                       determinandName(report, fill.determinand),
                   fixed(fill.stretch.from, 2), fixed(fill.stretch.to, 2), fixed(fill.rate, 4)});
    table.print(output);
}

void printStandards(const Report& report, LineOutput& output) {
    if (report.result.standards.empty()) return;
    BoxTable table(
        "Effluent standards, mean quality in mg/l",
        {"Discharge, determinand", "Present", "Standard", "River target", "River below", "Target"});
    for (const EffluentStandard& standard : report.result.standards)
        table.row({standard.feature->name + ", " + determinandName(report, standard.determinand),
                   tableNumber(standard.present), tableNumber(standard.standard),
                   tableNumber(standard.target), tableNumber(standard.below),
                   standard.meets() ? "met" : "missed"});
    table.print(output);
}

// What a feature brings (below 0: takes) on average is the difference of its two sides.
struct Brought {
    const PointResult& upstream;
    const PointResult& downstream;

    double flow() const { return downstream.flow.mean - upstream.flow.mean; }
    double load(std::size_t d) const { return downstream.loads[d].mean - upstream.loads[d].mean; }
};

BoxTable loadTable(const Catchment& catchment, const std::string& title) {
    Cells headings{"", "Ml/day"};
    for (const Determinand& item : catchment.determinands)
        headings.push_back(item.name);
    return {"Mean loads, kg/day - " + title, headings};
}

void printInflowLoads(const Report& report, const Reach& reach, LineOutput& output) {
    BoxTable table = loadTable(report.catchment, reachTitle(reach));
    bool any = false;
    const auto& points = report.result.points;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (points[i].point.reach != &reach || points[i].point.side != Side::downstream) continue;
        const Brought brought{points[i - 1], points[i]};
        Cells cells{points[i].point.label, tableNumber(brought.flow())};
        for (std::size_t d = 0; d < report.catchment.determinands.size(); ++d)
            cells.push_back(tableNumber(brought.load(d)));
        table.row(cells);
        any = true;
    }
    if (any) table.print(output);
}

void printLoadsAtEnds(const Report& report, LineOutput& output) {
    BoxTable table = loadTable(report.catchment, "End of reach");
    for (const ReachResult& reach : report.result.reaches) {
        const Amounts& end = reach.balance[static_cast<std::size_t>(BalanceItem::downstream)];
        Cells cells{reach.reach->name, tableNumber(end.flow)};
        for (const double load : end.loads)
            cells.push_back(tableNumber(load));
        table.row(cells);
    }
    table.print(output);
}

constexpr std::array<const char*, balanceItems> itemNames{
    "From upstream reaches", "Head of reach",   "Diffuse inflow", "Streams", "Sewage discharges",
    "Industrial effluents",  "Storm overflows", "Abstractions",   "Decay",   "Gap filling",
    "To downstream"};

void printBalance(const std::string& title, const Balance& balance, const Catchment& catchment,
                  LineOutput& output) {
    BoxTable table = loadTable(catchment, title);
    for (std::size_t i = 0; i < balanceItems; ++i) {
        if (balance[i].loads.empty()) continue;
        Cells cells{itemNames[i], tableNumber(balance[i].flow)};
        for (const double load : balance[i].loads)
            cells.push_back(tableNumber(load));
        table.row(cells);
    }
    table.print(output);
}

// What passes from reach to reach is left out; what leaves the catchment stands at the end.
Balance catchmentBalance(const ModelResult& result) {
    Balance whole;
    for (const ReachResult& reach : result.reaches)
        for (std::size_t i = 0; i < balanceItems; ++i) {
            const auto item = static_cast<BalanceItem>(i);
            const bool passesOn = item == BalanceItem::downstream && reach.reach->next != 0;
            if (item != BalanceItem::upstream && !passesOn && !reach.balance[i].loads.empty())
                add(whole[i], reach.balance[i], 1);
        }
    return whole;
}

LineOutput begun(const Report& report, const std::string& kind) {
    LineOutput output;
    printBand(output, kind);
    output.line(report.title);
    output.line("");
    return output;
}

} // namespace

std::string detailedOutput(const Report& report) {
    LineOutput output = begun(report, "DETAILED OUTPUT");
    printFlowFills(report, output);
    printQualityFills(report, output);
    printStandards(report, output);
    for (const Reach& reach : report.catchment.reaches) {
        printFlows(report, reach, output);
        for (std::size_t d = 0; d < report.catchment.determinands.size(); ++d)
            printQuality(report, reach, d, output);
    }
    return output.text();
}

std::string loadReport(const Report& report) {
    LineOutput output = begun(report, "REPORT ON LOADS");
    printLoadsAtEnds(report, output);
    for (const Reach& reach : report.catchment.reaches)
        printInflowLoads(report, reach, output);
    return output.text();
}

std::string sourcesAndSinksReport(const Report& report) {
    LineOutput output = begun(report, "SOURCES AND SINKS OF POLLUTION");
    printBalance("whole catchment", catchmentBalance(report.result), report.catchment, output);
    for (const ReachResult& reach : report.result.reaches)
        printBalance(reachTitle(*reach.reach), reach.balance, report.catchment, output);
    return output.text();
}

} // namespace korvel::engine
