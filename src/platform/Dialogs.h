// Message boxes, file dialogs and the printer dialog.
#pragma once

#include "basic/DiskNames.h"
#include "platform/Message.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvel {

enum class FileDialogKind { open, save };

// What a form's one dialog control holds between uses: settings made for one use stay for the next.
struct FileDialogSettings {
    std::string objectName; // "CDFilename"
    std::string title;
    std::string filter;        // "caption|pattern|caption|pattern"
    std::string initialFolder; // a model name; "" leaves the current folder
    bool overwritePrompt = false;
    std::string defaultExtension; // put behind a name to save that has none; "" leaves it as typed
    std::string proposedName;     // without folder, of a file to save; "" proposes none
    NameUse nameUse = NameUse::asChosen;
};

struct ChosenFile {
    std::string name;                   // a model name, spelt as chosen
    std::optional<std::string> refusal; // why the name can't be used; the caller shows it and takes no file
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;
    virtual Answer show(const Message& message) = 0;
    // Nothing on Cancel; RunTimeError for any other failure of the dialog. Afterwards the process's current
    // folder is the chosen file's.
    virtual std::optional<ChosenFile> chooseFile(FileDialogKind kind, const FileDialogSettings& settings) = 0;
    // The same for any number of files to open; none on Cancel. A dialog that knows of one file gives that
    // one.
    virtual std::vector<ChosenFile> chooseFiles(const FileDialogSettings& settings) {
        if (auto file = chooseFile(FileDialogKind::open, settings)) return {std::move(*file)};
        return {};
    }
    // Sets the printer for all that is printed from now on; cancelled, it changes nothing.
    virtual void choosePrinter(const std::string& objectName) = 0;
};

// The box that tells why a chosen name can't be used.
inline Message refusedName(const ChosenFile& chosen) {
    return {chosen.refusal.value_or(""), "File name", Icon::exclamation, Buttons::ok};
}

} // namespace korvel
