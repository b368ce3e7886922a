#include "toolkit/desktop/QtMachine.h"

#include "basic/RunTimeError.h"
#include "platform/TemporaryFolder.h"
#include "toolkit/process/EngineWindowCall.h"

#include <QDate>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace korvel {

namespace {

class QtMachineTest : public testing::Test {
  protected:
    std::string engine() const { return m_folder.model("KORVELF157.EXE"); }

    TemporaryFolder m_folder;
    QtMachine m_machine{[this] { return m_folder.path(); }};
};

} // namespace

TEST_F(QtMachineTest, TellsTheDesktopInTwipsAndTheDay) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const WorkArea area = m_machine.workArea();
    EXPECT_EQ(area.left, screen.left() * 15);
    EXPECT_EQ(area.top, screen.top() * 15);
    EXPECT_EQ(area.width, screen.width() * 15);
    EXPECT_EQ(area.height, screen.height() * 15);
    const QDate before = QDate::currentDate();
    const Date today = m_machine.today();
    const QDate day(today.year, today.month, today.day);
    EXPECT_TRUE(day == before || day == QDate::currentDate());
    EXPECT_EQ(m_machine.applicationFolder(), m_folder.model());
}

TEST_F(QtMachineTest, FindsNoFileWhereTheEngineIsMissing) {
    const auto errorOf = [](const auto& call) {
        try {
            call();
        } catch (const RunTimeError& error) {
            return error.message();
        }
        return std::string("none");
    };
    const std::string notFound = "Run-time error '53':\n\nFile not found";
    EXPECT_EQ(errorOf([&] { m_machine.startEngine(engine(), {}, {}); }), notFound);
    EXPECT_EQ(errorOf([&] { m_machine.startEngineAlone(engine(), {}); }), notFound);
    EXPECT_EQ(errorOf([&] { m_machine.runEngine(engine(), {}, {}); }), notFound);
}

TEST_F(QtMachineTest, RunsTheEngineInTheApplicationFolderWhateverTheCaseOfItsName) {
    m_folder.put("korvelf157.exe", "#!/bin/sh\necho arguments: $#\ncat RUNDAT.TMP\nexit 7\n");
    m_folder.put("RUNDAT.TMP", "the run\n");
    std::filesystem::permissions(m_folder.path("korvelf157.exe"), std::filesystem::perms::owner_all);
    std::string said;
    EXPECT_EQ(m_machine.runEngine(engine() + "  ", [&](std::string_view text) { said += text; }, {}), 7);
    EXPECT_EQ(said, "arguments: 0\nthe run\n");
}

TEST_F(QtMachineTest, TakesNoFolderAndNoPipeForTheEngine) {
    std::filesystem::create_directory(m_folder.path("korvelf157.exe"));
    EXPECT_THROW(m_machine.runEngine(engine(), {}, {}), RunTimeError);
    std::filesystem::remove(m_folder.path("korvelf157.exe"));
    ASSERT_EQ(mkfifo(m_folder.path("korvelf157.exe").c_str(), 0700), 0);
    EXPECT_THROW(m_machine.runEngine(engine(), {}, {}), RunTimeError);
    EXPECT_THROW(m_machine.startEngine(engine(), {}, {}), RunTimeError);
}

TEST_F(QtMachineTest, WaitsForItsTurnWhileWindowsArePainted) {
    StartTurn other = StartTurn::waitFor(m_folder.path(), [] {});
    int painted = 0;
    QTimer painting;
    QObject::connect(&painting, &QTimer::timeout, [&] {
        if (++painted == 20) other.end();
    });
    painting.start(5);
    EXPECT_TRUE(m_machine.takeStartTurn().isHeld());
    EXPECT_GE(painted, 20);
}

TEST_F(QtMachineTest, HandsARunOnToTheEnginesWindow) {
    const StartedRun run{3, {"Z:\\DATA\\A RIVER.DAT", "Z:\\DATA\\--turn"}};
    StartTurn turn = m_machine.takeStartTurn();
    std::vector<std::string> arguments;
    for (const QString& argument : engineWindowArguments(run, turn))
        arguments.push_back(argument.toStdString());
    ASSERT_TRUE(isEngineWindowCall(arguments));
    arguments[2] = std::to_string(dup(turn.descriptor()));
    const EngineWindowCall call = takeEngineWindowCall(arguments);
    EXPECT_EQ(call.run.runType, 3);
    EXPECT_EQ(call.run.dataFiles, run.dataFiles);
    EXPECT_TRUE(call.turn.isHeld());
    EXPECT_FALSE(takeEngineWindowCall({"--engine-window"}).turn.isHeld());
    EXPECT_FALSE(isEngineWindowCall({"info"}));
}

} // namespace korvel
