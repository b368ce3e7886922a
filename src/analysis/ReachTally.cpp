#include "analysis/ReachTally.h"

#include "tables/PeopleNumbers.h"

namespace korvel {

namespace {

ComplianceRequest allOf(const ResultsDataSet& results) {
    ComplianceRequest request;
    for (int number = 1; number <= results.determinandCount; ++number)
        request.determinands.insert(number);
    request.lowIsBad = lowBadByName(results);
    return request;
}

std::string briefly(const ReachTally& tally) {
    if (tally.judged() == 0) return "No targets to judge by";
    if (tally.judged() == 1)
        return tally.fails() == 0 ? "The one reach judged meets its targets"
                                  : "The one reach judged misses a target";
    const std::string all = std::to_string(tally.judged()) + " reaches";
    if (tally.fails() == 0) return "All of " + all + " meet their targets";
    return std::to_string(tally.fails()) + " of " + all +
           (tally.fails() == 1 ? " misses a target" : " miss a target");
}

std::string lowBadWords(const StudyRun& run, const ComplianceRequest& request) {
    std::string names;
    for (const JudgedDeterminand& each : judgedBy(run, request))
        if (each.side == BadSide::low)
            names += (names.empty() ? "" : ", ") + determinandName(run.results(), each.number);
    return names.empty() ? "" : " Bad when low: " + names + ".";
}

} // namespace

ReachTally tallyOf(const std::vector<OverallRow>& reaches) {
    ReachTally tally;
    for (const OverallRow& row : reaches) {
        const bool sure = row.overall.confident == row.overall.verdict;
        if (row.overall.verdict == Verdict::none)
            ++tally.unjudged;
        else if (row.overall.verdict == Verdict::fail)
            ++(sure ? tally.sureFails : tally.unsureFails);
        else
            ++(sure ? tally.surePasses : tally.unsurePasses);
    }
    return tally;
}

std::string tallyWords(const ReachTally& tally) {
    if (tally.judged() == 0) return "Nothing is judged: there are no targets.";
    std::string words = tally.fails() == 0
                            ? "All of " + counted(tally.judged(), "reach", "reaches") + " meet their targets"
                            : std::to_string(tally.fails()) + " of " +
                                  counted(tally.judged(), "reach", "reaches") + " miss at least one target";
    if (tally.fails() > 0) words += ", " + std::to_string(tally.sureFails) + " of them for sure";
    words += "; " + std::to_string(tally.surePasses) + " pass for sure";
    return words +
           (tally.unsurePasses > 0 ? ", " + std::to_string(tally.unsurePasses) + " pass but unsure." : ".");
}

RunVerdict verdictOf(const SharedRun& run) {
    const StudyRun alone{"", run};
    const ComplianceRequest request = allOf(run->results);
    const ReachTally tally =
        tallyOf(overallRows(alone, request, complianceRows({alone, std::nullopt}, request)));
    return {briefly(tally), tallyWords(tally) + lowBadWords(alone, request)};
}

} // namespace korvel
