#include "toolkit/desktop/LastRunMemory.h"

#include "platform/TemporaryFolder.h"

#include <QFile>
#include <gtest/gtest.h>

#include <filesystem>

namespace korvel {

namespace {

LastRun runOf(const std::string& name, long long ended) {
    return {
        "Z:\\DATA\\" + name + ".DAT",   "Z:\\DATA\\" + name + ".SGR",          4,        "Finished", ended,
        "2 of 3 reaches miss a target", "2 of 3; 1 passes. Bad when low: DO.", ended + 1};
}

class LastRuns : public testing::Test {
  protected:
    QString file() const { return QFile::decodeName((m_folder.path() + "/last-runs.ini").c_str()); }
    std::vector<LastRun> remembered() const { return LastRunMemory(file()).runs(); }
    void note(const LastRun& run) const { LastRunMemory(file()).note(run); }

    TemporaryFolder m_folder;
};

} // namespace

TEST_F(LastRuns, AreNoneBeforeTheFirst) {
    EXPECT_TRUE(remembered().empty());
}

TEST_F(LastRuns, ComeBackWholeTheLastFirst) {
    const LastRun first = runOf("ALDER", 1000), second = runOf("B\xC3\x84"
                                                               "CHE, \"NEU\" = [1]",
                                                               3'000'000'000'000);
    note(first);
    note(second);
    EXPECT_EQ(remembered(), (std::vector<LastRun>{second, first}));
}

TEST_F(LastRuns, HoldADataFileOnceAsItWasRunLast) {
    note(runOf("ALDER", 1000));
    note(runOf("OTHER", 2000));
    LastRun again = runOf("ALDER", 3000);
    again.state = "Failed (status 2)";
    again.verdict = again.verdictInFull = "";
    note(again);
    EXPECT_EQ(remembered(), (std::vector<LastRun>{again, runOf("OTHER", 2000)}));
}

TEST_F(LastRuns, ForgetTheOldestBeyondTen) {
    for (int k = 0; k < 14; ++k)
        note(runOf("RUN" + std::to_string(k), 1000 + k));
    const std::vector<LastRun> runs = remembered();
    ASSERT_EQ(runs.size(), MostLastRuns);
    EXPECT_EQ(runs.front(), runOf("RUN13", 1013));
    EXPECT_EQ(runs.back(), runOf("RUN4", 1004));
    EXPECT_EQ(QSettings(file(), QSettings::IniFormat).childGroups().size(), 10) << "in the file too";
}

TEST_F(LastRuns, OfWindowsThatEndAtTheSameTimeAreAllKept) {
    // By another path, as what is read by the same one is shared within a program.
    std::filesystem::create_directory_symlink(m_folder.path(), m_folder.path() + "/same");
    LastRunMemory one(file()), other(QFile::decodeName((m_folder.path() + "/same/last-runs.ini").c_str()));
    EXPECT_TRUE(one.runs().empty());
    EXPECT_TRUE(other.runs().empty());
    one.note(runOf("ALDER", 1000));
    other.note(runOf("OTHER", 1001));
    EXPECT_EQ(remembered().size(), 2U);
}

TEST_F(LastRuns, LeaveOutWhatIsBroken) {
    note(runOf("ALDER", 1000));
    QFile broken(file());
    ASSERT_TRUE(broken.open(QIODevice::Append));
    broken.write(
        "\n[nothing]\nx=1\n[type]\ndataFile=Z:\\\\A.DAT\nstate=Finished\nrunType=77\n[\n]]=\n\xFF\xFE");
    broken.close();
    EXPECT_EQ(remembered(), std::vector<LastRun>{runOf("ALDER", 1000)});
}

TEST_F(LastRuns, AreForgottenWhereNothingCanBeWritten) {
    const QString nowhere = file() + "/is/no/folder/last-runs.ini";
    note(runOf("ALDER", 1000)); // so that a file is where a folder should be
    LastRunMemory memory(nowhere);
    memory.note(runOf("OTHER", 2000));
    EXPECT_FALSE(QFile::exists(nowhere));
    EXPECT_EQ(remembered(), std::vector<LastRun>{runOf("ALDER", 1000)});
}

} // namespace korvel
