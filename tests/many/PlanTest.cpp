#include "many/Plan.h"

#include "basic/ModelName.h"
#include "basic/Text.h"
#include "commands/SingleRunRules.h"
#include "platform/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace korvel {

namespace {

struct Catchments : testing::Test {
    Catchments() {
        for (const char* file : {"A.DAT", "b.dat", "sub/A.DAT", "C.TXT", "TwinX.DAT", "twinx.dat"})
            folder.put(file);
        folder.makeFolder("FOLDER.DAT");
        std::filesystem::create_symlink("sub", folder.path("link"));
        folder.put("NAMEOFTHIRTYONECHARACTERSXX.DAT");
    }

    Plan plan(const std::string& text) const { return readPlan(text, folder.path(""), rulesOfSingleRuns()); }
    std::vector<std::string> refusals(const std::string& text) const {
        EXPECT_FALSE(plan(text).problems.empty()) << text;
        return problemLines(plan(text), "p.csv");
    }

    TemporaryFolder folder;
};

const std::string heading = "name,data_file,type\n";

TEST_F(Catchments, AreReadRowByRow) {
    const Plan read = plan("title,type,name,data_file\n# by hand\nA title,4,one,A.DAT\n,0,two,sub/A.DAT\n");
    EXPECT_TRUE(read.problems.empty()) << problemLines(read, "p").front();
    ASSERT_EQ(read.runs.size(), 2U);
    const PlannedRun& run = read.runs[0];
    EXPECT_EQ(run.name, "one");
    EXPECT_EQ(run.dataFile, "A.DAT");
    EXPECT_EQ(run.type, 4);
    EXPECT_EQ(run.title, "A title");
    EXPECT_EQ(run.dataPath, folder.path("A.DAT"));
    EXPECT_EQ(run.files.folder, upperCase(folder.model("")) + "\\");
    EXPECT_EQ(run.files.base, "A");
    EXPECT_EQ(read.runs[1].files.folder, upperCase(folder.model("sub/")));
}

TEST_F(Catchments, MayBeNamedByTheirWholePathAndInSmallLetters) {
    const Plan read = plan(heading + "one," + folder.path("b.dat") + ",0\n");
    ASSERT_TRUE(read.problems.empty());
    EXPECT_EQ(read.runs[0].files.base, "B");
    EXPECT_EQ(read.runs[0].dataPath, folder.path("b.dat"));
}

struct RefusedPlan {
    std::string text;
    std::string line;
};

TEST_F(Catchments, AreRefusedByFileLineAndColumn) {
    const std::string column = "name,data_file,type";
    const RefusedPlan cases[] = {
        {"", "line 1, column 1: The plan has no heading."},
        {"# only\n", "line 2, column 1: The plan has no heading."},
        {heading, "line 1, column 1: The plan has a heading and no row."},
        {"name,data_file\na,A.DAT\n", "line 1, column 1: The column type is missing."},
        {column + ",host\na,A.DAT,0,x\n",
         "line 1, column 21: There is no column \"host\" in a plan, only name, data_file, type and title."},
        {column + ",type\na,A.DAT,0,0\n", "line 1, column 21: The column type stands here twice."},
        {heading + "a,A.DAT\n", "line 2, column 3: The row has 2 fields, the heading 3."},
        {heading + "a,A.DAT,0,x\n", "line 2, column 11: The row has 4 fields, the heading 3."},
        {heading + ",A.DAT,0\n", "line 2, column 1: A name has 1 to 60 characters, this one 0."},
        {heading + std::string(61, 'n') + ",A.DAT,0\n",
         "line 2, column 1: A name has 1 to 60 characters, this one 61."},
        {heading + "\"a\tb\",A.DAT,0\n",
         "line 2, column 1: A name holds no line end, tab or other control character."},
        {heading + "a,A.DAT,0\n\na,b.dat,0\n", "line 4, column 1: The name \"a\" stands in line 2 already."},
        {heading + "a,A.DAT,10\n", "line 2, column 9: The run type is a digit, 0 to 9, not \"10\"."},
        {heading + "a,A.DAT,\n", "line 2, column 9: The run type is a digit, 0 to 9, not \"\"."},
        {heading + "a,,0\n", "line 2, column 3: The row names no data file."},
        {heading + "a,X.DAT,0\n", "line 2, column 3: The data file is not there."},
        {heading + "a,FOLDER.DAT,0\n", "line 2, column 3: This is no file."},
        {heading + "a,C.TXT,0\n", "line 2, column 3: The input data file extension must be .DAT."},
        {heading + "a,NAMEOFTHIRTYONECHARACTERSXX.DAT,0\n",
         "line 2, column 3: File name too long. Must be not more than 30 characters,"},
        {heading + "a,twinx.dat,0\n",
         "line 2, column 3: Another file or folder has the same name but for upper "
         "and lower case. Rename one of them."},
        {heading + "a,A.DAT,0\nb,./A.DAT,4\n",
         "line 3, column 3: This run would write the same outputs as that of line 2."},
        {heading + "a,sub/A.DAT,0\nb,link/A.DAT,0\n",
         "line 3, column 3: This run would write the same outputs as that of line 2."},
        {heading + "\"a,A.DAT,0\n", "line 2, column 1: The quote is never closed."},
    };
    for (const RefusedPlan& one : cases)
        EXPECT_EQ(refusals(one.text), std::vector<std::string>{"p.csv, " + one.line}) << one.text;
}

TEST_F(Catchments, AreRefusedAllAtOnceInTheOrderOfThePlan) {
    const std::vector<std::string> lines = refusals(heading + "a,X.DAT,x\n,A.DAT,1\n\"q\"q,A.DAT,1\n");
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_TRUE(beginsWith(lines[0], "p.csv, line 2, column 3: ")) << lines[0];
    EXPECT_TRUE(beginsWith(lines[1], "p.csv, line 2, column 9: ")) << lines[1];
    EXPECT_TRUE(beginsWith(lines[2], "p.csv, line 3, column 1: ")) << lines[2];
    EXPECT_TRUE(beginsWith(lines[3], "p.csv, line 4, column 4: ")) << lines[3];
}

TEST_F(Catchments, AreRefusedTwentyAtATime) {
    std::string text = heading;
    for (int row = 0; row < 5000; ++row)
        text += "same,X.DAT,0\n";
    const std::vector<std::string> lines = refusals(text);
    ASSERT_EQ(lines.size(), 21U);
    EXPECT_EQ(lines.back(), "p.csv: 9979 more like these.");
}

TEST_F(Catchments, TakeNamesOfSixtyLettersOfAnyKind) {
    std::string name;
    for (std::size_t letter = 0; letter < LongestRunName; ++letter)
        name += "\xC3\x84";
    EXPECT_TRUE(plan(heading + name + ",A.DAT,0\n").problems.empty());
}

} // namespace

} // namespace korvel
