#include "drawing/Units.h"
#include "panels/FitScatter.h"
#include "publish/PageMetrics.h"
#include "publish/PagePicture.h"
#include "publish/PageSections.h"
#include "publish/PageTable.h"
#include "publish/PageTables.h"
#include "publish/PageText.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr double width = 270, height = 290; // pixels
constexpr std::size_t verticesOfMark = 4;
constexpr std::size_t mostFitVertices = 40'000; // of all pictures

// Samples and model by one statistic of a series: that by which it is judged, else the mean.
struct Fitted {
    int series = 0;
    Statistic statistic = Statistic::mean;
};

std::vector<Fitted> fittedOf(const PageStudy& study, const PageRun& run) {
    std::vector<Fitted> all;
    for (const FitRow& row : pageFitRows(study, run)) {
        if (all.empty() || all.back().series != row.series)
            all.push_back({row.series, row.statistic});
        else
            all.back().statistic = row.statistic;
    }
    return all;
}

FittedPoints pointsOf(const PageRun& run, const Fitted& fitted) {
    const ReachGroup whole = wholeGroup(*run.run.file, {});
    const std::vector<int> ordinary = ordinaryPointsOf(*run.run.file, whole.places);
    return {run.run, fitted.series, fitted.statistic,
            observedPoints(*run.run.file, ordinary, fitted.series, fitted.statistic)};
}

// Every so many, where there are very many.
void thin(std::vector<ScatterPoint>& points, std::size_t most) {
    const std::size_t step = (points.size() + most - 1) / std::max<std::size_t>(1, most);
    if (step <= 1) return;
    std::size_t k = 0;
    std::erase_if(points, [&](const ScatterPoint&) { return k++ % step != 0; });
}

// Whether all its points are there.
bool writeScatter(PageHtml& html, const PageStudy& study, std::size_t run, const Fitted& fitted,
                  std::size_t most) {
    const PageMetrics metrics;
    const PanelLook look = panelLook(Theme::light);
    FitScatter scatter = layOutScatter(pointsOf(study.runs()[run], fitted), width * twipsPerPixel,
                                       height * twipsPerPixel, ScaleKind::linear, metrics);
    const std::size_t all = scatter.points.size();
    thin(scatter.points, most);
    scatter.title = study.seriesTitle(fitted.series) + ", " + wordsOf(fitted.statistic);
    const Drawing drawing = drawScatter(scatter, width * twipsPerPixel, height * twipsPerPixel, nullptr,
                                        {look.text, look.grid, runStyle(run, Theme::light).colour}, metrics);
    const std::string name = pageText(study.runs()[run].run.name);
    html.open("figure").line();
    writePicture(
        html, drawing,
        {"fit-" + std::to_string(run + 1) + "-" + std::to_string(fitted.series),
         "Observed and simulated, " + scatter.title + ", " + name,
         "One mark a sample, observed to the right and simulated upward; on the dashed line both are "
         "equal. The table above tells the same in figures."});
    html.closeLine();
    return scatter.points.size() == all;
}

void writeScatters(PageHtml& html, const PageStudy& study, std::size_t run) {
    const std::vector<Fitted> all = fittedOf(study, study.runs()[run]);
    if (all.empty()) return;
    const std::size_t pictures = study.runs().size() * all.size();
    bool whole = true;
    html.open("div", {{"class", "scatters"}}).line();
    for (const Fitted& fitted : all)
        whole &= writeScatter(html, study, run, fitted, mostFitVertices / verticesOfMark / pictures);
    html.closeLine();
    if (!whole) writeNote(html, "Of very many samples some are in the pictures; the figures take all.");
}

} // namespace

void writeFit(PageHtml& html, const PageStudy& study) {
    openSection(html, "fit", "Fit to samples");
    writeNote(
        html,
        "Computed across places, not over time: published ratings of time series do not apply. Stations "
        "that the model was calibrated to are no independent test of it. Errors are value less observed; "
        "PBIAS above 0: the model is high.");
    for (std::size_t k = 0; k < study.runs().size(); ++k) {
        html.open("h3");
        writeRunName(html, study, k);
        html.closeLine();
        writePageTable(html, pageFitTable(study, study.runs()[k]),
                       {"fit-" + std::to_string(k + 1),
                        "Fit to what was observed, " + pageText(study.runs()[k].run.name), 2});
        writeScatters(html, study, k);
    }
    html.closeLine();
}

} // namespace korvel
