#include "app/DisplayLevel.h"

#include "app/Settings.h"
#include "global/GLOBAL.h"

namespace korvel {

DisplayLevelMarks displayLevelMarks(int level) {
    return {level == 0, level > 0, level > 1, level > 2};
}

void ChooseDisplayLevel(Platform& platform, int level) {
    SaveSettings(platform);
    GLOBAL.mainForm.displayLevel = level;
}

} // namespace korvel
