// How text for people looks: on a terminal in colour, which never is the only sign of what it says.
#pragma once

#include <string>
#include <string_view>

namespace korvel {

enum class TextTone { plain, heading, good, doubtful, bad };

struct TextLook {
    bool colours = false;
};

// The text with what a terminal needs to show its tone.
std::string toned(std::string_view text, TextTone tone, const TextLook& look);

// Control characters as carets and letters: "^[" for the one that begins a terminal's commands. UTF-8.
std::string withVisibleControls(std::string_view text);

} // namespace korvel
