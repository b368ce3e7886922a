// What the machine tells and does: the desktop, the day, the application folder, starting programs.
#pragma once

#include "platform/LastRun.h"
#include "platform/StartTurn.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

struct WorkArea { // twips
    double left = 0;
    double top = 0;
    double width = 9600;
    double height = 6780;
};

struct Date {
    int day = 1;
    int month = 1;
    int year = 2000;
};

// "dd/mm/yyyy"
std::string dayMonthYear(const Date& date);

// What an engine is started on, for its window.
struct StartedRun {
    int runType = 0;
    std::vector<std::string> dataFiles; // model names
};

class Machine {
  public:
    virtual ~Machine() = default;
    virtual std::string applicationFolder() = 0; // a model name without a backslash at the end
    virtual WorkArea workArea() = 0;
    virtual Date today() = 0;
    // Waits, while windows are painted, until it is this start's turn. Taken before the run-control file is
    // written, and given to the start of the engine.
    virtual StartTurn takeStartTurn() = 0;
    // Starts the engine's window, maximised and focused, and returns: a process of its own that runs the
    // named program without arguments in the application folder. 53 where the program isn't there.
    virtual void startEngine(const std::string& program, const StartedRun& run, StartTurn turn) = 0;
    // The same without a window, for commands: starts the program and returns.
    virtual void startEngineAlone(const std::string& program, StartTurn turn) = 0;
    // Waits for it, hands on what it says as it comes, and returns its exit status.
    virtual int runEngine(const std::string& program, const std::function<void(std::string_view)>& onOutput,
                          StartTurn turn) = 0;
    // Starts the Explorer on these results files, and returns: a process of its own, so that any number can
    // stand beside this one. 53 where it can't be started.
    virtual void startExplorer(const std::vector<std::string>& files) = 0;
    // Opens a file, or shows a folder, with the desktop's program for it.
    virtual void openFile(const std::string& file) = 0;
    virtual void showFolder(const std::string& folder) = 0;
    // The guide's host path; "" where it isn't installed.
    virtual std::string guideFile() = 0;
    // False where the desktop has no program for it.
    virtual bool openGuide(const std::string& guide) = 0;
    // Where the samples lie; "" where they aren't installed.
    virtual std::string samplesFolder() = 0;
    // The user's own; a model name.
    virtual std::string homeFolder() = 0;
    // With those above it; one that is there is left alone. 75 where it can't be made.
    virtual void makeFolder(const std::string& folder) = 0;
    // The last runs of this user's engine windows, the last one first.
    virtual std::vector<LastRun> lastRuns() = 0;
    // Remembered in the user's configuration folder; where that can't be written it is forgotten.
    virtual void noteRun(const LastRun& run) = 0;
    // Calls back, on the windows' thread, whenever the list may have changed.
    virtual void watchLastRuns(std::function<void()> onChange) = 0;
};

} // namespace korvel
