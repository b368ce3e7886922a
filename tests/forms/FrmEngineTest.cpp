// The engine's window with real processes: small shell scripts stand for the engine.
#include "runs/frmEngine.h"

#include "basic/DiskNames.h"
#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace korvel {

namespace {

class FrmEngine : public testing::Test {
  protected:
    void putEngine(const std::string& script) {
        platform.putFile("korvelf157.exe", script);
        std::filesystem::permissions(hostPathOf(platform.pathOf("korvelf157.exe")),
                                     std::filesystem::perms::owner_all);
    }
    void show() {
        form.show();
        static_cast<ShownForm&>(form).activate();
    }
    std::string state() { return control<QLabel>(form, "lblState").text().toStdString(); }
    std::string output() { return control<QPlainTextEdit>(form, "txtOutput").toPlainText().toStdString(); }
    static bool hasEnded(const std::string& process) {
        std::ifstream file(process + "/stat");
        std::string text;
        return !std::getline(file, text) || text.find(") Z ") != std::string::npos;
    }
    bool waitForState(const std::string& wanted) {
        return waitFor([&] { return state() == wanted; });
    }

    FakePlatform platform;
    frmEngine form{platform};
};

// A script in Wine's place, and a folder of Wine's own that a first start would make.
class OnWine : public FrmEngine {
  protected:
    OnWine() {
        platform.putFile("wine", "#!/bin/sh\necho \"Wine runs ${1##*/}\"\n");
        std::filesystem::permissions(hostPathOf(platform.pathOf("wine")), std::filesystem::perms::owner_all);
        qputenv("PATH", QByteArray::fromStdString(hostPathOf(platform.folder())) + ":" + m_path);
        qputenv("WINEPREFIX", QByteArray::fromStdString(hostPathOf(platform.folder())));
        putEngine("MZ and what no script is");
    }
    ~OnWine() override {
        qputenv("PATH", m_path);
        qunsetenv("WINEPREFIX");
    }
    std::string outputFor(const std::vector<std::string>& dataFiles) {
        frmEngine window(platform, {.dataFiles = dataFiles});
        window.show();
        static_cast<ShownForm&>(window).activate();
        waitFor([&] { return control<QLabel>(window, "lblState").text() == "Finished"; });
        return control<QPlainTextEdit>(window, "txtOutput").toPlainText().toStdString();
    }

  private:
    const QByteArray m_path = qgetenv("PATH");
};

const std::string ran = "Wine runs korvelf157.exe\n";

} // namespace

TEST_F(OnWine, SaysWhatItWaitsForAtTheFirstStart) {
    const std::string waits = "Wine prepares itself for its first start. This takes about half a minute.\n";
    EXPECT_EQ(outputFor({"Z:\\DATA\\RIVER.DAT"}), waits + ran);
    platform.putFile("system.reg", "made\r\n");
    EXPECT_EQ(outputFor({"Z:\\DATA\\RIVER.DAT"}), ran);
}

TEST_F(OnWine, WarnsOfLettersThatAWindowsEngineMayNotRead) {
    platform.putFile("system.reg", "made\r\n");
    EXPECT_EQ(
        outputFor({"Z:\\DATA\\PLAIN NAME.DAT", "Z:\\DATA\\\xC3\x89TANG.DAT"}),
        "The engine is a Windows program. It may not find Z:\\DATA\\\xC3\x89TANG.DAT, as the name holds "
        "letters outside its code page.\n" +
            ran);
    const std::string codePage = "<activeCodePage xmlns=\"http://settings\">";
    putEngine("MZ and " + codePage + " utf-8 </activeCodePage> in its manifest");
    EXPECT_EQ(outputFor({"Z:\\DATA\\\xC3\x89TANG.DAT"}), ran) << "it says that it reads them";
    putEngine("#!/bin/sh\necho native\n");
    EXPECT_EQ(outputFor({"Z:\\DATA\\\xC3\x89TANG.DAT"}), "native\n") << "one of this machine reads them all";
}

