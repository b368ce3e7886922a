#include "analysis/RiverSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// "Long", and "Mouth" below "Head" and "Side"; flows at the ends of the two.
ResultsFileBuilder twoRivers(double flowOfLong, double flowOfMouth) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD");
    file.reach(1, "Long", 50, 0).reach(2, "Head", 3, 3).reach(3, "Mouth", 4, 0).reach(5, "Side", 1, 3);
    file.point(1, 1, "A", 10).setAll(1).set(ValueField::meanValue, 0, flowOfLong);
    file.point(3, 1, "B", 10).setAll(1).set(ValueField::meanValue, 0, flowOfMouth);
    return file;
}

} // namespace

TEST(MainRiver, EndsAtTheMouthWithTheLargestFlow) {
    EXPECT_EQ(mainReaches(studyOf({twoRivers(1, 2)})), (std::vector<int>{1, 2}));
    EXPECT_EQ(mainReaches(studyOf({twoRivers(2, 1)})), (std::vector<int>{0}));
    EXPECT_EQ(mainReaches(studyOf({twoRivers(2, 2)})), (std::vector<int>{0})); // of equals the first
}

TEST(MainRiver, EndsAtAMouthWithoutPointsWhereMostFlowsIn) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "Small", 5, 0).reach(2, "Large", 5, 3).reach(3, "Mouth", 1, 0);
    file.point(1, 1, "A", 10).setAll(1);
    file.point(2, 1, "B", 10).setAll(2);
    EXPECT_EQ(mainReaches(studyOf({file})), (std::vector<int>{1, 2}));
}

TEST(MainRiver, IsNoneWhereReachesRunInCirclesOrAreNone) {
    ResultsFileBuilder circle, none;
    circle.determinand(1, "BOD").reach(1, "A", 5, 2).reach(2, "B", 5, 1).reach(3, "C", 5, 0);
    none.determinand(1, "BOD");
    for (const ResultsFileBuilder& file : {circle, none}) {
        const SharedRun run = runOf(file);
        EXPECT_EQ(mainRiver(*run, networkOf(*run)), nullptr);
    }
}

} // namespace korvel
