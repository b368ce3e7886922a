// The batch run: lists the data files of one folder, takes those out that are not wanted, and starts the
// engine once on all the others. What the form shows is a value here; showing it is left to the form.
#pragma once

#include "basic/Palette.h"
#include "platform/Platform.h"
#include "runs/RunControlFile.h"

#include <functional>
#include <optional>

namespace korvel {

enum class BatchStep { selectFiles, run };

struct BatchState {
    BatchStep step = BatchStep::selectFiles;
    std::string title;
    std::optional<int> option;        // of the run types, 0 to 5
    std::vector<std::string> names;   // of the listed files, upper case
    std::vector<bool> selected;       // by place in the list
    std::string folder;               // of the listed files
    std::vector<std::string> leftOut; // its data files that are not listed, as they are spelt
    bool listVisible = false;
    bool listEnabled = false;
    bool removalHintVisible = false;
    bool assembling = false;
    double progress = 0; // share of the files assembled, 0 to 1
    bool completed = false;
};

inline constexpr int BatchOptions = 6;
// The run type that an option stands for; error 9 outside 0..5.
int batchRunType(int option);

// Kept so: ".DAT" anywhere in the name, so that A.DAT.BAK is listed too. A name that no line of the
// run-control file can hold, or that would name a file elsewhere there, is not.
bool isListedInBatch(std::string_view fileName);

struct BatchList {
    std::vector<std::string> names; // upper case, FILE2 before FILE10
    // Twins of a listed file that differ from it in case only, and that its upper case name does not lead to.
    std::vector<std::string> leftOut;
};
BatchList batchList(const std::vector<std::string>& fileNames);

// What the form says of its list: the folder, whether another form has moved the current one since, and what
// was left out. "" before there is a list. No current folder: a choice elsewhere was cancelled.
std::string batchListNote(const BatchState& state, const std::string& currentFolder);

// Takes the selected names out, walking from the first item and staying on an index after a removal.
void removeSelected(std::vector<std::string>& names, std::vector<bool>& selected);

std::string batchInstructions();
std::string batchRemovalHint();

struct ColumnGreys {
    Rgb dark;
    Rgb light;
};
// Kept so: whatever the column, the two greys are the same, and nothing is painted with them.
ColumnGreys ChangeCaptionsAndColumnColour(int column);

class BatchRun {
  public:
    // `showState` shows state(), and lets it be painted.
    BatchRun(Platform& platform, std::function<void()> showState);

    BatchState& state() { return m_state; }
    const BatchState& state() const { return m_state; }

    // The step button.
    void takeStep();
    void chooseOption(int option);
    // The Delete key in the list.
    void deleteSelected();
    // The list has lost the focus: asks where names are still selected.
    void leaveList();

    void SelectDataFiles();
    void ShowFileList(const std::string& folder);
    void CarryOutBatchRun();
    // The file of this index in BatchFiles.
    void CreateBatchFile(int index);

    // batchListNote() of the list as it stands.
    std::string listNote() const;

    // The process's current folder becomes the batch's, and the application folder the current one.
    void takeCurrentFolder();

  private:
    void assembleFiles();
    void writeRunControlFile();
    StartedRun shownRun() const;

    Platform& m_platform;
    std::function<void()> m_showState;
    FileDialogSettings cdFileName;
    BatchState m_state;
    bool m_cancelled = false;
    std::vector<ControlledRun> m_runs;
};

} // namespace korvel
