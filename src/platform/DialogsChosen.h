// Dialogs of which the file dialog has been answered: the file is known, all else is asked as ever.
#pragma once

#include "basic/ModelName.h"
#include "platform/Platform.h"

#include <string>
#include <utility>

namespace korvel {

class DialogsChosen : public Dialogs {
  public:
    // `file`: a model name.
    DialogsChosen(Platform& platform, std::string file) : m_platform(platform), m_file(std::move(file)) {}

    Answer show(const Message& message) override { return m_platform.dialogs.show(message); }
    std::optional<ChosenFile> chooseFile(FileDialogKind, const FileDialogSettings&) override {
        m_platform.files.setCurrentFolder(folderOf(m_file));
        return ChosenFile{m_file, std::nullopt};
    }
    void choosePrinter(const std::string& objectName) override {
        m_platform.dialogs.choosePrinter(objectName);
    }

  private:
    Platform& m_platform;
    std::string m_file;
};

} // namespace korvel
