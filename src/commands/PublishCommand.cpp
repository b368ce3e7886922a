#include "basic/ModelName.h"
#include "basic/Text.h"
#include "commands/CommandList.h"
#include "commands/ProgressLine.h"
#include "commands/StudyCall.h"
#include "commands/StudyLists.h"
#include "platform/Printing.h"
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

std::string outputOf(const CommandLine& line, const std::string& first) {
    if (const auto typed = line.value("--output")) return modelNameOfTyped(*typed);
    return besideResults(first, ".html");
}

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
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--title", Kind::withValue},
                                            {"--series", Kind::withValue},
                                            {"--low-is-bad", Kind::withValue},
                                            {"--output", Kind::withValue}});
    const std::vector<std::string> files = studyFiles(line, {});
    const std::string output = outputOf(line, files.front());
    refuseOwnInput(call.platform.files, output, files);
    const Study study = takeStudy(call, files);
    const ResultsDataSet& base = study.base().results();
    PageRequest request;
    request.title = line.value("--title").value_or("");
    request.series = seriesChosen(line.value("--series"), base);
    request.lowIsBad = lowIsBadChosen(line.value("--low-is-bad"), base);
    write(call, output, study, request);
    return exitStatus::done;
}

} // namespace

const Command publishCommand = {"publish", "a page for people without the program", help, runPublish};

} // namespace korvel
