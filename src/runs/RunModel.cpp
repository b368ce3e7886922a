#include "runs/RunModel.h"

#include "basic/ModelName.h"
#include "basic/Text.h"
#include "global/GLOBAL.h"
#include "runs/DataFileName.h"
#include "runs/RunControlFile.h"

#include <utility>

namespace korvel {

namespace {

bool hasDataFile(const CurrentDataFile& current) {
    const std::string name = trim(current.DataFileName);
    return !name.empty() && name != "New Data";
}

void startEngine(Platform& platform) {
    const std::string folder = platform.machine.applicationFolder();
    const ControlledRun run{GLOBAL.DataFolder, GLOBAL.DataFileBase, GLOBAL.RunType};
    const StartedRun shown{run.runType, {dataFileOf(run)}};
    StartTurn turn = platform.machine.takeStartTurn();
    platform.files.writeWhole(inFolder(folder, RunControlFileName), singleRunText(GLOBAL.RunMode, run));
    platform.files.setCurrentFolder(folder);
    platform.machine.startEngine(inFolder(folder, EngineFileName), shown, std::move(turn));
}

void handOverResults() {
    GLOBAL.graphResultsPending = true;
    GLOBAL.reportResultsPending = true;
    GLOBAL.currentSlot = 0;
    GLOBAL.fileNames[0] = resultsFileName(GLOBAL.DataFolder, GLOBAL.DataFileBase);
}

} // namespace

void RunModel(Platform& platform, DataFiles& dataFiles) {
    HideEditWarningMessage(GLOBAL.mainForm);
    GLOBAL.mainForm.title = "KORVEL";
    GLOBAL.RunStarting = true;
    dataFiles.Open();
    if (!hasDataFile(GLOBAL)) return;

    GLOBAL.RunMode = "SINGLE";
    startEngine(platform);
    handOverResults();
    GLOBAL.DataFileName.clear();
    GLOBAL.RunStarting = false;
}

} // namespace korvel
