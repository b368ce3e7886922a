// The set-up form's loading of results files, its automatic load after a run, and its "&Plot".
#pragma once

#include "graphs/setup/GraphChoices.h"
#include "platform/Platform.h"
#include "results/LoadResultsFile.h"

#include <functional>

namespace korvel {

// What loading needs of the form.
struct SetUpCallbacks {
    std::function<void()>
        showState; // shows the choices; called before a file is read and before each question
    LoadProgress progress;
};

// The dialog that chooses data file 1 and 2.
FileDialogSettings resultsDialog();

// How the choices change when the reading of a slot begins, and when it has ended.
void beginLoad(GraphChoices& choices, int slot, const std::string& fileName);
enum class LoadOutcome { loaded, failed };
void endLoad(GraphChoices& choices, int slot, LoadOutcome end, ResultsDataSet& results);

// Offers interpolated points and plots them where the last load, by whichever form, found some; each load is
// followed once.
void followLoads(GraphChoices& choices);

// The form is activated: after a graph it keeps its state, after a run it loads the run's results. A load
// that fails stays pending. Without a run, a first data set that another form has replaced is taken over.
void activateGraphSetUp(Platform& platform, GraphChoices& choices, const SetUpCallbacks& callbacks);

// "Data File 1" (slot 0) and "Data file 2" (slot 1).
void chooseResultsFile(Platform& platform, GraphChoices& choices, FileDialogSettings& dialog, int slot,
                       const SetUpCallbacks& callbacks);

// "&Plot": shows what is missing, or hands the graph over; true where the graph can be shown.
bool readyToPlot(Platform& platform, GraphChoices& choices);

} // namespace korvel
