// Each analysis beside a twin that walks plain lists in the plainest way, over random rivers.
#include "analysis/ChangeTable.h"
#include "analysis/ComplianceTable.h"
#include "analysis/FitTable.h"
#include "analysis/TwinRivers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numeric>

namespace korvel {

namespace {

void expectNear(double a, double b) {
    EXPECT_NEAR(a, b, 1e-9 * std::max({1.0, std::abs(a), std::abs(b)}));
}

void expectNear(const std::optional<double>& a, const std::optional<double>& b) {
    ASSERT_EQ(a.has_value(), b.has_value());
    if (a) expectNear(*a, *b);
}

bool isBounded(const PlainValue& value, int series) {
    const double low = std::min(value.limit1, value.limit2), high = std::max(value.limit1, value.limit2);
    return series > 0 && low < high && low <= value.value && value.value <= high;
}

// The partner of a base's point: as many equal ones before it in its run as before the base's point in its
// own.
const PlainPoint* partnerOf(const PlainRiver& base, std::size_t i, const PlainRiver& run) {
    const auto same = [&](const PlainPoint& other) {
        const PlainPoint& point = base.points[i];
        return other.reach == point.reach && other.distance == point.distance && other.side == point.side;
    };
    auto before =
        std::count_if(base.points.begin(), base.points.begin() + static_cast<std::ptrdiff_t>(i), same);
    for (const PlainPoint& other : run.points)
        if (same(other) && before-- == 0) return &other;
    return nullptr;
}

struct PlainChange {
    int points = 0, rises = 0, falls = 0;
    double length = 0, baseArea = 0, runArea = 0, baseSum = 0, runSum = 0;
    double largestRise = 0, largestFall = 0;
};

PlainChange plainChange(const PlainRiver& base, const PlainRiver& run, const std::vector<int>& reaches, int c,
                        int s) {
    struct Pair {
        const PlainPoint *a, *b;
    };
    PlainChange sums;
    bool anyOrdinary = false;
    std::vector<Pair> all;
    for (const int reach : reaches) {
        std::vector<Pair> pairs;
        for (std::size_t i = 0; i < base.points.size(); ++i)
            if (base.points[i].reach == reach)
                if (const PlainPoint* other = partnerOf(base, i, run))
                    pairs.push_back({&base.points[i], other});
        for (std::size_t k = 1; k < pairs.size(); ++k) {
            const double length = std::max(0.0, pairs[k].a->distance - pairs[k - 1].a->distance);
            sums.length += length;
            sums.baseArea +=
                length * (pairs[k].a->values[c][s].value + pairs[k - 1].a->values[c][s].value) / 2;
            sums.runArea +=
                length * (pairs[k].b->values[c][s].value + pairs[k - 1].b->values[c][s].value) / 2;
        }
        all.insert(all.end(), pairs.begin(), pairs.end());
    }
    for (const auto& [a, b] : all)
        anyOrdinary = anyOrdinary || a->type != 99;
    for (const auto& [a, b] : all) {
        const PlainValue &before = a->values[c][s], &after = b->values[c][s];
        ++sums.points;
        sums.baseSum += before.value;
        sums.runSum += after.value;
        if (isBounded(before, c) && isBounded(after, c)) {
            if (std::min(after.limit1, after.limit2) > std::max(before.limit1, before.limit2)) ++sums.rises;
            if (std::max(after.limit1, after.limit2) < std::min(before.limit1, before.limit2)) ++sums.falls;
        }
        if (anyOrdinary && a->type == 99) continue;
        sums.largestRise = std::max(sums.largestRise, after.value - before.value);
        sums.largestFall = std::min(sums.largestFall, after.value - before.value);
    }
    return sums;
}

void expectSameChange(const ChangeSummary& summary, const PlainChange& plain) {
    EXPECT_EQ(summary.points, plain.points);
    EXPECT_EQ(summary.clearRises, plain.rises);
    EXPECT_EQ(summary.clearFalls, plain.falls);
    EXPECT_EQ(summary.largestRise ? summary.largestRise->value : 0, plain.largestRise);
    EXPECT_EQ(summary.largestFall ? summary.largestFall->value : 0, plain.largestFall);
    ASSERT_EQ(summary.baseMean.has_value(), plain.points > 0);
    if (plain.points == 0) return;
    const bool long_ = plain.length > 0;
    expectNear(*summary.baseMean, long_ ? plain.baseArea / plain.length : plain.baseSum / plain.points);
    expectNear(*summary.runMean, long_ ? plain.runArea / plain.length : plain.runSum / plain.points);
}

double plainWay(const PlainRiver& river, int reach) {
    double longest = 0;
    for (const int inflow : river.inflows(reach))
        longest = std::max(longest, plainWay(river, inflow));
    return river.reach(reach).length + longest;
}

// Rivers from a last reach upward, each as its reaches from the head down.
void addPlainRivers(const PlainRiver& river, int last, std::vector<std::vector<int>>& rivers) {
    std::vector<int> main, tributaries;
    for (int reach = last; reach != 0;) {
        main.insert(main.begin(), reach);
        int on = 0;
        for (const int inflow : river.inflows(reach))
            if (on == 0 || plainWay(river, inflow) > plainWay(river, on)) on = inflow;
        for (const int inflow : river.inflows(reach))
            if (inflow != on) tributaries.push_back(inflow);
        reach = on;
    }
    rivers.push_back(main);
    for (const int tributary : tributaries)
        addPlainRivers(river, tributary, rivers);
}

bool isMouth(const PlainReach& reach) {
    return reach.next == 0 || reach.next == 77;
}

std::vector<std::vector<int>> plainRivers(const PlainRiver& river) {
    std::vector<std::vector<int>> rivers;
    for (const PlainReach& reach : river.reaches)
        if (isMouth(reach)) addPlainRivers(river, reach.number, rivers);
    return rivers;
}

int plainStatistic(int code) { // the file's own level is 90
    return code == 1 ? 0 : code == 2 ? 2 : code == 6 ? 3 : 1;
}

// How much of the line lies beyond the target, by ten thousand steps.
double sampledShare(double from, double to, double target, bool low) {
    constexpr int steps = 10000;
    int beyond = 0;
    for (int k = 0; k < steps; ++k) {
        const double value = from + (to - from) * (k + 0.5) / steps;
        if (low ? value < target : value > target) ++beyond;
    }
    return static_cast<double>(beyond) / steps;
}

void expectSameCompliance(const ReachCompliance& reach, const std::vector<PlainPoint>& points, int c, int s,
                          bool low) {
    const auto v = [&](const PlainPoint& point) { return point.values[c][s].value; };
    double judged = 0, failing = 0;
    for (std::size_t k = 1; k < points.size(); ++k) {
        const double length = points[k].distance - points[k - 1].distance, target = points[k - 1].targets[c];
        if (length <= 0 || target <= 0) continue;
        judged += length;
        failing += length * sampledShare(v(points[k - 1]), v(points[k]), target, low);
    }
    EXPECT_NEAR(reach.sums.judgedLength, judged, 1e-9);
    EXPECT_NEAR(reach.sums.failingLength, failing, 1e-3 * std::max(1.0, judged));

    std::vector<PlainPoint> counted;
    for (const bool interpolated : {false, true})
        if (counted.empty())
            for (const PlainPoint& point : points)
                if (point.targets[c] > 0 && (point.type == 99) == interpolated) counted.push_back(point);
    int fails = 0, sureFails = 0, surePasses = 0, unsure = 0;
    const PlainPoint* worst = nullptr;
    const auto badness = [&](const PlainPoint& point) {
        if (!low) return v(point) / point.targets[c];
        return v(point) > 0 ? point.targets[c] / v(point) : std::numeric_limits<double>::infinity();
    };
    for (const PlainPoint& point : counted) {
        const PlainValue& value = point.values[c][s];
        const double t = point.targets[c], least = std::min(value.limit1, value.limit2),
                     most = std::max(value.limit1, value.limit2);
        if (low ? v(point) < t : v(point) > t) ++fails;
        if (isBounded(value, c))
            ++(low ? (least >= t ? surePasses
                      : most < t ? sureFails
                                 : unsure)
                   : (most <= t   ? surePasses
                      : least > t ? sureFails
                                  : unsure));
        if (!worst || badness(point) > badness(*worst)) worst = &point;
    }
    EXPECT_EQ(reach.sums.judgedPoints, static_cast<int>(counted.size()));
    EXPECT_EQ(reach.sums.failingPoints, fails);
    EXPECT_EQ(reach.sums.sureFails, sureFails);
    EXPECT_EQ(reach.sums.surePasses, surePasses);
    EXPECT_EQ(reach.sums.unsure, unsure);
    ASSERT_EQ(reach.worst.has_value(), worst != nullptr);
    if (!worst) return;
    EXPECT_EQ(reach.worst->judgement.value, v(*worst));
    EXPECT_EQ(reach.worst->judgement.target, worst->targets[c]);
    if (reach.needed) // then the value, made better by so much, just meets the target
        expectNear(fails > 0 ? v(*worst) * (1 + (low ? 1 : -1) * *reach.needed / 100) : worst->targets[c],
                   worst->targets[c]);
}

} // namespace

TEST(Twins, AgreeOnTheNetwork) {
    for (int seed = 0; seed < roundsOf(TwinRivers::rounds); ++seed) {
        const TwinRivers rivers(seed);
        const Network network = networkOf(*rivers.baseFile);
        const auto plain = plainRivers(rivers.base);
        ASSERT_EQ(network.rivers.size(), plain.size());
        for (std::size_t k = 0; k < plain.size(); ++k) {
            std::vector<int> numbers;
            for (const int place : network.rivers[k].reaches)
                numbers.push_back(rivers.baseFile->reaches.number(place));
            EXPECT_EQ(numbers, plain[k]) << seed;
        }
        for (const PlainReach& reach : rivers.base.reaches) {
            double toMouth = 0;
            for (const PlainReach* at = &reach; !isMouth(*at); at = &rivers.base.reach(at->next))
                toMouth += rivers.base.reach(at->next).length;
            expectNear(
                network.toMouth[static_cast<std::size_t>(rivers.baseFile->reaches.placeOf(reach.number))],
                toMouth);
        }
    }
}

TEST(Twins, AgreeOnChanges) {
    for (int seed = 0; seed < roundsOf(TwinRivers::rounds); ++seed) {
        const TwinRivers rivers(seed);
        const RunChange change(*rivers.baseFile, *rivers.runFile);
        const Statistic statistic = allStatistics[static_cast<std::size_t>(seed % 4)];
        for (int c = 0; c < plainSeries; ++c) {
            int points = 0;
            for (const PlainReach& reach : rivers.base.reaches) {
                const std::vector<int> place = {rivers.baseFile->reaches.placeOf(reach.number)};
                const ChangeSummary summary = change.over(place, c, statistic);
                expectSameChange(summary, plainChange(rivers.base, rivers.run, {reach.number}, c, seed % 4));
                points += summary.points;
            }
            for (const River& river : networkOf(*rivers.baseFile).rivers) {
                std::vector<int> numbers;
                for (const int place : river.reaches)
                    numbers.push_back(rivers.baseFile->reaches.number(place));
                const ChangeSummary summary = change.over(river.reaches, c, statistic);
                expectSameChange(summary, plainChange(rivers.base, rivers.run, numbers, c, seed % 4));
                points -= summary.points;
            }
            EXPECT_EQ(points, 0); // reaches add up to rivers
        }
    }
}

TEST(Twins, AgreeOnCompliance) {
    for (int seed = 0; seed < roundsOf(TwinRivers::rounds / 4); ++seed) {
        const TwinRivers rivers(seed);
        const StudyRun run{"a", rivers.baseFile};
        ComplianceRequest request;
        request.determinands = {1, 2};
        request.lowIsBad = {2};
        ComplianceSums ofReaches[2];
        for (const ComplianceRow& row : complianceRows({run, {}}, request)) {
            const int d = row.determinand.number;
            const auto points = rivers.base.pointsOf(rivers.baseFile->reaches.number(row.place));
            expectSameCompliance(row.reach, points, d, plainStatistic(rivers.base.codes[d - 1]), d == 2);
            ofReaches[d - 1] += row.reach.sums;
        }
        ComplianceSums ofRivers[2];
        const Network network = networkOf(*run.file);
        for (const ComplianceSumRow& row :
             complianceSums(run, groupsByRiver(*run.file, network, {}), request))
            ofRivers[row.determinand.number - 1] += row.sums;
        for (const int d : {0, 1}) {
            expectNear(ofReaches[d].judgedLength, ofRivers[d].judgedLength);
            expectNear(ofReaches[d].failingLength, ofRivers[d].failingLength);
            EXPECT_EQ(ofReaches[d].judgedPoints, ofRivers[d].judgedPoints);
            EXPECT_EQ(ofReaches[d].unsure, ofRivers[d].unsure);
        }
    }
}

TEST(Twins, AgreeOnDeterioration) {
    for (int seed = 0; seed < roundsOf(TwinRivers::rounds); ++seed) {
        const TwinRivers rivers(seed);
        const StudyRun base{"a", rivers.baseFile}, run{"b", rivers.runFile};
        ComplianceRequest request;
        request.determinands = {1};
        for (const ComplianceRow& row : complianceRows({run, base}, request)) {
            const int reach = rivers.runFile->reaches.number(row.place),
                      s = plainStatistic(rivers.run.codes[0]);
            std::optional<bool> worse;
            bool anyOrdinary = false;
            for (const PlainPoint& point : rivers.run.pointsOf(reach))
                anyOrdinary = anyOrdinary || (point.targets[1] > 0 && point.type != 99);
            for (std::size_t i = 0; i < rivers.base.points.size(); ++i) {
                const PlainPoint* other = partnerOf(rivers.base, i, rivers.run);
                if (!other || other->reach != reach || other->targets[1] <= 0) continue;
                if (anyOrdinary && other->type == 99) continue;
                const double was = rivers.base.points[i].values[1][s].value, is = other->values[1][s].value;
                worse = worse.value_or(false) || (was > 0 && is > 1.1 * was + 1e-12);
            }
            EXPECT_EQ(row.change->deteriorated, worse) << seed << ' ' << reach;
        }
    }
}

TEST(Twins, AgreeOnTheFit) {
    for (int seed = 0; seed < roundsOf(TwinRivers::rounds); ++seed) {
        const TwinRivers rivers(seed);
        for (int c = 0; c <= 2; ++c) {
            for (int s = 0; s < plainStatistics; ++s) {
                std::vector<double> v, o;
                for (const PlainPoint& point : rivers.base.points) {
                    if (point.reach == 55 || point.type == 99 || point.values[c][s].observed == 0) continue;
                    v.push_back(point.values[c][s].value);
                    o.push_back(point.values[c][s].observed);
                }
                const StudyRun run{"a", rivers.baseFile};
                const auto rows = fitRows(run, {wholeGroup(*run.file, {})},
                                          {{c}, {allStatistics[static_cast<std::size_t>(s)]}, {}});
                ASSERT_EQ(rows.size(), v.empty() ? 0u : 1u);
                if (v.empty()) continue;
                const auto n = static_cast<double>(v.size());
                const double meanV = std::accumulate(v.begin(), v.end(), 0.0) / n;
                const double meanO = std::accumulate(o.begin(), o.end(), 0.0) / n;
                double squares = 0, vv = 0, oo = 0, vo = 0;
                for (std::size_t k = 0; k < v.size(); ++k) {
                    squares += (v[k] - o[k]) * (v[k] - o[k]);
                    vv += (v[k] - meanV) * (v[k] - meanV);
                    oo += (o[k] - meanO) * (o[k] - meanO);
                    vo += (v[k] - meanV) * (o[k] - meanO);
                }
                const FitFigures& fit = rows[0].figures;
                EXPECT_EQ(fit.n, static_cast<int>(v.size()));
                expectNear(fit.meanError, meanV - meanO);
                expectNear(*fit.percentBias, 100 * (meanV - meanO) / meanO);
                expectNear(fit.rootMeanSquareError, std::sqrt(squares / n));
                const bool apart = std::ranges::count(o, o[0]) < static_cast<std::ptrdiff_t>(o.size());
                const bool bothApart =
                    apart && std::ranges::count(v, v[0]) < static_cast<std::ptrdiff_t>(v.size());
                expectNear(fit.efficiency, apart ? std::optional(1 - squares / oo) : std::nullopt);
                expectNear(fit.rSquared, bothApart ? std::optional(vo * vo / vv / oo) : std::nullopt);
            }
        }
    }
}

} // namespace korvel