TEST_F(FrmEngine, ShowsOutputAndThatTheEngineHasFinished) {
    putEngine("#!/bin/sh\necho 'KORVEL demonstration engine'\npwd\necho \"arguments: $#\"\n");
    show();
    ASSERT_TRUE(waitForState("Finished"));
    EXPECT_EQ(output(), "KORVEL demonstration engine\n" + hostPathOf(platform.folder()) + "\narguments: 0\n");
    EXPECT_FALSE(control<QPushButton>(form, "cmdStop").isEnabled());
    EXPECT_TRUE(control<QLabel>(form, "lblTime").text().startsWith("Time taken: "));
    EXPECT_EQ(control<QLabel>(form, "lblNext").text(),
              "Close this window and choose Graphs or Reports in KORVEL to study the results.");
}

TEST_F(FrmEngine, OpensTheGuideWithF1) {
    putEngine("#!/bin/sh\n");
    show();
    form.activateWindow();
    ASSERT_TRUE(waitForState("Finished"));
    QTest::keyClick(&form, Qt::Key_F1);
    passEvents();
    EXPECT_NE(platform.takeTranscript().find("guide /share/guide.html"), std::string::npos);
}

TEST_F(FrmEngine, ShowsOutputAsItComes) {
    putEngine("#!/bin/sh\nprintf 'Reach 1'\nread answer < wait.fifo\necho ' done'\n");
    std::filesystem::path fifo = hostPathOf(platform.pathOf("wait.fifo"));
    ASSERT_EQ(std::system(("mkfifo '" + fifo.string() + "'").c_str()), 0);
    show();
    EXPECT_EQ(state(), "Running");
    EXPECT_TRUE(waitFor([&] { return output() == "Reach 1"; }));
    ASSERT_EQ(std::system(("echo go > '" + fifo.string() + "'").c_str()), 0);
    ASSERT_TRUE(waitForState("Finished"));
    EXPECT_EQ(output(), "Reach 1 done\n");
}

TEST_F(FrmEngine, SaysWithWhichStatusTheEngineFailed) {
    putEngine("#!/bin/sh\necho 'ALDER.DAT, line 3: no such reach' >&2\nexit 3\n");
    show();
    ASSERT_TRUE(waitForState("Failed (status 3)"));
    EXPECT_EQ(output(), "ALDER.DAT, line 3: no such reach\n");
}

TEST_F(FrmEngine, SaysThatTheEngineWasKilled) {
    putEngine("#!/bin/sh\nkill -9 $$\n");
    show();
    EXPECT_TRUE(waitForState("Failed (status 137)"));
}

TEST_F(FrmEngine, SaysWhereTheEngineCannotBeStarted) {
    show();
    ASSERT_TRUE(waitForState("Failed (status 127)"));
    EXPECT_TRUE(output().starts_with("The engine can't be started: ")) << output();
}

TEST_F(FrmEngine, AsksBeforeItStopsTheEngine) {
    putEngine("#!/bin/sh\nexec sleep 60\n");
    show();
    platform.willAnswer(Answer::no);
    control<QPushButton>(form, "cmdStop").click();
    EXPECT_EQ(state(), "Running");
    platform.willAnswer(Answer::yes);
    control<QPushButton>(form, "cmdStop").click();
    EXPECT_TRUE(waitForState("Stopped"));
    const std::string question =
        "box [question] KORVEL: The model is still running. Do you want to stop it? -> ";
    EXPECT_EQ(platform.takeTranscript(), question + "no\n" + question + "yes\n");
}

TEST_F(FrmEngine, StaysOpenWhereTheUserDoesNotStopTheEngine) {
    putEngine("#!/bin/sh\nexec sleep 60\n");
    show();
    platform.willAnswer(Answer::no);
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(form.isVisible());
    platform.willAnswer(Answer::yes);
    EXPECT_TRUE(form.close());
}

