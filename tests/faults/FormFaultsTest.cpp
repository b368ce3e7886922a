// The forms where the machine fails them: whether a failure is trapped or ends the program, with which words,
// and which files stay as they were.
#include "app/frmStart.h"
#include "basic/DiskNames.h"
#include "basic/Text.h"
#include "fakes/FakePlatform.h"
#include "fakes/ResultsFileBuilder.h"
#include "forms/FormDriver.h"
#include "global/GLOBAL.h"
#include "results/LoadResultsFile.h"
#include "results/ResultsDataSet.h"

#include <csignal>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace korvel {

namespace fs = std::filesystem;

namespace {

const std::string settings = "C:\\OLD\r\n\r\nFalse\r\n";
const std::string unreadable =
    "box [exclamation] Error: There is an error in reading the data for plotting. The file either does not "
    "exist, is incomplete, or is in the wrong format.  Or it may hold more plotting points than the set "
    "maximum of 59999. -> ok\n";

// While there is one, no file grows beyond so many bytes: a full disk, as far as a program can see.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes = 1) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit small{bytes, m_limit.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    void (*m_handler)(int);
    rlimit m_limit{};
};

// Root may do everything; while there is one of these, this process is nobody.
class AsNobody {
  public:
    AsNobody() {
        if (m_isRoot && seteuid(65534) != 0) ADD_FAILURE() << "can't become nobody";
    }
    ~AsNobody() {
        if (m_isRoot && seteuid(0) != 0) ADD_FAILURE() << "can't become root again";
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

  private:
    bool m_isRoot = geteuid() == 0;
};

class FormFaults : public testing::Test {
  protected:
    FormFaults() {
        GLOBAL = {};
        RESULTS = ResultsDataSet();
        platform.putFile("MISC.TXT", settings);
        platform.putEngine();
        platform.putFile("A.DAT", "");
        platform.putFile("A.SGR", river().text());
        platform.closesForm = closeWindow;
    }
    ~FormFaults() override {
        openFolder();
        GLOBAL = {};
        RESULTS = ResultsDataSet();
    }
    static ResultsFileBuilder river() {
        ResultsFileBuilder file;
        file.determinand(1, "BOD").reach(1, "Upper").reach(2, "Lower").points(20).points(20, 2);
        return file;
    }
    void startProgram() {
        start = std::make_unique<frmStart>(platform);
        start->load();
    }
    std::string host(const std::string& file = "") {
        return hostPathOf(file.empty() ? platform.folder() : platform.pathOf(file));
    }
    void closeFolder() {
        fs::permissions(host(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                    fs::perms::others_exec);
    }
    void openFolder() { fs::permissions(host(), fs::perms::all); }
    long entries() { return std::distance(fs::directory_iterator(host()), fs::directory_iterator()); }
    int errorOfStart() {
        try {
            startProgram();
        } catch (const RunTimeError& error) {
            return error.number;
        }
        return 0;
    }
    void chooseRun() {
        platform.willChoose(platform.pathOf("A.DAT"));
        choose(*start, "mnuRun0");
    }
    QWidget& openReports() {
        QWidget& form = formNamed("frmReports");
        platform.willChoose(platform.pathOf("A.SGR"));
        choose(form, "mnuOpen");
        platform.takeTranscript();
        return form;
    }
    QWidget& drawnGraph() {
        QWidget& setUp = formNamed("frmGraphData");
        platform.willChoose(platform.pathOf("A.SGR"));
        choose(setUp, "mnuDataFile1");
        control<QComboBox>(setUp, "Combo_1").setCurrentIndex(0);
        control<QComboBox>(setUp, "Combo_2").setCurrentIndex(0);
        control<QListWidget>(setUp, "lstDets").item(0)->setSelected(true);
        platform.willActOn("frmSimgraph", {});
        choose(setUp, "mnuPlot");
        platform.takeTranscript();
        return formNamed("frmSimgraph");
    }
    bool endedWith(const std::string& error) {
        return contains(platform.takeTranscript(), "fail program: Run-time error " + error + "\n");
    }
    void load(const std::string& file, const LoadProgress& progress = {}) {
        GLOBAL.currentSlot = 0;
        GLOBAL.fileNames[0] = platform.pathOf(file);
        LoadResultsFile(platform, true, progress);
    }

    FakePlatform platform;
    std::unique_ptr<frmStart> start;
};

// Longer than any chunk that is read at a time.
std::string longResults() {
    ResultsFileBuilder file;
    for (int d = 1; d <= 10; ++d)
        file.determinand(1, "Substance " + std::to_string(d));
    return file.reach(1, "Long").points(2000).text();
}

} // namespace

TEST_F(FormFaults, AFullDiskEndsTheProgramButKeepsTheSettings) {
    startProgram();
    {
        const FullDisk full;
        choose(*start, "mnuDisplayFull");
    }
    EXPECT_TRUE(endedWith("'61': Disk full"));
    EXPECT_EQ(platform.fileText("MISC.TXT"), settings);
    EXPECT_EQ(entries(), 4);
}

TEST_F(FormFaults, AnUnwritableApplicationFolderEndsTheProgramButKeepsTheSettings) {
    startProgram();
    closeFolder();
    {
        const AsNobody nobody;
        choose(*start, "mnuDisplayFull");
    }
    EXPECT_TRUE(endedWith("'70': Permission denied"));
    EXPECT_EQ(platform.fileText("MISC.TXT"), settings);
}

TEST_F(FormFaults, AFullDiskEndsTheProgramBeforeARun) {
    startProgram();
    platform.putFile("RUNDAT.TMP", "of the last run");
    {
        const FullDisk full(settings.size() + 200);
        const std::string longName = std::string(20, 'L') + ".DAT";
        fs::copy(host("A.DAT"), host(longName));
        platform.willChoose(platform.pathOf(longName));
    }
    {
        const FullDisk full(platform.folder().size() + 20); // room for the settings, not for the run
        choose(*start, "mnuRun0");
    }
    const std::string transcript = platform.takeTranscript();
    EXPECT_TRUE(contains(transcript, "fail program: Run-time error '61': Disk full\n")) << transcript;
    EXPECT_FALSE(contains(transcript, "start engine"));
    EXPECT_EQ(platform.fileText("RUNDAT.TMP"), "of the last run");
    EXPECT_FALSE(GLOBAL.graphResultsPending);
}

TEST_F(FormFaults, ARunControlFileOfAnotherUserEndsTheProgram) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can give a file to another user";
    startProgram();
    openFolder();
    fs::permissions(host("MISC.TXT"), fs::perms::all);
    platform.putFile("RUNDAT.TMP", "another user's");
    {
        const AsNobody nobody;
        chooseRun();
    }
    const std::string transcript = platform.takeTranscript();
    EXPECT_TRUE(contains(transcript, "fail program: Run-time error '70': Permission denied\n")) << transcript;
    EXPECT_FALSE(contains(transcript, "start engine"));
    EXPECT_EQ(platform.fileText("RUNDAT.TMP"), "another user's");
}

