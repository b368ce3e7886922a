#include "engine/OutputFiles.h"

#include "platform/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace korvel {

using namespace engine;

namespace {

class OutputFilesTest : public testing::Test {
  protected:
    // What the problem says, with the folder left out; "" where there is none.
    template <typename Action>
    std::string problemOf(Action&& action) const {
        try {
            action();
        } catch (const FileProblem& problem) {
            std::string message = problem.message;
            const auto place = message.find(folder.path());
            return place == std::string::npos ? message : message.replace(place, folder.path().size(), "F");
        }
        return "";
    }

    TemporaryFolder folder;
};

// Root may write everything, so it steps down for a while.
class AsNobody {
  public:
    AsNobody() : m_isRoot(::geteuid() == 0) { EXPECT_TRUE(!m_isRoot || ::setresuid(65534, 65534, 0) == 0); }
    ~AsNobody() { EXPECT_TRUE(!m_isRoot || ::setresuid(0, 0, 0) == 0); }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

  private:
    bool m_isRoot;
};

unsigned modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
}

} // namespace

TEST_F(OutputFilesTest, AreThereOnlyOnceAllAreWhole) {
    folder.put("A.OUT", "old");
    OutputFiles files;
    files.add(folder.path("A.OUT"), "new");
    files.add(folder.path("B.OUT"), std::string(200000, 'b'));
    EXPECT_EQ(folder.textOf("A.OUT"), "old");
    EXPECT_FALSE(fileExists(folder.path("B.OUT")));
    files.commit();
    EXPECT_EQ(folder.textOf("A.OUT"), "new");
    EXPECT_EQ(folder.textOf("B.OUT"), std::string(200000, 'b'));
    EXPECT_EQ(folder.entries(), 2);
}

TEST_F(OutputFilesTest, LeaveNothingBesideThemWhereTheyAreGivenUp) {
    { OutputFiles().add(folder.path("A.OUT"), "new"); }
    EXPECT_EQ(folder.entries(), 0);
}

TEST_F(OutputFilesTest, TakeTheModeThatTheUsersMaskLeaves) {
    const mode_t before = ::umask(027);
    OutputFiles files;
    files.add(folder.path("A.OUT"), "new");
    files.commit();
    EXPECT_EQ(::umask(before), 027U); // as it was left
    EXPECT_EQ(modeOf(folder.path("A.OUT")), 0640U);
}

TEST_F(OutputFilesTest, TellWhatCannotBeWritten) {
    OutputFiles files;
    EXPECT_EQ(problemOf([&] { files.add(folder.path("gone/A.OUT"), ""); }),
              "can't write F/gone/A.OUT: No such file or directory");
    folder.makeFolder("B.OUT");
    EXPECT_EQ(problemOf([&] { files.add(folder.path("B.OUT"), ""); }), "can't write F/B.OUT: not a file");
    files.add(folder.path("C.OUT"), "");
    files.add(folder.path("D.OUT"), "");
    folder.makeFolder("C.OUT");
    EXPECT_EQ(problemOf([&] { files.commit(); }), "can't write F/C.OUT: Is a directory");
    EXPECT_FALSE(fileExists(folder.path("D.OUT")));
}

TEST_F(OutputFilesTest, RefuseAFileThatItsUserMayNotWrite) {
    folder.put("A.OUT", "old");
    std::filesystem::permissions(folder.path("A.OUT"), std::filesystem::perms::owner_read);
    const AsNobody nobody;
    OutputFiles files;
    EXPECT_EQ(problemOf([&] { files.add(folder.path("A.OUT"), "new"); }),
              "can't write F/A.OUT: Permission denied");
}

TEST_F(OutputFilesTest, LeaveNoFileOpen) {
    const int next = ::dup(STDIN_FILENO);
    ::close(next);
    OutputFiles files;
    files.add(folder.path("A.OUT"), "new");
    files.commit();
    EXPECT_EQ(readFile(folder.path("A.OUT")), "new");
    const int again = ::dup(STDIN_FILENO);
    ::close(again);
    EXPECT_EQ(again, next);
}

TEST_F(OutputFilesTest, AreReadBackWhole) {
    std::string text;
    for (int k = 0; k < 30000; ++k)
        text += std::to_string(k) + '\n';
    folder.put("A.DAT", text);
    EXPECT_EQ(readFile(folder.path("A.DAT")), text);
    folder.put("EMPTY.DAT");
    EXPECT_EQ(readFile(folder.path("EMPTY.DAT")), "");
}

TEST_F(OutputFilesTest, AreRefusedByTheReaderWhereTheyAreNoFiles) {
    EXPECT_EQ(problemOf([&] { readFile(folder.path("A.DAT")); }),
              "can't open F/A.DAT: No such file or directory");
    EXPECT_EQ(problemOf([&] { readFile(folder.path()); }), "can't open F: not a file");
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(problemOf([&] { readFile(folder.path("pipe")); }), "can't open F/pipe: not a file");
}

} // namespace korvel