TEST_F(FrmEngine, ClosesWithoutAQuestionOnceTheEngineHasEnded) {
    putEngine("#!/bin/sh\nexit 0\n");
    show();
    ASSERT_TRUE(waitForState("Finished"));
    control<QPushButton>(form, "cmdClose").click();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmEngine, TellsTheFileOfABatchThatIsInHand) {
    putEngine("#!/bin/sh\necho 'File 1 of 2: A.DAT'\necho 'File 2 of 2: B.DAT'\necho 'Reach 1 of 9'\n");
    show();
    ASSERT_TRUE(waitForState("Finished"));
    EXPECT_EQ(control<QLabel>(form, "lblFile").text(), "File 2 of 2: B.DAT");
}

TEST_F(FrmEngine, NamesDataFileAndRunTypeInItsTitle) {
    putEngine("#!/bin/sh\nread answer < wait.fifo\n");
    ASSERT_EQ(mkfifo(hostPathOf(platform.pathOf("wait.fifo")).c_str(), 0600), 0);
    frmEngine window(platform, {7, {"Z:\\DATA\\RIVER.DAT"}});
    window.show();
    static_cast<ShownForm&>(window).activate();
    EXPECT_EQ(window.windowTitle(), "KORVEL model run - RIVER.DAT, run type 7");
    std::ofstream(hostPathOf(platform.pathOf("wait.fifo"))) << "go\n";
    EXPECT_TRUE(waitFor(
        [&] { return window.windowTitle() == "KORVEL model run: Finished - RIVER.DAT, run type 7"; }));
    frmEngine batch(platform, {0, {"Z:\\DATA\\A.DAT", "Z:\\DATA\\B.DAT"}});
    batch.show();
    static_cast<ShownForm&>(batch).activate();
    EXPECT_EQ(batch.windowTitle(), "KORVEL model run - 2 data files, run type 0");
}

TEST_F(FrmEngine, OpensTheResultsFolder) {
    EXPECT_FALSE(control<QPushButton>(form, "cmdOpenFolder").isVisibleTo(&form)) << "it knows no file";
    frmEngine window(platform, {0, {"Z:\\DATA\\RIVER.DAT"}});
    control<QPushButton>(window, "cmdOpenFolder").click();
    EXPECT_EQ(platform.takeTranscript(), "show folder Z:\\DATA\\\n");
}

TEST_F(FrmEngine, ExploresTheResultsOnceTheyAreThere) {
    putEngine("#!/bin/sh\nexit 0\n");
    frmEngine window(platform, {0, {"Z:\\DATA\\A.DAT", "Z:\\DATA\\B.DAT"}});
    window.show();
    auto& explore = control<QPushButton>(window, "cmdExplore");
    EXPECT_FALSE(explore.isVisible());
    static_cast<ShownForm&>(window).activate();
    ASSERT_TRUE(waitFor([&] { return explore.isVisible(); }));
    explore.click();
    EXPECT_EQ(platform.takeTranscript(), "explore Z:\\DATA\\A.SGR Z:\\DATA\\B.SGR\n");
}

TEST_F(FrmEngine, ExploresNothingOfAnEngineThatFailed) {
    putEngine("#!/bin/sh\nexit 3\n");
    frmEngine window(platform, {0, {"Z:\\DATA\\A.DAT"}});
    window.show();
    static_cast<ShownForm&>(window).activate();
    ASSERT_TRUE(waitFor([&] { return control<QLabel>(window, "lblState").text() == "Failed (status 3)"; }));
    EXPECT_FALSE(control<QPushButton>(window, "cmdExplore").isVisible());
}