TEST_F(FormFaults, PolicyDataThatCannotBeDeletedEndsTheBatch) {
    startProgram();
    platform.putFile("GlobalPolicyData.gpd", "of an earlier run");
    choose(*start, "mnuBatch");
    QWidget& form = formNamed("frmBatch");
    platform.willChoose(platform.pathOf("A.DAT"));
    control<QPushButton>(form, "cmdBatch_1").click();
    closeFolder();
    {
        const AsNobody nobody;
        control<QPushButton>(form, "cmdBatch_1").click();
    }
    const std::string transcript = platform.takeTranscript();
    EXPECT_TRUE(contains(transcript, "fail program: Run-time error '70': Permission denied\n")) << transcript;
    EXPECT_FALSE(contains(transcript, "start engine"));
    EXPECT_EQ(platform.fileText("GlobalPolicyData.gpd"), "of an earlier run");
    EXPECT_FALSE(platform.hasFile("RUNDAT.TMP"));
}

TEST_F(FormFaults, AFullDiskKeepsTheOldSpreadsheetFile) {
    startProgram();
    QWidget& form = openReports();
    platform.putFile("A.csv", "good");
    platform.willAnswer(Answer::ok);
    {
        const FullDisk full;
        choose(form, "mnuSpreadsheet");
    }
    EXPECT_EQ(platform.takeTranscript(), "box [critical] KORVEL Error: Error number 61: Disk full -> ok\n");
    EXPECT_EQ(platform.fileText("A.csv"), "good");
    EXPECT_EQ(entries(), 5);
    EXPECT_TRUE(control<QFrame>(form, "frameProgress").isHidden());
}

TEST_F(FormFaults, AFullDiskKeepsTheOldPictures) {
    startProgram();
    QWidget& graph = drawnGraph();
    for (const std::string name : {"G.png", "G.svg", "G.pdf", "G.bmp"}) {
        platform.putFile(name, "good");
        platform.willChoose(platform.pathOf(name));
        platform.willAnswer(Answer::ok);
        {
            const FullDisk full;
            choose(graph, "mnuSavePicture");
        }
        EXPECT_TRUE(contains(platform.takeTranscript(), "box [exclamation] Save picture: " + name +
                                                            " can't be written: Disk full. -> ok\n"));
        EXPECT_EQ(platform.fileText(name), "good");
    }
    // The image file alone fails without a word.
    platform.willActOn("frmSimgraphSD", {});
    platform.willChoose(platform.pathOf("G.bmp"));
    {
        const FullDisk full;
        choose(graph, "mnuSaveImage");
    }
    EXPECT_FALSE(contains(platform.takeTranscript(), "box"));
    EXPECT_EQ(platform.fileText("G.bmp"), "good");
    EXPECT_EQ(entries(), 8);
}

