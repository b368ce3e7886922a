#include "many/RecordFile.h"

#include "basic/RunTimeError.h"
#include "fakes/ResourceLimits.h"
#include "platform/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace korvel {

namespace {

using namespace std::chrono_literals;

RunRecord record(const std::string& name, RunState state = RunState::done) {
    RunRecord one;
    one.name = name;
    one.state = state;
    return one;
}

std::string lineOf(const RunRecord& one) {
    return recordLine(one) + '\n';
}

// What opening fails with.
std::string refusal(const std::string& path) {
    try {
        const RecordFile file(path, 0ms);
    } catch (const RunTimeError& error) {
        return std::to_string(error.number) + ": " + error.description;
    }
    return "";
}

struct Record : testing::Test {
    std::string path() const { return folder.path("p.runs.jsonl"); }
    std::string text() const { return folder.textOf("p.runs.jsonl"); }
    void put(const std::string& text) const { folder.put("p.runs.jsonl", text); }

    TemporaryFolder folder;
};

TEST_F(Record, GrowsByALineForEachState) {
    {
        RecordFile file(path(), 0ms);
        file.append(record("a", RunState::started));
        file.append(record("b", RunState::started));
        file.append(record("a"));
        EXPECT_EQ(file.lastOf("a")->state, RunState::done);
        EXPECT_EQ(file.lastOf("c"), nullptr);
    }
    EXPECT_EQ(text(), lineOf(record("a", RunState::started)) + lineOf(record("b", RunState::started)) +
                          lineOf(record("a")));
}

TEST_F(Record, TellsTheLastLineOfEachRunWhenItIsOpenedAgain) {
    put(lineOf(record("a", RunState::started)) + lineOf(record("b")) + lineOf(record("a", RunState::failed)));
    const RecordFile file(path(), 0ms);
    EXPECT_EQ(file.last().size(), 2U);
    EXPECT_EQ(file.lastOf("a")->state, RunState::failed);
    EXPECT_EQ(file.lastOf("b")->state, RunState::done);
}

TEST_F(Record, DropsALastLineThatIsCutShortAnywhere) {
    const std::string first = lineOf(record("a"));
    const std::string second = recordLine(record("b"));
    for (std::size_t length = 0; length < second.size(); ++length) {
        put(first + second.substr(0, length));
        RecordFile(path(), 0ms).append(record("c"));
        ASSERT_EQ(text(), first + lineOf(record("c"))) << length;
    }
}

TEST_F(Record, DropsALastLineOfNulls) {
    put(lineOf(record("a")) + std::string(50, '\0') + "\n");
    RecordFile(path(), 0ms).append(record("c"));
    EXPECT_EQ(text(), lineOf(record("a")) + lineOf(record("c")));
}

TEST_F(Record, KeepsAWholeLastLineWithoutItsEnd) {
    put(recordLine(record("a")));
    RecordFile(path(), 0ms).append(record("b"));
    EXPECT_EQ(text(), lineOf(record("a")) + lineOf(record("b")));
}

TEST_F(Record, IsRefusedAndKeptWhereAnotherLineIsBroken) {
    const std::string damaged = lineOf(record("a")) + "{\"name\"\n" + lineOf(record("b"));
    put(damaged);
    EXPECT_EQ(refusal(path()), "13: p.runs.jsonl, line 2 is none of a record");
    EXPECT_EQ(text(), damaged);
}

TEST_F(Record, IsForOneCallAtATime) {
    const RecordFile first(path(), 0ms);
    EXPECT_EQ(refusal(path()), "55: Another call is carrying out this plan");
}

TEST_F(Record, IsFreeWhenTheCallBeforeIsOver) {
    RecordFile(path(), 0ms).append(record("a"));
    EXPECT_EQ(refusal(path()), "");
}

TEST_F(Record, IsRefusedWhereItCanNotBeMade) {
    EXPECT_EQ(refusal(folder.path("none/p.runs.jsonl")), "53: File not found");
    EXPECT_EQ(refusal(folder.path()), "75: Path/File access error");
}

TEST_F(Record, IsAsBeforeWhereALineFindsNoRoom) {
    RecordFile file(path(), 0ms);
    file.append(record("a"));
    const std::string before = text();
    {
        const SizeLimit limit(before.size() + 20);
        EXPECT_THROW(file.append(record("b")), RunTimeError);
    }
    EXPECT_EQ(text(), before);
    EXPECT_EQ(file.lastOf("b"), nullptr);
    file.append(record("c"));
    EXPECT_EQ(text(), before + lineOf(record("c")));
}

TEST_F(Record, KnowsEveryLineThatItHolds) {
    put(lineOf(record("a", RunState::started)) + lineOf(record("a")));
    RecordFile file(path(), 0ms);
    EXPECT_TRUE(file.holds(record("a", RunState::started)));
    EXPECT_TRUE(file.holds(record("a")));
    EXPECT_FALSE(file.holds(record("b")));
    file.append(record("b"));
    EXPECT_TRUE(file.holds(record("b")));
}

TEST_F(Record, ReservesRoomWithoutGrowing) {
    RecordFile file(path(), 0ms);
    file.append(record("a"));
    file.reserve(3);
    EXPECT_EQ(text(), lineOf(record("a")));
    struct stat status;
    ASSERT_EQ(stat(path().c_str(), &status), 0);
    if (status.st_blocks * 512 < 3 * 4096) GTEST_SKIP() << "This file system reserves nothing.";
    file.append(record("b"));
    EXPECT_EQ(text(), lineOf(record("a")) + lineOf(record("b")));
}

} // namespace

} // namespace korvel
