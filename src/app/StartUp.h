// What start-up computes from the desktop's work area, and the values that the program starts with. All
// places are in twips.
#pragma once

#include "basic/FormScaling.h"
#include "platform/Platform.h"

namespace korvel {

inline constexpr double DesignWidth = 9600; // of every form, twips
inline constexpr double DesignHeight = 6780;

// Work area by design size, in single precision.
struct ScreenFactors {
    double x = 1;
    double y = 1;
};
ScreenFactors screenFactors(const WorkArea& area);

// A form of the design size, stretched and put where the work area begins.
Place formPlace(const WorkArea& area);

// The frame that holds the dialogs, as it was sized by design.
Place dialogFramePlace(const Place& frame, const Place& form);
Place centredOnForm(const Place& frame, const Place& form);

struct TitleLabel {
    Place place;
    double fontSize = 0; // points
};
// Kept so: width and height grow by the larger factor, the font by the horizontal one and without rounding.
TitleLabel scaledTitleLabel(const TitleLabel& label, const ScreenFactors& factors);
Place scaledLogoShape(const Place& shape, const ScreenFactors& factors);

// Scale factors, flags and folder at start, then the settings file.
void SetStartValues(Platform& platform);

} // namespace korvel
