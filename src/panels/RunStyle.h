// How the runs of a study are told apart, the same in every window and on every page: Okabe and Ito's
// colours, which people who see colours otherwise tell apart, too, and a dash where the colours begin anew.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/Theme.h"

#include <cstddef>

namespace korvel {

struct RunStyle {
    Rgb colour;
    Dash dash = Dash::solid;
    bool operator==(const RunStyle&) const = default;
};

// `run`: its index in the study, 0 for the base.
RunStyle runStyle(std::size_t run, Theme theme);

} // namespace korvel
