#include "SmallCatchment.h"

#include "engine/OutputFiles.h"
#include "engine/PointList.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace korvel {

using namespace engine;

namespace {

Catchment sample(const std::string& name) {
    return smallCatchment::parsed(readFile(std::string(KORVEL_SOURCES) + "/samples/" + name));
}

std::string pointsOf(const Catchment& catchment) {
    std::string text;
    for (const Reach& reach : catchment.reaches) {
        text += std::to_string(reach.number) + reach.name + std::to_string(reach.length) +
                std::to_string(reach.next);
        for (const Point& point : pointsOfReach(catchment, reach))
            text += '|' + point.label + std::to_string(point.distance) +
                    std::to_string(static_cast<int>(point.type));
    }
    return text;
}

} // namespace

TEST(Samples, HaveReachesDeterminandsAndFeaturesEnough) {
    for (const char* name : {"ALDER.DAT", "ALDER2.DAT"}) {
        const Catchment catchment = sample(name);
        EXPECT_GE(catchment.reaches.size(), 12u);
        EXPECT_EQ(catchment.determinands.size(), 8u);
        EXPECT_GE(catchment.features.size(), 150u);
        std::map<int, int> tributaries;
        for (const Reach& reach : catchment.reaches)
            ++tributaries[reach.next];
        EXPECT_GE(std::count_if(tributaries.begin(), tributaries.end(),
                                [](const auto& item) { return item.second > 1; }),
                  3);
    }
}

TEST(Samples, HaveEveryKindOfFeature) {
    const Catchment catchment = sample("ALDER.DAT");
    for (const FeatureType type :
         {FeatureType::monitoringStation, FeatureType::stream, FeatureType::sewageDischarge,
          FeatureType::flowGauge, FeatureType::industrialEffluent, FeatureType::abstraction,
          FeatureType::weir, FeatureType::stormOverflow})
        EXPECT_TRUE(std::any_of(catchment.features.begin(), catchment.features.end(),
                                [&](const Feature& feature) { return feature.type == type; }))
            << static_cast<int>(type);
    EXPECT_GT(catchment.observed.size(), 100u);
}

TEST(Samples, DifferInTheirSchemeAndNotInTheirPoints) {
    const Catchment present = sample("ALDER.DAT"), scheme = sample("ALDER2.DAT");
    EXPECT_EQ(pointsOf(present), pointsOf(scheme));
    EXPECT_TRUE(std::equal(
        present.targets.begin(), present.targets.end(), scheme.targets.begin(), scheme.targets.end(),
        [](const auto& a, const auto& b) { return a.first == b.first && a.second.value == b.second.value; }));
    int improved = 0;
    for (const auto& [key, value] : present.qualities)
        improved += scheme.quality(key.first, key.second).mean < value.mean;
    EXPECT_GE(improved, 12);
}

TEST(Samples, HaveASmallSisterInTheDocumentation) {
    const std::string page = readFile(std::string(KORVEL_SOURCES) + "/docs/demonstration-engine.md");
    const auto start = page.find("```\n") + 4;
    const Catchment catchment = smallCatchment::parsed(page.substr(start, page.find("```", start) - start));
    EXPECT_EQ(catchment.settings.title, "Small River, present day");
    EXPECT_EQ(catchment.features.size(), 5u);
}

} // namespace korvel
