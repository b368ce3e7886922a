#include "platform/DiskFiles.h"

#include "basic/Descriptor.h"
#include "basic/RunTimeError.h"
#include "platform/TemporaryFolder.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

namespace {

int errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

constexpr int didNotRun = 255;

// The error of an action in a process of its own, after `prepare` has run there.
int errorApart(const std::function<void()>& prepare, const std::function<void()>& action) {
    const pid_t child = fork();
    if (child == 0) {
        prepare();
        _exit(errorOf(action));
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return didNotRun;
    return WEXITSTATUS(status);
}

// Root may do everything, so that permissions are tried as nobody.
int errorAsNobody(const std::function<void()>& action) {
    return errorApart(
        [] {
            constexpr unsigned nobody = 65534;
            if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(didNotRun);
        },
        action);
}

int errorWithFilesUpTo(rlim_t bytes, const std::function<void()>& action) {
    return errorApart(
        [bytes] {
            const rlimit limit{bytes, bytes};
            std::signal(SIGXFSZ, SIG_IGN);
            if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(didNotRun);
        },
        action);
}

mode_t modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

class DiskFilesTest : public testing::Test {
  protected:
    std::string read(const std::string& name) { return files.readAll(folder.model(name)); }
    void write(const std::string& name, const std::string& text) {
        files.writeWhole(folder.model(name), text);
    }
    int readError(const std::string& name) {
        return errorOf([&] { read(name); });
    }
    int writeError(const std::string& name) {
        return errorOf([&] { write(name, "new"); });
    }

    DiskFiles files;
    TemporaryFolder folder;
};

TEST_F(DiskFilesTest, ReadsBytesAsTheyStand) {
    const std::string bytes("a\r\n\0\x1A\xFF\n", 7);
    folder.put("Rivers/a.dat", bytes);
    EXPECT_EQ(read("Rivers/a.dat"), bytes);
    EXPECT_EQ(read("RIVERS/A.DAT"), bytes);
    folder.put("empty", "");
    EXPECT_EQ(read("empty"), "");
}

TEST_F(DiskFilesTest, ClosesItsOwnFilesAndNoOthers) {
    const int next = ::dup(STDIN_FILENO);
    ::close(next);
    write("a.txt", "text");
    EXPECT_EQ(read("a.txt"), "text");
    EXPECT_NE(::fcntl(STDOUT_FILENO, F_GETFD), -1);
    const int again = ::dup(STDIN_FILENO);
    ::close(again);
    EXPECT_EQ(again, next); // nothing was left open
}

TEST_F(DiskFilesTest, ReadsInChunksAndKnowsTheSize) {
    folder.put("a", "0123456789");
    const auto source = files.open(folder.model("a"));
    EXPECT_EQ(source->size(), 10U);
    char chunk[4];
    std::string text;
    while (const std::size_t count = source->read(chunk, sizeof chunk))
        text.append(chunk, count);
    EXPECT_EQ(text, "0123456789");
    EXPECT_EQ(source->read(chunk, sizeof chunk), 0U);
}

TEST_F(DiskFilesTest, ReadsAFileLargerThanOneChunk) {
    std::string text;
    while (text.size() < 1'000'000)
        text += std::to_string(text.size()) + ",";
    folder.put("a", text);
    EXPECT_EQ(read("a"), text);
}

TEST_F(DiskFilesTest, TellsAMissingFileFromAMissingFolder) {
    folder.put("file");
    EXPECT_EQ(readError("none"), 53);
    EXPECT_EQ(readError("none/none"), 76);
    EXPECT_EQ(readError("file/none"), 76);
    EXPECT_EQ(errorOf([&] { files.open("Z:\\no such file anywhere"); }), 53);
}

TEST_F(DiskFilesTest, RefusesNamesThatHaveNoPlaceHere) {
    EXPECT_EQ(errorOf([&] { files.open("C:\\DATA\\A.DAT"); }), 76);
    EXPECT_EQ(errorOf([&] { files.create("C:\\DATA\\A.DAT"); }), 76);
    EXPECT_EQ(errorOf([&] { files.open("A.DAT"); }), 76);
    EXPECT_EQ(errorOf([&] { files.open(""); }), 75);
    EXPECT_EQ(errorOf([&] { files.open(std::string("Z:\\A\0B", 6)); }), 52);
    EXPECT_EQ(readError(std::string(300, 'x')), 52);
    EXPECT_EQ(writeError(std::string(300, 'x')), 52);
}

TEST_F(DiskFilesTest, ReadsRegularFilesOnly) {
    folder.makeFolder("folder");
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0666), 0);
    EXPECT_EQ(readError("folder"), 75);
    EXPECT_EQ(readError("pipe"), 75); // and without waiting for a writer
    EXPECT_EQ(errorOf([&] { files.open("Z:\\dev\\null"); }), 75);
    EXPECT_EQ(errorOf([&] { files.open("Z:\\"); }), 75);
}

