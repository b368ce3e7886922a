#include "graphs/setup/ResultsLoading.h"

#include "basic/ModelName.h"
#include "basic/Text.h"
#include "global/GLOBAL.h"
#include "graphs/setup/PlottingLists.h"
#include "platform/DialogsAfter.h"
#include "results/Statistics.h"

namespace korvel {

namespace {

constexpr int labelLength = 20; // a longer path is shown without its folders

std::string& labelOf(GraphChoices& choices, int slot) {
    return choices.fileLabels.at(static_cast<std::size_t>(slot));
}

void followLevel(GraphChoices& choices, const ResultsDataSet& results) {
    choices.percentile = statisticNamed(results.percentileLevel).value_or(choices.percentile);
}

void takeFirstDataSet(GraphChoices& choices, ResultsDataSet& results) {
    choices.firstDataSetLoaded = true;
    choices.title = trim(results.resultsTitle);
    followLevel(choices, results);
}

void rememberLoad(GraphChoices& choices) {
    choices.firstFile = GLOBAL.fileNames[0];
    choices.firstLoad = GLOBAL.firstSlotLoads;
}

// A message stands alone: the form does not show meanwhile that it waits. After a warning reading goes on.
void readWaiting(Platform& platform, GraphChoices& choices, const SetUpCallbacks& callbacks) {
    const auto showWaiting = [&](bool waiting) {
        if (choices.waiting == waiting) return;
        choices.waiting = waiting;
        callbacks.showState();
    };
    DialogsAfter dialogs(platform.dialogs, [&] { showWaiting(false); });
    Platform whileReading = withDialogs(platform, dialogs);
    LoadResultsFile(whileReading, true, [&](double share) {
        showWaiting(true);
        if (callbacks.progress) callbacks.progress(share);
    });
}

void load(Platform& platform, GraphChoices& choices, int slot, const SetUpCallbacks& callbacks) {
    GLOBAL.currentSlot = slot;
    if (slot == 0) GLOBAL.fileNames[1].clear();
    beginLoad(choices, slot, GLOBAL.fileNames[slot]);
    callbacks.showState();
    readWaiting(platform, choices, callbacks);
    endLoad(choices, slot, GLOBAL.loadFailed ? LoadOutcome::failed : LoadOutcome::loaded, RESULTS);
    if (slot == 0) rememberLoad(choices);
    followLoads(choices);
}

// The report form reads files into the same first slot. What it read there is what graphs are drawn from, so
// that the form shows it, and the second data set was checked against what is gone. The same file read again
// leaves title and selections as they are.
void takeLoadOfAnotherForm(GraphChoices& choices) {
    if (!choices.firstDataSetLoaded || choices.firstLoad == GLOBAL.firstSlotLoads) return;
    GLOBAL.fileNames[1].clear();
    if (GLOBAL.firstSlotLoaded && choices.firstFile == GLOBAL.fileNames[0]) {
        choices.fileLabels[1].clear();
        choices.plotType = PlotType::firstDataSet;
        followLevel(choices, RESULTS);
        fillLists(choices, RESULTS);
    } else {
        beginLoad(choices, 0, GLOBAL.fileNames[0]);
        endLoad(choices, 0, GLOBAL.firstSlotLoaded ? LoadOutcome::loaded : LoadOutcome::failed, RESULTS);
    }
    rememberLoad(choices);
}

// The name of the chosen file, or "" where none can be taken.
std::string chooseName(Platform& platform, FileDialogSettings& dialog, int slot) {
    dialog.title = slot == 0 ? "Select Data File 1" : "Select Data File 2";
    dialog.initialFolder = GLOBAL.fileNames[0].empty() ? GLOBAL.LastFolder : folderOf(GLOBAL.fileNames[0]);
    const std::optional<ChosenFile> chosen = platform.dialogs.chooseFile(FileDialogKind::open, dialog);
    if (!chosen) return "";
    platform.files.setCurrentFolder(platform.machine.applicationFolder());
    if (!chosen->refusal) return chosen->name;
    platform.dialogs.show(refusedName(*chosen));
    return "";
}

} // namespace

FileDialogSettings resultsDialog() {
    FileDialogSettings settings;
    settings.objectName = "CDFilename";
    settings.filter = "Korvel graph files (*.SGR)|*.SGR";
    return settings;
}

void beginLoad(GraphChoices& choices, int slot, const std::string& fileName) {
    choices.plotEnabled = false;
    choices.waiting = true;
    labelOf(choices, slot) = ShortFileName(fileName, labelLength);
    if (slot != 0) return;
    choices.fileLabels[1].clear();
    choices.firstDataSetLoaded = false;
    choices.plotType = PlotType::firstDataSet;
    clearSelections(choices);
}

void endLoad(GraphChoices& choices, int slot, LoadOutcome end, ResultsDataSet& results) {
    choices.waiting = false;
    if (end == LoadOutcome::loaded) {
        if (slot == 0) takeFirstDataSet(choices, results);
        fillLists(choices, results);
    } else if (slot == 1) {
        choices.fileLabels[1].clear();
        choices.plotType = PlotType::firstDataSet;
    }
    choices.plotEnabled = choices.firstDataSetLoaded;
}

void followLoads(GraphChoices& choices) {
    if (choices.followedLoads == GLOBAL.loads) return;
    choices.followedLoads = GLOBAL.loads;
    choices.offersInterpolatedPoints = choices.plotInterpolatedPoints = GLOBAL.plotInterpolatedPoints;
}

void activateGraphSetUp(Platform& platform, GraphChoices& choices, const SetUpCallbacks& callbacks) {
    followLoads(choices);
    if (GLOBAL.returnedFromGraph) {
        GLOBAL.returnedFromGraph = false;
        return;
    }
    if (!GLOBAL.graphResultsPending) return takeLoadOfAnotherForm(choices);
    load(platform, choices, 0, callbacks);
    if (!GLOBAL.loadFailed) GLOBAL.graphResultsPending = false;
}

void chooseResultsFile(Platform& platform, GraphChoices& choices, FileDialogSettings& dialog, int slot,
                       const SetUpCallbacks& callbacks) {
    labelOf(choices, slot).clear();
    callbacks.showState();
    if (slot == 1 && !choices.firstDataSetLoaded) {
        platform.dialogs.show({"You must select Data File 1 before Data File 2.", "Select data file",
                               Icon::exclamation, Buttons::ok});
        return;
    }
    try {
        const std::string name = chooseName(platform, dialog, slot);
        if (name.empty()) return;
        GLOBAL.fileNames[slot] = name;
        load(platform, choices, slot, callbacks);
    } catch (const RunTimeError& error) {
        if (choices.waiting) endLoad(choices, slot, LoadOutcome::failed, RESULTS);
        callbacks.showState();
        platform.dialogs.show(
            {error.description, slot == 1 ? "Error in 2nd data set" : "Error", Icon::critical, Buttons::ok});
    }
}

bool readyToPlot(Platform& platform, GraphChoices& choices) {
    choices.displayLevel = GLOBAL.mainForm.displayLevel;
    std::optional<Message> refusal = missingData(choices);
    if (!refusal) refusal = prepareGraph(choices, RESULTS, GLOBAL, GLOBAL);
    if (refusal) platform.dialogs.show(*refusal);
    return !refusal;
}

} // namespace korvel
