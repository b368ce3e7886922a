// The few colours, fonts and line widths of a theme.
#pragma once

#include "panels/RunStyle.h"

#include <string>

namespace korvel {

struct PanelLook {
    Theme theme = Theme::light;
    Rgb background; // of the window or page; whoever paints the drawing fills it
    Rgb plot;       // ground of panels
    Rgb grid;
    Rgb axis;
    Rgb text;
    Rgb quietText;
    Rgb accent;
    Rgb pass;
    Rgb unsure;
    Rgb fail;
    Rgb target;
    Font font;           // of everything but titles
    Font titleFont;      // of a panel's title
    double hairline = 1; // pens, in pixels or printer dots
    double curveWidth = 2;
    double pixel = 15; // the device's, in twips: what lies closer together need not be drawn apart
};

// With texts of another family.
PanelLook withFamily(PanelLook look, const std::string& family);

// `fontSize` in points. `pixelRatio`: device pixels a logical pixel; on paper it has no effect.
PanelLook panelLook(Theme theme, double fontSize = 9, double pixelRatio = 1);

} // namespace korvel
