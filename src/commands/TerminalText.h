// What goes to a terminal: control characters, which could drive it, are shown as ^[ and the like. Line
// ends, tabs and the carriage return that begins a line anew pass.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>

namespace korvel {

// Whether the program itself writes colours and clears lines on the way; nothing else of the kind passes
// then.
enum class OwnControls { none, coloursAndProgress };

class TerminalText : public std::streambuf {
  public:
    explicit TerminalText(std::streambuf& terminal, OwnControls own = OwnControls::none)
        : m_terminal(terminal), m_own(own) {}

  protected:
    int_type overflow(int_type c) override;
    int sync() override;

  private:
    bool take(unsigned char c);
    bool show(unsigned char c);
    bool put(const std::string& text);
    bool passes(unsigned char c);

    std::streambuf& m_terminal;
    OwnControls m_own;
    std::string m_control;  // what may become one of the program's own
    int m_toCome = 0;       // bytes of a letter in UTF-8
    bool m_afterC2 = false; // the first byte of one, kept back: a control character may come of it
};

// A stream's text made so as long as it lives, where the channel is a terminal.
class OnTerminal {
  public:
    OnTerminal(std::ostream& stream, int channel, OwnControls own = OwnControls::none);
    ~OnTerminal();
    OnTerminal(const OnTerminal&) = delete;
    OnTerminal& operator=(const OnTerminal&) = delete;

  private:
    std::ostream& m_stream;
    std::streambuf* m_before;
    TerminalText m_text;
};

} // namespace korvel
