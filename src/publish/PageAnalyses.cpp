#include "publish/PageSections.h"
#include "publish/PageTable.h"
#include "publish/PageTables.h"
#include "publish/PageText.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

namespace {

std::string nameOfRun(const PageRun& run) {
    return pageText(run.run.name);
}

std::string idOf(const std::string& what, std::size_t k) {
    return what + "-" + std::to_string(k + 1);
}

std::string judgedWords(const PageStudy& study) {
    std::string words = "Judged are ";
    bool first = true;
    for (const JudgedDeterminand& each : study.judged()) {
        words += (first ? "" : ", ") + pageText(determinandName(study.base().results(), each.number)) +
                 " by its " + wordsOf(each.statistic) + (each.side == BadSide::low ? " (bad when low)" : "");
        first = false;
    }
    return first ? "Nothing is judged." : words + ".";
}

// A verdict of a reach and a determinand in two words at most.
void writeGridCell(PageHtml& html, const ComplianceRow& row) {
    const Verdict verdict = row.reach.verdict;
    if (verdict == Verdict::none) {
        html.element("td", "", {{"class", "none"}});
        return;
    }
    const bool sure = row.reach.confident == verdict;
    html.element("td", std::string(nameOf(verdict)) + (sure ? "" : ", unsure"),
                 {{"class", "v " + std::string(nameOf(verdict)) + (sure ? "" : " unsure")}});
}

void writeGrid(PageHtml& html, const PageStudy& study, std::size_t k) {
    const PageRun& run = study.runs()[k];
    const std::string id = idOf("grid", k);
    html.open("div",
              {{"class", "table"}, {"role", "region"}, {"tabindex", "0"}, {"aria-labelledby", id + "-c"}});
    html.open("table", {{"class", "grid"}, {"id", id}});
    html.element("caption", "Verdicts by reach and determinand, " + nameOfRun(run), {{"id", id + "-c"}});
    html.open("thead").open("tr").element("th", "Reach", {{"scope", "col"}});
    for (const JudgedDeterminand& each : judgedBy(run.run, study.judging()))
        html.open("th", {{"scope", "col"}}).name(determinandName(run.run.results(), each.number)).close();
    html.close().close().open("tbody").line();
    int place = -1, rows = 0;
    for (const ComplianceRow& row : run.compliance) {
        if (row.place != place) {
            if (place >= 0) html.closeLine();
            if (++rows > static_cast<int>(mostPageRows)) break;
            place = row.place;
            html.open("tr").open("th", {{"scope", "row"}});
            html.element("bdi", study.reachTitle(run.run.reaches().number(place))).close();
        }
        writeGridCell(html, row);
    }
    if (place >= 0 && rows <= static_cast<int>(mostPageRows)) html.closeLine();
    html.close().close().closeLine();
    if (rows > static_cast<int>(mostPageRows))
        writeNote(html, "The first " + std::to_string(mostPageRows) + " reaches stand here.");
}

void writeStations(PageHtml& html, const PageStudy& study, std::size_t k) {
    const PageRun& run = study.runs()[k];
    if (run.stations.count == 0) return;
    const StationAgreement& agreement = run.stations.agreement;
    const int all = static_cast<int>(run.stations.count);
    html.open("details").element("summary", "Model and samples agree at " +
                                                std::to_string(agreement.pass + agreement.fail) + " of " +
                                                counted(all, "station", "stations"));
    writeNote(html, "Both pass at " + std::to_string(agreement.pass) + ", both fail at " +
                        std::to_string(agreement.fail) + "; only the model fails at " +
                        std::to_string(agreement.modelOnly) + ", only the samples fail at " +
                        std::to_string(agreement.observedOnly) + ".");
    writePageTable(html, withReachNames(stationTable(run.run, run.stations.first), run.run),
                   {idOf("stations", k), "Verdicts of model and samples at stations, " + nameOfRun(run), 0,
                    run.stations.count});
    html.closeLine();
}

} // namespace

void writeCompliance(PageHtml& html, const PageStudy& study) {
    openSection(html, "compliance", "Compliance");
    html.element("p", judgedWords(study)).line();
    writeNote(html,
              "A verdict is sure where both confidence limits lie on one side of the target. Failing lengths "
              "take the values to run straight from point to point and a target to hold up to the next one.");
    for (std::size_t k = 0; k < study.runs().size(); ++k) {
        html.open("h3");
        writeRunName(html, study, k);
        html.closeLine();
        writeGrid(html, study, k);
        writePageTable(
            html, worstComplianceTable(study.runs()[k]),
            {idOf("compliance", k), "Compliance, the worst first, " + nameOfRun(study.runs()[k]), 3});
        writeStations(html, study, k);
    }
    html.closeLine();
}

void writeChanges(PageHtml& html, const PageStudy& study) {
    if (study.runs().size() < 2) return;
    openSection(html, "changes", "Changes");
    writeNote(
        html,
        "Mean values along each reach, weighted with length, against " + pageText(study.base().name) +
            ". A change is clear at a point where the confidence limits of both runs lie apart: a strict "
            "test, since the runs share random draws and samples. Unclear does not mean unchanged, and no "
            "level of confidence is claimed.");
    for (std::size_t k = 1; k < study.runs().size(); ++k) {
        html.open("h3");
        writeRunName(html, study, k);
        html.closeLine();
        const ComparedRun& pair = study.compared()[k - 1];
        const int alone = pair.change->onlyInBase({}) + pair.change->onlyInRun({});
        if (alone > 0)
            writeNote(html, counted(alone, "point has", "points have") +
                                " no partner in the other run, and no change.");
        writePageTable(
            html, pageChangesTable(study, study.runs()[k]),
            {idOf("changes", k), "Changes of mean values by reach, " + nameOfRun(study.runs()[k]), 3});
    }
    html.closeLine();
}

