#include "analysis/Check.h"
#include "basic/Numbers.h"
#include "commands/CommandList.h"
#include "commands/StudyCall.h"
#include "tables/Json.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel check FILE.SGR [--all] [--format text|json]\n\n"
    "Looks over a results file for what one would want to know before trusting it: percentiles out of "
    "order,\n"
    "limits that don't bracket their value, distances that go back, confluences that don't add up, targets\n"
    "without samples and more. None of it keeps the file from being used.\n\n"
    "  --all             every place, not only the first ten of each kind\n"
    "  --format FORMAT   text, where not given, or json\n";

template <typename T>
Cell textOrNothing(const std::optional<T>& text) {
    return text ? Cell(std::string_view(*text)) : Cell(Nothing());
}

void writeFindings(const StudyRun& run, const std::vector<CheckFinding>& findings, OutputBytes& out) {
    JsonWriter json(out);
    json.beginObject().key("run").value(std::string_view(run.name)).key("findings").beginArray();
    for (const CheckFinding& finding : findings) {
        json.newLine().beginObject().key("kind").value(nameOf(finding.kind));
        json.key("count").value(finding.count).key("places").beginArray();
        for (const CheckPlace& place : finding.places) {
            json.newLine().beginObject().key("reach").value(cellOf(place.reach));
            json.key("distance").value(cellOf(place.distance));
            json.key("feature").value(textOrNothing(place.feature));
            json.key("series").value(textOrNothing(place.series));
            json.key("what").value(std::string_view(place.what)).endObject();
        }
        json.endArray().endObject();
    }
    json.endArray().endObject();
    out.append('\n');
}

void showFinding(TextPage& page, const CheckFinding& finding) {
    std::string kind(nameOf(finding.kind));
    std::ranges::replace(kind, '_', ' ');
    page.heading(kind + ": " + counted(finding.count, "place", "places"));
    TextTable table({"Reach", "km", "Feature", "Series", "What"}, {2, 3, 4});
    for (const CheckPlace& place : finding.places)
        table.row({place.reach ? std::to_string(*place.reach) : "-",
                   place.distance ? shortestNumber(*place.distance) : "-", place.feature.value_or("-"),
                   place.series.value_or("-"), place.what});
    page.table(table);
    const int more = finding.count - static_cast<int>(finding.places.size());
    if (more > 0) page.line("and " + std::to_string(more) + " more; --all shows them");
}

void showFindings(TextPage& page, const StudyRun& run, const std::vector<CheckFinding>& findings) {
    page.heading("A look over " + run.name);
    int places = 0;
    for (const CheckFinding& finding : findings) {
        showFinding(page, finding);
        places += finding.count;
    }
    page.space();
    page.line(findings.empty()
                  ? "Nothing was found that should worry you."
                  : counted(static_cast<int>(findings.size()), "kind of finding", "kinds of findings") +
                        ", " + counted(places, "place", "places") +
                        ". None of it keeps the file from being used.");
}

int runCheck(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--all", Kind::flag}, {"--format", Kind::withValue}});
    const std::string format = chosenWord(line, "--format", {"text", "json"});
    const Study study = takeStudy(call, studyFiles(line, {1, 1, 1}));
    const StudyRun& run = study.base();
    const auto findings = checkRun(*run.file, line.has("--all") ? AllPlaces : FirstPlaces);
    if (format == "text")
        showText(call, [&](TextPage& page) { showFindings(page, run, findings); });
    else
        writeOut(call, [&](OutputBytes& out) { writeFindings(run, findings, out); });
    return exitStatus::done;
}

} // namespace

const Command checkCommand = {"check", "what looks wrong in a results file", help, runCheck};

} // namespace korvel
