#include "runs/BatchRun.h"

#include "basic/ModelName.h"
#include "basic/NaturalOrder.h"
#include "basic/Text.h"
#include "global/GLOBAL.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace korvel {

namespace {

constexpr const char* policyDataFile = "GlobalPolicyData.gpd"; // the engine must not find an earlier run's
constexpr std::size_t extensionLength = 4;                     // ".DAT"
constexpr int lastForgottenEntry = 100; // kept so: entries of a larger batch before stay

} // namespace

int batchRunType(int option) {
    constexpr std::array<int, BatchOptions> runTypes = {0, 4, 7, 8, 9, 6};
    return runTypes[checkedOffset(option, 0, BatchOptions - 1)];
}

bool isListedInBatch(std::string_view fileName) {
    const bool hasModelName = fileName.find_first_of("\\\r\n") == std::string_view::npos;
    return hasModelName && contains(upperCase(fileName), ".DAT");
}

BatchList batchList(const std::vector<std::string>& fileNames) {
    std::vector<std::string> spelt;
    std::ranges::copy_if(fileNames, std::back_inserter(spelt), isListedInBatch);
    std::ranges::sort(spelt); // of twins the one in upper case, else the first in byte order is found
    BatchList list;
    for (const std::string& name : spelt) {
        const std::string raised = upperCase(name);
        const bool isListed = std::ranges::find(list.names, raised) != list.names.end();
        if (isListed)
            list.leftOut.push_back(name);
        else
            list.names.push_back(raised);
    }
    std::ranges::sort(list.names, comesBefore);
    return list;
}

std::string batchListNote(const BatchState& state, const std::string& currentFolder) {
    if (state.folder.empty()) return "";
    std::string note = "Files of " + state.folder;
    if (currentFolder.empty())
        note +=
            "\nNo folder is chosen any more, as the choice of a data file was cancelled since. Close this "
            "form and begin again with 'Step 1'.";
    else if (currentFolder != state.folder)
        note += "\nThe folder was changed to " + currentFolder + " since: the files are taken from there.";
    for (std::size_t k = 0; k < state.leftOut.size(); ++k)
        note += (k == 0 ? "\nNot listed, as another name differs in case only: " : ", ") + state.leftOut[k];
    return note;
}

void removeSelected(std::vector<std::string>& names, std::vector<bool>& selected) {
    selected.resize(names.size(), false);
    for (std::ptrdiff_t i = 0; i < std::ssize(names);) {
        if (selected[static_cast<std::size_t>(i)]) {
            names.erase(names.begin() + i);
            selected.erase(selected.begin() + i);
        } else {
            ++i;
        }
    }
}

std::string batchInstructions() {
    return " \n"
           "    Click 'Step 1'.  Select any one data file from the folder of data files you wish to use.\n"
           "    A list of all the data files in that folder will then be displayed.\n"
           "    Remove files not wanted in this run.\n"
           "\n"
           "    Click 'Step 2' to run these.\n"
           "  \n";
}

std::string batchRemovalHint() {
    return "To remove data files from this list, click on the required file names (using SHIFT and CTRL for "
           "multiple selections). Then press the Delete key.";
}

ColumnGreys ChangeCaptionsAndColumnColour(int) {
    return {{192, 192, 192}, {224, 224, 224}};
}

BatchRun::BatchRun(Platform& platform, std::function<void()> showState)
    : m_platform(platform), m_showState(std::move(showState)) {
    cdFileName.objectName = "cdFileName";
}

void BatchRun::takeStep() {
    m_state.completed = false;
    if (m_state.step == BatchStep::run) {
        m_state.removalHintVisible = false;
        m_showState();
        return CarryOutBatchRun();
    }
    SelectDataFiles();
    if (m_cancelled) return;
    m_state.removalHintVisible = true;
    m_state.listEnabled = true;
    m_state.step = BatchStep::run;
}

void BatchRun::chooseOption(int option) {
    m_state.option = option;
    m_state.completed = false;
}

void BatchRun::deleteSelected() {
    removeSelected(m_state.names, m_state.selected);
}

void BatchRun::leaveList() {
    if (std::ranges::count(m_state.selected, true) == 0) return;
    const Message question{"Do you want to delete the marked file names from the list of Base Files?",
                           "Delete file names", Icon::question, Buttons::yesNo};
    if (m_platform.dialogs.show(question) == Answer::yes) deleteSelected();
}

