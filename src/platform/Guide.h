// The guide: one HTML file, opened by the desktop's program for it.
#pragma once

#include "platform/Platform.h"

#include <string>
#include <vector>

namespace korvel {

// Where the guide of a program in this folder may lie, the likeliest first: as installed, as built. Host
// paths.
std::vector<std::string> guidePlaces(const std::string& programFolder);
// The samples' folder likewise.
std::vector<std::string> samplesPlaces(const std::string& programFolder);

// Opens the guide; says so where that can't be done.
void OpenGuide(Platform& platform);

} // namespace korvel
