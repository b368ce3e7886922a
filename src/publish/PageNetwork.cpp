#include "panels/NetworkLayout.h"
#include "publish/PageMetrics.h"
#include "publish/PagePicture.h"
#include "publish/PageSections.h"
#include "publish/PageText.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr double twipsPerPixel = 15;
constexpr double width = 640; // pixels
constexpr double frameHeight = 110;
constexpr double laneHeight = 34;
constexpr double leastHeight = 200, mostHeight = 900;
// A line of a reach has about so many vertices, with its ends and its symbol.
constexpr std::size_t verticesOfReach = 12;

// With confidence, where limits tell of it.
Verdict shownVerdict(const OverallVerdict& overall) {
    return overall.confident == Verdict::none ? overall.verdict : overall.confident;
}

NetworkView viewOf(const PageRun& run) {
    NetworkView view;
    view.colours = NetworkColours::byVerdict;
    view.verdicts.assign(static_cast<std::size_t>(run.run.reaches().count()), Verdict::none);
    for (const OverallRow& row : run.overall)
        view.verdicts[static_cast<std::size_t>(row.place)] = shownVerdict(row.overall);
    return view;
}

void writeRun(PageHtml& html, const PageStudy& study, std::size_t k) {
    const PageRun& run = study.runs()[k];
    const double height =
        std::clamp(frameHeight + laneHeight * static_cast<double>(study.network().rivers.size()), leastHeight,
                   mostHeight);
    const NetworkLayout layout =
        layOutNetwork(*run.run.file, networkOf(*run.run.file), viewOf(run), panelLook(Theme::light),
                      width * twipsPerPixel, height * twipsPerPixel, PageMetrics());
    Drawing drawing;
    drawing.width = layout.width;
    drawing.height = layout.height;
    paint(layout, drawing);
    html.open("figure").open("figcaption");
    writeRunName(html, study, k);
    html.closeLine();
    writePicture(html, drawing,
                 {"network-" + std::to_string(k + 1), "Network of rivers, " + pageText(run.run.name),
                  "Each river is a line over the distance to the mouth; its reaches pass, are unsure or "
                  "fail. The table "
                  "of verdicts by reach and determinand says the same in words."});
    html.closeLine();
}

} // namespace

void writeNetwork(PageHtml& html, const PageStudy& study) {
    openSection(html, "network", "The network");
    writeNote(html, "Every reach by all its determinands together, with confidence: it fails where one fails "
                    "for sure, and "
                    "passes where all pass for sure. Distances run to the mouth, at the right.");
    const std::size_t reaches = study.network().next.size();
    if (reaches * study.runs().size() * verticesOfReach > 300'000) {
        writeNote(html,
                  std::to_string(reaches) + " reaches are too many for a picture; the tables take all.");
    } else {
        html.open("div", {{"class", "networks"}}).line();
        for (std::size_t k = 0; k < study.runs().size(); ++k)
            writeRun(html, study, k);
        html.closeLine();
    }
    html.closeLine();
}

} // namespace korvel
