// The services of the outside world, given to every form.
#pragma once

#include "drawing/TextMetrics.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Machine.h"
#include "platform/Paper.h"
#include "platform/Windows.h"

namespace korvel {

struct Platform {
    Dialogs& dialogs;
    Files& files;
    Machine& machine;
    Windows& windows;
    Paper& paper;
    const TextMetrics& screenMetrics;
};

// The same services with other dialogs.
inline Platform withDialogs(const Platform& platform, Dialogs& dialogs) {
    return {dialogs,          platform.files, platform.machine,
            platform.windows, platform.paper, platform.screenMetrics};
}

} // namespace korvel
