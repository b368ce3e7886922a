// LoadResultsFile: reads the file named by GLOBAL.fileNames[GLOBAL.currentSlot] into that slot of RESULTS.
#pragma once

#include "platform/Platform.h"

#include <functional>
#include <string>

namespace korvel {

// Share read so far, 0 to 1; called at most about a hundred times a load.
using LoadProgress = std::function<void(double)>;

// Success or failure is left in GLOBAL.loadFailed. Every caller passes `showErrors` = true.
void LoadResultsFile(Platform& platform, bool showErrors, const LoadProgress& progress = {});

// The path with surrounding blanks removed if it has at most `maxLength` characters, otherwise what follows
// its last backslash.
std::string ShortFileName(const std::string& path, int maxLength);

} // namespace korvel
