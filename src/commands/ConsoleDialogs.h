// Message boxes for a program without windows: one line each on standard error. Nothing is ever asked: a
// question is answered No, a dialog cancelled.
#pragma once

#include "platform/Dialogs.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace korvel {

// "exclamation", "question", "critical", "information"
std::string iconName(Icon icon);

// "[exclamation] title: text" in one line, as shown.
std::string consoleLine(const Message& message);

class ConsoleDialogs : public Dialogs {
  public:
    explicit ConsoleDialogs(std::ostream& errors) : m_errors(errors) {}

    Answer show(const Message& message) override;
    std::optional<ChosenFile> chooseFile(FileDialogKind, const FileDialogSettings&) override { return {}; }
    void choosePrinter(const std::string&) override {}

    // What was shown since the last call.
    std::vector<Message> takeMessages();

  private:
    std::ostream& m_errors;
    std::vector<Message> m_messages;
};

} // namespace korvel
