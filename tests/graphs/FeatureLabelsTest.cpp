#include "graphs/draw/FeatureLabels.h"

#include "graphs/GraphSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

struct FeatureLabelsTest : testing::Test {
    GraphSample sample;

    FeatureLabelsTest() {
        sample.addReach(7, "Upper Mill      ", 12.5);
        sample.addPoint({7, 0, "Start of reach Upper Mill", 0});
        sample.addPoint({7, 2, "Weir", 1});
        sample.addPoint({7, 3, "added", 99});
        sample.addPoint({7, 4.04, "STW", 3});
        sample.addPoint({7, 12.5, "End of reach Upper Mill", 10});
        sample.labelAllTypes();
        sample.plotSeries({7}, {0});
    }

    std::vector<std::string> texts(double spacing = 0) {
        std::vector<std::string> found;
        for (const FeatureLabel& label : featureLabels(sample.inputs(), 1, 100, spacing))
            found.push_back(label.text);
        return found;
    }
};

using Texts = std::vector<std::string>;

} // namespace

TEST_F(FeatureLabelsTest, NamesFeatureAndDistance) {
    EXPECT_EQ(texts(), (Texts{"Start of reach Upper Mill (0.0km)", "Weir (2.0km)", "STW (4.0km)",
                              "End of reach Upper Mill (12.5km)"}));
}

TEST_F(FeatureLabelsTest, ShowsOnlyTheDistanceInLargeTextOfMode2) {
    sample.plotReaches({7}, 0);
    EXPECT_EQ(texts(), (Texts{"0.0km", "2.0km", "4.0km", "12.5km"}));
    sample.view.LargeTextMode = 0;
    EXPECT_EQ(texts()[1], "Weir (2.0km)");
}

TEST_F(FeatureLabelsTest, LabelsOnlyTheChosenTypes) {
    sample.graph.labelFeatureTypes.fill(false);
    EXPECT_EQ(texts(), Texts{});
    sample.graph.labelFeatureTypes[3] = true;
    EXPECT_EQ(texts(), Texts{"STW (4.0km)"});
}

TEST_F(FeatureLabelsTest, NeverLabelsTypesOutsideTheList) {
    for (const int type : {99, 51, -1})
        EXPECT_FALSE(labelsType(sample.graph, type)) << type;
    EXPECT_TRUE(labelsType(sample.graph, 50));
}

TEST_F(FeatureLabelsTest, TheDisplayLevelSuppressesFeaturesAndThenReaches) {
    sample.graph.displayLevel = 1;
    EXPECT_EQ(texts().size(), 4u);
    sample.graph.displayLevel = 2;
    EXPECT_EQ(texts(), (Texts{"Start of reach Upper Mill (0.0km)", "End of reach Upper Mill (12.5km)"}));
    sample.graph.displayLevel = 3;
    EXPECT_EQ(texts(), Texts{});
}

TEST_F(FeatureLabelsTest, LeavesOutPointsTooCloseToTheLastLabel) {
    // 100 units a km: 2 km after the first, 2.04 km after that.
    EXPECT_EQ(texts(200), (Texts{"Start of reach Upper Mill (0.0km)", "STW (4.0km)",
                                 "End of reach Upper Mill (12.5km)"}));
    EXPECT_EQ(texts(199).size(), 4u);
}

TEST_F(FeatureLabelsTest, AlwaysLabelsTheLastPoint) {
    EXPECT_EQ(texts(1e6), (Texts{"Start of reach Upper Mill (0.0km)", "End of reach Upper Mill (12.5km)"}));
    sample.graph.labelFeatureTypes[10] = false;
    EXPECT_EQ(texts(1e6), Texts{"Start of reach Upper Mill (0.0km)"});
}

TEST_F(FeatureLabelsTest, GivesTheFirstAndTheLastPointAPlace) {
    const auto labels = featureLabels(sample.inputs(), 1, 100, 0);
    EXPECT_TRUE(labels.front().required);
    EXPECT_FALSE(labels[1].required);
    EXPECT_TRUE(labels.back().required);
}

TEST_F(FeatureLabelsTest, MeasuresDistancesAlongTheRun) {
    sample.addReach(8, "Lower Mill      ", 5);
    sample.addPoint({8, 1.5, "Gauge", 4});
    sample.plotSeries({7, 8}, {0});
    EXPECT_EQ(texts().back(), "Gauge (14.0km)");
}

} // namespace korvel
