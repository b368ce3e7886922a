#include "explore/SettledFile.h"
#include "explore/RecentFiles.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

using News = SettledFile::News;
constexpr FileStamp asRead{100, 1};

} // namespace

TEST(SettledFile, IsReadOnceItWasUnchangedForTwoSeconds) {
    SettledFile file(asRead);
    EXPECT_EQ(file.look(asRead, 0), News::nothing);
    EXPECT_EQ(file.look(FileStamp{10, 2}, 1000), News::unsettled);
    EXPECT_EQ(file.look(FileStamp{50, 3}, 2500), News::unsettled); // still growing
    EXPECT_EQ(file.look(FileStamp{50, 3}, 4499), News::unsettled);
    EXPECT_EQ(file.look(FileStamp{50, 3}, 4500), News::readNow);
}

TEST(SettledFile, IsLetAloneOnceItWasRead) {
    SettledFile file(asRead);
    file.look(FileStamp{10, 2}, 0);
    EXPECT_EQ(file.look(FileStamp{10, 2}, 2000), News::readNow);
    file.wasRead();
    EXPECT_EQ(file.look(FileStamp{10, 2}, 9000), News::nothing);
    EXPECT_EQ(file.look(FileStamp{20, 4}, 9500), News::unsettled);
}

TEST(SettledFile, IsLetAloneWhereItIsAgainAsItWasRead) {
    SettledFile file(asRead);
    file.look(FileStamp{10, 2}, 0);
    EXPECT_EQ(file.look(asRead, 100), News::nothing);
}

TEST(SettledFile, TellsOnceThatItVanishedAndCameBack) {
    SettledFile file(asRead);
    EXPECT_EQ(file.look({}, 0), News::vanished);
    EXPECT_EQ(file.look({}, 5000), News::nothing);
    EXPECT_EQ(file.look(asRead, 6000), News::cameBack);
    EXPECT_EQ(file.look(asRead, 7000), News::nothing);
}

TEST(SettledFile, IsReadWhereAnotherCameBack) {
    SettledFile file(asRead);
    file.look({}, 0);
    EXPECT_EQ(file.look(FileStamp{10, 2}, 1000), News::unsettled);
    EXPECT_EQ(file.look(FileStamp{10, 2}, 3000), News::readNow);
}

TEST(RecentFiles, PutTheLastOneFirstAndNoneTwice) {
    EXPECT_EQ(withRecent({}, "a"), (std::vector<std::string>{"a"}));
    EXPECT_EQ(withRecent({"a", "b", "c"}, "b"), (std::vector<std::string>{"b", "a", "c"}));
}

TEST(RecentFiles, KeepTen) {
    std::vector<std::string> files;
    for (char letter = 'a'; letter <= 'm'; ++letter)
        files = withRecent(files, std::string(1, letter));
    EXPECT_EQ(files.size(), MostRecentFiles);
    EXPECT_EQ(files.front(), "m");
    EXPECT_EQ(files.back(), "d");
}

} // namespace korvel
