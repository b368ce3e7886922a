// What the program is called, and which one it is; CMakeLists.txt at the top says it.
#pragma once

namespace korvel {

inline constexpr const char* productName = "KORVEL";
extern const char* const productVersion;
extern const char* const productReleaseDate; // "21 November 2026"

} // namespace korvel
