#include "basic/FieldCharacters.h"
#include "basic/Text.h"
#include "commands/CommandLine.h"
#include "commands/CommandList.h"
#include "help/HelpPage.h"

#include <algorithm>
#include <ostream>

namespace korvel {

namespace {

const char* const help = "Usage: korvel help-page N\n\n"
                         "Prints a help page about the data file.\n\n"
                         "   4  the data file, and its section [RUN]    8  [FLOWS]\n"
                         "   5  [DETERMINANDS]                          9  [QUALITIES]\n"
                         "   6  [REACHES]                              10  [TARGETS] and [OBSERVED]\n"
                         "   7  [FEATURES]\n\n"
                         "Any other number N prints KORDATN.TXT of the application folder.\n";

int runHelpPage(CommandCall& call) {
    const CommandLine line(call.arguments, {});
    const std::string& page = line.onlyOperand("page number");
    if (page.empty() || !std::ranges::all_of(page, isDigit))
        throw UsageError("no page number: '" + page + "'");
    for (const std::string& row : readHelpPage(call.platform, page))
        call.out << shownUtf8(row) << '\n';
    return exitStatus::done;
}

} // namespace

const Command helpPageCommand = {"help-page", "a help page about the data file", help, runHelpPage};

} // namespace korvel
