#include "drawing/LabelGrid.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr double unitsAcross = 1 << 26;
// Round coordinates would lie just where whole numbers change, were it not for this.
constexpr double offset = 0.3719;

double roundedDown(double value) {
    return std::floor(value + offset);
}
double roundedUp(double value) {
    return std::ceil(value + offset);
}

} // namespace

LabelGrid::LabelGrid(const LabelStrip& strip)
    : m_strip(strip), m_unit((strip.right - strip.left) / unitsAcross) {
    m_fine = {
        0,          unitsAcross,     2 * roundedUp(strip.gap / 2 / m_unit), roundedDown(strip.reach / m_unit),
        strip.rows, strip.candidates};
}

LabelRequest LabelGrid::fine(const LabelRequest& request) const {
    LabelRequest fine = request;
    fine.at = roundedDown(std::clamp((request.at - m_strip.left) / m_unit, -unitsAcross, 2 * unitsAcross));
    fine.width = std::min(roundedUp(request.width / m_unit), unitsAcross);
    return fine;
}

LabelPlace LabelGrid::coarse(const LabelPlace& place, const LabelRequest& request) const {
    const double left = std::min(m_strip.left + place.left * m_unit, m_strip.right - request.width);
    const double port = place.port == fine(request).at ? request.at : m_strip.left + place.port * m_unit;
    return {place.row, std::max(left, m_strip.left), port};
}

} // namespace korvel