namespace {

std::string sourcesSentence(const LoadSources& sources) {
    if (sources.contributions.empty()) return "Nothing comes in.";
    double sum = 0;
    int count = 0;
    for (const Contribution& each : sources.contributions) {
        if (!each.share || sum >= 80) break;
        sum += *each.share;
        ++count;
    }
    double lost = 0;
    for (const Loss& loss : sources.losses)
        lost += loss.load;
    const Contribution& first = sources.contributions.front();
    std::string words = "Most comes from " + pageText(first.name);
    if (first.share) words += " (" + shownDecimals(*first.share, 1) + " %)";
    words += "; " + std::to_string(count) + " of " +
             counted(static_cast<int>(sources.contributions.size()), "source brings", "sources bring") +
             " 80 % or more of " + shownNumber(sources.load) + ".";
    return lost > 0 ? words + " Lost on the way: " + shownNumber(lost) + "." : words;
}

void writeSourcesOf(PageHtml& html, const PageStudy& study, const PageSources& sources, std::size_t k) {
    const std::string id = idOf("sources", k);
    const std::string what = sources.series == 0 ? "the mean flow" : "the mean load of " + sources.what;
    html.open("div", {{"class", "choice"}, {"id", id + "-choice"}, {"data-choice", sources.what}}).line();
    html.open("h3").element("bdi", sources.what);
    html.closeLine();
    if (!sources.refusal.empty()) {
        writeNote(html, "It can't be told: " + sources.refusal);
        html.closeLine();
        return;
    }
    html.open("ul");
    for (std::size_t r = 0; r < sources.runs.size(); ++r) {
        html.open("li");
        writeRunName(html, study, r);
        html.words(" " + sourcesSentence(sources.runs[r])).close();
    }
    html.closeLine();
    const std::string place = ", at the end of reach " + study.reachTitle(sources.reach);
    writePageTable(html, comparedKindsTable(study, sources),
                   {id + "-kinds", "Kinds of sources of " + what + place, 1});
    writePageTable(html, comparedSourcesTable(study, sources), {id, "Sources of " + what + place, 1});
    const bool anyLoss =
        std::ranges::any_of(sources.runs, [](const LoadSources& run) { return !run.losses.empty(); });
    if (anyLoss)
        writePageTable(html, comparedLossesTable(study, sources),
                       {id + "-losses", "Losses of " + what + " on the way there", 1});
    html.closeLine();
}

} // namespace

void writeSources(PageHtml& html, const PageStudy& study, const std::vector<PageSources>& sources) {
    openSection(html, "sources", "Sources");
    writeNote(
        html,
        "Where the mean load comes from at the mouth with the largest load, followed down from the heads: "
        "what came in, and what of it arrives. An estimate: losses are shared by all that has come in above "
        "them, and what comes in and is lost between two points is seen as one.");
    html.element("div", "", {{"class", "tools"}, {"id", "choose-sources"}}).line();
    for (std::size_t k = 0; k < sources.size(); ++k)
        writeSourcesOf(html, study, sources[k], k);
    html.closeLine();
}

void writeNotes(PageHtml& html, const PageStudy& study) {
    openSection(html, "notes", "About the figures");
    html.open("dl").line();
    const auto entry = [&](const std::string& term, const std::string& words) {
        html.element("dt", term).element("dd", words).line();
    };
    entry(
        "Values",
        "Results of a model: mean values and percentiles with confidence limits, computed from samples and "
        "random draws. For the flow, a percentile is commonly a low flow that is exceeded most of the time.");
    entry("Judged statistic",
          judgedWords(study) +
              " It follows the statistic that the determinand's standard is set for in the file.");
    entry(
        "Sure",
        "A point is a sure fail where even the better limit lies beyond the target, a sure pass where even "
        "the worse one does not. A reach fails for sure with one sure fail, and passes for sure with nothing "
        "but sure passes.");
    entry("Worse",
          "At one judged point at least the judged value got worse by more than 10 % of the base's value, "
          "whatever the verdict.");
    entry("Interpolated points",
          "They count for lengths, but not for points, verdicts and worst places wherever a "
          "reach has others.");
    entry("Clear change", "The confidence limits of both runs lie apart. Unclear is not unchanged.");
    entry("Sources",
          "An estimate. It would be exact only if each loss took the same share in every draw of the model, "
          "and if inflow and loss never came together between two points.");
    entry(
        "Fit",
        "Across places, not over time. NSE and PBIAS as in Moriasi et al. (2007), Transactions of the ASABE "
        "50(3), with the sign of PBIAS turned.");
    html.close().closeLine();
}

void writeLongTexts(PageHtml& html) {
    if (html.longTexts().empty()) return;
    openSection(html, "texts", "Long texts");
    writeNote(html, "What is too long to stand where it belongs stands here whole.");
    std::size_t number = 0;
    for (const std::string& text : html.longTexts())
        html.element("p", text,
                     {{"class", "long"}, {"dir", "auto"}, {"id", "text-" + std::to_string(++number)}})
            .line();
    html.closeLine();
}

} // namespace korvel
