// Showing forms with Qt, and ending the program.
#pragma once

#include "platform/Dialogs.h"
#include "platform/Windows.h"

#include <vector>

namespace korvel {

class Form;

class QtWindows : public Windows {
  public:
    explicit QtWindows(Dialogs& dialogs) : m_dialogs(dialogs) {}

    void showModal(ShownForm& shown) override;
    void showModeless(ShownForm& shown) override;
    void close(ShownForm& form) override;
    void endProgram() override;
    void failProgram(const RunTimeError& error) override;
    void updateScreen() override;
    void passEvents() override;

  private:
    Dialogs& m_dialogs;
    std::vector<Form*> m_shown; // the form that a modal one returns to is the last but one
};

} // namespace korvel
