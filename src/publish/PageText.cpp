#include "publish/PageText.h"

#include "basic/ShownText.h"
#include "basic/Text.h"

#include <array>

namespace korvel {

namespace {

unsigned byteAt(std::string_view text, std::size_t index) {
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
}

std::string unicodeEscape(unsigned code) {
    static constexpr std::string_view digits = "0123456789abcdef";
    return {'\\', 'u', '0', '0', digits[code >> 4U], digits[code & 0xFU]};
}

} // namespace

std::string pageText(std::string_view asInFiles, std::size_t longest) {
    // No character takes more than four bytes; the rest of a huge text needn't be looked at letter by letter.
    const std::string clean = shownLine(asInFiles);
    std::string beginning = firstShown(clean, longest);
    return beginning.size() == clean.size() ? clean : beginning + "\u2026";
}

std::string htmlOf(std::string_view utf8) {
    std::string html;
    html.reserve(utf8.size());
    for (const char c : utf8) {
        switch (c) {
        case '&': html += "&amp;"; break;
        case '<': html += "&lt;"; break;
        case '>': html += "&gt;"; break;
        case '"': html += "&quot;"; break;
        case '\'': html += "&#39;"; break;
        default: html += c;
        }
    }
    return html;
}

std::string jsonOf(std::string_view utf8) {
    std::string json = "\"";
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const unsigned code = byteAt(utf8, i);
        const bool isLineSeparator = code == 0xE2 && byteAt(utf8, i + 1) == 0x80 &&
                                     (byteAt(utf8, i + 2) & 0xFEU) == 0xA8; // 2028 and 2029
        if (code < 0x20 || code == '"' || code == '\\' || code == '<' || code == '>' || code == '&') {
            json += unicodeEscape(code);
        } else if (isLineSeparator) {
            json += byteAt(utf8, i + 2) == 0xA8 ? "\\u2028" : "\\u2029";
            i += 2;
        } else {
            json += utf8[i];
        }
    }
    return json + "\"";
}

} // namespace korvel
