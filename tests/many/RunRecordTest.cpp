#include "many/RunRecord.h"

#include <gtest/gtest.h>
#include <regex>

namespace korvel {

namespace {

RunRecord wholeRecord() {
    return {"step \"1\"",
            "a/B.DAT",
            4,
            "Ten \xC3\xA4",
            RunState::done,
            0,
            "2026-11-22T09:30:00.125Z",
            "2026-11-22T09:30:01.000Z",
            "node7",
            "e1",
            "d2",
            "a/B.SGR",
            "r3",
            "1.0.0",
            "all\nwell"};
}

TEST(RunRecord, IsOneLineOfJson) {
    EXPECT_EQ(recordLine(wholeRecord()),
              R"({"name":"step \"1\"","data_file":"a/B.DAT","type":4,"title":"Ten ä","state":"done",)"
              R"("exit_status":0,"started":"2026-11-22T09:30:00.125Z","ended":"2026-11-22T09:30:01.000Z",)"
              R"("host":"node7","engine_sha256":"e1","data_sha256":"d2","results":"a/B.SGR",)"
              R"("results_sha256":"r3","korvel":"1.0.0","message":"all\nwell"})");
}

TEST(RunRecord, HasNullForWhatDoesNotApply) {
    RunRecord record;
    record.name = "a";
    record.dataFile = "A.DAT";
    EXPECT_EQ(recordLine(record),
              R"({"name":"a","data_file":"A.DAT","type":0,"title":null,"state":"started","exit_status":null,)"
              R"("started":null,"ended":null,"host":null,"engine_sha256":null,"data_sha256":null,)"
              R"("results":null,"results_sha256":null,"korvel":null,"message":null})");
}

TEST(RunRecord, IsReadBackAsItWasWritten) {
    EXPECT_EQ(recordOfLine(recordLine(wholeRecord())), wholeRecord());
    RunRecord stopped;
    stopped.name = "b";
    stopped.state = RunState::stopped;
    stopped.exitStatus = 143;
    EXPECT_EQ(recordOfLine(recordLine(stopped)), stopped);
}

TEST(RunRecord, WritesBytesThatAreNoTextAsReplacements) {
    RunRecord record;
    record.message = "a\xFFz";
    EXPECT_EQ(recordOfLine(recordLine(record))->message, "a\xEF\xBF\xBDz");
}

TEST(RunRecord, IsNoOtherLine) {
    const std::string line = recordLine(wholeRecord());
    for (std::size_t length = 0; length < line.size(); ++length)
        ASSERT_FALSE(recordOfLine(line.substr(0, length))) << length;
    for (const char* other :
         {"[]", "1", "{}", R"({"name":"a","type":0,"state":"ready"})",
          R"({"name":1,"type":0,"state":"done"})", R"({"name":"a","type":0,"state":"done","message":7})"})
        EXPECT_FALSE(recordOfLine(other)) << other;
    EXPECT_FALSE(recordOfLine(std::string(100, '\0')));
}

TEST(RunRecord, TakesWhatItKnowsFromALineThatHoldsMore) {
    const auto record = recordOfLine(R"({"name":"a","type":3,"state":"failed","cost":7})");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->type, 3);
    EXPECT_EQ(record->state, RunState::failed);
}

TEST(RunRecord, TellsTheTimeToTheThousandthOfASecond) {
    EXPECT_TRUE(std::regex_match(timeNow(), std::regex(R"(20\d\d-\d\d-\d\dT\d\d:\d\d:\d\d\.\d\d\dZ)")))
        << timeNow();
}

} // namespace

} // namespace korvel
