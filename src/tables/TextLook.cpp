#include "tables/TextLook.h"

namespace korvel {

namespace {

const char* startOf(TextTone tone) {
    switch (tone) {
    case TextTone::heading: return "\033[1m";
    case TextTone::good: return "\033[32m";
    case TextTone::doubtful: return "\033[33m";
    case TextTone::bad: return "\033[31m";
    case TextTone::plain: break;
    }
    return "";
}

constexpr char afterCaret(unsigned code) {
    return static_cast<char>(code ^ 0x40U);
}

} // namespace

std::string toned(std::string_view text, TextTone tone, const TextLook& look) {
    if (!look.colours || tone == TextTone::plain) return std::string(text);
    return startOf(tone) + std::string(text) + "\033[0m";
}

std::string withVisibleControls(std::string_view text) {
    std::string visible;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto code = static_cast<unsigned char>(text[i]);
        const auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0U;
        if (code < 0x20 || code == 0x7F) {
            visible += {'^', afterCaret(code)};
        } else if (code == 0xC2 && next >= 0x80 && next < 0xA0) { // the same commands in one character
            visible += {'^', '[', static_cast<char>(next - 0x40)};
            ++i;
        } else {
            visible += text[i];
        }
    }
    return visible;
}

} // namespace korvel
