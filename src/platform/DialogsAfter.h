// Dialogs that do something first whenever a message is to be shown: a form takes its progress away.
#pragma once

#include "platform/Platform.h"

#include <functional>

namespace korvel {

class DialogsAfter : public Dialogs {
  public:
    DialogsAfter(Dialogs& dialogs, std::function<void()> first)
        : m_dialogs(dialogs), m_first(std::move(first)) {}

    Answer show(const Message& message) override {
        m_first();
        return m_dialogs.show(message);
    }
    std::optional<ChosenFile> chooseFile(FileDialogKind kind, const FileDialogSettings& settings) override {
        return m_dialogs.chooseFile(kind, settings);
    }
    std::vector<ChosenFile> chooseFiles(const FileDialogSettings& settings) override {
        return m_dialogs.chooseFiles(settings);
    }
    void choosePrinter(const std::string& objectName) override { m_dialogs.choosePrinter(objectName); }

  private:
    Dialogs& m_dialogs;
    std::function<void()> m_first;
};

} // namespace korvel
