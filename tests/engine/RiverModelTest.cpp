#include "SmallCatchment.h"

#include "engine/RiverModel.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvel {

using namespace engine;

namespace {

const ReachProgress quiet = [](std::size_t, const Reach&) {};

struct ModelRun {
    explicit ModelRun(const std::string& text) : catchment(smallCatchment::parsed(text)), model(catchment) {}
    ModelRun(const ModelRun&) = delete; // its model refers to its catchment
    ModelRun& operator=(const ModelRun&) = delete;

    void simulate() { result = model.run(fills, nullptr, quiet); }
    void simulate(StandardsRule rule) {
        EffluentStandards standards(catchment, rule);
        result = model.run(fills, &standards, quiet);
    }
    const PointResult& at(const std::string& label, Side side = Side::none) const {
        for (const PointResult& point : result.points)
            if (point.point.label == label && point.point.side == side) return point;
        throw std::runtime_error("no point " + label);
    }
    const PointResult& end() const { return result.points.back(); }
    double balance(std::size_t reach, BalanceItem item, std::size_t determinand) const {
        const Amounts& amounts = result.reaches[reach].balance[static_cast<std::size_t>(item)];
        return amounts.loads.empty() ? 0 : amounts.loads[determinand];
    }

    Catchment catchment;
    RiverModel model;
    GapFills fills;
    ModelResult result;
};

struct SimulatedRun : ModelRun {
    explicit SimulatedRun(const std::string& text) : ModelRun(text) { simulate(); }
};

} // namespace

TEST(PointList, GoesDownTheRiverWithBothSidesOfWhatChangesTheFlow) {
    const Catchment catchment = smallCatchment::parsed(smallCatchment::text());
    std::string list;
    for (const Reach& reach : catchment.reaches)
        for (const Point& point : pointsOfReach(catchment, reach)) {
            if (point.type == FeatureType::interpolated) continue;
            list += point.side == Side::upstream ? "U/S " : point.side == Side::downstream ? "D/S " : "";
            list += point.label + " " + std::to_string(static_cast<int>(point.type)) + "\n";
        }
    EXPECT_EQ(list,
              "Head of Upper 10\nWeir, upper 9\nEnd of reach 0\n"
              "Head of Lower 10\nU/S Works 3\nD/S Works 3\nU/S Intake 7\nD/S Intake 7\nBridge 1\nGauge 4\n"
              "End of reach 0\n");
}

TEST(PointList, HasInterpolatedPointsWhereNoOtherPointIs) {
    const Catchment catchment = smallCatchment::parsed(smallCatchment::text());
    std::vector<double> distances;
    for (const Point& point : pointsOfReach(catchment, catchment.reaches[1]))
        if (point.type == FeatureType::interpolated) distances.push_back(point.distance);
    EXPECT_EQ(distances, (std::vector<double>{1, 2, 3, 4, 7}));
}

TEST(PointList, CallsAReachWithoutAHeadStartOfReach) {
    const Catchment catchment = smallCatchment::parsed(
        smallCatchment::replaced(smallCatchment::text(), "10, 0, 10, 0, 2, 2", "10, 0, 10, 0, 0, 0"));
    EXPECT_EQ(pointsOfReach(catchment, catchment.reaches[1]).front().label, "Start of reach");
    EXPECT_EQ(pointsOfReach(catchment, catchment.reaches[1]).front().type, FeatureType::reachBoundary);
}

TEST(RiverModel, MixesFlowsAndLoadsAsReckonedByHand) {
    const SimulatedRun run(smallCatchment::text());
    EXPECT_DOUBLE_EQ(run.at("Head of Upper").flow.mean, 10);
    EXPECT_DOUBLE_EQ(run.at("Head of Upper").concentrations[0].mean, 2);
    // 10 Ml/day of 2 mg/l meet 30 of 6: 200 kg/day in 40 Ml/day.
    EXPECT_DOUBLE_EQ(run.at("Head of Lower").flow.mean, 40);
    EXPECT_DOUBLE_EQ(run.at("Head of Lower").concentrations[0].mean, 5);
    EXPECT_DOUBLE_EQ(run.at("Works", Side::upstream).concentrations[0].mean, 5);
    // Then 10 of 30: 500 kg/day in 50.
    EXPECT_DOUBLE_EQ(run.at("Works", Side::downstream).flow.mean, 50);
    EXPECT_DOUBLE_EQ(run.at("Works", Side::downstream).concentrations[0].mean, 10);
    EXPECT_DOUBLE_EQ(run.at("Works", Side::downstream).loads[0].mean, 500);
    // The intake takes 5 of them at the river's quality.
    EXPECT_DOUBLE_EQ(run.end().flow.mean, 45);
    EXPECT_DOUBLE_EQ(run.end().concentrations[0].mean, 10);
    EXPECT_DOUBLE_EQ(run.end().loads[0].percentiles[2], 450);
}

