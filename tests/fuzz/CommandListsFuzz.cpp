// The command line: each line is an argument. The words of its lists are tried by themselves, too: the first
// line as the list, the others as names.
#include "basic/Text.h"
#include "commands/Commands.h"
#include "commands/GraphCall.h"
#include "commands/Words.h"
#include "fakes/ResultsFileBuilder.h"
#include "fuzz/Fuzzing.h"
#include "fuzz/MemoryPlatform.h"
#include "global/GLOBAL.h"
#include "graphs/setup/ResultsLoading.h"

#include <sstream>

namespace korvel {

namespace {

using Arguments = std::vector<std::string>;

std::string river() {
    return ResultsFileBuilder()
        .title("River")
        .determinand(1, "BOD, total", 3)
        .determinand(4, "Zinc", 1)
        .reach(1, "Upper Mill", 12.5, 7)
        .reach(7, "Lower Mill", 7.25)
        .point(1, 0, "Weir")
        .point(7, 1, "Gauge", 4)
        .text();
}

// Whether a call ends with wrong usage or a refused name, which must say why.
bool isRefused(auto&& call) {
    std::string why;
    try {
        call();
        return false;
    } catch (const UsageError& error) {
        why = error.what();
    } catch (const RefusedName& error) {
        why = error.what();
    }
    require(!why.empty(), "a refusal says why");
    return true;
}

Arguments linesOf(const std::string& text) {
    Arguments lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

void requireParts(const std::string& list) {
    const Arguments parts = partsOf(list);
    require(std::ranges::count(list, ',') + 1 == std::ssize(parts), "a comma parts two");
    for (const std::string& part : parts) {
        require(part == trim(part) && part.find(',') == std::string::npos, "parts are bare");
        const auto number = wholeNumber(part);
        const bool digits = !part.empty() && part.find_first_not_of("0123456789") == std::string::npos;
        require(!number || digits, "a whole number is digits");
        require(!number || *number >= 0, "and from 0 up");
    }
}

void requireReaches(const std::string& list) {
    const std::vector<int> order = {1, 7, 3, 9999, 3};
    std::vector<bool> chosen;
    if (isRefused([&] { chosen = reachesNamed(list, order); })) return;
    require(chosen.size() == order.size(), "an entry a reach");
    require(chosen[2] == chosen[4], "the same reach is chosen alike");
    if (list == "none") require(chosen == std::vector<bool>(order.size()), "none is none");
}

void requireNames(std::string list, const Arguments& names) {
    isRefused([&] {
        while (!list.empty()) {
            const std::size_t before = list.size();
            require(takeNamed(names, list, 1, "name") < names.size(), "a name is one of those there");
            require(list.size() < before, "each entry is taken off the list");
        }
    });
}

constexpr auto flag = CommandOption::Kind::flag, value = CommandOption::Kind::withValue;

CommandLine graphLine(const Arguments& arguments) {
    return CommandLine(arguments, {{"--from", value},
                                   {"--to", value},
                                   {"--series", value},
                                   {"--reaches", value},
                                   {"--compare", value},
                                   {"--plot", value},
                                   {"--level", value},
                                   {"--labels", value},
                                   {"--title", value},
                                   {"--subtitle", value},
                                   {"--zoom", value},
                                   {"--scroll", value},
                                   {"--size", value},
                                   {"--output", value},
                                   {"--limits", flag},
                                   {"--targets", flag},
                                   {"--observed", flag},
                                   {"--small-text", flag}});
}

void requireSameParsed(const CommandLine& line) {
    Arguments again;
    for (const GivenOption& option : line.given()) {
        const bool isFlag = option.name == "--limits" || option.name == "--targets" ||
                            option.name == "--observed" || option.name == "--small-text";
        again.push_back(isFlag ? option.name : option.name + '=' + option.value);
    }
    again.push_back("--");
    again.insert(again.end(), line.operands().begin(), line.operands().end());
    const CommandLine second = graphLine(again);
    require(second.operands() == line.operands(), "operands stay");
    require(second.given().size() == line.given().size(), "options stay");
    for (std::size_t k = 0; k < line.given().size(); ++k)
        require(second.given()[k].value == line.given()[k].value, "values stay");
}

void requireGraphCall(const CommandLine& line) {
    isRefused([&] {
        const GraphCall call = graphCallBy(line);
        require(call.width >= 1 && call.width <= 16384 && call.height >= 1 && call.height <= 16384,
                "a graph has a size");
        require(call.zoom >= 0.25 && call.zoom <= 4, "and a zoom");
        require(std::abs(call.stepsRight) <= 10000 && std::abs(call.stepsUp) <= 10000, "scrolling ends");
    });
}

void requireGraphChoices(const CommandLine& line, Platform& platform) {
    GraphChoices choices;
    GLOBAL.fileNames[0] = "Z:\\A.SGR";
    beginLoad(choices, 0, "Z:\\A.SGR");
    LoadResultsFile(platform, true);
    endLoad(choices, 0, LoadOutcome::loaded, RESULTS);
    isRefused([&] {
        chooseBy(line, choices, RESULTS);
        require(selectedIndices(choices.selectedSeries).size() <= MostPlottedSeries, "few enough series");
        require(selectedIndices(choices.selectedSites).size() <= MostPlottedReaches, "few enough reaches");
        require(shownLength(choices.title) <= LongestTitle, "titles are cut");
    });
}

void requireCommand(const Arguments& arguments) {
    // The graph's drawing needs a display; what it is told is tried above.
    if (std::ranges::find(arguments, "graph") != arguments.end()) return;
    MemoryPlatform world(river());
    std::ostringstream out, errors;
    const int status = runCommand(arguments, world.platform(), out, errors);
    require(status >= 0 && status <= 2, "the status is one of three");
    require(status == 0 || !errors.str().empty(), "a command that fails says why");
    require(status != 2 || world.committed() == 0, "wrong usage writes nothing");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Arguments lines = linesOf(textOf(data, size));
    if (lines.empty()) return 0;
    GLOBAL = {};
    RESULTS = {};
    requireParts(lines[0]);
    requireReaches(lines[0]);
    requireNames(lines[0], {lines.begin() + 1, lines.end()});
    requireCommand(lines);
    isRefused([&] {
        const CommandLine line = graphLine({lines.begin() + 1, lines.end()});
        requireSameParsed(line);
        requireGraphCall(line);
        requireGraphChoices(line, MemoryPlatform(river()).platform());
    });
    return 0;
}

} // namespace korvel
