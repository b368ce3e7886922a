#include "platform/DiskFilesFixture.h"

#include <algorithm>
#include <fcntl.h>

namespace korvel {

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

} // namespace korvel
