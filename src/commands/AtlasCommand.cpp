#include "commands/CommandList.h"
#include "commands/DocumentCall.h"
#include "commands/ProgressLine.h"
#include "publish/Atlas.h"
#include "toolkit/process/StopSignals.h"

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel atlas FILE.SGR... [OPTION]...\n\n"
    "Writes a PDF document to be handed on: the network with its verdicts, each river's profiles, which\n"
    "targets are met and what has changed. The first file is the base of the others.\n"
    "A plan (.csv) in place of the files stands for its finished runs.\n\n"
    "  --title TITLE        the document's title; the base's own where not given\n"
    "  --series LIST        positions from 0 (the flow) or names; all where not given\n"
    "  --low-is-bad NAMES   determinands that are bad when low, or none; dissolved oxygen where not\n"
    "                       given\n"
    "  --output FILE        the file to write; RIVER-atlas.pdf beside RIVER.SGR, the first file, where\n"
    "                       not given\n\n"
    "Concentrations are shown by the statistic that they are judged by, flow and loads by the mean.\n";

// Ctrl+C leaves everything as it was.
void write(CommandCall& call, const std::string& output, Study study, AtlasRequest request) {
    const StopSignals signals;
    ProgressLine line(call.errors, "Writing");
    Paper& paper = call.platform.paper;
    const Atlas atlas(std::move(study), std::move(request), paper.metrics());
    const auto job = paper.begin({atlas.title(), Orientation::landscape, output, atlas.outline()});
    Drawing drawing;
    for (std::size_t page = 0; page < atlas.pageCount(); ++page) {
        if (signals.next() != StopWish::none)
            throw RefusedCall{{"Stopped; nothing was written.", "Atlas", Icon::information, Buttons::ok}};
        drawing = atlas.page(page, std::move(drawing));
        job->page(drawing);
        if (call.console.errorsAreShown)
            line.show(static_cast<double>(page + 1) / static_cast<double>(atlas.pageCount()));
    }
    job->finish();
}

int runAtlas(CommandCall& call) {
    DocumentCall document = documentCall(call, "-atlas.pdf");
    write(call, document.output, std::move(document.study),
          {document.title, document.series, document.lowIsBad});
    return exitStatus::done;
}

} // namespace

const Command atlasCommand = {"atlas", "a PDF document of the whole catchment", help, runAtlas};

} // namespace korvel
