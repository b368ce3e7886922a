// How far things lie apart in drawings.
#pragma once

namespace korvel {

inline constexpr double twipsPerInch = 1440;
inline constexpr double pointsPerInch = 72;
inline constexpr double twipsPerPoint = twipsPerInch / pointsPerInch;
inline constexpr double twipsPerPixel = 15; // logical pixels, 96 to an inch

} // namespace korvel
