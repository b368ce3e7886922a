// The settings file MISC.TXT of the application folder: the folder last used for data files, a display level
// and a flag, one a line.
#pragma once

#include "platform/Platform.h"

#include <string>

namespace korvel {

inline constexpr const char* SettingsFileName = "MISC.TXT";

struct Settings {
    std::string lastFolder;
    int displayLevel = 0;
};

// The text of the file, each line read as one field in free format. Errors: 62 fewer than three lines, 13 a
// second line that is no number, 438 a third line that is true (there is no menu item to mark for it).
Settings settingsOf(const std::string& text);

// Kept so: the level is written blank, so that every start of the program begins with the full results.
std::string settingsText(const std::string& lastFolder);

// From the file into GLOBAL, and back. Nothing is trapped: a file that is missing ends the program at its
// start.
void ReadSettings(Platform& platform);
void SaveSettings(Platform& platform);

} // namespace korvel
