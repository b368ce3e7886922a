// Message boxes, file dialogs and the printer dialog, shown with Qt.
#pragma once

#include "platform/Dialogs.h"

namespace korvel {

class PrinterChoice;

class QtDialogs : public Dialogs {
  public:
    explicit QtDialogs(PrinterChoice& printer) : m_printer(printer) {}

    Answer show(const Message& message) override;
    std::optional<ChosenFile> chooseFile(FileDialogKind kind, const FileDialogSettings& settings) override;
    std::vector<ChosenFile> chooseFiles(const FileDialogSettings& settings) override;
    void choosePrinter(const std::string& objectName) override;

  private:
    PrinterChoice& m_printer;
};

} // namespace korvel
