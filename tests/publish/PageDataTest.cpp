#include "publish/PageData.h"
#include "publish/PageRivers.h"
#include "publish/PageSample.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>

namespace korvel {

namespace {

using nlohmann::json;

class PageData : public testing::Test {
  protected:
    void read(const std::vector<ResultsFileBuilder>& files) {
        study = studyOf(files);
        request = requestOf(study);
        const PageStudy judged(study, request);
        const StudyPath path = studyPath(study, judged.network().rivers.front().reaches);
        const std::vector<std::size_t> kept = keptPlaces(path, path.places.size(), {});
        river = json::parse(bytesBy([&](OutputBytes& out) { writeRiverData(out, judged, path, kept); }));
        setup = json::parse(bytesBy([&](OutputBytes& out) { writeSetupData(out, judged); }));
    }

    Study study;
    PageRequest request;
    json river, setup;
};

TEST_F(PageData, HoldsValuesLimitsTargetsAndSamples) {
    read({millRiver()});
    EXPECT_EQ(river["km"], json::parse("[0,4,10,10,15]"));
    EXPECT_EQ(river["reaches"], json::parse(R"([[0,"1 Reach 1",0],[10,"2 Reach 2",3]])"));
    const json& bod = river["series"][1][0];
    EXPECT_EQ(bod["m"], "2 6 3 3 4.5");
    EXPECT_EQ(bod["ml"], "1.5 5 2.5 2 4");
    EXPECT_EQ(bod["mh"], "2.5 7 3.5 4 5.5");
    EXPECT_EQ(bod["mo"], json::parse("[[1,5.5]]"));
    EXPECT_EQ(bod["t"], json::parse("[[0,4],[3,5]]"));
    EXPECT_FALSE(bod.contains("j")) << "BOD is judged by its mean";
    EXPECT_FALSE(river["series"][0][0].contains("ml")) << "the flow has no limits";
}

TEST_F(PageData, HoldsLimitsOfLoads) {
    ResultsFileBuilder file = riverOf({{1, 10}});
    using enum ValueField;
    for (const auto& [km, value, first, second] : {std::array{0, 10, 12, 8}, {1, 20, 24, 24}, {2, 30, 36, 1}})
        file.point(1, km, "P", 10)
            .setAll(0)
            .set(meanValue, 2, value)
            .set(meanLimit1, 2, first)
            .set(meanLimit2, 2, second);
    read({file});
    const json& load = river["series"][2][0];
    EXPECT_EQ(load["m"], "10 20 30");
    EXPECT_EQ(load["ml"], "8  1") << "the second point's limits are no two";
    EXPECT_EQ(load["mh"], "12  36");
}

TEST_F(PageData, TellsOfAnotherRunWhatIsNotLikeTheBase) {
    read({millRiver(), millRiver(3), millRiver()});
    const json& bod = river["series"][1];
    EXPECT_EQ(bod[1]["m"], "= 3 =3");
    EXPECT_EQ(bod[1]["ml"], "= 2 =3");
    EXPECT_EQ(bod[2]["m"], "=5");
    EXPECT_EQ(river["series"][0][1]["m"], "=5") << "the flow";
}

TEST_F(PageData, KeepsWhatIsJudgedBesideTheMean) {
    ResultsFileBuilder file = riverOf({{1, 10}}, 2);
    addPoints(file, 1, {{.distance = 0, .value = 2, .target = 4}, {.distance = 1, .value = 2, .target = 4}});
    file.set(ValueField::percentileValues, 1, 3.25, 1);
    read({file});
    EXPECT_EQ(river["series"][1][0]["j"], "0 3.25");
    EXPECT_EQ(setup["series"][1]["other"], "95 percentile");
    EXPECT_TRUE(setup["series"][0]["other"].is_null());
}

TEST_F(PageData, HasNothingWhereARunHasNoPoint) {
    ResultsFileBuilder other = riverOf({{1, 10}, {2, 5}});
    addPoints(other, 1, {{.distance = 5, .value = 1}});
    read({millRiver(), other});
    EXPECT_EQ(river["km"], json::parse("[0,4,5,10,10,15]"));
    EXPECT_EQ(river["series"][1][0]["m"], "2 6  3 3 4.5");
    EXPECT_EQ(river["series"][1][1]["m"], "  1   ");
}

TEST_F(PageData, NamesRunsAndSeries) {
    read({millRiver(), millRiver(3)});
    EXPECT_EQ(setup["runs"][1]["name"], "b.sgr");
    EXPECT_EQ(setup["series"][1]["name"], "BOD (Conc)");
    EXPECT_EQ(setup["series"][2]["kind"], "load");
    EXPECT_EQ(setup["series"][2]["title"], "BOD load");
}

TEST_F(PageData, CanEndNoScript) {
    read({millRiver(6, "</script><img src=x>")});
    EXPECT_EQ(river["names"][1], json::parse(R"([1,"</script><img src=x>"])"));
    const PageStudy judged(study, request);
    const StudyPath path = studyPath(study, judged.network().rivers.front().reaches);
    const std::string text = bytesBy([&](OutputBytes& out) {
        writeRiverData(out, judged, path, {0, 1, 2, 3, 4});
    });
    EXPECT_EQ(text.find('<'), std::string::npos);
}

StudyPath pathOf(std::size_t places) {
    StudyPath path;
    for (std::size_t k = 0; k < places; ++k) {
        PathPlace place;
        place.km = static_cast<double>(k);
        place.reach = k < places / 2 ? 0 : 1;
        place.point = static_cast<int>(k) + 1;
        path.places.push_back(place);
    }
    return path;
}

TEST(PageThinning, KeepsTheEndsOfReachesAndWhatMustStay) {
    const std::vector<std::size_t> kept = keptPlaces(pathOf(100), 10, {34, 100});
    for (const std::size_t place : {0, 49, 50, 99, 33})
        EXPECT_TRUE(std::ranges::binary_search(kept, place)) << place;
    EXPECT_LE(kept.size(), 15U);
    EXPECT_TRUE(std::ranges::is_sorted(kept));
    EXPECT_EQ(keptPlaces(pathOf(100), 100, {}).size(), 100U);
}

TEST(PageThinning, StaysWithinTheLimits) {
    const Study study = studyOf({millRiver(), millRiver(3)});
    const PageRequest request = requestOf(study);
    const PageStudy judged(study, request);
    // Flow and load have four values a run, a concentration nine.
    const RiverPlan plan = planRivers(judged, {.values = 240, .vertices = 600, .panels = 2});
    EXPECT_EQ(plan.mostPlaces, 7U);
    EXPECT_EQ(plan.placesInAll, 5U);
    EXPECT_EQ(plan.rivers.size(), 1U);
    EXPECT_EQ(plan.verticesOfCurve, 600U / (3 * 8));
}

} // namespace

} // namespace korvel
