// The sources of loads beside a twin that mixes what comes in reach by reach.
#include "analysis/Sources.h"
#include "analysis/TwinRivers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

namespace korvel {

namespace {

// What arrives at the end of a reach, by who brought it.
using Arrivals = std::map<std::string, double>;

struct PlainMixture {
    Arrivals arrivals;
    double load = 0;
};

PlainMixture plainMixture(const PlainRiver& river, int reach, int series) {
    PlainMixture mixture;
    for (const int inflow : river.inflows(reach)) {
        const PlainMixture part = plainMixture(river, inflow, series);
        for (const auto& [name, amount] : part.arrivals)
            mixture.arrivals[name] += amount;
        mixture.load += part.load;
    }
    const auto to = [&](double load, const std::string& source) {
        if (load > mixture.load) mixture.arrivals[source] += load - mixture.load;
        if (load < mixture.load)
            for (auto& [name, amount] : mixture.arrivals)
                amount *= load / mixture.load;
        mixture.load = load;
    };
    const std::vector<PlainPoint> points = river.pointsOf(reach);
    for (std::size_t k = 0; k < points.size(); ++k) {
        const double load = points[k].values[series][0].value;
        const std::string number = std::to_string(reach);
        const bool feature = k > 0 && points[k - 1].side == "U/S" && points[k].side != "U/S" &&
                             points[k - 1].distance == points[k].distance;
        if (k > 0)
            to(load,
               feature ? "feature " + number + " " + std::to_string(points[k].distance) : "Along R" + number);
        else if (river.inflows(reach).empty())
            to(load, "Head of R" + number);
        else if (std::abs(load - mixture.load) > 1e-5 * std::max(load, mixture.load))
            to(load, "Start of R" + number);
        else {
            for (auto& [name, amount] : mixture.arrivals)
                if (mixture.load > 0) amount *= load / mixture.load;
            mixture.load = load;
        }
    }
    return mixture;
}

std::string nameInTwin(const Contribution& source) {
    const bool feature = source.kind != SourceKind::headwater && source.kind != SourceKind::diffuse &&
                         source.kind != SourceKind::startOfReach;
    return feature ? "feature " + std::to_string(source.reach) + " " + std::to_string(*source.distance)
                   : source.name;
}

} // namespace

TEST(SourcesTwin, Agrees) {
    for (int seed = 0; seed < roundsOf(TwinRivers::rounds); ++seed) {
        const TwinRivers rivers(seed);
        const Network network = networkOf(*rivers.baseFile);
        for (const int series : {0, 3, 4}) {
            for (const PlainReach& reach : rivers.base.reaches) {
                const LoadSources found = sourcesOf(*rivers.baseFile, network, series, {reach.number, {}});
                PlainMixture plain = plainMixture(rivers.base, reach.number, series);
                EXPECT_EQ(found.load, plain.load) << seed;
                double sum = 0, cameIn = 0, lost = 0;
                for (const Contribution& source : found.contributions) {
                    sum += source.arrives;
                    cameIn += source.load;
                    plain.arrivals[nameInTwin(source)] -= source.arrives;
                }
                for (const Loss& loss : found.losses)
                    lost += loss.load;
                EXPECT_NEAR(sum, found.load, 1e-9) << seed; // what arrives adds up to the load
                EXPECT_NEAR(cameIn - lost, found.load, 1e-3) << seed;
                for (const auto& [name, rest] : plain.arrivals)
                    EXPECT_NEAR(rest, 0, 1e-9) << seed << ' ' << name;
            }
        }
    }
}

} // namespace korvel
