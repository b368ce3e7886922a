#include "results/LoadResultsFile.h"

#include "fakes/FakePlatform.h"
#include "fakes/ResultsFileBuilder.h"
#include "global/GLOBAL.h"
#include "results/ResultsDataSet.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace korvel {

namespace {

const std::string readError = "box [exclamation] Error: There is an error in reading the data for plotting. "
                              "The file either does not exist, is "
                              "incomplete, or is in the wrong format.  Or it may hold more plotting points "
                              "than the set maximum of 59999. -> "
                              "ok\n";
const std::string otherPoints =
    "box [exclamation] : 2nd data set has different reach or feature data. -> ok\n";

class LoadResults : public testing::Test {
  protected:
    LoadResults() {
        GLOBAL = {};
        RESULTS = {};
        fake.putFile("a.sgr", river().text());
        fake.putFile("moved.sgr", river().point(1, 3, "Extra").text());
    }
    ~LoadResults() override {
        fake.expectDone();
        GLOBAL = {};
        RESULTS = {};
    }

    static ResultsFileBuilder river() {
        return ResultsFileBuilder()
            .determinand(1, "BOD")
            .reach(1, "Mill")
            .point(1, 0, "Weir")
            .point(1, 2, "Works");
    }

    // Whether it loaded; each box is answered.
    bool load(const std::string& name, int slot = 0, int boxes = 0) {
        for (; boxes > 0; --boxes)
            fake.willAnswer(Answer::ok);
        GLOBAL.fileNames[slot] = fake.pathOf(name);
        GLOBAL.currentSlot = slot;
        LoadResultsFile(fake, true);
        return !GLOBAL.loadFailed;
    }

    FakePlatform fake;
};

} // namespace

TEST_F(LoadResults, LoadsWithoutAWord) {
    EXPECT_TRUE(load("a.sgr"));
    EXPECT_EQ(RESULTS.pointCount, 2);
    EXPECT_EQ(fake.takeTranscript(), "");
}

TEST_F(LoadResults, ShowsTheReadErrorForAFileThatIsMissing) {
    EXPECT_FALSE(load("none.sgr", 0, 1));
    EXPECT_EQ(fake.takeTranscript(), readError);
}

TEST_F(LoadResults, ShowsTheReadErrorForAFileWithoutName) {
    fake.willAnswer(Answer::ok);
    LoadResultsFile(fake, true);
    EXPECT_TRUE(GLOBAL.loadFailed);
    EXPECT_EQ(fake.takeTranscript(), readError);
}

TEST_F(LoadResults, ShowsTheReadErrorForAFolder) {
    std::filesystem::create_directory(hostPathOf(fake.pathOf("folder.sgr")));
    EXPECT_FALSE(load("folder.sgr", 0, 1));
    EXPECT_EQ(fake.takeTranscript(), readError);
}

TEST_F(LoadResults, ShowsTheReadErrorForAnIncompleteFile) {
    fake.putFile("cut.sgr", river().text().substr(0, 300));
    EXPECT_FALSE(load("cut.sgr", 0, 1));
    EXPECT_EQ(fake.takeTranscript(), readError);
    EXPECT_TRUE(load("a.sgr"));
}

TEST_F(LoadResults, ShowsTheReadErrorForElevenDeterminands) {
    ResultsFileBuilder file;
    for (int d = 1; d <= 11; ++d)
        file.determinand(1, "D");
    fake.putFile("eleven.sgr", file.text());
    EXPECT_FALSE(load("eleven.sgr", 0, 1));
    EXPECT_EQ(fake.takeTranscript(), readError);
}

TEST_F(LoadResults, ShowsTheReadErrorForTheSixtyThousandthPoint) {
    fake.putFile("most.sgr", ResultsFileBuilder().points(59999).text());
    EXPECT_TRUE(load("most.sgr"));
    EXPECT_EQ(RESULTS.pointCount, 59999);
    fake.putFile("more.sgr", ResultsFileBuilder().points(60000).text());
    EXPECT_FALSE(load("more.sgr", 0, 1));
    EXPECT_EQ(fake.takeTranscript(), readError);
}

TEST_F(LoadResults, KeepsSilentAboutAReadErrorWhereErrorsAreNotShown) {
    GLOBAL.fileNames[0] = fake.pathOf("none.sgr");
    LoadResultsFile(fake, false);
    EXPECT_TRUE(GLOBAL.loadFailed);
    EXPECT_EQ(fake.takeTranscript(), "");
}

TEST_F(LoadResults, PlotsInterpolatedPointsWhereThereAreSome) {
    fake.putFile("interpolated.sgr", river().point(1, 5, "P", 99).text());
    EXPECT_TRUE(load("interpolated.sgr"));
    EXPECT_TRUE(GLOBAL.plotInterpolatedPoints);
    EXPECT_TRUE(load("a.sgr"));
    EXPECT_FALSE(GLOBAL.plotInterpolatedPoints);
    EXPECT_EQ(GLOBAL.loads, 2);
}

TEST_F(LoadResults, AFailureLeavesPointCountAndWhetherInterpolatedPointsArePlotted) {
    fake.putFile("interpolated.sgr", river().point(1, 5, "P", 99).text());
    EXPECT_TRUE(load("interpolated.sgr"));
    EXPECT_FALSE(load("none.sgr", 0, 1));
    EXPECT_EQ(RESULTS.pointCount, 3);
    EXPECT_FALSE(RESULTS.hasInterpolatedPoints);
    EXPECT_EQ(RESULTS.reachNames[1], "");
    EXPECT_TRUE(GLOBAL.plotInterpolatedPoints);
    EXPECT_EQ(GLOBAL.loads, 1) << "only those that succeed are followed";
}

