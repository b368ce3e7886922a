#include "commands/ReportCall.h"

#include "commands/Words.h"
#include "global/GLOBAL.h"
#include "reports/ReportChoices.h"
#include "results/LoadResultsFile.h"

namespace korvel {

namespace {

// By line of the list of determinands.
std::vector<bool> chosenDeterminands(const std::vector<ListEntry>& list, std::string words) {
    std::vector<bool> chosen(list.size(), words == "all");
    if (words == "all" || words == "none") return chosen;
    std::vector<std::string> names;
    names.reserve(list.size());
    for (const ListEntry& entry : list)
        names.push_back(entry.text);
    do
        chosen[takeNamed(names, words, 1, "determinand")] = true;
    while (!words.empty());
    return chosen;
}

Statistic statisticTyped(const std::string& word) {
    const auto statistic = statisticNamed(word);
    if (!statistic) throw UsageError("'" + word + "' is no statistic");
    return *statistic;
}

void chooseStatistics(ReportChoices& choices, const std::string& list) {
    for (const Statistic statistic : allStatistics)
        choices.tick(boxOf(statistic), false);
    if (list == "none") return;
    for (const std::string& word : partsOf(list))
        choices.tick(boxOf(statisticTyped(word)), true);
}

ReportSelection selectionBy(const CommandLine& line) {
    ReportChoices choices;
    FillReportLists(choices, RESULTS);
    if (const auto list = line.value("--reaches"))
        choices.chooseReaches(reachesNamed(*list, RESULTS.reachOrder));
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

std::string selectionHelp() {
    return "  --reaches LIST        all, none, or reach numbers: 1,2,5-9\n"
           "  --determinands LIST   all, none, or positions in the list of determinands, from 1, or names: "
           "\"BOD "
           "(Conc)\"\n"
           "  --statistics LIST     none, or some of " +
           statisticNames() +
           "; as the results suggest where not given\n"
           "  --targets             a column for the quality target\n"
           "  --observed            a column of observed values for each statistic\n"
           "  --limits              two columns of confidence limits for each statistic\n"
           "  --upstream            the upstream ends of reaches, too\n";
}

std::optional<ReportCall> takeReportCall(CommandCall& call, OutputMode mode) {
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
    const auto output = line.value("--output");
    report.outputFile = output ? modelNameOfTyped(*output) : reportFile(mode, report.resultsFile);
    refuseOwnInput(call.platform.files, report.outputFile, {report.resultsFile});
    GLOBAL.currentSlot = 0;
    GLOBAL.fileNames[0] = report.resultsFile;
    LoadResultsFile(call.platform, true);
    if (GLOBAL.loadFailed) return std::nullopt;
    report.selection = selectionBy(line);
    return report;
}

int makeReport(CommandCall& call, const ReportCall& report, OutputMode mode) {
    const OutputRequest request{RESULTS, report.selection, report.resultsFile, report.outputFile};
    return Output(call.platform, mode, request) == OutputEnd::done ? exitStatus::done : exitStatus::failed;
}

} // namespace korvel