TEST(RiverModel, LosesByFirstOrderDecayAlongTheTravelTime) {
    const SimulatedRun run(smallCatchment::text());
    // 10 km a day: 0.5 day from the head of the lower reach to the works, at 0.5 a day.
    const double head = run.at("Head of Lower").concentrations[1].mean;
    EXPECT_NEAR(head, (10 * 8 * std::exp(-0.5 * 0.4) + 30 * 8) / 40, 1e-12);
    EXPECT_NEAR(run.at("Works", Side::upstream).concentrations[1].mean, head * std::exp(-0.25), 1e-12);
    EXPECT_DOUBLE_EQ(run.at("Works", Side::upstream).concentrations[0].mean, 5);
}

TEST(RiverModel, FlowsFasterInHighWater) {
    const std::string text =
        smallCatchment::replaced(smallCatchment::text(), "Lower, 10, 0, 10, 0,", "Lower, 10, 0, 10, 0.5,");
    const SimulatedRun run(text);
    const double head = run.at("Head of Lower").concentrations[1].mean;
    const double days = 5 / (10 * std::sqrt(40.0));
    EXPECT_NEAR(run.at("Works", Side::upstream).concentrations[1].mean, head * std::exp(-0.5 * days), 1e-12);
}

TEST(RiverModel, TakesDiffuseInflowEvenlyAlongTheReach) {
    std::string text =
        smallCatchment::replaced(smallCatchment::text(), "0, 1, 1, 0, 0, 0\n", "0, 1, 1, 5, 4, 0\n");
    text = smallCatchment::replaced(text, "[QUALITIES]\n", "5, 8, 8, 0\n[QUALITIES]\n4, 1, 11, 0\n");
    const SimulatedRun run(text);
    // Half way, 4 of the 8 Ml/day have come in.
    EXPECT_NEAR(run.at("Weir, upper").flow.mean, 14, 1e-12);
    EXPECT_NEAR(run.at("Weir, upper").concentrations[0].mean, (10 * 2 + 4 * 11) / 14.0, 1e-12);
}

TEST(RiverModel, TakesNoMoreThanNineTenthsOfTheRiver) {
    const SimulatedRun run(smallCatchment::replaced(smallCatchment::text(), "4, 5, 5, 0", "4, 500, 500, 0"));
    EXPECT_NEAR(run.at("Intake", Side::downstream).flow.mean, 5, 1e-12);
}

TEST(RiverModel, BalancesSourcesAndSinksInEveryReach) {
    const SimulatedRun run(smallCatchment::variableText());
    for (std::size_t reach = 0; reach < 2; ++reach)
        for (std::size_t determinand = 0; determinand < 2; ++determinand) {
            double sum = 0;
            for (std::size_t i = 0; i + 1 < balanceItems; ++i)
                sum += run.balance(reach, static_cast<BalanceItem>(i), determinand);
            EXPECT_NEAR(sum, run.balance(reach, BalanceItem::downstream, determinand), 1e-9 * sum);
        }
    EXPECT_LT(run.balance(1, BalanceItem::decay, 1), 0);
    EXPECT_EQ(run.balance(1, BalanceItem::decay, 0), 0);
    EXPECT_LT(run.balance(1, BalanceItem::abstractions, 0), 0);
}

TEST(RiverModel, BooksEachKindOfInflowUnderItsOwnItem) {
    const std::pair<const char*, BalanceItem> kinds[] = {{"sewage", BalanceItem::sewage},
                                                         {"industry", BalanceItem::industry},
                                                         {"overflow", BalanceItem::overflows},
                                                         {"stream", BalanceItem::streams}};
    for (const auto& [kind, own] : kinds) {
        const SimulatedRun run(smallCatchment::replaced(smallCatchment::text(), "sewage", kind));
        for (const auto& [otherKind, item] : kinds)
            EXPECT_NEAR(run.balance(1, item, 0), item == own ? 10 * 30 : 0, 1e-9) << kind << otherKind;
    }
}

TEST(RiverModel, GivesEachReachInItsTurn) {
    ModelRun run(smallCatchment::text());
    std::string names;
    run.model.run({}, nullptr, [&](std::size_t place, const Reach& reach) {
        names += std::to_string(place) + reach.name + ' ';
    });
    EXPECT_EQ(names, "1Upper 2Lower ");
}

