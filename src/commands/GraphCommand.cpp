#include "commands/CommandList.h"
#include "commands/GraphCall.h"
#include "drawing/Units.h"

#include "drawing/paint/PictureFile.h"
#include "drawing/paint/QtTextMetrics.h"
#include "global/GLOBAL.h"
#include "graphs/draw/ProfileGraph.h"
#include "graphs/draw/ViewControl.h"
#include "graphs/setup/ResultsLoading.h"
#include "results/LoadResultsFile.h"
#include "toolkit/desktop/DrawingSession.h"

#include <cstdlib>

namespace korvel {

namespace {

const std::string help =
    std::string(
        "Usage: korvel graph FILE.SGR --from REACH --to REACH --series LIST [OPTION]... --output FILE\n"
        "       korvel graph FILE.SGR --reaches LIST --series ONE [OPTION]... --output FILE\n\n"
        "Draws the longitudinal profile of one to five series along a run of reaches, or of one series in up "
        "to\n"
        "six reaches. Series are positions in the list of the graph set-up (0 is Flow), or names: \"BOD "
        "(Conc)\".\n\n"
        "  --compare FILE2.SGR   compare with a second results file\n"
        "  --plot LIST           mean, percentile or both\n"
        "  --level LEVEL         the percentile: ") +
    levelChoice() +
    "\n"
    "  --limits              confidence limits, too\n"
    "  --targets             quality targets (on anyway; off with --no-targets)\n"
    "  --observed            observed values (on anyway; off with --no-observed)\n"
    "  --interpolated        interpolated points (on where the results have some; off with "
    "--no-interpolated)\n"
    "  --labels LIST         none, or the feature types to label: 0,1,2,3,4,5,7\n"
    "  --title T             the title; by default that of the results\n"
    "  --subtitle T          the second line of the title\n"
    "  --small-text          more detail, packed tighter\n"
    "  --zoom Z              0.25, 0.5, 1, 2 or 4; smaller is nearer\n"
    "  --scroll RIGHT,UP     by quarters of what is seen\n"
    "  --size 1600x900       pixels\n"
    "  --output FILE         " +
    pictureExtensions(PictureChoice::all, "or") + "\n";

CommandLine commandLine(const std::vector<std::string>& arguments) {
    constexpr auto flag = CommandOption::Kind::flag, value = CommandOption::Kind::withValue;
    return CommandLine(arguments,
                       {{"--from", value},      {"--to", value},         {"--series", value},
                        {"--reaches", value},   {"--compare", value},    {"--plot", value},
                        {"--level", value},     {"--labels", value},     {"--title", value},
                        {"--subtitle", value},  {"--zoom", value},       {"--scroll", value},
                        {"--size", value},      {"--output", value},     {"--limits", flag},
                        {"--targets", flag},    {"--observed", flag},    {"--interpolated", flag},
                        {"--no-targets", flag}, {"--no-observed", flag}, {"--no-interpolated", flag},
                        {"--small-text", flag}});
}

bool load(CommandCall& call, GraphChoices& choices, int slot, const std::string& file) {
    GLOBAL.currentSlot = slot;
    GLOBAL.fileNames[slot] = file;
    beginLoad(choices, slot, file);
    LoadResultsFile(call.platform, true);
    endLoad(choices, slot, GLOBAL.loadFailed ? LoadOutcome::failed : LoadOutcome::loaded, RESULTS);
    return !GLOBAL.loadFailed;
}

void setView(const GraphCall& graph) {
    GLOBAL.ZoomFactor = graph.zoom;
    GLOBAL.LargeTextMode = graph.largeTextMode;
    const double width = graph.width * twipsPerPixel, height = graph.height * twipsPerPixel;
    const auto across = graph.stepsRight < 0 ? ScrollDirection::left : ScrollDirection::right;
    const auto upward = graph.stepsUp < 0 ? ScrollDirection::down : ScrollDirection::up;
    for (int step = 0; step < std::abs(graph.stepsRight); ++step)
        scroll(GLOBAL, across, width, height);
    for (int step = 0; step < std::abs(graph.stepsUp); ++step)
        scroll(GLOBAL, upward, width, height);
}

Drawing drawGraph(const GraphCall& graph, const std::string& date) {
    GLOBAL.ScaleX = graph.width / 640.0;
    GLOBAL.ScaleY = graph.height / 452.0;
    setView(graph);
    const DrawingArea area{graph.width * twipsPerPixel, graph.height * twipsPerPixel,
                           graph.width * twipsPerPixel};
    Drawing drawing{.width = area.width, .height = area.height, .commands = {}};
    const QtTextMetrics metrics;
    GraphPrimitives primitives(drawing, GraphForm::graph, metrics, metrics);
    DrawGraphs(primitives, OutputTarget::screen, area, date);
    return drawing;
}

int runGraph(CommandCall& call) {
    const CommandLine line = commandLine(call.arguments);
    const GraphCall graph = graphCallBy(line);
    const PictureFormat* const format = pictureFormatOf(graph.outputFile);
    if (!format)
        throw UsageError("the output's name ends in none of " + pictureExtensions(PictureChoice::all, "and"));
    refuseOwnInput(call.platform.files, graph.outputFile, {graph.resultsFile, graph.comparedFile});
    GraphChoices choices;
    if (!load(call, choices, 0, graph.resultsFile)) return exitStatus::failed;
    if (!graph.comparedFile.empty() && !load(call, choices, 1, graph.comparedFile)) return exitStatus::failed;
    chooseBy(line, choices, RESULTS);
    followLoads(choices);
    if (line.has("--interpolated")) choices.plotInterpolatedPoints = true;
    if (line.has("--no-interpolated")) choices.plotInterpolatedPoints = false;
    if (!readyToPlot(call.platform, choices)) return exitStatus::failed;
    const DrawingSession session;
    const Drawing drawing = drawGraph(graph, dayMonthYear(call.platform.machine.today()));
    call.platform.files.writeWhole(graph.outputFile, format->bytes(drawing, 1));
    return exitStatus::done;
}

} // namespace

const Command graphCommand = {"graph", "a longitudinal profile as a picture", help.c_str(), runGraph};

} // namespace korvel
