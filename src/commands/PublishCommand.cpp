#include "commands/CommandList.h"
#include "commands/DocumentCall.h"
#include "commands/ProgressLine.h"
#include "publish/Page.h"

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel publish FILE.SGR... [OPTION]...\n\n"
    "Writes one HTML page that needs nothing else: compliance, changes, sources, fit and the rivers with\n"
    "their profiles, for anyone with a browser. The first file is the base of the others.\n"
    "A plan (.csv) in place of the files stands for its finished runs.\n\n"
    "  --title TITLE        the page's title; the base's own where not given\n"
    "  --series LIST        positions from 0 (the flow) or names; all where not given\n"
    "  --low-is-bad NAMES   determinands that are bad when low, or none; dissolved oxygen where not\n"
    "                       given\n"
    "  --output FILE        the file to write; RIVER.html beside RIVER.SGR, the first file, where not\n"
    "                       given\n";

void write(CommandCall& call, const std::string& output, const Study& study, PageRequest& request) {
    ProgressLine line(call.errors, "Writing");
    if (call.console.errorsAreShown)
        request.progress = [&](double share) {
            line.show(share);
            return true;
        };
    const auto file = call.platform.files.create(output);
    OutputBytes bytes([&](std::string_view text) { file->write(text); });
    try {
        writePage(study, request, bytes);
    } catch (const PageRefused& refused) {
        throw RefusedCall{{refused.what(), "Page", Icon::exclamation, Buttons::ok}};
    }
    bytes.flush();
    file->commit();
}

int runPublish(CommandCall& call) {
    const DocumentCall document = documentCall(call, ".html");
    PageRequest request{document.title, document.series, document.lowIsBad};
    write(call, document.output, document.study, request);
    return exitStatus::done;
}

} // namespace

const Command publishCommand = {"publish", "a page for people without the program", help, runPublish};

} // namespace korvel
