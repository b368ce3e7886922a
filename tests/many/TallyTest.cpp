#include "many/Tally.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

using Row = Tally::Row;
using namespace std::chrono_literals;

TEST(Tally, CountsTheRowsInEachState) {
    Tally tally(4);
    EXPECT_EQ(tally.count(Row::waiting), 4U);
    tally.set(0, Row::running);
    tally.set(1, Row::failed, "no");
    tally.set(0, Row::done);
    tally.set(3, Row::kept);
    EXPECT_EQ(tally.count(Row::running), 0U);
    EXPECT_EQ(tally.rowsIn(Row::waiting), std::vector<std::size_t>{2});
    EXPECT_EQ(tally.message(1), "no");
    EXPECT_FALSE(tally.allDone());
    tally.set(1, Row::done);
    tally.set(2, Row::done);
    EXPECT_TRUE(tally.allDone());
}

TEST(Tally, SaysHowFarTheRowsAreAndHowLongTheRestTakes) {
    Tally tally(10);
    EXPECT_EQ(tally.progress(0s), "0 done, 10 to go");
    tally.set(0, Row::running);
    EXPECT_EQ(tally.progress(1s), "0 done, 1 running, 9 to go");
    tally.set(0, Row::done);
    tally.set(1, Row::failed);
    tally.set(2, Row::running);
    EXPECT_EQ(tally.progress(10s), "1 done, 1 running, 1 failed, 7 to go, about 40 s left");
    EXPECT_EQ(tally.progress(60s), "1 done, 1 running, 1 failed, 7 to go, about 4 min left");
    EXPECT_EQ(tally.progress(30min), "1 done, 1 running, 1 failed, 7 to go, about 2 h 0 min left");
}

TEST(Tally, CountsKeptRowsAsDoneButNotForTheTimeThatIsLeft) {
    Tally tally(3);
    tally.set(0, Row::kept);
    EXPECT_EQ(tally.progress(10s), "1 done, 2 to go");
}

TEST(Tally, SumsUpAtTheEnd) {
    Tally tally(5);
    tally.set(0, Row::done);
    tally.set(1, Row::kept);
    tally.set(2, Row::failed);
    tally.set(3, Row::stopped);
    EXPECT_EQ(tally.summary(), "1 done, 1 kept, 1 failed, 1 stopped, 1 not run.");
}

} // namespace

} // namespace korvel
