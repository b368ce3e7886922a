// A message box as a value: what is shown, and how it is answered.
#pragma once

#include <string>

namespace korvel {

enum class Icon { exclamation, question, critical, information };
enum class Buttons { ok, yesNo, saveDiscardCancel };
enum class Answer { ok, yes, no, save, discard, cancel };

struct Message {
    std::string text;
    std::string title;
    Icon icon = Icon::exclamation;
    Buttons buttons = Buttons::ok;
    bool operator==(const Message&) const = default;
};

} // namespace korvel
