#include "many/FinishedRuns.h"

#include "many/PlanPlaces.h"
#include "many/RunRecord.h"
#include "platform/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

struct PlanWithRecord : testing::Test {
    void plan(const std::string& rows) const { folder.put("p.csv", "name,data_file,type,title\n" + rows); }
    void record(const std::string& name, RunState state, const std::string& base, int type = 0) {
        RunRecord one;
        one.name = name;
        one.state = state;
        one.dataFile = base + ".DAT";
        one.type = type;
        one.results = base + ".SGR";
        lines += recordLine(one) + '\n';
        folder.put("p.runs.jsonl", lines);
    }
    FinishedRuns finished() const { return finishedRuns(folder.path("p.csv")); }
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const FinishedRun& run : finished().runs)
            names.push_back(run.name);
        return names;
    }

    TemporaryFolder folder;
    std::string lines;
};

using Names = std::vector<std::string>;

TEST_F(PlanWithRecord, HasItsDoneRunsInThePlansOrder) {
    plan("z,Z.DAT,0,Last\nb,sub/B.DAT,0,\na,A.DAT,0,\n");
    record("a", RunState::done, "A");
    record("b", RunState::done, "sub/B");
    record("z", RunState::done, "Z");
    EXPECT_EQ(names(), (Names{"z", "b", "a"}));
    EXPECT_EQ(finished().runs[0].title, "Last");
    EXPECT_EQ(finished().runs[1].results, folder.path("sub/B.SGR"));
    EXPECT_EQ(finished().planned, 3U);
}

TEST_F(PlanWithRecord, LeavesOutWhatIsNotDoneOrNotAsPlanned) {
    plan("a,A.DAT,0,\nb,B.DAT,0,\nc,C.DAT,0,\nd,D.DAT,4,\ne,E.DAT,0,\n");
    record("a", RunState::done, "A");
    record("a", RunState::started, "A");
    record("b", RunState::failed, "B");
    record("c", RunState::done, "OTHER");
    record("d", RunState::done, "D", 0);
    record("gone", RunState::done, "GONE");
    EXPECT_EQ(names(), Names{});
    EXPECT_TRUE(finished().problems.empty());
}

TEST_F(PlanWithRecord, HasNothingFinishedWithoutARecord) {
    plan("a,A.DAT,0,\n");
    EXPECT_EQ(names(), Names{});
    EXPECT_TRUE(finished().problems.empty());
}

TEST_F(PlanWithRecord, DropsABrokenLastLine) {
    plan("a,A.DAT,0,\n");
    record("a", RunState::done, "A");
    folder.put("p.runs.jsonl", lines + "{\"name\":\"a\",\"ty");
    EXPECT_EQ(names(), Names{"a"});
}

TEST_F(PlanWithRecord, TellsWhatCanNotBeRead) {
    EXPECT_EQ(finished().problems, Names{"p.csv can't be read: File not found."});
    plan("a,A.DAT,x,\n");
    EXPECT_EQ(finished().problems,
              Names{"p.csv, line 2, column 9: The run type is a digit, 0 to 9, not \"x\"."});
    plan("a,A.DAT,0,\n");
    folder.put("p.runs.jsonl", "x\n");
    EXPECT_TRUE(finished().problems.empty());
    folder.put("p.runs.jsonl", "x\nx\n");
    EXPECT_EQ(finished().problems, Names{"p.runs.jsonl, line 1 is none of a record."});
}

TEST(Plans, AreKnownByTheirExtension) {
    EXPECT_TRUE(isPlan("a/plan.csv"));
    EXPECT_TRUE(isPlan("PLAN.CSV"));
    EXPECT_FALSE(isPlan("ALDER.SGR"));
    EXPECT_FALSE(isPlan("csv"));
}

} // namespace

} // namespace korvel