TEST_F(DiskFilesTest, FollowsLinksButNotInCircles) {
    folder.put("a", "text");
    std::filesystem::create_symlink("a", folder.path("link"));
    std::filesystem::create_symlink("circle", folder.path("circle"));
    std::filesystem::create_symlink("nowhere", folder.path("dangling"));
    EXPECT_EQ(read("link"), "text");
    EXPECT_EQ(readError("circle"), 76);
    EXPECT_EQ(writeError("circle"), 76);
    EXPECT_EQ(readError("dangling"), 53);
}

TEST_F(DiskFilesTest, RefusesToReadWhatIsNotPermitted) {
    folder.put("a", "text");
    chmod(folder.path("a").c_str(), 0);
    EXPECT_EQ(errorAsNobody([&] { read("a"); }), 70);
    folder.put("closed/b", "text");
    chmod(folder.path("closed").c_str(), 0);
    EXPECT_EQ(errorAsNobody([&] { read("closed/b"); }), 70);
}

TEST_F(DiskFilesTest, ReportsADeviceThatFailsWhileReading) {
    const auto source = files.open("Z:\\proc\\self\\mem"); // nothing is mapped at its start
    char byte;
    EXPECT_EQ(errorOf([&] { source->read(&byte, 1); }), 57);
}

TEST_F(DiskFilesTest, WritesANewFileWithTheUsersMask) {
    const mode_t old = umask(027);
    write("New.dat", "a\r\n");
    umask(old);
    EXPECT_EQ(folder.textOf("New.dat"), "a\r\n");
    EXPECT_EQ(modeOf(folder.path("New.dat")), 0640U);
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(DiskFilesTest, ReplacesAFileWholeAndKeepsItsMode) {
    for (const mode_t mode : {0604U, 0666U, 0755U}) {
        folder.put("test.dat", "the old and longer text");
        chmod(folder.path("test.dat").c_str(), mode);
        write("TEST.DAT", "new");
        EXPECT_EQ(folder.textOf("test.dat"), "new");
        EXPECT_EQ(modeOf(folder.path("test.dat")), mode);
    }
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(DiskFilesTest, KeepsTheOwner) {
    const uid_t owner = geteuid() == 0 ? 65534 : geteuid();
    folder.put("a", "old");
    ASSERT_EQ(chown(folder.path("a").c_str(), owner, static_cast<gid_t>(-1)), 0);
    write("a", "new");
    struct stat status {};
    ASSERT_EQ(stat(folder.path("a").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, owner);
}

TEST_F(DiskFilesTest, WritesLargeTextsWhole) {
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

TEST_F(DiskFilesTest, ShowsTheOldFileUntilTheCommit) {
    folder.put("a", "old");
    const auto file = files.create(folder.model("a"));
    file->write(std::string(1'000'000, 'x'));
    EXPECT_EQ(folder.textOf("a"), "old");
    EXPECT_EQ(folder.entries(), 1) << "it has no name yet";
    file->commit();
    EXPECT_EQ(folder.textOf("a").size(), 1'000'000U);
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(DiskFilesTest, LeavesNothingBehindWhenItIsKilled) {
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

TEST_F(DiskFilesTest, ClearsAwayWhatOthersLeftUnfinished) {
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

TEST_F(DiskFilesTest, LeavesNothingBehindWithoutACommit) {
    folder.put("a", "old");
    files.create(folder.model("a"))->write(std::string(1'000'000, 'x'));
    files.create(folder.model("b"))->write("x");
    EXPECT_EQ(folder.textOf("a"), "old");
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(DiskFilesTest, WritesTwoFilesOfOneFolderSideBySide) {
    const auto first = files.create(folder.model("a"));
    const auto second = files.create(folder.model("b"));
    second->write("2");
    first->write("1");
    first->commit();
    second->commit();
    EXPECT_EQ(folder.textOf("a") + folder.textOf("b"), "12");
    EXPECT_EQ(folder.entries(), 2);
}

TEST_F(DiskFilesTest, WritesThroughALink) {
    folder.put("elsewhere/a", "old");
    std::filesystem::create_symlink("elsewhere/a", folder.path("link"));
    write("link", "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link")));
    EXPECT_EQ(folder.textOf("elsewhere/a"), "new");
}

TEST_F(DiskFilesTest, ReportsAFullDiskAndKeepsTheOldFile) {
    folder.put("a", "old");
    const std::string text(1'000'000, 'x');
    EXPECT_EQ(errorWithFilesUpTo(1000, [&] { write("a", text); }), 61);
    EXPECT_EQ(errorWithFilesUpTo(1000, [&] { write("a", text.substr(0, 2000)); }),
              61); // noticed at the commit
    EXPECT_EQ(errorWithFilesUpTo(1000, [&] { write("a", "fits"); }), 0);
    EXPECT_EQ(folder.textOf("a"), "fits");
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(DiskFilesTest, RefusesATargetThatCannotBeWritten) {
    folder.put("a", "old");
    chmod(folder.path("a").c_str(), 0444);
    EXPECT_EQ(errorAsNobody([&] { files.create(folder.model("a")); }), 70);
    EXPECT_EQ(errorAsNobody([&] { write("a", "new"); }), 70);
    EXPECT_EQ(folder.textOf("a"), "old");
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(DiskFilesTest, RefusesAFolderThatCannotBeWritten) {
    folder.put("closed/a", "old");
    chmod(folder.path("closed/a").c_str(), 0666);
    chmod(folder.path("closed").c_str(), 0555);
    EXPECT_EQ(errorAsNobody([&] { write("closed/a", "new"); }), 70);
    EXPECT_EQ(errorAsNobody([&] { write("closed/b", "new"); }), 75);
    EXPECT_EQ(folder.textOf("closed/a"), "old");
}

TEST_F(DiskFilesTest, RefusesATargetThatASpreadsheetProgramHolds) {
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

TEST_F(DiskFilesTest, RefusesTargetsThatAreNoRegularFiles) {
    folder.makeFolder("folder");
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0666), 0);
    EXPECT_EQ(writeError("folder"), 75);
    EXPECT_EQ(writeError("pipe"), 75);
    EXPECT_EQ(writeError("none/a"), 76);
    EXPECT_EQ(errorOf([&] { files.create("Z:\\dev\\full"); }), 75);
}

TEST_F(DiskFilesTest, KnowsFilesButTakesNoFolderForOne) {
    folder.put("a.dat");
    folder.makeFolder("folder");
    EXPECT_TRUE(files.exists(folder.model("a.dat")));
    EXPECT_TRUE(files.exists(folder.model("A.DAT")));
    EXPECT_FALSE(files.exists(folder.model("b.dat")));
    EXPECT_FALSE(files.exists(folder.model("folder")));
    EXPECT_FALSE(files.exists(folder.model("none/a.dat")));
    EXPECT_FALSE(files.exists(""));
    EXPECT_FALSE(files.exists("C:\\a.dat"));
}

TEST_F(DiskFilesTest, RemovesFiles) {
    folder.put("a.dat");
    folder.makeFolder("folder");
    files.remove(folder.model("A.DAT"));
    EXPECT_EQ(folder.entries(), 1);
    EXPECT_EQ(errorOf([&] { files.remove(folder.model("a.dat")); }), 53);
    EXPECT_EQ(errorOf([&] { files.remove(folder.model("none/a.dat")); }), 76);
    EXPECT_EQ(errorOf([&] { files.remove(folder.model("folder")); }), 75);
}

TEST_F(DiskFilesTest, ListsFilesAndNoFolders) {
    folder.put("b.dat");
    folder.put("A.DAT");
    folder.put("folder/inner.dat");
    std::filesystem::create_symlink("A.DAT", folder.path("link"));
    std::filesystem::create_symlink("folder", folder.path("way"));
    auto names = files.filesIn(folder.model());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"A.DAT", "b.dat", "link"}));
    EXPECT_EQ(files.filesIn(folder.model("FOLDER")), std::vector<std::string>{"inner.dat"});
}

TEST_F(DiskFilesTest, ListsInTheFileSystemsOrder) {
    for (int i = 0; i < 30; ++i)
        folder.put(std::to_string(i * 7919 % 1000));
    std::vector<std::string> expected;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        expected.push_back(entry.path().filename().string());
    EXPECT_EQ(files.filesIn(folder.model()), expected);
}

TEST_F(DiskFilesTest, RefusesToListWhatIsNoFolder) {
    folder.put("a");
    EXPECT_EQ(errorOf([&] { files.filesIn(folder.model("none")); }), 76);
    EXPECT_EQ(errorOf([&] { files.filesIn(folder.model("a")); }), 76);
    folder.makeFolder("closed");
    chmod(folder.path("closed").c_str(), 0);
    EXPECT_EQ(errorAsNobody([&] { files.filesIn(folder.model("closed")); }), 70);
}

TEST_F(DiskFilesTest, MovesTheCurrentFolder) {
    const std::string start = files.currentFolder();
    folder.makeFolder("Rivers");
    files.setCurrentFolder(folder.model("RIVERS"));
    EXPECT_EQ(files.currentFolder(), folder.model("Rivers"));
    EXPECT_EQ(errorOf([&] { files.setCurrentFolder(folder.model("none")); }), 76);
    EXPECT_EQ(files.currentFolder(), folder.model("Rivers"));
    files.setCurrentFolder("Z:\\");
    EXPECT_EQ(files.currentFolder(), "Z:\\");
    files.setCurrentFolder(start);
    EXPECT_EQ(files.currentFolder(), start);
}

TEST_F(DiskFilesTest, ReportsACurrentFolderThatIsGone) {
    folder.makeFolder("gone");
    const int error = errorApart(
        [&] {
            files.setCurrentFolder(folder.model("gone"));
            std::filesystem::remove(folder.path("gone"));
        },
        [&] { files.currentFolder(); });
    EXPECT_EQ(error, 76);
}

} // namespace

} // namespace korvel
