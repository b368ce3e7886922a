#include "basic/Text.h"
#include "commands/CommandList.h"
#include "commands/StudyCall.h"
#include "tables/Json.h"
#include "tables/PeopleNumbers.h"

#include <array>

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel network FILE.SGR [--format text|json]\n\n"
    "Tells how the reaches of a results file run together: rivers, mouths and heads. Of each confluence the\n"
    "river goes on into the reach with the longest way from a head.\n\n"
    "  --format FORMAT   text, where not given, or json\n";

struct Call {
    StudyRun run;
    Network network;
};

std::size_t at(int place) {
    return static_cast<std::size_t>(place);
}

Table reachTable(const Call& call) {
    return {"reaches",
            {{"number"}, {"name"}, {"length"}, {"next"}, {"to_mouth"}, {"river"}, {"points"}},
            [&call](RowTaker& taker) {
                const ReachPoints& reaches = call.run.reaches();
                for (int place = 0; place < reaches.count(); ++place) {
                    const int number = reaches.number(place);
                    const std::string name = call.run.file->reachName(number);
                    const std::array<Cell, 7> cells = {number,
                                                       std::string_view(name),
                                                       call.run.results().reachLengths[number],
                                                       call.run.results().reachNext[number],
                                                       call.network.toMouth[at(place)],
                                                       call.network.riverOf[at(place)],
                                                       static_cast<int>(reaches.pointsOf(place).size())};
                    taker.row(cells);
                }
            }};
}

void writeNumbers(JsonWriter& json, const Call& call, const std::vector<int>& places) {
    json.beginArray();
    for (const int place : places)
        json.value(call.run.reaches().number(place));
    json.endArray();
}

void writeNetwork(const Call& call, OutputBytes& out) {
    JsonWriter json(out);
    json.beginObject();
    writeRows(reachTable(call), out, json.key("reaches"));
    json.key("rivers").beginArray();
    for (const River& river : call.network.rivers) {
        json.newLine().beginObject().key("name").value(std::string_view(river.name));
        writeNumbers(json.key("reaches"), call, river.reaches);
        json.key("joins").value(river.joins < 0 ? Cell(Nothing()) : call.run.reaches().number(river.joins));
        json.key("length").value(river.length).endObject();
    }
    json.endArray();
    writeNumbers(json.newLine().key("mouths"), call, call.network.mouths);
    writeNumbers(json.newLine().key("heads"), call, call.network.heads);
    json.endObject();
    out.append('\n');
}

std::string reachList(const Call& call, const std::vector<int>& places) {
    std::string text;
    for (const int place : places)
        text += (text.empty() ? "" : " ") + std::to_string(call.run.reaches().number(place));
    return text;
}

void showRivers(TextPage& page, const Call& call) {
    TextTable table({"River", "km", "Joins", "Reaches from the head down"}, {0, 3});
    for (const River& river : call.network.rivers)
        table.row({river.name, shownDecimals(river.length, 1),
                   river.joins < 0 ? "-" : std::to_string(call.run.reaches().number(river.joins)),
                   reachList(call, river.reaches)});
    page.table(table);
    page.space();
}

void showReaches(TextPage& page, const Call& call) {
    const ReachPoints& reaches = call.run.reaches();
    TextTable table({"Reach", "Name", "km", "Next", "To the mouth", "River", "Points"}, {1, 5});
    for (int place = 0; place < reaches.count(); ++place) {
        const int number = reaches.number(place);
        const int next = call.run.results().reachNext[number];
        table.row({std::to_string(number), call.run.file->reachName(number),
                   shownDecimals(call.run.results().reachLengths[number], 1),
                   next == 0 ? "-" : std::to_string(next), shownDecimals(call.network.toMouth[at(place)], 1),
                   call.network.riverAt(place).name, std::to_string(reaches.pointsOf(place).size())});
    }
    page.table(table);
    page.space();
}

void showNetwork(TextPage& page, const Call& call) {
    page.heading("Network of " + call.run.name);
    page.space();
    showRivers(page, call);
    showReaches(page, call);
    double length = 0;
    for (const int reach : call.run.reaches().numbers())
        length += call.run.results().reachLengths[reach];
    page.line(counted(call.run.reaches().count(), "reach", "reaches") + " in " +
              counted(static_cast<int>(call.network.rivers.size()), "river", "rivers") + ", " +
              shownDecimals(length, 1) + " km; " +
              counted(static_cast<int>(call.network.mouths.size()), "mouth", "mouths") + ", " +
              counted(static_cast<int>(call.network.heads.size()), "head", "heads") + ".");
}

// A next reach that has no line is a mouth, but hardly meant as one.
void warnOfMissingLines(CommandCall& call, const Call& taken) {
    for (const int place : taken.network.nextWithoutLine) {
        const int reach = taken.run.reaches().number(place);
        call.dialogs.show({taken.run.name + ": reach " + std::to_string(reach) + " runs into reach " +
                               std::to_string(taken.run.results().reachNext[reach]) +
                               ", which has no line; it is taken for a mouth.",
                           "Network", Icon::exclamation, Buttons::ok});
    }
}

int runNetwork(CommandCall& call) {
    const CommandLine line(call.arguments, {{"--format", CommandOption::Kind::withValue}});
    const std::string format = chosenWord(line, "--format", {"text", "json"});
    const Study study = takeStudy(call, studyFiles(line, {1, 1, 1}));
    const Call taken{study.base(), riverNetwork(study.base())};
    warnOfMissingLines(call, taken);
    if (format == "text") {
        showText(call, [&](TextPage& page) { showNetwork(page, taken); });
    } else {
        writeOut(call, [&](OutputBytes& out) { writeNetwork(taken, out); });
    }
    return exitStatus::done;
}

} // namespace

const Command networkCommand = {"network", "how the reaches run together", help, runNetwork};

} // namespace korvel
