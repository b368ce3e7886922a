// Statistics in words for people.
#pragma once

#include "results/Statistics.h"

#include <string>

namespace korvel {

inline constexpr const char* flowPercentiles =
    "Percentiles of flow are the file's as they stand, commonly low flows exceeded for most of the time.";
inline constexpr const char* lowPercentiles = "Of what is bad when low the percentiles are the file's as "
                                              "they stand, of whichever tail the engine wrote.";

} // namespace korvel