void BatchRun::SelectDataFiles() {
    m_state.names.clear();
    m_state.selected.clear();
    m_state.folder.clear();
    m_state.leftOut.clear();
    cdFileName.initialFolder = GLOBAL.LastFolder;
    cdFileName.filter = "Korvel input data (*.dat)|*.dat";
    cdFileName.title = "Select ONE data file for inclusion in Batch Run";
    m_showState();
    const std::optional<ChosenFile> chosen = m_platform.dialogs.chooseFile(FileDialogKind::open, cdFileName);
    m_cancelled = !chosen || chosen->refusal;
    if (chosen && chosen->refusal) m_platform.dialogs.show(refusedName(*chosen));
    if (m_cancelled) return;
    takeCurrentFolder();
    ShowFileList(GLOBAL.DataFolder);
}

// Kept so: in a root folder two backslashes follow the drive.
void BatchRun::takeCurrentFolder() {
    GLOBAL.DataFolder = m_platform.files.currentFolder() + "\\";
    GLOBAL.LastFolder = GLOBAL.DataFolder;
    m_platform.files.setCurrentFolder(m_platform.machine.applicationFolder());
}

void BatchRun::ShowFileList(const std::string& folder) {
    BatchList list = batchList(m_platform.files.filesIn(folder));
    m_state.names = std::move(list.names);
    m_state.leftOut = std::move(list.leftOut);
    m_state.folder = folder;
    m_state.selected.assign(m_state.names.size(), false);
    m_state.listVisible = true;
    m_showState();
}

// What another form has opened in this very folder is spelt in upper case.
std::string BatchRun::listNote() const {
    const bool same = m_platform.files.areOne(m_state.folder, GLOBAL.DataFolder);
    return batchListNote(m_state, same ? m_state.folder : GLOBAL.DataFolder);
}

void BatchRun::CarryOutBatchRun() {
    for (int entry = 1; entry <= lastForgottenEntry; ++entry)
        GLOBAL.BatchFiles[entry].clear();
    GLOBAL.batchFileCount = 0;
    const std::string policyData = inFolder(GLOBAL.DataFolder, policyDataFile);
    if (m_platform.files.exists(policyData)) m_platform.files.remove(policyData);
    if (m_state.option) GLOBAL.RunType = batchRunType(*m_state.option);
    assembleFiles();
    StartTurn turn = m_platform.machine.takeStartTurn();
    writeRunControlFile();
    m_state.assembling = false;
    // Kept so: a blank stands behind the engine's name.
    m_platform.machine.startEngine(inFolder(m_platform.machine.applicationFolder(), EngineFileName) + " ",
                                   shownRun(), std::move(turn));
    m_state.completed = true;
}

void BatchRun::assembleFiles() {
    m_runs.clear();
    m_state.progress = 0;
    m_state.assembling = true;
    m_showState();
    for (const std::string& name : m_state.names) {
        ++GLOBAL.batchFileCount;
        GLOBAL.BatchFiles[GLOBAL.batchFileCount] = name;
        CreateBatchFile(GLOBAL.batchFileCount);
    }
    m_state.progress = 1;
    m_showState();
}

void BatchRun::CreateBatchFile(int index) {
    const std::string& name = GLOBAL.BatchFiles[index];
    GLOBAL.DataFileName = GLOBAL.DataFolder + "\\" + name;
    GLOBAL.DataFileBase = withoutLast(name, extensionLength);
    m_runs.push_back({GLOBAL.DataFolder, GLOBAL.DataFileBase, GLOBAL.RunType});
}

StartedRun BatchRun::shownRun() const {
    StartedRun shown{GLOBAL.RunType, {}};
    for (const ControlledRun& run : m_runs)
        shown.dataFiles.push_back(dataFileOf(run));
    return shown;
}

void BatchRun::writeRunControlFile() {
    const std::string folder = m_platform.machine.applicationFolder();
    m_platform.files.writeWhole(inFolder(folder, RunControlFileName), batchRunText(m_state.title, m_runs));
    m_platform.files.setCurrentFolder(folder);
}

} // namespace korvel
