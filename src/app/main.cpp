// The one executable: the windows, the command line's commands, and the engine's window.

#include "app/frmStart.h"
#include "basic/ModelName.h"
#include "commands/CommandLine.h"
#include "commands/Commands.h"
#include "commands/TerminalText.h"
#include "drawing/paint/QtTextMetrics.h"
#include "drawing/paint/Twips.h"
#include "explore/frmExplore.h"
#include "platform/ApplicationFolder.h"
#include "platform/DiskFiles.h"
#include "runs/frmEngine.h"
#include "toolkit/desktop/ProductIcon.h"
#include "toolkit/desktop/QtDialogs.h"
#include "toolkit/desktop/QtMachine.h"
#include "toolkit/desktop/QtWindows.h"
#include "toolkit/desktop/StartQt.h"
#include "toolkit/desktop/Theme.h"
#include "toolkit/paper/PdfPaper.h"
#include "toolkit/paper/PrinterChoice.h"
#include "toolkit/process/EndSignals.h"
#include "toolkit/process/EngineWindowCall.h"

#include <QApplication>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <string_view>
#include <unistd.h>

namespace korvel {

namespace {

constexpr int endedBySignal = 128;    // exit status, and the signal's number
constexpr double shareOfScreen = 0.8; // of a window that is not maximised any more

// The services of the outside world, as the running program has them.
struct Services {
    explicit Services(const std::function<std::string()>& findFolder) : machine(findFolder) {}

    PrinterChoice printer;
    QtDialogs dialogs{printer};
    DiskFiles files;
    QtMachine machine;
    QtWindows windows{dialogs};
    QtTextMetrics metrics;
    QtPaper paper{printer, files};
    Platform platform{dialogs, files, machine, windows, paper, metrics};
};

// The results file to open at start; "" where none is given, or one whose name can't be used.
std::string givenResultsFile(Services& services, const std::vector<std::string>& arguments) {
    if (arguments.empty()) return "";
    try {
        return modelNameOfTyped(arguments.front());
    } catch (const RefusedName& refusal) {
        services.dialogs.show({refusal.what(), "File name", Icon::exclamation, Buttons::ok});
        return "";
    }
}

int showMainForm(Services& services, const ProgramArguments& arguments) {
    frmStart start(services.platform);
    Handlers(services.windows).run([&] {
        const std::string resultsFile = givenResultsFile(services, arguments.rest);
        services.files.setCurrentFolder(services.machine.applicationFolder());
        if (!resultsFile.empty() || arguments.opensGraphs) start.openOnStart(resultsFile);
        start.loadShown();
    });
    services.windows.showModeless(start);
    return QApplication::exec();
}

// A size of its own first: without one a later change of the layout gives it a size, and takes it from
// maximised.
void showMaximized(frmEngine& window, Machine& machine) {
    const WorkArea area = machine.workArea();
    window.resize(pixels(area.width * shareOfScreen), pixels(area.height * shareOfScreen));
    window.showMaximized();
}

// Asked to end by the system, the window ends with its engine.
int showEngineWindow(Services& services, const std::vector<std::string>& arguments) {
    showProductIcon();
    EngineWindowCall call = takeEngineWindowCall(arguments);
    frmEngine window(services.platform, std::move(call.run), std::move(call.turn));
    const EndSignals endSignals([](int signal) { QApplication::exit(endedBySignal + signal); });
    showMaximized(window, services.machine);
    services.windows.showModeless(window);
    return QApplication::exec();
}

int showExplorer(const std::function<std::string()>& findFolder, const std::vector<std::string>& files) {
    static int argumentCount = 1;
    static char name[] = "korvel";
    static char* arguments[] = {name, nullptr};
    QApplication application(argumentCount, arguments);
    settleExplorerLook();
    showProductIcon();
    Services services(findFolder);
    ExploreMemory memory;
    frmExplore window(services.platform, memory, files);
    const EndSignals endSignals([](int signal) { QApplication::exit(endedBySignal + signal); });
    services.windows.showModeless(window);
    return QApplication::exec();
}

bool isSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

ConsoleTraits consoleTraits() {
    ConsoleTraits traits;
    traits.outIsTerminal = isatty(STDOUT_FILENO) == 1;
    traits.errorsAreShown = isatty(STDERR_FILENO) == 1;
    const char* const terminal = std::getenv("TERM");
    const bool isDumb = terminal == nullptr || std::string_view(terminal) == "dumb";
    traits.coloursAreShown = traits.outIsTerminal && !isDumb && !isSet("NO_COLOR");
    return traits;
}

// Commands are quick and need no windows: an application object is made only by those that draw.
int runForConsole(const std::vector<std::string>& arguments, const std::function<std::string()>& findFolder) {
    const OwnControls own =
        paintsOnTerminal(arguments.front()) ? OwnControls::coloursAndProgress : OwnControls::none;
    const OnTerminal out(std::cout, STDOUT_FILENO, own), errors(std::cerr, STDERR_FILENO, own);
    Services services(findFolder);
    CommandPaper paper(services.files);
    Platform platform{services.dialogs, services.files, services.machine,
                      services.windows, paper,          services.metrics};
    return runCommand(arguments, platform, std::cout, std::cerr, consoleTraits(),
                      [&](const std::vector<std::string>& files) { return showExplorer(findFolder, files); });
}

int runWindows(int argc, char** argv, const ProgramArguments& arguments,
               const std::function<std::string()>& findFolder) {
    if (!isEngineWindowCall(arguments.rest)) settleBeforeQt(); // its text is as large as the desktop says
    QApplication application(argc, argv);
    settleLook();
    const ThemeFollower theme;
    Services services(findFolder);
    if (isEngineWindowCall(arguments.rest)) return showEngineWindow(services, arguments.rest);
    return showMainForm(services, arguments);
}

int runProgram(int argc, char** argv) {
    const ProgramArguments arguments = takeProgramOptions({argv + 1, argv + argc});
    const auto findFolder = [&arguments] {
        const ApplicationFolderSources sources = applicationFolderSources(arguments.applicationFolder);
        std::string folder = applicationFolder(sources);
        fillApplicationFolder(folder, sources);
        return folder;
    };
    if (!isEngineWindowCall(arguments.rest) && isForCommands(arguments.rest))
        return runForConsole(arguments.rest, findFolder);
    return runWindows(argc, argv, arguments, findFolder);
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    std::signal(SIGXFSZ, SIG_IGN); // a file grown to the user's limit is then a full disk like any other
    try {
        return runProgram(argc, argv);
    } catch (const UsageError& error) {
        std::cerr << "korvel: " << error.what() << " See korvel --help.\n";
        return exitStatus::wrongUsage;
    } catch (const std::exception& failure) {
        std::cerr << "korvel: " << failure.what() << '\n';
        return exitStatus::failed;
    }
}
