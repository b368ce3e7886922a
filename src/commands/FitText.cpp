#include "commands/FitText.h"

#include "tables/PeopleNumbers.h"

#include <cmath>

namespace korvel {

namespace {

std::string shownStatistic(Statistic statistic) {
    return statistic == Statistic::mean ? "mean" : std::string(nameOf(statistic)) + " percentile";
}

std::string sentence(const FitRow& row, const StudyRun& run) {
    const FitFigures& fit = row.figures;
    std::string text = run.results().seriesNames[row.series] + ", " + shownStatistic(row.statistic) + ": ";
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

} // namespace

void describeFit(TextPage& page, const StudyRun& run) {
    page.heading("Fit of " + run.name + " to what was observed");
    page.line(
        "Computed across places, not over time: published ratings of time series do not apply. Stations "
        "that the model");
    page.line(
        "was calibrated to are no independent test of it. Errors are value less observed; pbias above 0: "
        "the model is high.");
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
