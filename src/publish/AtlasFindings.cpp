#include "publish/AtlasFindings.h"

#include "basic/ShownText.h"
#include "basic/Text.h"
#include "panels/ProfileData.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
#include <map>

namespace korvel {

namespace {

std::string reaches(int count) {
    return counted(count, "reach", "reaches");
}

std::string shownNameOf(const StudyRun& run, int determinand) {
    return shownName(determinandName(run.results(), determinand));
}

struct Counts {
    int judged = 0, pass = 0, fail = 0;
    int surelyPass = 0, surelyFail = 0, unsure = 0;
};

Counts countsOf(const std::vector<OverallRow>& rows) {
    Counts counts;
    for (const OverallRow& row : rows) {
        counts.judged += row.overall.verdict != Verdict::none;
        counts.pass += row.overall.verdict == Verdict::pass;
        counts.fail += row.overall.verdict == Verdict::fail;
        counts.surelyPass += row.overall.confident == Verdict::pass;
        counts.surelyFail += row.overall.confident == Verdict::fail;
        counts.unsure += row.overall.confident == Verdict::unsure;
    }
    return counts;
}

// The determinands that fail, those of most reaches first.
std::string failingWords(const StudyRun& run, const std::vector<ComplianceRow>& rows) {
    struct Failing {
        int reaches = 0;
        double length = 0;
    };
    std::map<int, Failing> byDeterminand;
    for (const ComplianceRow& row : rows)
        if (row.reach.verdict == Verdict::fail) {
            Failing& failing = byDeterminand[row.determinand.number];
            ++failing.reaches;
            failing.length += row.reach.sums.failingLength;
        }
    std::vector<std::pair<int, Failing>> order(byDeterminand.begin(), byDeterminand.end());
    std::ranges::stable_sort(
        order, [](const auto& a, const auto& b) { return a.second.reaches > b.second.reaches; });
    std::string words;
    for (const auto& [determinand, failing] : order)
        words += (words.empty() ? "" : ", ") + shownNameOf(run, determinand) + " in " +
                 reaches(failing.reaches) + " (" + shownDecimals(failing.length, 1) + " km)";
    return words;
}

// Of what fails, the value farthest from its target.
std::string worstSentence(const StudyRun& run, const std::vector<ComplianceRow>& rows) {
    const ComplianceRow* worst = nullptr;
    for (const ComplianceRow& row : rows)
        if (row.reach.verdict == Verdict::fail && row.reach.worst &&
            (!worst || row.reach.worst->judgement.isWorseThan(worst->reach.worst->judgement)))
            worst = &row;
    if (!worst) return "";
    const auto& [point, judgement] = *worst->reach.worst;
    const std::string feature = shownName(trim(run.results().pointLabel[point]));
    return "The worst: " + shownNameOf(run, worst->determinand.number) +
           (feature.empty() ? "" : " at " + feature) + " in " +
           shownName(run.file->reachName(run.reaches().number(worst->place))) + ", " +
           shownNumber(judgement.value) + " where " + shownNumber(judgement.target) + " is the target.";
}

std::string judgedSentence(const Counts& counts, std::size_t all) {
    if (counts.judged == 0) return "No reach has targets to be judged by.";
    const auto verb = [](int count, const char* one, const char* many) {
        return std::to_string(count) + (count == 1 ? one : many);
    };
    std::string text = std::to_string(counts.judged) + " of " + reaches(static_cast<int>(all)) +
                       (all == 1 ? " is" : " are") + " judged: " + verb(counts.pass, " meets", " meet") +
                       " every target, " + verb(counts.fail, " fails", " fail") +
                       " at least one. With confidence " + verb(counts.surelyFail, " fails, ", " fail, ") +
                       verb(counts.surelyPass, " passes", " pass") + " and " +
                       verb(counts.unsure, " is", " are") + " unsure.";
    return text;
}

// How the overall verdicts differ from the base's, reach by reach.
std::string changeSentence(const Study& study, const StudyRun& run, const std::vector<OverallRow>& rows,
                           const std::vector<OverallRow>& ofBase, const std::vector<ComplianceRow>& details) {
    std::map<int, Verdict> before;
    for (const OverallRow& row : ofBase)
        before[study.base().reaches().number(row.place)] = row.overall.verdict;
    int better = 0, worse = 0;
    for (const OverallRow& row : rows) {
        const Verdict was = before[run.reaches().number(row.place)];
        better += was == Verdict::fail && row.overall.verdict == Verdict::pass;
        worse += was == Verdict::pass && row.overall.verdict == Verdict::fail;
    }
    std::set<int> deteriorated;
    for (const ComplianceRow& row : details)
        if (row.change && row.change->deteriorated.value_or(false)) deteriorated.insert(row.place);
    return "Against " + shownName(study.base().name) + ": " + reaches(better) + " from fail to pass, " +
           reaches(worse) + " from pass to fail; " + reaches(static_cast<int>(deteriorated.size())) +
           " with a determinand that is worse by more than " + shownDecimals(DefaultDeterioration, 0) +
           " % somewhere.";
}

} // namespace

RunJudgement judgementOf(const Study& study, std::size_t run, const ComplianceRequest& request) {
    JudgedRun asked{study.runs()[run], {}};
    if (run > 0) asked.base = study.base();
    RunJudgement judged;
    judged.rows = complianceRows(asked, request);
    judged.overall = overallRows(asked.run, request, judged.rows);
    return judged;
}

RunFindings findingsOf(const Study& study, std::size_t run, const std::vector<RunJudgement>& judged) {
    const StudyRun& of = study.runs()[run];
    const auto& [rows, overall] = judged[run];
    RunFindings findings;
    findings.verdicts.assign(static_cast<std::size_t>(of.reaches().count()), Verdict::none);
    for (const OverallRow& row : overall)
        findings.verdicts[static_cast<std::size_t>(row.place)] = row.overall.confident;
    findings.sentences.push_back(judgedSentence(countsOf(overall), findings.verdicts.size()));
    const std::string failing = failingWords(of, rows);
    if (!failing.empty()) findings.sentences.push_back("Failing: " + failing + ".");
    const std::string worst = worstSentence(of, rows);
    if (!worst.empty()) findings.sentences.push_back(worst);
    if (run > 0)
        findings.sentences.push_back(changeSentence(study, of, overall, judged.front().overall, rows));
    return findings;
}

std::string judgedWords(const StudyRun& run, const ComplianceRequest& request) {
    std::string words;
    for (const JudgedDeterminand& each : judgedBy(run, request)) {
        words += (words.empty() ? "" : "; ") + shownNameOf(run, each.number) + " by the " +
                 wordsOf(each.statistic);
        words += each.side == BadSide::low ? ", low is bad" : "";
    }
    return words.empty() ? "No determinand is judged." : words + ". Unless said otherwise, high is bad.";
}

} // namespace korvel
