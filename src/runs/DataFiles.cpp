#include "runs/DataFiles.h"

#include "global/GLOBAL.h"
#include "runs/DataFileName.h"

#include <string>
#include <utility>

namespace korvel {

namespace {

constexpr const char* dataFileFilter = "Korvel input data (*.DAT)|*.DAT";

Message unexpectedError(const RunTimeError& error) {
    return {"The following unexpected error has occurred during an attempt to open a data file. Please "
            "report this to "
            "the System Manager:\n\nError " +
                std::to_string(error.number) + ": '" + error.description + "'",
            "Unexpected KORVEL Error", Icon::critical, Buttons::ok};
}

void forgetFolderAndBase() {
    GLOBAL.DataFileBase.clear();
    GLOBAL.DataFolder.clear();
}

void takeNames(const DataFileNames& names) {
    GLOBAL.DataFileName = names.name;
    GLOBAL.DataFolder = names.folder;
    GLOBAL.DataFileBase = names.base;
}

} // namespace

DataFiles::DataFiles(Platform& platform, MainFormCallbacks callbacks)
    : m_platform(platform), m_callbacks(std::move(callbacks)) {
    CDFilename.objectName = "CDFilename";
    CDFilename.nameUse = NameUse::inUpperCase;
}

void DataFiles::Open() {
    HideEditWarningMessage(GLOBAL.mainForm);
    GLOBAL.mainForm.editTextEnabled = true;
    const std::optional<ChosenFile> chosen = chooseToOpen();
    if (chosen) {
        takeChosenToOpen(*chosen);
    } else {
        forgetFolderAndBase();
        NewDataFile();
    }
}

std::optional<ChosenFile> DataFiles::chooseToOpen() {
    CDFilename.initialFolder = GLOBAL.LastFolder;
    CDFilename.filter = dataFileFilter;
    CDFilename.title = "Open KORVEL data file ...";
    m_callbacks.showState();
    try {
        return m_platform.dialogs.chooseFile(FileDialogKind::open, CDFilename);
    } catch (const RunTimeError& error) {
        show(unexpectedError(error));
        return std::nullopt;
    }
}

void DataFiles::takeChosenToOpen(const ChosenFile& chosen) {
    GLOBAL.DataFileName = dataFileName(chosen.name);
    const std::string dialogFolder = m_platform.files.currentFolder();
    returnToApplicationFolder();
    if (!chosen.refusal) {
        GLOBAL.LastFolder = dialogFolder;
        m_callbacks.saveSettings();
    }
    GLOBAL.mainForm.runMenuEnabled = true;
    GLOBAL.mainForm.editTextEnabled = false;

    const DataFileVerdict verdict = chosen.refusal ? refusedName(chosen) : dataFileToOpen(chosen.name);
    if (const Message* refusal = std::get_if<Message>(&verdict)) {
        show(*refusal);
        GLOBAL.DataFileName.clear();
        forgetFolderAndBase();
        return;
    }
    takeNames(std::get<DataFileNames>(verdict));
    if (!GLOBAL.RunStarting) GLOBAL.mainForm.title = mainFormTitle(GLOBAL.DataFileBase);
}

void DataFiles::Save() {
    HideEditWarningMessage(GLOBAL.mainForm);
    GLOBAL.mainForm.editTextEnabled = true;
}

void DataFiles::SaveAs() {
    HideEditWarningMessage(GLOBAL.mainForm);
    GLOBAL.mainForm.editTextEnabled = true;
    const std::optional<ChosenFile> chosen = chooseToSave();
    if (!chosen) return forgetFolderAndBase();
    // Kept so: set after the dialog has closed, the prompt comes from the next dialog on.
    CDFilename.overwritePrompt = true;
    returnToApplicationFolder();

    GLOBAL.DataFileName = dataFileName(chosen->name);
    const DataFileVerdict verdict = chosen->refusal ? refusedName(*chosen) : dataFileToSaveAs(chosen->name);
    if (const Message* refusal = std::get_if<Message>(&verdict)) {
        show(*refusal);
        return forgetFolderAndBase();
    }
    takeNames(std::get<DataFileNames>(verdict));
    GLOBAL.mainForm.title = mainFormTitle(GLOBAL.DataFileBase);
}

std::optional<ChosenFile> DataFiles::chooseToSave() {
    CDFilename.filter = dataFileFilter;
    CDFilename.title = "Save KORVEL input data file";
    m_callbacks.showState();
    try {
        return m_platform.dialogs.chooseFile(FileDialogKind::save, CDFilename);
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

void DataFiles::NewDataFile() {
    HideEditWarningMessage(GLOBAL.mainForm);
    GLOBAL.mainForm.editTextEnabled = false;
    if (GLOBAL.DataModified) {
        const Answer answer = show({"Do you wish to save the current data, before creating a new data file?",
                                    "Save data", Icon::question, Buttons::yesNo});
        if (answer == Answer::yes) SaveAs();
    }
    GLOBAL.DataFileName = GLOBAL.DataFileBase = "New Data";
    GLOBAL.mainForm.title = mainFormTitle(GLOBAL.DataFileBase);
    GLOBAL.mainForm.progress = 0;
    GLOBAL.mainForm.saveEnabled = false;
    GLOBAL.mainForm.saveAsEnabled = true;
    GLOBAL.mainForm.runMenuEnabled = true;
    GLOBAL.mainForm.editTextEnabled = false;
    GLOBAL.loadFailed = true;
}

void DataFiles::returnToApplicationFolder() {
    m_platform.files.setCurrentFolder(m_platform.machine.applicationFolder());
}

Answer DataFiles::show(const Message& message) {
    m_callbacks.showState();
    return m_platform.dialogs.show(message);
}

} // namespace korvel