TEST_F(LoadResults, ASecondLoadPlotsInterpolatedPointsByTheFirstFile) {
    fake.putFile("interpolated.sgr", river().point(1, 5, "P", 99).text());
    EXPECT_TRUE(load("interpolated.sgr"));
    GLOBAL.plotInterpolatedPoints = false;
    EXPECT_TRUE(load("interpolated.sgr", 1));
    EXPECT_TRUE(GLOBAL.plotInterpolatedPoints);
    EXPECT_EQ(GLOBAL.loads, 2);
}

TEST_F(LoadResults, AnAbandonedFileStaysOpenAndFailsTheNextLoad) {
    for (int next : {0, 1}) {
        EXPECT_TRUE(load("a.sgr"));
        EXPECT_FALSE(load("moved.sgr", 1, 1));
        EXPECT_EQ(fake.takeTranscript(), otherPoints);
        EXPECT_FALSE(load("a.sgr", next, 1));
        EXPECT_EQ(fake.takeTranscript(), readError);
        EXPECT_TRUE(load("a.sgr"));
        EXPECT_EQ(fake.takeTranscript(), "");
    }
}

TEST_F(LoadResults, ALoadBlockedByTheOpenFileHasForgottenTheReaches) {
    EXPECT_TRUE(load("a.sgr"));
    EXPECT_FALSE(load("moved.sgr", 1, 1));
    EXPECT_FALSE(load("a.sgr", 1, 1));
    EXPECT_EQ(RESULTS.reachLengths[1], 10);
    EXPECT_FALSE(load("moved.sgr", 1, 1));
    EXPECT_FALSE(load("a.sgr", 0, 1));
    EXPECT_EQ(RESULTS.reachLengths[1], -1);
    EXPECT_EQ(RESULTS.reachNames[1], "");
    fake.takeTranscript();
}

TEST_F(LoadResults, AReadErrorInTheSecondFileClosesIt) {
    EXPECT_TRUE(load("a.sgr"));
    fake.putFile("cut.sgr", river().text().substr(0, 300));
    EXPECT_FALSE(load("cut.sgr", 1, 1));
    EXPECT_EQ(fake.takeTranscript(), readError);
    EXPECT_TRUE(load("a.sgr", 1));
}

TEST_F(LoadResults, WarnsOfOtherTargetsAndLoads) {
    EXPECT_TRUE(load("a.sgr"));
    fake.putFile("targets.sgr", river().set(ValueField::targetValue, 2, 5).text());
    EXPECT_TRUE(load("targets.sgr", 1, 1));
    EXPECT_EQ(fake.takeTranscript(),
              "box [exclamation] Warning: 2nd set of data has different quality targets. These "
              "quality targets have been ignored. -> ok\n");
}

TEST_F(LoadResults, MayShowASlotOnceItIsLoaded) {
    EXPECT_FALSE(RESULTS.slotLoaded[0]);
    EXPECT_TRUE(load("a.sgr"));
    EXPECT_TRUE(RESULTS.slotLoaded[0]);
    EXPECT_FALSE(RESULTS.slotLoaded[1]);
    EXPECT_TRUE(load("a.sgr", 1));
    EXPECT_TRUE(RESULTS.slotLoaded[0]);
    EXPECT_TRUE(RESULTS.slotLoaded[1]);
}

TEST_F(LoadResults, InvalidatesTheSecondDataSetWithAnyLoadOfTheFirst) {
    for (const char* next : {"a.sgr", "none.sgr"}) {
        EXPECT_TRUE(load("a.sgr"));
        EXPECT_TRUE(load("a.sgr", 1));
        load(next, 0, next == std::string("none.sgr") ? 1 : 0);
        EXPECT_FALSE(RESULTS.slotLoaded[1]) << next;
        EXPECT_TRUE(RESULTS.values[1].everWritten()) << "its values stay";
    }
    fake.takeTranscript();
}

TEST_F(LoadResults, InvalidatesTheSecondDataSetWithALoadOfItsOwnThatFailsOrIsAbandoned) {
    for (const char* next : {"none.sgr", "moved.sgr"}) {
        EXPECT_TRUE(load("a.sgr"));
        EXPECT_TRUE(load("a.sgr", 1));
        EXPECT_FALSE(load(next, 1, 1));
        EXPECT_TRUE(RESULTS.slotLoaded[0]);
        EXPECT_FALSE(RESULTS.slotLoaded[1]) << next;
    }
    fake.takeTranscript();
}

TEST(ShortFileName, KeepsAPathThatIsShortEnough) {
    EXPECT_EQ(ShortFileName("  Z:\\DATA\\RIVER.SGR  ", 20), "Z:\\DATA\\RIVER.SGR");
    EXPECT_EQ(ShortFileName("Z:\\DATA\\RIVERS12.SGR", 20), "Z:\\DATA\\RIVERS12.SGR");
}

TEST(ShortFileName, TakesTheFileOfALongerPath) {
    EXPECT_EQ(ShortFileName("Z:\\DATA\\RIVERS123.SGR", 20), "RIVERS123.SGR");
    EXPECT_EQ(ShortFileName("A very long name without folder.sgr", 20),
              "A very long name without folder.sgr");
}

} // namespace korvel
