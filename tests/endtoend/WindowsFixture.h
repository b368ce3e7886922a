// A desktop and an installation for each test, and the steps of the main job.
#pragma once

#include "endtoend/Desktop.h"
#include "endtoend/Installation.h"

#include <gtest/gtest.h>

namespace korvel {

constexpr const char* setUpTitle = "Korvel Graphical Results"; // the graph form's too
// Of the engine's window, in a state ("" while it runs), for a data file.
std::string engineTitle(const std::string& state = "", const std::string& dataFile = "ALDER.DAT",
                        int runType = 0);
constexpr const char* openTitle = "Open KORVEL data file ...";

class WindowsFixture : public testing::Test {
  protected:
    void TearDown() override;

    // Started with these arguments; the main form is in front.
    void startKorvel(const std::vector<std::string>& arguments = {});
    void startWithoutWaiting(const std::vector<std::string>& arguments = {});
    int waitForEnd() { return m_program->waitForEnd(); }
    bool running() { return m_program->running(); }
    void endKorvel(); // with all of its windows

    void openRunMenu() const;
    void chooseRun(int runType, const std::string& dataFile);
    ShownWindow waitForEngine(const std::string& state);
    ShownWindow openSetUp(); // from the main form, which is in front
    void chooseWholeRiver();
    ShownWindow plot();
    ShownWindow messageBox() { return screen.front("korvel"); } // one without a title of its own

    const LeftPrograms left;
    const Installation korvel;
    const Desktop screen;
    std::string designTitle;          // of the main form
    std::vector<std::string> further; // settings of the next start

  private:
    std::unique_ptr<BackgroundProgram> m_program;
};

} // namespace korvel
