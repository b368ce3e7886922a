#include "global/MainFormState.h"

namespace korvel {

void HideEditWarningMessage(MainFormState& state) {
    state.editWarningVisible = false;
    state.progressFrameColour = colours::white;
    state.progressFrameVisible = false;
    state.progressContentsVisible = true;
}

std::string mainFormTitle(const std::string& dataFileBase) {
    return "KORVEL:  " + dataFileBase;
}

} // namespace korvel