TEST_F(FormFaults, SettingsThatAreNoFileEndTheStart) {
    fs::remove(host("MISC.TXT"));
    EXPECT_EQ(errorOfStart(), 53);
    ASSERT_EQ(mkfifo(host("MISC.TXT").c_str(), 0666), 0);
    EXPECT_EQ(errorOfStart(), 75);
    fs::remove(host("MISC.TXT"));
    fs::create_directory(host("MISC.TXT"));
    EXPECT_EQ(errorOfStart(), 75);
    fs::remove(host("MISC.TXT"));
    fs::create_symlink("MISC.TXT", host("MISC.TXT"));
    EXPECT_EQ(errorOfStart(), 76);
    fs::remove(host("MISC.TXT"));
    platform.putFile("MISC.TXT", "C:\\OLD\r\n");
    EXPECT_EQ(errorOfStart(), 62) << "cut short";
}

TEST_F(FormFaults, AFileThatShrinksWhileItIsReadIsTheReadersMessage) {
    platform.putFile("LONG.SGR", longResults());
    bool cut = false;
    platform.willAnswer(Answer::ok);
    load("LONG.SGR", [&](double) {
        if (!cut) fs::resize_file(host("LONG.SGR"), 200'000);
        cut = true;
    });
    EXPECT_TRUE(cut);
    EXPECT_EQ(platform.takeTranscript(), unreadable);
    EXPECT_TRUE(GLOBAL.loadFailed);
    platform.putFile("LONG.SGR", longResults());
    load("LONG.SGR");
    EXPECT_FALSE(GLOBAL.loadFailed) << "the next load finds nothing left open";
    EXPECT_EQ(RESULTS.pointCount, 2000);
}

TEST_F(FormFaults, AFileThatVanishesWhileItIsReadIsReadToItsEnd) {
    platform.putFile("LONG.SGR", longResults());
    load("LONG.SGR", [&](double) { fs::remove(host("LONG.SGR")); });
    EXPECT_FALSE(platform.hasFile("LONG.SGR"));
    EXPECT_FALSE(GLOBAL.loadFailed);
    EXPECT_EQ(RESULTS.pointCount, 2000);
    platform.willAnswer(Answer::ok);
    load("LONG.SGR");
    EXPECT_EQ(platform.takeTranscript(), unreadable);
}

TEST_F(FormFaults, ResultsThatAreStillBeingWrittenAreReadOnceTheyAreWhole) {
    startProgram();
    chooseRun();
    const std::string whole = river().text();
    QWidget& setUp = formNamed("frmGraphData");
    auto& shown = dynamic_cast<ShownForm&>(setUp);
    platform.takeTranscript();
    for (const std::size_t written : {std::size_t{0}, whole.size() / 3, whole.size() - 9}) {
        platform.putFile("A.SGR", whole.substr(0, written));
        platform.willAnswer(Answer::ok);
        shown.activate();
        EXPECT_EQ(platform.takeTranscript(), unreadable) << written;
        EXPECT_TRUE(GLOBAL.graphResultsPending) << "it is tried again";
    }
    platform.putFile("A.SGR", whole);
    shown.activate();
    EXPECT_EQ(platform.takeTranscript(), "");
    EXPECT_FALSE(GLOBAL.graphResultsPending);
    EXPECT_EQ(RESULTS.pointCount, 40);
    EXPECT_EQ(platform.fileText("A.SGR"), whole);
}

TEST_F(FormFaults, WhatIsNoFileIsRefusedAsResultsAndAsAListing) {
    startProgram();
    ASSERT_EQ(mkfifo(host("PIPE.SGR").c_str(), 0666), 0);
    fs::create_directory(host("RIVER.SGR"));
    fs::create_symlink("LOOP.SGR", host("LOOP.SGR"));
    QWidget& form = formNamed("frmReports");
    for (const auto& [name, error] : {std::pair{"PIPE.SGR", "75: Path/File access error"},
                                      {"RIVER.SGR", "75: Path/File access error"},
                                      {"LOOP.SGR", "76: Path not found"}}) {
        platform.willAnswer(Answer::ok);
        load(name);
        EXPECT_EQ(platform.takeTranscript(), unreadable) << name;
        for (const char* button : {"cmdView_0", "cmdView_1"}) {
            platform.willChoose(platform.pathOf(name));
            platform.willAnswer(Answer::ok);
            control<QPushButton>(form, button).click();
            EXPECT_TRUE(
                contains(platform.takeTranscript(),
                         std::string("box [critical] KORVEL Error: Error number ") + error + " -> ok\n"))
                << name << button;
        }
    }
}

} // namespace korvel
