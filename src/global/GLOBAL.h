// The shared state. Only shells and forms name GLOBAL; pure functions take the record that they need.
// `GLOBAL = {}` is the state at start.
#pragma once

#include "global/BatchFileList.h"
#include "global/CurrentDataFile.h"
#include "global/GraphHandOver.h"
#include "global/GraphView.h"
#include "global/HelpHandOver.h"
#include "global/MainFormState.h"
#include "global/ResultsHandOver.h"
#include "global/SharedConstants.h"

namespace korvel {

struct Globals : SharedConstants,
                 CurrentDataFile,
                 BatchFileList,
                 ResultsHandOver,
                 GraphHandOver,
                 GraphView,
                 HelpHandOver {
    MainFormState mainForm;
};

extern Globals GLOBAL;

} // namespace korvel
