#include "drawing/LabelPlacing.h"

#include "drawing/LabelGrid.h"
#include "drawing/LabelRoom.h"
#include "drawing/LabelSearch.h"
#include "drawing/LabelSettling.h"
#include "drawing/LabelThinning.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace korvel {

namespace {

using Indices = std::vector<std::size_t>;

// Those that can be shown at all, from left to right.
Indices inOrder(const std::vector<LabelRequest>& requests, const LabelStrip& strip) {
    Indices order;
    for (std::size_t k = 0; k < requests.size(); ++k)
        if (std::isfinite(requests[k].at) && requests[k].width <= strip.right - strip.left)
            order.push_back(k);
    std::ranges::stable_sort(order, {}, [&](std::size_t k) { return requests[k].at; });
    return order;
}

std::optional<LabelPlace> alone(const LabelRequest& request, int row, const LabelEdge& left,
                                const LabelEdge& mirroredRight, const LabelStrip& strip) {
    FreeFrom before, behind;
    before.set(left, strip);
    behind.set(mirroredRight, strip);
    return leftmostPlace(roomBetween(before, behind, row), row, request.at, request.width, strip.clearance());
}

// Two labels on given rows, each as near to its anchor as the other allows.
struct Pair {
    LabelPlace left, right;
    double shift = std::numeric_limits<double>::infinity();
};

Pair pairOn(const LabelRequest& a, const LabelRequest& b, int rowA, int rowB, const LabelStrip& strip) {
    const LabelEdge left = LabelEdge::leftOf(strip), right = LabelEdge::mirroredRightOf(strip);
    LabelRequest leftmost = a;
    leftmost.at = strip.left;
    const auto first = alone(leftmost, rowA, left, right, strip);
    LabelEdge besideFirst = left;
    besideFirst.add(*first, a.width);
    const auto second = alone(b, rowB, besideFirst, right, strip);
    if (!second) return {};
    LabelEdge besideSecond = right;
    besideSecond.addMirrored(*second);
    const auto moved = alone(a, rowA, left, besideSecond, strip);
    if (!moved) return {};
    return {*moved, *second, std::abs(moved->port - a.at) + std::abs(second->port - b.at)};
}

// On the deepest rows, so that leaders still pass above them.
Pair bestPair(const LabelRequest& a, const LabelRequest& b, const LabelStrip& strip) {
    Pair best;
    for (int rowA = strip.rows; rowA-- > 0;)
        for (int rowB = strip.rows; rowB-- > 0;) {
            const Pair pair = pairOn(a, b, rowA, rowB, strip);
            if (pair.shift < best.shift) best = pair;
        }
    return best;
}

// `order`: where the ordered requests stood, so that the later ones are known.
LabelPlaces placeRequired(const std::vector<LabelRequest>& ordered, const Indices& order,
                          const LabelStrip& strip) {
    LabelPlaces places(ordered.size());
    Indices required;
    for (std::size_t n = 0; n < ordered.size(); ++n)
        if (ordered[n].required) required.push_back(n);
    if (required.empty()) return places;
    if (required.size() > 1) {
        const std::size_t a = required.front(), b = required.back();
        const Pair pair = bestPair(ordered[a], ordered[b], strip);
        if (std::isfinite(pair.shift)) {
            places[a] = pair.left;
            places[b] = pair.right;
            return places;
        }
    }
    const std::size_t last = *std::ranges::max_element(required, {}, [&](std::size_t n) { return order[n]; });
    places[last] = alone(ordered[last], strip.rows - 1, LabelEdge::leftOf(strip),
                         LabelEdge::mirroredRightOf(strip), strip);
    return places;
}

// Searches among the labels that are worth it.
LabelPlaces search(const std::vector<LabelRequest>& ordered, const LabelStrip& strip,
                   const LabelPlaces& fixed) {
    std::vector<LabelRequest> requests;
    LabelPlaces fixedThere, places(ordered.size());
    const Indices chosen = worthSearching(ordered, strip);
    for (const std::size_t k : chosen) {
        requests.push_back(ordered[k]);
        fixedThere.push_back(fixed[k]);
    }
    const LabelPlaces found = searchLabelPlaces(requests, strip, fixedThere);
    for (std::size_t n = 0; n < chosen.size(); ++n)
        places[chosen[n]] = found[n];
    return places;
}

} // namespace

std::vector<std::optional<LabelPlace>> placeLabels(const std::vector<LabelRequest>& requests,
                                                   const LabelStrip& strip) {
    std::vector<std::optional<LabelPlace>> places(requests.size());
    const Indices order = inOrder(requests, strip);
    if (order.empty() || strip.rows < 1) return places;
    const LabelGrid grid(strip);
    std::vector<LabelRequest> ordered;
    for (const std::size_t k : order)
        ordered.push_back(grid.fine(requests[k]));
    LabelPlaces found = search(ordered, grid.strip(), placeRequired(ordered, order, grid.strip()));
    settleLabels(ordered, grid.strip(), found);
    for (std::size_t n = 0; n < order.size(); ++n)
        if (found[n]) places[order[n]] = grid.coarse(*found[n], requests[order[n]]);
    return places;
}

} // namespace korvel
