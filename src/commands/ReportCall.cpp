#include "commands/ReportCall.h"

#include "basic/Text.h"
#include "global/GLOBAL.h"
#include "reports/ReportChoices.h"
#include "results/LoadResultsFile.h"

#include <algorithm>
#include <charconv>

const char* const selectionHelp =
    "  --reaches LIST        all, none, or reach numbers: 1,2,5-9\n"
    "  --determinands LIST   all, none, or positions in the list of determinands, from 1, or names: \"BOD "
    "(Conc)\"\n"
    "  --statistics LIST     none, or some of mean,90,95,99; as the results suggest where not given\n"
    "  --targets             a column for the quality target\n"
    "  --observed            a column of observed values for each statistic\n"
    "  --limits              two columns of confidence limits for each statistic\n"
    "  --upstream            the upstream ends of reaches, too\n";

namespace {

std::vector<std::string> partsOf(const std::string& list) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t comma; (comma = list.find(',', start)) != std::string::npos; start = comma + 1)
        parts.push_back(trim(list.substr(start, comma - start)));
    parts.push_back(trim(list.substr(start)));
    return parts;
}

std::optional<int> wholeNumber(const std::string& text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (text.empty() || read.ptr != end || read.ec != std::errc() || number < 0) return std::nullopt;
    return number;
}

struct ReachRange {
    int first = 0;
    int last = 0;
};

ReachRange reachRange(const std::string& part) {
    const auto dash = part.find('-');
    const auto first = wholeNumber(part.substr(0, dash));
    const auto last = dash == std::string::npos ? first : wholeNumber(part.substr(dash + 1));
    if (!first || !last || *first > *last) throw UsageError("'" + part + "' is no reach number or range");
    return {*first, *last};
}

bool anyReachIn(const ReachRange& range) {
    return std::ranges::any_of(RESULTS.reachOrder,
                               [&](int reach) { return reach >= range.first && reach <= range.last; });
}

// By line of the list of reaches.
std::vector<bool> chosenReaches(const std::string& list) {
    std::vector<bool> chosen(RESULTS.reachOrder.size(), list == "all");
    if (list == "all" || list == "none") return chosen;
    for (const std::string& part : partsOf(list)) {
        const ReachRange range = reachRange(part);
        if (!anyReachIn(range)) throw UsageError("the results have no reach " + part);
        for (std::size_t i = 0; i < chosen.size(); ++i)
            if (RESULTS.reachOrder[i] >= range.first && RESULTS.reachOrder[i] <= range.last) chosen[i] = true;
    }
    return chosen;
}

std::size_t determinandAt(const std::vector<ListEntry>& list, const std::string& part) {
    const auto position = wholeNumber(part);
    if (!position || *position < 1 || *position > static_cast<int>(list.size()))
        throw UsageError("the results have no determinand '" + part + "'");
    return static_cast<std::size_t>(*position - 1);
}

// Takes the list's first part off it: a determinand's name, which may hold commas, or what stands before the
// comma.
std::size_t takeDeterminand(const std::vector<ListEntry>& list, std::string& words) {
    std::size_t found = list.size();
    std::size_t end = std::min(words.find(','), words.size());
    for (std::size_t i = 0; i < list.size() && found == list.size(); ++i) {
        const std::string name = shownUtf8(list[i].text);
        const std::string rest = beginsWith(words, name) ? trimLeft(words.substr(name.size())) : "?";
        if (!rest.empty() && rest[0] != ',') continue;
        found = i;
        end = words.size() - rest.size();
    }
    if (found == list.size()) found = determinandAt(list, trim(words.substr(0, end)));
    words = end < words.size() ? trimLeft(words.substr(end + 1)) : "";
    return found;
}

// By line of the list of determinands.
std::vector<bool> chosenDeterminands(const std::vector<ListEntry>& list, std::string words) {
    std::vector<bool> chosen(list.size(), words == "all");
    if (words == "all" || words == "none") return chosen;
    do
        chosen[takeDeterminand(list, words)] = true;
    while (!words.empty());
    return chosen;
}

ReportBox statisticBox(const std::string& word) {
    if (word == "mean") return ReportBox::means;
    if (word == "90") return ReportBox::percentiles90;
    if (word == "95") return ReportBox::percentiles95;
    if (word == "99") return ReportBox::percentiles99;
    throw UsageError("'" + word + "' is no statistic");
}

void chooseStatistics(ReportChoices& choices, const std::string& list) {
    for (const char* const word : {"mean", "90", "95", "99"})
        choices.tick(statisticBox(word), false);
    if (list == "none") return;
    for (const std::string& word : partsOf(list))
        choices.tick(statisticBox(word), true);
}

ReportSelection selectionBy(const CommandLine& line) {
    ReportChoices choices;
    FillReportLists(choices, RESULTS);
    if (const auto list = line.value("--reaches")) choices.chooseReaches(chosenReaches(*list));
    if (const auto list = line.value("--determinands"))
        choices.chooseDeterminands(chosenDeterminands(choices.determinands(), *list));
    if (const auto list = line.value("--statistics")) chooseStatistics(choices, *list);
    choices.tick(ReportBox::targets, line.has("--targets"));
    choices.tick(ReportBox::observed, line.has("--observed"));
    choices.tick(ReportBox::limits, line.has("--limits"));
    choices.tick(ReportBox::upstream, line.has("--upstream"));
    return choices.selection();
}

} // namespace

std::optional<ReportCall> takeReportCall(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--reaches", Kind::withValue},
                                            {"--determinands", Kind::withValue},
                                            {"--statistics", Kind::withValue},
                                            {"--targets", Kind::flag},
                                            {"--observed", Kind::flag},
                                            {"--limits", Kind::flag},
                                            {"--upstream", Kind::flag},
                                            {"--output", Kind::withValue}});
    ReportCall report;
    report.resultsFile = modelNameOfTyped(line.onlyOperand("results file"));
    if (const auto output = line.value("--output")) report.outputFile = modelNameOfTyped(*output);
    GLOBAL.currentSlot = 0;
    GLOBAL.fileNames[0] = report.resultsFile;
    LoadResultsFile(call.platform, true);
    if (GLOBAL.loadFailed) return std::nullopt;
    report.selection = selectionBy(line);
    return report;
}

int makeReport(CommandCall& call, const ReportCall& report, OutputMode mode) {
    OutputRequest request = outputRequest(mode, RESULTS, report.selection, report.resultsFile);
    if (report.outputFile) request.outputFile = *report.outputFile;
    return Output(call.platform, mode, request) == OutputEnd::done ? exitStatus::done : exitStatus::failed;
}