TEST_F(FrmEngine, StopsWhatTheEngineHasStarted) {
    putEngine("#!/bin/sh\nsetsid sleep 61 &\necho $! > left\nwait\n");
    show();
    ASSERT_TRUE(
        waitFor([&] { return platform.hasFile("left") && platform.fileText("left").ends_with('\n'); }));
    const std::string process = "/proc/" + std::to_string(std::stoi(platform.fileText("left")));
    EXPECT_TRUE(std::filesystem::exists(process));
    platform.willAnswer(Answer::yes);
    control<QPushButton>(form, "cmdStop").click();
    EXPECT_TRUE(waitForState("Stopped"));
    EXPECT_TRUE(waitFor([&] { return hasEnded(process); }));
}

TEST_F(FrmEngine, FinishesWithTheEngineWhoeverKeepsItsOutputOpen) {
    putEngine("#!/bin/sh\nsleep 20 &\necho $! > left\necho done\n");
    show();
    EXPECT_TRUE(waitForState("Finished"));
    EXPECT_EQ(output(), "done\n");
    kill(std::stoi(platform.fileText("left")), SIGKILL);
}

TEST_F(FrmEngine, StaysQuickWhereALineNeverEnds) {
    putEngine("#!/bin/sh\nhead -c 100000000 /dev/zero | tr '\\0' x\n");
    QElapsedTimer clock;
    qint64 longest = 0;
    QTimer pulse;
    QObject::connect(&pulse, &QTimer::timeout, [&] { longest = std::max(longest, clock.restart()); });
    clock.start();
    pulse.start(10);
    show();
    EXPECT_TRUE(waitForState("Finished"));
    EXPECT_LT(longest, 1000) << "milliseconds without an event";
}

TEST_F(FrmEngine, RemembersARunAndWhatItsResultsSay) {
    putEngine("#!/bin/sh\ncp river A.SGR\n");
    platform.putFile("river", longRiver());
    frmEngine window(platform, {6, {platform.pathOf("A.DAT")}});
    window.show();
    static_cast<ShownForm&>(window).activate();
    ASSERT_TRUE(waitFor([&] { return platform.notedRuns.size() == 2; }));
    const LastRun &ended = platform.notedRuns[0], &judged = platform.notedRuns[1];
    EXPECT_EQ(ended.dataFile, platform.pathOf("A.DAT"));
    EXPECT_EQ(ended.resultsFile, platform.pathOf("A.SGR"));
    EXPECT_EQ(ended.runType, 6);
    EXPECT_EQ(ended.state, "Finished");
    EXPECT_EQ(ended.verdict, "");
    EXPECT_EQ(judged.dataFile, ended.dataFile);
    EXPECT_EQ(judged.ended, ended.ended);
    EXPECT_EQ(judged.verdict, "No targets to judge by");
    EXPECT_GT(judged.resultsStamp, 0);
}

TEST_F(FrmEngine, JudgesStillWhereItIsClosedAtOnce) {
    putEngine("#!/bin/sh\ncp river A.SGR\ncp river B.SGR\n");
    platform.putFile("river", longRiver());
    frmEngine window(platform, {0, {platform.pathOf("A.DAT"), platform.pathOf("B.DAT")}});
    window.show();
    static_cast<ShownForm&>(window).activate();
    ASSERT_TRUE(waitFor([&] { return !platform.notedRuns.empty(); }));
    window.close();
    ASSERT_EQ(platform.notedRuns.size(), 4U);
    EXPECT_LT(platform.notedRuns[0].ended, platform.notedRuns[1].ended) << "of a batch one after the other";
    for (const std::size_t k : {2U, 3U})
        EXPECT_EQ(platform.notedRuns[k].verdict, "No targets to judge by");
}

TEST_F(FrmEngine, RemembersThatARunFailedAndJudgesNothing) {
    putEngine("#!/bin/sh\ncp river A.SGR\nexit 3\n");
    platform.putFile("river", longRiver());
    frmEngine window(platform, {0, {platform.pathOf("A.DAT")}});
    window.show();
    static_cast<ShownForm&>(window).activate();
    ASSERT_TRUE(waitFor([&] { return !platform.notedRuns.empty(); }));
    window.close();
    ASSERT_EQ(platform.notedRuns.size(), 1U);
    EXPECT_EQ(platform.notedRuns[0].state, "Failed (status 3)");
    EXPECT_EQ(platform.notedRuns[0].verdict, "");
}

