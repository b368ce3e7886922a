#include "graphs/draw/PrintGraph.h"

#include "basic/ModelName.h"
#include "global/GLOBAL.h"
#include "graphs/draw/ProfileGraph.h"
#include "platform/Printing.h"

namespace korvel {

namespace {

Message failureOf(const RunTimeError& error) {
    Message message = printerRefused();
    if (error.number != errors::printerError) message.text = error.description;
    return message;
}

} // namespace

Drawing printedGraph(Platform& platform, const DrawingArea& area) {
    Drawing page;
    page.width = area.width;
    page.height = area.height;
    GraphPrimitives primitives(page, GraphForm::graph, platform.screenMetrics, platform.paper.metrics());
    DrawGraphs(primitives, OutputTarget::printer, area, dayMonthYear(platform.machine.today()));
    return page;
}

void PrintGraph(Platform& platform, const DrawingArea& area) {
    const std::string& results = GLOBAL.fileNames[0];
    try {
        const auto job = platform.paper.begin(
            {fileOf(results), Orientation::landscape, besideResults(results, "-graph.pdf")});
        job->page(printedGraph(platform, area));
        finishPrinting(platform, *job);
    } catch (const RunTimeError& error) {
        platform.dialogs.show(failureOf(error));
    }
}

} // namespace korvel
