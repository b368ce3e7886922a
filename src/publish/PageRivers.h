// The rivers of a page: each with its pictures, and with its numbers for the script.
#pragma once

#include "panels/StudyPath.h"
#include "publish/PageHtml.h"
#include "publish/PageStudy.h"

#include <cstddef>
#include <string>
#include <vector>

namespace korvel {

// How much a page takes.
inline constexpr std::size_t mostPageValues = 2'000'000;
inline constexpr std::size_t mostPageVertices = 200'000; // beside the networks and the fit's
inline constexpr std::size_t mostPagePanels = 2000;

struct PageLimits {
    std::size_t values = mostPageValues;
    std::size_t vertices = mostPageVertices;
    std::size_t panels = mostPagePanels;
};

// Which rivers are shown, and how closely.
struct RiverPlan {
    std::vector<std::size_t> rivers; // indices into the network's, in its order
    std::size_t placesInAll = 0;     // of these rivers
    std::size_t mostPlaces = 0;      // of all of them together
    std::size_t verticesOfCurve = 0;
};

RiverPlan planRivers(const PageStudy& study, const PageLimits& limits = {});

// Places of a way, in order: all, or about so many of them, with the ends of reaches and what must stay.
std::vector<std::size_t> keptPlaces(const StudyPath& path, std::size_t most,
                                    const std::vector<int>& basePointsToKeep);

std::string riverId(std::size_t river); // "river-3"

void writeRivers(PageHtml& html, const PageStudy& study, const RiverPlan& plan);

// The numbers of the page's frame for the script: runs and series.
void writePageSetup(PageHtml& html, const PageStudy& study);

} // namespace korvel
