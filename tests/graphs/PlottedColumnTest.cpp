#include "graphs/draw/PlottedColumn.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// Points 1, 2 ... of column 1 at these distances; type 99 is interpolated.
struct Column {
    Column(std::initializer_list<double> distances, std::initializer_list<int> types) {
        int j = 0;
        for (const double distance : distances) {
            ++j;
            graph.graphPoints[1].set(j, j);
            graph.graphDistances[1].set(j, distance);
        }
        graph.graphPointCounts[1] = j;
        j = 0;
        for (const int type : types)
            results.pointFeatureType.set(++j, type);
    }
    PlottedColumn plotted() const { return plottedColumn(results, graph, 1); }

    ResultsDataSet results;
    GraphHandOver graph;
};

} // namespace

TEST(PlottedColumn, EndsWhereItsPointsEnd) {
    const struct {
        std::initializer_list<double> distances;
        double lowest, highest;
    } columns[] = {{{0, 2.5, 12}, 0, 12}, {{0, 0.25, 0.5}, 0, 0.5}, {{3, 4}, 0, 4}, {{-1, 0.5}, -1, 0.5},
                   {{-2, -1}, -2, 0},     {{0, 0}, 0, 1},           {{}, 0, 1}};
    for (const auto& [distances, lowest, highest] : columns) {
        const PlottedColumn column = Column(distances, {0, 0, 0}).plotted();
        EXPECT_EQ(column.lowest, lowest);
        EXPECT_EQ(column.highest, highest);
        EXPECT_EQ(column.distances, std::vector<double>(distances));
    }
}

TEST(PlottedColumn, EndsWithItsInterpolatedPointsEvenWhereTheyAreNotPlotted) {
    Column column({0, 1, 2}, {0, 99, 99});
    EXPECT_EQ(column.plotted().highest, 2);
    EXPECT_EQ(column.plotted().points, std::vector<int>{1});
    EXPECT_TRUE(column.plotted().measured.empty());
    column.graph.plotInterpolatedPoints = true;
    EXPECT_EQ(column.plotted().points, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(column.plotted().measured, std::vector<int>{1});
    column.graph.displayLevel = 1;
    EXPECT_EQ(column.plotted().points, std::vector<int>{1});
}

} // namespace korvel
