#include "commands/Commands.h"

#include "basic/Product.h"
#include "basic/RunTimeError.h"
#include "commands/CommandLine.h"
#include "commands/CommandList.h"
#include "explore/StudyFile.h"

#include <algorithm>
#include <iomanip>
#include <iterator>
#include <ostream>

namespace korvel {

namespace {

const Command* commandOf(const std::string& name) {
    const auto named = [&](const Command* command) { return command->name == name; };
    const auto found = std::ranges::find_if(commandList, named);
    return found == std::end(commandList) ? nullptr : *found;
}

void printHelp(std::ostream& out) {
    out << "Usage: korvel [--application-folder DIR] [--graphs] [FILE.SGR]\n"
           "       korvel [--application-folder DIR] COMMAND ...\n\n"
           "Without a command the windows open; with a results file or --graphs, the graph set-up\n"
           "too.\n\nCommands:\n";
    for (const Command* command : commandList)
        out << "  " << std::left << std::setw(11) << command->name << ' ' << command->summary << '\n';
    out << "\nkorvel COMMAND --help tells more of a command; korvel --version prints the version.\n";
}

int runOption(const std::string& option, std::ostream& out) {
    if (option == "--help" || option == "-h")
        printHelp(out);
    else if (option == "--version")
        out << "korvel " << productVersion << '\n';
    else
        throw UsageError("unknown option '" + option + "'");
    return exitStatus::done;
}

bool asksForHelp(const std::vector<std::string>& arguments) {
    const auto end = std::ranges::find(arguments, "--");
    return std::find(arguments.begin(), end, "--help") != end;
}

int runNamed(const Command& command, CommandCall& call) {
    if (asksForHelp(call.arguments)) {
        call.out << command.help;
        return exitStatus::done;
    }
    return command.run(call);
}

// A full disk behind the standard output must not pass for success.
int checked(std::ostream& out, int status) {
    if (!out.flush()) throw RunTimeError(errors::deviceIoError, "The output can't be written");
    return status;
}

bool takeFolder(ProgramArguments& taken) {
    const std::string option = "--application-folder";
    std::vector<std::string>& rest = taken.rest;
    if (rest.empty() || !rest[0].starts_with(option)) return false;
    const bool separate = rest[0] == option;
    if (!separate && rest[0][option.size()] != '=') return false;
    if (separate && rest.size() < 2) throw UsageError("option '" + option + "' needs a value");
    taken.applicationFolder = separate ? rest[1] : rest[0].substr(option.size() + 1);
    rest.erase(rest.begin(), rest.begin() + (separate ? 2 : 1));
    return true;
}

bool takeGraphs(ProgramArguments& taken) {
    if (taken.rest.empty() || taken.rest[0] != "--graphs") return false;
    taken.opensGraphs = true;
    taken.rest.erase(taken.rest.begin());
    return true;
}

int reportUsage(std::ostream& errors, const std::string& caller, const UsageError& error) {
    errors << caller << ": " << error.what() << " (read '" << caller << " --help')\n";
    return exitStatus::wrongUsage;
}

} // namespace

ProgramArguments takeProgramOptions(const std::vector<std::string>& arguments) {
    ProgramArguments taken;
    taken.rest = arguments;
    while (takeFolder(taken) || takeGraphs(taken)) {
    }
    if (!taken.rest.empty() && isStudyFile(taken.rest[0])) taken.rest.insert(taken.rest.begin(), "explore");
    if (taken.opensGraphs && isForCommands(taken.rest))
        throw UsageError("option '--graphs' is for the windows, not for '" + taken.rest[0] + "'");
    return taken;
}

bool isForCommands(const std::vector<std::string>& arguments) {
    return !arguments.empty() && (commandOf(arguments[0]) != nullptr || arguments[0].starts_with('-'));
}

bool paintsOnTerminal(const std::string& command) {
    const auto plain = {"info", "csv", "report", "graph", "listing", "run", "batch", "explore", "help-page"};
    return std::ranges::find(plain, command) == plain.end();
}

int runCommand(const std::vector<std::string>& arguments, const Platform& platform, std::ostream& out,
               std::ostream& errors, const ConsoleTraits& traits, const ShowExplorer& showExplorer) {
    std::string caller = "korvel";
    ConsoleDialogs dialogs(errors);
    Platform console = withDialogs(platform, dialogs);
    try {
        const std::vector<std::string> rest = takeProgramOptions(arguments).rest;
        if (rest.empty()) throw UsageError("no command given");
        const Command* command = commandOf(rest[0]);
        if (!command && !rest[0].starts_with('-')) throw UsageError("no command '" + rest[0] + "'");
        if (!command) return checked(out, runOption(rest[0], out));
        caller += " " + rest[0];
        CommandCall call{{rest.begin() + 1, rest.end()}, console, dialogs, out, errors, traits, showExplorer};
        return checked(out, runNamed(*command, call));
    } catch (const UsageError& error) {
        return reportUsage(errors, caller, error);
    } catch (const RefusedName& refusal) {
        dialogs.show({refusal.what(), "File name", Icon::exclamation, Buttons::ok});
    } catch (const RefusedCall& refused) {
        dialogs.show(refused.message);
    } catch (const RunTimeError& error) {
        dialogs.show({error.message(), "", Icon::critical, Buttons::ok});
    }
    return exitStatus::failed;
}

} // namespace korvel
