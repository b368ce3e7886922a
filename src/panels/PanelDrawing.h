// Fills one panel: what of its data is in view becomes curves, bands, targets and marks.
#pragma once

#include "panels/PanelMeasures.h"
#include "panels/ProfileLayout.h"
#include "panels/ValueAxis.h"
#include "panels/VisiblePart.h"

namespace korvel {

struct PanelContext {
    const ProfileData& data;
    const ProfileView& view;
    const PanelLook& look;
    const PanelMeasures& measures;
    const Scale& distance;
    PixelColumnsOfKm& columns; // of this distance scale

    VisibleWay way() const { return {distance, look.pixel, &columns}; }
};

// Of everything that the panel shows; nothing where it shows nothing.
std::optional<NumberRange> valuesInView(const PanelContext& context, const PanelData& panel);

// `panel` has its area and its axis.
void fillPanel(const PanelContext& context, const PanelData& data, ProfilePanel& panel);

// A series in a place, as a panel has it. Its values and the place's are as the scale counts them.
TracedCurve tracedSeries(const PathValues& values, const CurvePlace& place, double pixel, bool& thinned,
                         PixelColumnsOfKm* columns = nullptr);

} // namespace korvel
