// Showing forms, and ending the program.
#pragma once

#include "basic/RunTimeError.h"

#include <string>

namespace korvel {

class ShownForm {
  public:
    virtual ~ShownForm() = default;
    virtual std::string formName() const = 0;
    // Called when the form is shown, and again when a modal form above it has returned.
    virtual void activate() = 0;
};

class Windows {
  public:
    virtual ~Windows() = default;
    // Returns when the form has closed.
    virtual void showModal(ShownForm& form) = 0;
    virtual void showModeless(ShownForm& form) = 0;
    virtual void close(ShownForm& form) = 0;
    // Ends the program; nothing more of it runs once the handler in hand has returned.
    virtual void endProgram() = 0;
    // The end of the program on a failure that no trap caught: its message, then exit status 1 at once.
    virtual void failProgram(const RunTimeError& error) = 0;
    // Lets pending paint events pass.
    virtual void updateScreen() = 0;
    // Lets the user's input pass too, for a long piece of work that can be cancelled; the form that works
    // switches all else off meanwhile.
    virtual void passEvents() = 0;
};

} // namespace korvel
