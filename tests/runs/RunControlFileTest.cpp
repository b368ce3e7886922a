#include "runs/RunControlFile.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(RunControlFile, HoldsFourLinesForASingleRun) {
    EXPECT_EQ(singleRunText("SINGLE", {"C:\\DATA\\", "TEST", 0}),
              "SINGLE\r\nC:\\DATA\\\r\nC:\\DATA\\TEST.DAT\r\n 0 \r\n");
}

TEST(RunControlFile, PadsTheRunTypeWithABlankOnEachSide) {
    for (int type = 0; type <= 9; ++type)
        EXPECT_EQ(singleRunText("SINGLE", {"C:\\", "A", type}),
                  "SINGLE\r\nC:\\\r\nC:\\A.DAT\r\n " + std::to_string(type) + " \r\n");
}

TEST(RunControlFile, TrimsTheFolderOnlyWhereItStandsAlone) {
    EXPECT_EQ(singleRunText("SINGLE", {" C:\\DATA\\ ", " TEST ", 3}),
              "SINGLE\r\nC:\\DATA\\\r\n C:\\DATA\\ TEST.DAT\r\n 3 \r\n");
}

TEST(RunControlFile, ListsTheFilesOfABatchInOrder) {
    EXPECT_EQ(batchRunText("Two schemes", {{"C:\\DATA\\", "TEST1", 8}, {"C:\\DATA\\", "TEST2", 8}}),
              "Two schemes\r\n"
              "C:\\DATA\\\r\nC:\\DATA\\TEST1.DAT\r\n 8 \r\n"
              "C:\\DATA\\\r\nC:\\DATA\\TEST2.DAT\r\n 8 \r\n");
}

TEST(RunControlFile, WritesADashForABatchWithoutATitle) {
    EXPECT_EQ(batchRunText("", {}), "-\r\n");
    EXPECT_EQ(batchRunText("   ", {}), "-\r\n");
    EXPECT_EQ(batchRunText(" A title ", {}), "A title\r\n");
}

TEST(RunControlFile, LeavesOutABatchFileWithoutABaseName) {
    EXPECT_EQ(batchRunText("T", {{"C:\\", "  ", 4}, {"C:\\", "A", 4}}), "T\r\nC:\\\r\nC:\\A.DAT\r\n 4 \r\n");
}

} // namespace korvel
