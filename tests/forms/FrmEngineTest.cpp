// The engine's window with real processes: small shell scripts stand for the engine.
#include "runs/frmEngine.h"

#include "basic/DiskNames.h"
#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"

#include <filesystem>
#include <gtest/gtest.h>

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
    bool waitForState(const std::string& wanted) {
        return waitFor([&] { return state() == wanted; });
    }

    FakePlatform platform;
    frmEngine form{platform};
};

} // namespace

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

TEST(EngineCommand, SaysSoWhereWineIsMissing) {
    const EngineCommand command = engineCommand("/app/korvelf157.exe", "MZ", "");
    EXPECT_EQ(command.program, "");
    EXPECT_EQ(command.problem, "The engine is a Windows program. Install wine to run it on this machine.");
}

} // namespace korvel
