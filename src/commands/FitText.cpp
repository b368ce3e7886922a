#include "commands/FitText.h"

#include "commands/StatisticWords.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

std::string sentence(const FitRow& row, const StudyRun& run) {
    const FitFigures& fit = row.figures;
    std::string text = run.results().seriesNames[row.series] + ", " + wordsOf(row.statistic) + ": ";
    if (fit.typicalFactor)
        text += "typically within a factor of " + shownDecimals(*fit.typicalFactor, 2) + " ";
    text += "at " + counted(fit.n, "point", "points");
    if (fit.percentBias)
        text += ", on the whole " + shownDecimals(std::abs(*fit.percentBias), 0) + " % too " +
                (*fit.percentBias < 0 ? "low" : "high");
    if (fit.bounded > 0)
        text += "; " + std::to_string(fit.withinLimits) + " of " + std::to_string(fit.bounded) +
                " samples lie within the limits";
    return text + ".";
}

bool holdsFlowPercentile(const FitRequest& request) {
    const auto isPercentile = [](Statistic statistic) { return statistic != Statistic::mean; };
    return std::ranges::any_of(request.series, isFlow) &&
           std::ranges::any_of(request.statistics, isPercentile);
}

} // namespace

void describeFit(TextPage& page, const StudyRun& run, const FitRequest& request) {
    page.heading("Fit of " + run.name + " to what was observed");
    page.line(
        "Computed across places, not over time: published ratings of time series do not apply. Stations "
        "that the model");
    page.line(
        "was calibrated to are no independent test of it. Errors are value less observed; pbias above 0: "
        "the model is high.");
    if (holdsFlowPercentile(request)) page.line(flowPercentiles);
    page.space();
}

void concludeFit(TextPage& page, const StudyRun& run, const std::vector<FitRow>& whole) {
    page.space();
    // The first statistic of each series tells enough; the table has the others.
    int told = -1;
    for (const FitRow& row : whole) {
        if (row.series != told) page.line(sentence(row, run));
        told = row.series;
    }
    if (whole.empty()) page.line("Nothing was observed.");
}

} // namespace korvel
