// The parts of a page that are the same in all: made from the folder page/ and from uPlot when the program is
// built.
#pragma once

#include <string_view>

namespace korvel {

extern const std::string_view pageStyle;
extern const std::string_view pageScript;
extern const std::string_view plotStyle; // of uPlot
extern const std::string_view plotScript;

} // namespace korvel
