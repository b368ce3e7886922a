#include "commands/TerminalText.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace korvel {

namespace {

constexpr std::array<std::string_view, 6> ownControls = {"\033[0m",  "\033[1m",  "\033[31m",
                                                         "\033[32m", "\033[33m", "\033[K"};
constexpr unsigned char firstOfControls = 0xC2; // of U+0080 to U+009F in UTF-8, and of other letters

bool isControl(unsigned char c) {
    const bool passes = c == '\n' || c == '\t' || c == '\r';
    return (c < 0x20 && !passes) || c == 0x7F;
}

bool isUpperControl(unsigned char c) {
    return c >= 0x80 && c < 0xA0;
}

// Of the bytes that follow; 0 for a byte that begins no letter.
int followersOf(unsigned char c) {
    if (c >= 0xF0 && c < 0xF8) return 3;
    if (c >= 0xE0 && c < 0xF0) return 2;
    return c >= 0xC0 && c < 0xE0 ? 1 : 0;
}

// ^[ for escape; the upper ones stand for an escape and a letter.
std::string shownControl(unsigned char c) {
    if (isUpperControl(c)) return std::string("^[") + static_cast<char>(c - 0x40);
    return std::string("^") + static_cast<char>(c ^ 0x40);
}

} // namespace

bool TerminalText::put(const std::string& text) {
    const auto size = static_cast<std::streamsize>(text.size());
    return m_terminal.sputn(text.data(), size) == size;
}

// Whether the byte belongs to a letter that has begun.
bool TerminalText::passes(unsigned char c) {
    const bool follows = m_toCome > 0 && c >= 0x80 && c < 0xC0;
    m_toCome = follows ? m_toCome - 1 : followersOf(c);
    return follows;
}

bool TerminalText::show(unsigned char c) {
    std::string text(1, static_cast<char>(c));
    const bool follows = passes(c);
    if (m_afterC2) {
        m_afterC2 = false;
        if (follows && isUpperControl(c)) return put(shownControl(c));
        text.insert(text.begin(), static_cast<char>(firstOfControls));
        if (!follows) return put(text.substr(0, 1)) && show(c);
        return put(text);
    }
    if (c == firstOfControls) return m_afterC2 = true;
    if (!follows && (isControl(c) || isUpperControl(c))) return put(shownControl(c));
    return put(text);
}

bool TerminalText::take(unsigned char c) {
    if (m_control.empty() && (m_own == OwnControls::none || c != ownControls[0][0])) return show(c);
    m_control += static_cast<char>(c);
    const auto begins = [&](std::string_view own) { return own.starts_with(m_control); };
    const auto found = std::ranges::find_if(ownControls, begins);
    if (found != ownControls.end() && found->size() > m_control.size()) return true;
    const std::string control = std::exchange(m_control, "");
    if (found != ownControls.end()) return put(control);
    return std::ranges::all_of(control,
                               [&](char letter) { return show(static_cast<unsigned char>(letter)); });
}

TerminalText::int_type TerminalText::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    return take(static_cast<unsigned char>(c)) ? c : traits_type::eof();
}

int TerminalText::sync() {
    return m_terminal.pubsync();
}

OnTerminal::OnTerminal(std::ostream& stream, int channel, OwnControls own)
    : m_stream(stream), m_before(stream.rdbuf()), m_text(*m_before, own) {
    if (isatty(channel) == 1) m_stream.rdbuf(&m_text);
}

OnTerminal::~OnTerminal() {
    m_stream.rdbuf(m_before);
}

} // namespace korvel
