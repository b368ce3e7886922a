#include "tables/SheetText.h"

#include "basic/Text.h"

#include <algorithm>

namespace korvel {

namespace {

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// "_x0041_" at the beginning of the text.
bool beginsWithCode(std::string_view text) {
    return text.size() >= 7 && text[0] == '_' && text[1] == 'x' && text[6] == '_' &&
           std::ranges::all_of(text.substr(2, 4), isHexDigit);
}

std::size_t bytesOfCharacter(char first) {
    const auto code = static_cast<unsigned char>(first);
    return code < 0xC0 ? 1 : code < 0xE0 ? 2 : code < 0xF0 ? 3 : 4;
}

// One character as it is written.
struct Piece {
    std::string_view written;
    std::size_t bytes = 1;  // of the text
    std::size_t length = 1; // in characters of a cell, of which some take two
};

// XML has no place for the last two codes of the first plane.
bool isNoCharacter(std::string_view character) {
    return character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF";
}

Piece nextPiece(std::string_view text) {
    if (text[0] == '\0') return {"_x0000_", 1, 7};
    if (beginsWithCode(text)) return {"_x005F_", 1, 7};
    const std::size_t bytes = bytesOfCharacter(text[0]);
    const std::string_view character = text.substr(0, bytes);
    return {isNoCharacter(character) ? "\xEF\xBF\xBD" : character, bytes, bytes == 4 ? 2U : 1U};
}

bool isPlain(std::string_view text) {
    constexpr std::string_view special("\0\xEF_", 3);
    return text.size() <= longestSheetText && text.find_first_of(special) == std::string_view::npos;
}

} // namespace

SheetText sheetText(std::string_view text) {
    std::string shown = shownUtf8(text);
    if (isPlain(shown)) return {std::move(shown)};
    SheetText sheet;
    std::size_t length = 0, whereToCut = 0;
    for (std::string_view rest = shown; !rest.empty();) {
        const Piece piece = nextPiece(rest);
        length += piece.length;
        if (length > longestSheetText) {
            sheet.text.resize(whereToCut);
            sheet.text += "\xE2\x80\xA6";
            sheet.isCut = true;
            return sheet;
        }
        sheet.text += piece.written;
        if (length < longestSheetText) whereToCut = sheet.text.size();
        rest.remove_prefix(piece.bytes);
    }
    return sheet;
}

} // namespace korvel
