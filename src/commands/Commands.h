// The command line: every command works without a display, through the same cores as the forms.
#pragma once

#include "commands/ConsoleDialogs.h"
#include "platform/Platform.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

namespace exitStatus {
inline constexpr int done = 0;
inline constexpr int failed = 1; // refused or failed
inline constexpr int wrongUsage = 2;
} // namespace exitStatus

// What the streams of a call lead to.
struct ConsoleTraits {
    bool outIsTerminal = false;
    bool coloursAreShown = false; // on it
    bool errorsAreShown = false;  // they go to a terminal, so that progress may
};

// Shows the Explorer on these files (model names) until it is closed: results files, or one study file. The
// exit status.
using ShowExplorer = std::function<int(const std::vector<std::string>& files)>;

// One call of a command: its own arguments, and what it works with.
struct CommandCall {
    std::vector<std::string> arguments;
    Platform& platform; // its dialogs are `dialogs`
    ConsoleDialogs& dialogs;
    std::ostream& out;
    std::ostream& errors;
    ConsoleTraits console = {};
    ShowExplorer showExplorer = {}; // the one thing that needs a display
};

struct Command {
    const char* name;
    const char* summary; // one line
    const char* help;    // usage and options
    int (*run)(CommandCall&);
};

// What stands before the command or the file: options for the whole program.
struct ProgramArguments {
    std::optional<std::string> applicationFolder; // a host path as typed
    bool opensGraphs = false;                     // the windows, with the graph set-up open
    std::vector<std::string> rest;
};

// A study file in place of a command is one for the Explorer. Throws UsageError (see CommandLine.h).
ProgramArguments takeProgramOptions(const std::vector<std::string>& arguments);

// Whether the arguments, without the program's own options, are for runCommand: they begin with a command's
// name or with an option. Otherwise they are for the windows.
bool isForCommands(const std::vector<std::string>& arguments);

// Whether a command of this name colours its output or shows its progress on one line.
bool paintsOnTerminal(const std::string& command);

// Runs the command that the arguments begin with and returns the exit status. The platform's own dialogs are
// not used. A failure that nothing trapped is reported like a message.
int runCommand(const std::vector<std::string>& arguments, const Platform& platform, std::ostream& out,
               std::ostream& errors, const ConsoleTraits& console = {},
               const ShowExplorer& showExplorer = {});

} // namespace korvel
