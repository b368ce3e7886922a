#include "toolkit/desktop/QtMachine.h"

#include "basic/RunTimeError.h"
#include "platform/TemporaryFolder.h"

#include <QDate>
#include <QGuiApplication>
#include <QScreen>
#include <gtest/gtest.h>

#include <filesystem>

namespace korvel {

namespace {

class QtMachineTest : public testing::Test {
  protected:
    std::string engine() const { return m_folder.model("KORVELF157.EXE"); }

    TemporaryFolder m_folder;
    QtMachine m_machine{m_folder.path()};
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
    EXPECT_EQ(errorOf([&] { m_machine.startEngine(engine()); }), notFound);
    EXPECT_EQ(errorOf([&] { m_machine.startEngineAlone(engine()); }), notFound);
    EXPECT_EQ(errorOf([&] { m_machine.runEngine(engine(), {}); }), notFound);
}

TEST_F(QtMachineTest, RunsTheEngineInTheApplicationFolderWhateverTheCaseOfItsName) {
    m_folder.put("korvelf157.exe", "#!/bin/sh\necho arguments: $#\ncat RUNDAT.TMP\nexit 7\n");
    m_folder.put("RUNDAT.TMP", "the run\n");
    std::filesystem::permissions(m_folder.path("korvelf157.exe"), std::filesystem::perms::owner_all);
    std::string said;
    EXPECT_EQ(m_machine.runEngine(engine() + "  ", [&](std::string_view text) { said += text; }), 7);
    EXPECT_EQ(said, "arguments: 0\nthe run\n");
}

} // namespace korvel
