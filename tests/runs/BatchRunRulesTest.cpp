#include "runs/BatchRun.h"

#include "basic/NaturalOrder.h"
#include "basic/Text.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace korvel {

TEST(BatchRunRules, TurnOptionsIntoRunTypes) {
    const int types[] = {0, 4, 7, 8, 9, 6};
    for (int option = 0; option < BatchOptions; ++option)
        EXPECT_EQ(batchRunType(option), types[option]);
    for (const int option : {-1, 6}) {
        try {
            batchRunType(option);
            FAIL() << option;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number, errors::subscriptOutOfRange);
        }
    }
}

TEST(BatchRunRules, ListNamesWithTheExtensionAnywhereInThemInUpperCase) {
    EXPECT_EQ(
        batchList({"TEST1.DAT", "test2.dat", "A.DAT.BAK", "x.data", "a.sgr", "DAT", "b.da", ".dat"}).names,
        (std::vector<std::string>{".DAT", "A.DAT.BAK", "TEST1.DAT", "TEST2.DAT", "X.DATA"}));
    EXPECT_TRUE(batchList({}).names.empty());
}

TEST(BatchRunRules, ListNamesAsPeopleCount) {
    std::vector<std::string> names = {"G.DAT",     "FILE10A10.DAT", "FILE02.DAT", "FILE10.DAT",
                                      "FILE2.DAT", "FILE10A2.DAT",  "FILE1.DAT",  "FILE.DAT"};
    std::ranges::sort(names, comesBefore);
    EXPECT_EQ(names, (std::vector<std::string>{"FILE.DAT", "FILE1.DAT", "FILE02.DAT", "FILE2.DAT",
                                               "FILE10.DAT", "FILE10A2.DAT", "FILE10A10.DAT", "G.DAT"}));
    EXPECT_EQ(batchList({"file10.dat", "FILE2.DAT", "file1.dat"}).names,
              (std::vector<std::string>{"FILE1.DAT", "FILE2.DAT", "FILE10.DAT"}));
}

TEST(BatchRunRules, ListOneOfTwinsThatDifferInCaseOnly) {
    const BatchList list = batchList({"b.dat", "a.dat", "A.DAT", "A.dat"});
    EXPECT_EQ(list.names, (std::vector<std::string>{"A.DAT", "B.DAT"}));
    EXPECT_EQ(list.leftOut, (std::vector<std::string>{"A.dat", "a.dat"}));
}

TEST(BatchRunRules, SayWhichFolderIsListedAndWhatIsNot) {
    BatchState state;
    EXPECT_EQ(batchListNote(state, "Z:\\OTHER\\"), "");
    state.folder = "Z:\\DATA\\";
    EXPECT_EQ(batchListNote(state, "Z:\\DATA\\"), "Files of Z:\\DATA\\");
    state.leftOut = {"A.dat", "a.dat"};
    EXPECT_EQ(batchListNote(state, "Z:\\OTHER\\"),
              "Files of Z:\\DATA\\\nThe folder was changed to Z:\\OTHER\\ since: the files are taken from "
              "there.\nNot listed, as another name differs in case only: A.dat, a.dat");
}

TEST(BatchRunRules, SayThatNoFolderIsLeftWhereAChoiceElsewhereWasCancelled) {
    BatchState state;
    state.folder = "Z:\\DATA\\";
    EXPECT_EQ(batchListNote(state, ""),
              "Files of Z:\\DATA\\\nNo folder is chosen any more, as the choice of a data file was cancelled "
              "since. Close this form and begin again with 'Step 1'.");
}

TEST(BatchRunRules, ListNoNameThatWouldNameOtherFilesInTheRunControlFile) {
    EXPECT_EQ(batchList({"a.dat\r\nZ:\\OTHER\\", "..\\b.dat", "c\nd.dat", "e.dat"}).names,
              std::vector<std::string>{"E.DAT"});
}

TEST(BatchRunRules, TakeOutEverySelectedName) {
    const struct {
        std::vector<bool> selected;
        std::vector<std::string> left;
    } cases[] = {
        {{false, false, false, false}, {"A", "B", "C", "D"}},
        {{true, true, false, false}, {"C", "D"}}, // neighbours: the walk stays on the index
        {{false, true, true, true}, {"A"}},
        {{true, false, true, false}, {"B", "D"}},
        {{true, true, true, true}, {}},
        {{}, {"A", "B", "C", "D"}},
    };
    for (const auto& [selected, left] : cases) {
        std::vector<std::string> names = {"A", "B", "C", "D"};
        std::vector<bool> marks = selected;
        removeSelected(names, marks);
        EXPECT_EQ(names, left);
        EXPECT_EQ(marks, std::vector<bool>(left.size(), false));
    }
}

TEST(BatchRunRules, ComputeTwoGreysForWhateverColumn) {
    for (const int column : {0, 1, 99}) {
        EXPECT_EQ(ChangeCaptionsAndColumnColour(column).dark, (Rgb{192, 192, 192}));
        EXPECT_EQ(ChangeCaptionsAndColumnColour(column).light, (Rgb{224, 224, 224}));
    }
}

TEST(BatchRunRules, TellTheUserWhatToDo) {
    EXPECT_EQ(batchInstructions(),
              " \n    Click 'Step 1'.  Select any one data file from the folder of data files you wish to "
              "use.\n    A list of all the data files in that folder will then be displayed.\n    Remove "
              "files not wanted in this run.\n\n    Click 'Step 2' to run these.\n  \n");
    EXPECT_EQ(batchRemovalHint(),
              "To remove data files from this list, click on the required file names (using SHIFT and CTRL "
              "for multiple selections). Then press the Delete key.");
}

} // namespace korvel