TEST_F(FrmEngine, JudgesNoResultsThatAreOlderThanTheRun) {
    putEngine("#!/bin/sh\ntouch -d '1 hour ago' A.SGR\n");
    platform.putFile("A.SGR", longRiver());
    frmEngine window(platform, {0, {platform.pathOf("A.DAT"), platform.pathOf("NONE.DAT")}});
    window.show();
    static_cast<ShownForm&>(window).activate();
    ASSERT_TRUE(waitFor([&] { return platform.notedRuns.size() == 2; }));
    window.close();
    EXPECT_EQ(platform.notedRuns.size(), 2U);
}

TEST_F(FrmEngine, RemembersNoMoreOfABatchThanIsListed) {
    putEngine("#!/bin/sh\nexit 0\n");
    StartedRun batch;
    for (int k = 0; k < 25; ++k)
        batch.dataFiles.push_back(platform.pathOf("A" + std::to_string(k) + ".DAT"));
    frmEngine window(platform, batch);
    window.show();
    static_cast<ShownForm&>(window).activate();
    ASSERT_TRUE(waitFor([&] { return !platform.notedRuns.empty(); }));
    ASSERT_EQ(platform.notedRuns.size(), MostLastRuns);
    EXPECT_EQ(platform.notedRuns.back().dataFile, batch.dataFiles.back());
}

TEST(EngineProcesses, AreNeverWinesOwn) {
    EXPECT_TRUE(isWinesOwn("C:\\windows\\system32\\services.exe", "wine64-preloader"));
    EXPECT_TRUE(isWinesOwn("/usr/lib/wine/wineserver64", "wineserver64"));
    EXPECT_FALSE(isWinesOwn("Z:\\app\\korvelf157.exe", "wine64-preloader"));
    EXPECT_FALSE(isWinesOwn("/bin/sh", "dash"));
}

TEST(EngineCommand, StartsAWindowsProgramThroughWine) {
    EXPECT_EQ(engineCommand("/app/korvelf157.exe",
                            "\x7F"
                            "E",
                            "/usr/bin/wine")
                  .program,
              "/app/korvelf157.exe");
    const EngineCommand windows = engineCommand("/app/korvelf157.exe", "MZ", "/usr/bin/wine");
    EXPECT_EQ(windows.program, "/usr/bin/wine");
    EXPECT_EQ(windows.argument, "/app/korvelf157.exe");
}

TEST(WindowsManifest, DeclaresThatNamesAreUtf8) {
    const struct {
        const char* program;
        bool declares;
    } programs[] = {{"MZ <activeCodePage>UTF-8</activeCodePage>", true},
                    {"MZ <activeCodePage xmlns=\"x\">\n  Utf-8\r\n</activeCodePage> PE", true},
                    {"MZ <activeCodePage xmlns=\"x\"> Utf-8 </activeCodePage> PE", true},
                    {"MZ <activeCodePage>Legacy</activeCodePage> UTF-8", false},
                    {"MZ <activeCodePage", false},
                    {"MZ <activeCodePage>UTF-8", false},
                    {"MZ UTF-8", false},
                    {"", false}};
    for (const auto& each : programs)
        EXPECT_EQ(declaresUtf8(each.program), each.declares) << each.program;
    EXPECT_FALSE(isUtf8Program("/no/such/program"));
}

TEST(EngineCommand, SaysSoWhereWineIsMissing) {
    const EngineCommand command = engineCommand("/app/korvelf157.exe", "MZ", "");
    EXPECT_EQ(command.program, "");
    EXPECT_EQ(command.problem, "The engine is a Windows program. Install wine to run it on this machine.");
}

} // namespace korvel
