#include "commands/ConsoleDialogs.h"

#include "basic/Text.h"
#include "tables/TextLook.h"

#include <ostream>
#include <utility>

namespace korvel {

namespace {

std::string inOneLine(const std::string& text) {
    std::string line;
    bool breaking = false;
    for (char c : text) {
        const bool isBreak = c == '\r' || c == '\n';
        if (!isBreak)
            line += c;
        else if (!breaking)
            line += ' ';
        breaking = isBreak;
    }
    return line;
}

} // namespace

std::string iconName(Icon icon) {
    switch (icon) {
    case Icon::question: return "question";
    case Icon::critical: return "critical";
    case Icon::information: return "information";
    case Icon::exclamation: break;
    }
    return "exclamation";
}

std::string consoleLine(const Message& message) {
    return "[" + iconName(message.icon) + "] " + withVisibleControls(shownUtf8(inOneLine(message.title))) +
           ": " + withVisibleControls(shownUtf8(inOneLine(message.text)));
}

Answer ConsoleDialogs::show(const Message& message) {
    m_errors << consoleLine(message) << std::endl;
    m_messages.push_back(message);
    switch (message.buttons) {
    case Buttons::yesNo: return Answer::no;
    case Buttons::saveDiscardCancel: return Answer::cancel;
    case Buttons::ok: break;
    }
    return Answer::ok;
}

std::vector<Message> ConsoleDialogs::takeMessages() {
    return std::exchange(m_messages, {});
}

} // namespace korvel
