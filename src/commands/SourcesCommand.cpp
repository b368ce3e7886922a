#include "analysis/SourcesTable.h"
#include "commands/CommandList.h"
#include "commands/SourcesText.h"
#include "commands/StudyCall.h"
#include "commands/StudyLists.h"
#include "commands/Words.h"
#include "study/SeriesValues.h"
#include "tables/TextRows.h"

#include <charconv>
#include <cmath>

namespace korvel {

namespace {

const std::string help =
    std::string(
        "Usage: korvel sources FILE.SGR... --determinand NAME|NUMBER|Flow [OPTION]...\n\n"
        "Tells where the mean load of a determinand, or the mean flow, comes from at a place: what came in\n"
        "above it, what of that arrives, and what is lost on the way. An estimate.\n"
        "A plan (.csv) in place of the files stands for its finished runs.\n\n"
        "  --determinand WHAT  name or number of a determinand, or Flow\n"
        "  --at REACH[:KM]     the last point of the reach at or before the distance, or its end; the end "
        "of\n"
        "                      the reach at the mouth with the largest load where not given\n"
        "  --by WHAT           source (where not given) or kind\n") +
    outputHelp(22);

struct Call {
    Study study;
    int series = 0;
    std::string what; // the determinand, or "Flow"
    std::string by;
    std::vector<LoadSources> sources; // by run
};

Table mainTable(const Call& call, const LoadSources& sources) {
    return call.by == "kind" ? kindsTable(sources) : sourcesTable(sources);
}

RunTables tablesOf(const Call& call, std::size_t k) {
    const LoadSources& sources = call.sources[k];
    RunTables tables;
    OwnedCell distance;
    if (sources.distance) distance = *sources.distance;
    tables.facts = {{{"run"}, call.study.runs()[k].name, true},
                    {{"determinand"}, call.what, true},
                    {{"reach", "at"}, sources.reach, true},
                    {{"distance", "at"}, distance, true},
                    {{"load"}, sources.load}};
    tables.lists = {mainTable(call, sources), lossesTable(sources)};
    if (call.by == "source") tables.flat = sourcesAndLosses(sources);
    return tables;
}

TableReport reportOf(const Call& call) {
    TableReport report;
    for (std::size_t k = 0; k < call.sources.size(); ++k)
        report.runs.push_back(tablesOf(call, k));
    return report;
}

Taken takenOf(const Call& call) {
    Taken told = takenFrom("Where it comes from: " + call.what, namesOf(call.study));
    told.facts.push_back({"Determinand", call.what});
    told.notes = [&call](TextPage& page) {
        for (std::size_t k = 0; k < call.sources.size(); ++k)
            describeSources(page, call.study.runs()[k], call.sources[k], call.what);
    };
    return told;
}

// Of the flow, what is a load elsewhere is a flow.
TextTable textOf(Table table, const Call& call) {
    for (Column& column : table.columns)
        if (call.series == 0 && column.name == "load") column.name = "flow";
    return textTable(table);
}

void showText(TextPage& page, const Call& call) {
    for (std::size_t k = 0; k < call.sources.size(); ++k) {
        const LoadSources& sources = call.sources[k];
        describeSources(page, call.study.runs()[k], sources, call.what);
        if (!sources.contributions.empty()) page.table(textOf(mainTable(call, sources), call));
        if (!sources.losses.empty()) {
            page.space();
            page.line("Lost on the way:");
            page.table(textOf(lossesTable(sources), call));
        }
        concludeSources(page, sources, call.what);
    }
}

double typedDistance(const std::string& typed) {
    double distance = 0;
    const char* const end = typed.data() + typed.size();
    const auto read = std::from_chars(typed.data(), end, distance);
    if (typed.empty() || read.ptr != end || read.ec != std::errc() || !std::isfinite(distance))
        throw UsageError("'" + typed + "' is no distance");
    return distance;
}

struct TypedPlace {
    std::string reach;
    std::optional<double> distance;
};

std::optional<TypedPlace> typedPlace(const CommandLine& line) {
    const auto typed = line.value("--at");
    if (!typed) return std::nullopt;
    const std::size_t colon = typed->find(':');
    TypedPlace place{typed->substr(0, colon), {}};
    if (colon != std::string::npos) place.distance = typedDistance(typed->substr(colon + 1));
    return place;
}

SourcePlace givenPlace(const TypedPlace& typed, const StudyRun& base) {
    const auto number = wholeNumber(typed.reach);
    if (!number || base.reaches().placeOf(*number) < 0)
        throw UsageError("the results have no reach '" + typed.reach + "'");
    return {*number, typed.distance};
}

SourcePlace mouthOf(const StudyRun& base, int series) {
    const auto mouth = largestMouth(*base.file, riverNetwork(base), series);
    if (!mouth) throw refusedRun(base, "Sources", "there are no reaches");
    return *mouth;
}

void findSources(Call& call, const SourcePlace& place) {
    for (const StudyRun& run : call.study.runs()) {
        try {
            call.sources.push_back(sourcesOf(*run.file, riverNetwork(run), call.series, place));
        } catch (const SourcesRefused& refused) {
            throw refusedRun(run, "Sources", refused.what());
        }
    }
}

int runSources(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--determinand", Kind::withValue},
                                            {"--at", Kind::withValue},
                                            {"--by", Kind::withValue},
                                            {"--format", Kind::withValue},
                                            {"--output", Kind::withValue}});
    Call taken;
    taken.by = chosenWord(line, "--by", {"source", "kind"});
    const auto determinand = line.value("--determinand");
    if (!determinand) throw UsageError("no determinand given");
    const std::optional<TypedPlace> typed = typedPlace(line);
    const std::vector<std::string> files = studyFiles(line, {});
    const OutputChoice output = outputChoice(call.platform.files, line, files);
    taken.study = takeStudy(call, files);
    const StudyRun& base = taken.study.base();
    const int number = *determinand == "Flow" ? 0 : determinandNamed(*determinand, base.results());
    taken.series = base.results().loadOf(number);
    taken.what = number == 0 ? "Flow" : determinandName(base.results(), number);
    findSources(taken, typed ? givenPlace(*typed, base) : mouthOf(base, taken.series));
    deliver(call, output,
            {[&] { return reportOf(taken); },
             [&](TextPage& page) { showText(page, taken); },
             {},
             takenOf(taken)});
    return exitStatus::done;
}

} // namespace

const Command sourcesCommand = {"sources", "where a load comes from", help.c_str(), runSources};

} // namespace korvel
