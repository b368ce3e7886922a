#include "many/PlanPlaces.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace korvel {

namespace {

TEST(PlanPlaces, StandBesideThePlan) {
    const PlanPlaces places = placesOfPlan("/rivers/ten/../plan.csv");
    EXPECT_EQ(places.plan, "/rivers/plan.csv");
    EXPECT_EQ(places.folder, "/rivers");
    EXPECT_EQ(places.record, "/rivers/plan.runs.jsonl");
    EXPECT_EQ(places.runs, "/rivers/plan.runs");
}

TEST(PlanPlaces, AreThoseOfTheCurrentFolder) {
    EXPECT_EQ(placesOfPlan("x.CSV").record, std::filesystem::current_path().string() + "/x.runs.jsonl");
}

TEST(PlanPlaces, KeepAnotherExtension) {
    EXPECT_EQ(placesOfPlan("/plan.txt").record, "/plan.txt.runs.jsonl");
    EXPECT_EQ(placesOfPlan("/plan.txt").folder, "/");
}

TEST(PlanPlaces, GiveEveryNameAFolderOfItsOwnInside) {
    const PlanPlaces places = placesOfPlan("/p.csv");
    EXPECT_EQ(privateFolderOf(places, "step 1"), "/p.runs/step 1");
    EXPECT_EQ(privateFolderOf(places, ".."), "/p.runs/%2E.");
    EXPECT_EQ(privateFolderOf(places, ".slurm"), "/p.runs/%2Eslurm");
    EXPECT_EQ(privateFolderOf(places, "../a"), "/p.runs/%2E.%2Fa");
    EXPECT_EQ(privateFolderOf(places, "a%2Fb"), "/p.runs/a%252Fb");
}

} // namespace

} // namespace korvel
