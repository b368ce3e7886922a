// Pages as they will stand on paper, before they are printed.
#pragma once

#include "drawing/Drawing.h"
#include "platform/Dialogs.h"
#include "platform/Paper.h"

#include <vector>

class QWidget;

namespace korvel {

// Whether the user wants them printed. The printer can be chosen there, by the one dialog for that.
bool showPrintPreview(const std::vector<Drawing>& pages, Orientation orientation, Dialogs& dialogs,
                      QWidget& window);

} // namespace korvel
