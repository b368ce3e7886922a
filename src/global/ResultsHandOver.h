// What passes between the runs, the results reader and the forms that show results.
#pragma once

#include "basic/CheckedArray.h"

#include <string>

namespace korvel {

struct ResultsHandOver {
    CheckedArray<std::string, 0, 1>
        fileNames;           // results file of each slot; set by the caller of the reader and by runs
    int currentSlot = 0;     // slot of the next load
    bool loadFailed = false; // the last load was abandoned, or no file is current
    bool graphResultsPending = false;  // set by a run, cleared by the set-up form's automatic load
    bool reportResultsPending = false; // set by a run, cleared by the report form's automatic load
    // Loads into the first slot so far, by whichever form, and whether the last of them succeeded: a form
    // that shows results sees by them that another form has read a file since.
    int firstSlotLoads = 0;
    bool firstSlotLoaded = false;
    bool returnedFromGraph = false;  // set when the graph closes; the set-up form then keeps its state
    bool readersChannelOpen = false; // an abandoned second load has left its file open; see LoadResultsFile
    int loads = 0;                   // that succeeded, of either slot: each sets plotInterpolatedPoints
};

} // namespace korvel
