// Open, Save, Save As and the new data file of the main form: they settle the current data file's name, and
// read and write no data.
#pragma once

#include "platform/Platform.h"

#include <functional>

namespace korvel {

// What the data-file procedures need of the program around them.
struct MainFormCallbacks {
    std::function<void()> saveSettings;
    std::function<void()> showState; // shows GLOBAL.mainForm; called before each question
};

class DataFiles {
  public:
    DataFiles(Platform& platform, MainFormCallbacks callbacks);

    void Open();
    void Save();
    void SaveAs();
    void NewDataFile();

  private:
    std::optional<ChosenFile> chooseToOpen();
    void takeChosenToOpen(const ChosenFile& chosen);
    std::optional<ChosenFile> chooseToSave();
    void returnToApplicationFolder();
    Answer show(const Message& message);

    Platform& m_platform;
    MainFormCallbacks m_callbacks;
    // The one dialog that Open and Save As share: what one sets stays set for the other.
    FileDialogSettings CDFilename;
};

} // namespace korvel
