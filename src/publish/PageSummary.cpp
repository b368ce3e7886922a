#include "analysis/ReachTally.h"
#include "publish/PageSections.h"
#include "publish/PageText.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace korvel {

namespace {

void writeVerdicts(PageHtml& html, const PageStudy& study) {
    html.open("article", {{"class", "card"}}).element("h3", "Does the river comply?").line();
    for (std::size_t k = 0; k < study.runs().size(); ++k) {
        const ReachTally tally = tallyOf(study.runs()[k].overall);
        const double all = std::max(1, tally.judged());
        html.open("div", {{"class", "verdicts"}}).open("h4");
        writeRunName(html, study, k);
        html.closeLine();
        writeBar(html, {{tally.sureFails / all, "fail"},
                        {tally.unsureFails / all, "fail unsure"},
                        {tally.unsurePasses / all, "pass unsure"},
                        {tally.surePasses / all, "pass"}});
        html.element("p", tallyWords(tally)).closeLine();
    }
    html.open("p", {{"class", "key"}});
    for (const auto& [kind, words] : {std::pair{"fail", "fails for sure"},
                                      {"fail unsure", "fails, unsure"},
                                      {"pass unsure", "passes, unsure"},
                                      {"pass", "passes for sure"}})
        html.element("span", words, {{"class", std::string("k ") + kind}}).words(" ");
    html.close().closeLine();
}

struct DeterminandTally {
    ComplianceSumRow row;
    int sure = 0; // reaches that fail for sure
};

DeterminandTally tallyOf(const PageRun& run, const ComplianceSumRow& sums) {
    DeterminandTally tally{sums, 0};
    for (const ComplianceRow& row : run.compliance)
        if (row.determinand.number == sums.determinand.number && row.reach.confident == Verdict::fail)
            ++tally.sure;
    return tally;
}

// Where a determinand fails on the longest stretches.
void writeFailingReaches(PageHtml& html, const PageStudy& study, const PageRun& run, int determinand) {
    std::vector<const ComplianceRow*> failing;
    for (const ComplianceRow& row : run.compliance)
        if (row.determinand.number == determinand && row.reach.verdict == Verdict::fail)
            failing.push_back(&row);
    std::ranges::stable_sort(failing, std::ranges::greater(),
                             [](const ComplianceRow* row) { return row->reach.sums.failingLength; });
    constexpr std::size_t most = 3;
    html.open("small");
    for (std::size_t k = 0; k < std::min(most, failing.size()); ++k)
        html.words(k > 0 ? ", " : "")
            .element("bdi", study.reachTitle(run.run.reaches().number(failing[k]->place)));
    if (failing.size() > most) html.words(" and " + std::to_string(failing.size() - most) + " more");
    html.close();
}

void writeDeterminandCell(PageHtml& html, const PageStudy& study, const PageRun& run,
                          const DeterminandTally& tally) {
    const ComplianceSums& sums = tally.row.sums;
    html.open("td");
    if (tally.row.reachesJudged == 0) {
        html.words("no targets").close();
        return;
    }
    const bool fails = tally.row.reachesFailing > 0;
    html.element("span", fails ? "fail" : "pass", {{"class", fails ? "v fail" : "v pass"}}).words(" ");
    if (fails)
        html.words(std::to_string(tally.row.reachesFailing) + " of " +
                   std::to_string(tally.row.reachesJudged) + " reaches (" + std::to_string(tally.sure) +
                   " sure), " + shownDecimals(sums.failingLength, 1) + " of " +
                   shownDecimals(sums.judgedLength, 1) + " km");
    else
        html.words("in all of " + counted(tally.row.reachesJudged, "reach", "reaches"));
    writeBar(html, {{sums.judgedLength > 0 ? sums.failingLength / sums.judgedLength : 0, "fail"}});
    if (fails) writeFailingReaches(html, study, run, tally.row.determinand.number);
    html.close();
}

// The longest failing length in the base first.
std::vector<std::size_t> worstFirst(const PageRun& base) {
    std::vector<std::size_t> order;
    for (std::size_t d = 0; d < base.sums.size(); ++d)
        order.push_back(d);
    std::ranges::stable_sort(order, std::ranges::greater(),
                             [&](std::size_t d) { return base.sums[d].sums.failingLength; });
    return order;
}

const ComplianceSumRow* sumsOf(const PageRun& run, int determinand) {
    const auto isIt = [&](const ComplianceSumRow& row) { return row.determinand.number == determinand; };
    const auto found = std::ranges::find_if(run.sums, isIt);
    return found == run.sums.end() ? nullptr : &*found;
}

void writeDeterminandRow(PageHtml& html, const PageStudy& study, const JudgedDeterminand& determinand) {
    html.open("tr").open("th", {{"scope", "row"}});
    html.name(determinandName(study.base().results(), determinand.number)).words(" ");
    html.element("small",
                 wordsOf(determinand.statistic) + (determinand.side == BadSide::low ? ", bad when low" : ""));
    html.close();
    for (const PageRun& run : study.runs())
        if (const ComplianceSumRow* sums = sumsOf(run, determinand.number))
            writeDeterminandCell(html, study, run, tallyOf(run, *sums));
        else
            html.element("td", "");
    html.closeLine();
}

void writeDeterminands(PageHtml& html, const PageStudy& study) {
    const PageRun& base = study.runs().front();
    if (base.sums.empty()) return;
    html.open("article", {{"class", "card wide"}})
        .element("h3", "Where does it fail, and how sure is that?")
        .line();
    html.open("div", {{"class", "table"},
                      {"role", "region"},
                      {"tabindex", "0"},
                      {"aria-label", "Targets by determinand"}});
    html.open("table", {{"class", "plain"}, {"id", "glance"}});
    html.element("caption", "Reaches and length that miss the target, by determinand", {{"class", "quiet"}});
    html.open("thead").open("tr").element("th", "Determinand", {{"scope", "col"}});
    for (std::size_t k = 0; k < study.runs().size(); ++k) {
        html.open("th", {{"scope", "col"}});
        writeRunName(html, study, k);
        html.close();
    }
    html.close().close().open("tbody").line();
    for (const std::size_t d : worstFirst(base))
        writeDeterminandRow(html, study, base.sums[d].determinand);
    html.close().close().close().closeLine();
}

std::string signedPercent(double percent) {
    const std::string shown = shownDecimals(percent, std::abs(percent) < 10 ? 1 : 0);
    return (percent > 0 ? "+" : percent < 0 && shown[0] != '-' ? "-" : "") + shown + " %";
}

// Of each series the reach where it changes most, the largest first; loads only where nothing else is shown.
std::vector<const ChangeRow*> largestChanges(const PageStudy& study, const PageRun& run, std::size_t most) {
    std::map<int, const ChangeRow*> ofSeries;
    for (const ChangeRow& row : run.changes) {
        const auto& percent = row.summary.percent;
        if (!percent || *percent == 0 || isLoad(study.base().results(), row.series)) continue;
        const ChangeRow*& largest = ofSeries[row.series];
        if (!largest || std::abs(*percent) > std::abs(*largest->summary.percent)) largest = &row;
    }
    std::vector<const ChangeRow*> rows;
    for (const auto& [series, row] : ofSeries)
        rows.push_back(row);
    std::ranges::stable_sort(rows, std::ranges::greater(),
                             [](const ChangeRow* row) { return std::abs(*row->summary.percent); });
    rows.resize(std::min(rows.size(), most));
    return rows;
}

void writeVerdictChanges(PageHtml& html, const PageStudy& study, const PageRun& run, const std::string& words,
                         const std::string& kind) {
    std::vector<std::string> places;
    for (const ComplianceRow& row : run.compliance)
        if (row.change && row.change->words() == words)
            places.push_back(pageText(determinandName(run.run.results(), row.determinand.number)) + " in " +
                             study.reachTitle(run.run.reaches().number(row.place)));
    constexpr std::size_t most = 6;
    html.open("li").element("span", words, {{"class", "v " + kind}}).words(" ");
    if (places.empty()) {
        html.words("nowhere").closeLine();
        return;
    }
    html.element("strong", std::to_string(places.size())).words(": ");
    for (std::size_t k = 0; k < std::min(most, places.size()); ++k)
        html.words(k > 0 ? ", " : "").element("bdi", places[k]);
    if (places.size() > most) html.words(" and " + std::to_string(places.size() - most) + " more");
    html.closeLine();
}

int deteriorations(const PageRun& run) {
    return static_cast<int>(std::ranges::count_if(run.compliance, [](const ComplianceRow& row) {
        return row.change && row.change->deteriorated.value_or(false);
    }));
}

void writeChangesOf(PageHtml& html, const PageStudy& study, std::size_t k) {
    const PageRun& run = study.runs()[k];
    html.open("h4");
    writeRunName(html, study, k);
    html.closeLine().open("ul").line();
    writeVerdictChanges(html, study, run, "fail to pass", "better");
    writeVerdictChanges(html, study, run, "pass to fail", "worse");
    html.open("li").words("worse by more than 10 %: ");
    html.element("strong", std::to_string(deteriorations(run)))
        .words(" of " + counted(static_cast<int>(run.compliance.size()), "reach and determinand",
                                "reaches and determinands"))
        .closeLine();
    html.closeLine();
    const std::vector<const ChangeRow*> largest = largestChanges(study, run, 6);
    if (largest.empty()) {
        html.element("p", "No mean value changes.").line();
        return;
    }
    html.element("p", "Largest changes of a reach's mean:", {{"class", "quiet"}})
        .open("ul", {{"class", "changes"}});
    for (const ChangeRow* row : largest) {
        html.open("li").element("bdi", study.seriesTitle(row->series)).words(" ");
        html.element("strong", signedPercent(*row->summary.percent)).words(" in ");
        html.element("bdi", study.reachTitle(row->group.reach)).close();
    }
    html.closeLine();
}

void writeChangesCard(PageHtml& html, const PageStudy& study) {
    if (study.runs().size() < 2) return;
    html.open("article", {{"class", "card"}}).element("h3", "What changes?").line();
    html.open("p", {{"class", "quiet"}}).words("Against ");
    writeRunName(html, study, 0);
    html.words(", the base.").closeLine();
    for (std::size_t k = 1; k < study.runs().size(); ++k)
        writeChangesOf(html, study, k);
    html.closeLine();
}

void writeSourcesCard(PageHtml& html, const PageStudy& study, const std::vector<PageSources>& sources) {
    html.open("article", {{"class", "card"}}).element("h3", "Where does it come from?").line();
    html.open("p", {{"class", "quiet"}}).words("Largest source of the mean load at the mouth, in ");
    writeRunName(html, study, 0);
    html.words(". An estimate.").closeLine();
    html.open("ul", {{"class", "changes"}});
    for (const PageSources& each : sources) {
        if (each.runs.empty() || each.runs.front().contributions.empty()) continue;
        const Contribution& first = each.runs.front().contributions.front();
        html.open("li").element("bdi", each.what).words(": ").name(first.name);
        if (first.share) html.words(" ").element("strong", shownDecimals(*first.share, 0) + " %");
        html.close();
    }
    html.close().closeLine();
}

void writeRunsCard(PageHtml& html, const PageStudy& study) {
    html.open("article", {{"class", "card runs"}})
        .element("h3", study.runs().size() > 1 ? "Which runs?" : "Which run?");
    html.line();
    html.open("ul", {{"class", "runs"}}).line();
    for (std::size_t k = 0; k < study.runs().size(); ++k) {
        const ResultsDataSet& results = study.runs()[k].run.results();
        html.open("li");
        writeRunName(html, study, k);
        if (k == 0 && study.runs().size() > 1) html.words(" ").element("em", "base", {{"class", "tag"}});
        html.open("p").name(results.resultsTitle);
        html.close().open("p", {{"class", "quiet"}});
        html.words(counted(study.runs()[k].run.reaches().count(), "reach", "reaches") + ", " +
                   counted(results.pointCount, "point", "points") + ", " +
                   counted(results.determinandCount, "determinand", "determinands") + "; percentile mode " +
                   std::to_string(results.percentileMode));
        html.close().closeLine();
    }
    html.close().closeLine();
}

} // namespace

void writeSummary(PageHtml& html, const PageStudy& study, const std::vector<PageSources>& sources) {
    openSection(html, "summary", "At a glance");
    html.open("div", {{"class", "cards"}}).line();
    writeRunsCard(html, study);
    writeVerdicts(html, study);
    html.open("div", {{"class", "side"}}).line();
    writeChangesCard(html, study);
    writeSourcesCard(html, study, sources);
    html.closeLine();
    writeDeterminands(html, study);
    html.close().closeLine();
}

} // namespace korvel
