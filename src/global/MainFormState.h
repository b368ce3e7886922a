// What the main form shows. Changed by the procedures of the main form, of the data files and of the runs;
// the form shows it anew after each of them.
#pragma once

#include "basic/Palette.h"

#include <optional>
#include <string>

namespace korvel {

struct MainFormState {
    std::string title; // "KORVEL:  TEST1"
    bool editWarningVisible = true;
    bool runMenuEnabled = true;
    bool saveEnabled = false;
    bool saveAsEnabled = false;
    bool editTextEnabled = false;
    int displayLevel = 0; // shown by the check marks of the result display options
    bool progressFrameVisible = false;
    std::optional<int> progressFrameColour; // of the palette; the form's own where none is set
    bool progressContentsVisible = false;   // the bar and its two labels, within the frame
    double progress = 0;                    // share done, 0 to 1
};

// The edit warning goes; the progress frame is hidden, but made ready for a form that loads results.
void HideEditWarningMessage(MainFormState& state);

// The title bar while this data file is the current one.
std::string mainFormTitle(const std::string& dataFileBase);

} // namespace korvel
