#include "drawing/Units.h"
#include "panels/NetworkLayout.h"
#include "publish/PageMetrics.h"
#include "publish/PagePicture.h"
#include "publish/PageRivers.h"
#include "publish/PageSections.h"
#include "publish/PageText.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr double width = 640; // pixels
constexpr double frameHeight = 110;
constexpr double laneHeight = 34;
constexpr double leastHeight = 200, mostHeight = 900;
// A line of a reach has about so many vertices, with its ends and its symbol.
constexpr std::size_t verticesOfReach = 12;
constexpr std::size_t mostNetworkVertices = 60'000;

// With confidence, where limits tell of it.
Verdict shownVerdict(const OverallVerdict& overall) {
    return overall.confident == Verdict::none ? overall.verdict : overall.confident;
}

// The names of rivers that are shown below lead there, others are texts alone.
std::vector<PictureLink> linksOf(const NetworkLayout& layout, const std::vector<std::size_t>& rivers) {
    std::vector<PictureLink> links;
    for (const NetworkName& name : layout.names) {
        const bool isShown = std::ranges::binary_search(rivers, name.river);
        links.push_back({name.text, isShown ? riverId(name.river) : "rivers"});
    }
    return links;
}

NetworkView viewOf(const PageRun& run) {
    NetworkView view;
    view.colours = NetworkColours::byVerdict;
    view.verdicts.assign(static_cast<std::size_t>(run.run.reaches().count()), Verdict::none);
    for (const OverallRow& row : run.overall)
        view.verdicts[static_cast<std::size_t>(row.place)] = shownVerdict(row.overall);
    return view;
}

void writeRun(PageHtml& html, const PageStudy& study, std::size_t k, const std::vector<std::size_t>& rivers) {
    const PageRun& run = study.runs()[k];
    const double height =
        std::clamp(frameHeight + laneHeight * static_cast<double>(study.network().rivers.size()), leastHeight,
                   mostHeight);
    NetworkLayout layout =
        layOutNetwork(*run.run.file, networkOf(*run.run.file), viewOf(run), panelLook(Theme::light),
                      width * twipsPerPixel, height * twipsPerPixel, PageMetrics());
    const std::vector<PictureLink> links = linksOf(layout, rivers);
    layout.names.clear();
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
                  "of verdicts by reach and determinand says the same in words."},
                 links);
    html.closeLine();
}

} // namespace

void writeNetwork(PageHtml& html, const PageStudy& study, const std::vector<std::size_t>& rivers) {
    openSection(html, "network", "The network");
    writeNote(html,
              "Every reach by all its determinands together, with confidence: it fails where one fails "
              "for sure, and "
              "passes where all pass for sure. Distances run to the mouth, at the right. A river's name "
              "leads to its panels.");
    const std::size_t reaches = study.network().next.size();
    if (reaches * study.runs().size() * verticesOfReach > mostNetworkVertices) {
        writeNote(html,
                  std::to_string(reaches) + " reaches are too many for a picture; the tables take all.");
    } else {
        html.open("div", {{"class", "networks"}}).line();
        for (std::size_t k = 0; k < study.runs().size(); ++k)
            writeRun(html, study, k, rivers);
        html.closeLine();
    }
    html.closeLine();
}

} // namespace korvel
