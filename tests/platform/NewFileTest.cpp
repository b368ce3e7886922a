// How files are written on the disk.
#include "platform/DiskFilesFixture.h"

#include "basic/Descriptor.h"

#include <fcntl.h>
#include <sys/file.h>

namespace korvel {

namespace {

class NewFileTest : public DiskFilesTest {};

} // namespace

TEST_F(NewFileTest, WritesANewFileWithTheUsersMask) {
    const mode_t old = umask(027);
    write("New.dat", "a\r\n");
    umask(old);
    EXPECT_EQ(folder.textOf("New.dat"), "a\r\n");
    EXPECT_EQ(modeOf(folder.path("New.dat")), 0640U);
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(NewFileTest, ReplacesAFileWholeAndKeepsItsMode) {
    for (const mode_t mode : {0604U, 0666U, 0755U}) {
        folder.put("test.dat", "the old and longer text");
        chmod(folder.path("test.dat").c_str(), mode);
        write("TEST.DAT", "new");
        EXPECT_EQ(folder.textOf("test.dat"), "new");
        EXPECT_EQ(modeOf(folder.path("test.dat")), mode);
    }
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(NewFileTest, KeepsTheOwner) {
    const uid_t owner = geteuid() == 0 ? 65534 : geteuid();
    folder.put("a", "old");
    ASSERT_EQ(chown(folder.path("a").c_str(), owner, static_cast<gid_t>(-1)), 0);
    write("a", "new");
    struct stat status {};
    ASSERT_EQ(stat(folder.path("a").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, owner);
}

TEST_F(NewFileTest, WritesLargeTextsWhole) {
    std::string text;
    const auto file = files.create(folder.model("a"));
    for (int i = 0; i < 200'000; ++i) {
        const std::string line = std::to_string(i) + "\r\n";
        file->write(line);
        text += line;
    }
    file->commit();
    EXPECT_EQ(folder.textOf("a"), text);
}

TEST_F(NewFileTest, ShowsTheOldFileUntilTheCommit) {
    folder.put("a", "old");
    const auto file = files.create(folder.model("a"));
    file->write(std::string(1'000'000, 'x'));
    EXPECT_EQ(folder.textOf("a"), "old");
    EXPECT_EQ(folder.entries(), 1) << "it has no name yet";
    file->commit();
    EXPECT_EQ(folder.textOf("a").size(), 1'000'000U);
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(NewFileTest, LeavesNothingBehindWhenItIsKilled) {
    folder.put("a", "old");
    errorApart([] {},
               [&] {
                   const auto file = files.create(folder.model("a"));
                   file->write(std::string(1'000'000, 'x'));
                   std::raise(SIGKILL);
               });
    EXPECT_EQ(folder.textOf("a"), "old");
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(NewFileTest, ClearsAwayWhatOthersLeftUnfinished) {
    folder.put(".korvel-x1y2z3", "left");
    folder.put(".korvel-longer-name", "another's");
    folder.put(".korvel-inhand", "being written");
    folder.makeFolder(".korvel-folder");
    const Descriptor writer(::open(folder.path(".korvel-inhand").c_str(), O_WRONLY));
    ASSERT_EQ(flock(writer.number(), LOCK_EX), 0);
    write("a", "new");
    EXPECT_FALSE(std::filesystem::exists(folder.path(".korvel-x1y2z3")));
    EXPECT_EQ(folder.textOf(".korvel-longer-name"), "another's");
    EXPECT_EQ(folder.textOf(".korvel-inhand"), "being written");
    EXPECT_TRUE(std::filesystem::exists(folder.path(".korvel-folder")));
    EXPECT_EQ(folder.textOf("a"), "new");
}

TEST_F(NewFileTest, LeavesNothingBehindWithoutACommit) {
    folder.put("a", "old");
    files.create(folder.model("a"))->write(std::string(1'000'000, 'x'));
    files.create(folder.model("b"))->write("x");
    EXPECT_EQ(folder.textOf("a"), "old");
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(NewFileTest, WritesTwoFilesOfOneFolderSideBySide) {
    const auto first = files.create(folder.model("a"));
    const auto second = files.create(folder.model("b"));
    second->write("2");
    first->write("1");
    first->commit();
    second->commit();
    EXPECT_EQ(folder.textOf("a") + folder.textOf("b"), "12");
    EXPECT_EQ(folder.entries(), 2);
}

TEST_F(NewFileTest, WritesThroughALink) {
    folder.put("elsewhere/a", "old");
    std::filesystem::create_symlink("elsewhere/a", folder.path("link"));
    write("link", "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link")));
    EXPECT_EQ(folder.textOf("elsewhere/a"), "new");
}

TEST_F(NewFileTest, ReportsAFullDiskAndKeepsTheOldFile) {
    folder.put("a", "old");
    const std::string text(1'000'000, 'x');
    EXPECT_EQ(errorWithFilesUpTo(1000, [&] { write("a", text); }), 61);
    EXPECT_EQ(errorWithFilesUpTo(1000, [&] { write("a", text.substr(0, 2000)); }),
              61); // noticed at the commit
    EXPECT_EQ(errorWithFilesUpTo(1000, [&] { write("a", "fits"); }), 0);
    EXPECT_EQ(folder.textOf("a"), "fits");
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(NewFileTest, RefusesATargetThatCannotBeWritten) {
    folder.put("a", "old");
    chmod(folder.path("a").c_str(), 0444);
    EXPECT_EQ(errorAsNobody([&] { files.create(folder.model("a")); }), 70);
    EXPECT_EQ(errorAsNobody([&] { write("a", "new"); }), 70);
    EXPECT_EQ(folder.textOf("a"), "old");
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(NewFileTest, RefusesAFolderThatCannotBeWritten) {
    folder.put("closed/a", "old");
    chmod(folder.path("closed/a").c_str(), 0666);
    chmod(folder.path("closed").c_str(), 0555);
    EXPECT_EQ(errorAsNobody([&] { write("closed/a", "new"); }), 70);
    EXPECT_EQ(errorAsNobody([&] { write("closed/b", "new"); }), 75);
    EXPECT_EQ(folder.textOf("closed/a"), "old");
}

TEST_F(NewFileTest, RefusesATargetThatASpreadsheetProgramHolds) {
    folder.put("test.csv", "old");
    folder.put(".~lock.test.csv#", "");
    EXPECT_EQ(writeError("test.csv"), 70);
    EXPECT_EQ(writeError("TEST.CSV"), 70);
    EXPECT_EQ(writeError("other.csv"), 0);
    EXPECT_EQ(folder.textOf("test.csv"), "old");
    std::filesystem::remove(folder.path(".~lock.test.csv#"));
    EXPECT_EQ(writeError("test.csv"), 0);
    EXPECT_EQ(folder.textOf("test.csv"), "new");
}

TEST_F(NewFileTest, RefusesTargetsThatAreNoRegularFiles) {
    folder.makeFolder("folder");
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0666), 0);
    EXPECT_EQ(writeError("folder"), 75);
    EXPECT_EQ(writeError("pipe"), 75);
    EXPECT_EQ(writeError("none/a"), 76);
    EXPECT_EQ(errorOf([&] { files.create("Z:\\dev\\full"); }), 75);
}

} // namespace korvel