TEST(GapFilling, BringsTheMeanFlowToTheGaugesFigure) {
    for (const char* observed : {"4, 0, 50, 12", "4, 0, 30, 6"}) {
        ModelRun run(smallCatchment::replaced(smallCatchment::variableText(), "4, 0, 50, 40", observed));
        run.model.search(GapSearch::flows, run.fills, quiet);
        ASSERT_EQ(run.fills.flows.size(), 1u);
        EXPECT_EQ(run.fills.flows[0].stretch.from, 0);
        EXPECT_EQ(run.fills.flows[0].stretch.to, 9);
        run.simulate();
        const double wanted = run.catchment.observedAt(4, 0).mean;
        EXPECT_NEAR(run.at("Gauge").flow.mean, wanted, 0.02 * wanted) << observed;
    }
}

TEST(GapFilling, BringsTheMeanQualityToTheStationsFigure) {
    ModelRun run(smallCatchment::variableText());
    run.simulate();
    EXPECT_GT(std::abs(run.at("Bridge").concentrations[1].mean - 7), 0.3);
    const double salt = run.at("Bridge").concentrations[0].mean;
    run.model.search(GapSearch::qualities, run.fills, quiet);
    run.simulate();
    EXPECT_NEAR(run.at("Bridge").concentrations[1].mean, 7, 0.1);
    EXPECT_EQ(run.at("Bridge").concentrations[0].mean, salt);
}

TEST(GapFilling, StopsAtTheHighestQuality) {
    ModelRun run(smallCatchment::text());
    run.fills.qualities.push_back({{2, 0, 10}, 2, 1000});
    run.simulate();
    EXPECT_GT(run.end().concentrations[1].mean, 1e8);
    EXPECT_LE(run.end().concentrations[1].mean, 1e9);
}

TEST(EffluentStandards, JustMeetTheTarget) {
    ModelRun run(smallCatchment::variableText());
    run.simulate();
    ASSERT_GT(run.at("Works", Side::downstream).concentrations[1].percentiles[0], 9);
    run.simulate(StandardsRule::noDeterioration);
    EXPECT_NEAR(run.at("Works", Side::downstream).concentrations[1].percentiles[0], 9, 0.01);
    ASSERT_EQ(run.result.standards.size(), 1u);
    EXPECT_LT(run.result.standards[0].standard, run.result.standards[0].present);
    EXPECT_TRUE(run.result.standards[0].meets());
}

TEST(EffluentStandards, AreOfTheStatisticThatTheTargetLimits) {
    Shots quality;
    for (int value = 1000; value > 0; --value)
        quality.push_back(value);
    EXPECT_NEAR(statisticOf(quality, StandardStatistic::mean), 500.5, 1e-9);
    EXPECT_NEAR(statisticOf(quality, StandardStatistic::percentile90), 900, 1);
    EXPECT_NEAR(statisticOf(quality, StandardStatistic::percentile95), 950, 1);
    EXPECT_NEAR(statisticOf(quality, StandardStatistic::percentile99), 990, 1);
}

TEST(EffluentStandards, StopAtTheBestThatCanBeReached) {
    ModelRun run(smallCatchment::replaced(smallCatchment::variableText(), "1, 2, 9, 6", "1, 2, 0.1, 0"));
    run.simulate(StandardsRule::noDeterioration);
    EXPECT_NEAR(run.result.standards.at(0).standard, 1, 1e-9);
    EXPECT_FALSE(run.result.standards.at(0).meets());
}

TEST(EffluentStandards, MayBecomeLooserOnlyUnderTheFirstRule) {
    const std::string text =
        smallCatchment::replaced(smallCatchment::variableText(), "1, 2, 9, 6", "1, 2, 900, 6");
    ModelRun run(text);
    run.simulate(StandardsRule::meetTargets);
    EXPECT_NEAR(run.result.standards.at(0).standard, 50, 1e-9);
    run.simulate(StandardsRule::noDeterioration);
    EXPECT_EQ(run.result.standards.at(0).standard, run.result.standards.at(0).present);
}

TEST(EffluentStandards, DependOnTheQualityThatIsAssumedUpstream) {
    ModelRun run(smallCatchment::variableText());
    run.simulate(StandardsRule::noDeterioration);
    const double actual = run.result.standards.at(0).standard;
    run.simulate(StandardsRule::midClassUpstream);
    // The river arrives with less than the middle of its class (7.5), so that less is left for the works.
    EXPECT_LT(run.result.standards.at(0).standard, actual);
}

} // namespace korvel
