// Extents that the results of the model have, in its files and in all that reads them.
#pragma once

namespace korvel {

inline constexpr int MaxPlottingPoints = 59999;

} // namespace korvel
