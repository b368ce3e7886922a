#include "reports/CodePage437.h"

#include "basic/Text.h"

#include <array>

namespace korvel {

namespace {

// The code points of codes 0 to 31; code 0 is blank.
constexpr std::array<char16_t, 32> lowCharacters{
    0x0020, 0x263A, 0x263B, 0x2665, 0x2666, 0x2663, 0x2660, 0x2022, 0x25D8, 0x25CB, 0x25D9,
    0x2642, 0x2640, 0x266A, 0x266B, 0x263C, 0x25BA, 0x25C4, 0x2195, 0x203C, 0x00B6, 0x00A7,
    0x25AC, 0x21A8, 0x2191, 0x2193, 0x2192, 0x2190, 0x221F, 0x2194, 0x25B2, 0x25BC};

constexpr char16_t house = 0x2302; // code 127

// The code points of codes 128 to 255.
constexpr std::array<char16_t, 128> highCharacters{
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE,
    0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9, 0x00FF, 0x00D6,
    0x00DC, 0x00A2, 0x00A3, 0x00A5, 0x20A7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA,
    0x00BA, 0x00BF, 0x2310, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB, 0x2591, 0x2592, 0x2593, 0x2502,
    0x2524, 0x2561, 0x2562, 0x2556, 0x2555, 0x2563, 0x2551, 0x2557, 0x255D, 0x255C, 0x255B, 0x2510, 0x2514,
    0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x255E, 0x255F, 0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550,
    0x256C, 0x2567, 0x2568, 0x2564, 0x2565, 0x2559, 0x2558, 0x2552, 0x2553, 0x256B, 0x256A, 0x2518, 0x250C,
    0x2588, 0x2584, 0x258C, 0x2590, 0x2580, 0x03B1, 0x00DF, 0x0393, 0x03C0, 0x03A3, 0x03C3, 0x00B5, 0x03C4,
    0x03A6, 0x0398, 0x03A9, 0x03B4, 0x221E, 0x03C6, 0x03B5, 0x2229, 0x2261, 0x00B1, 0x2265, 0x2264, 0x2320,
    0x2321, 0x00F7, 0x2248, 0x00B0, 0x2219, 0x00B7, 0x221A, 0x207F, 0x00B2, 0x25A0, 0x00A0};

char16_t codePointOf(char character) {
    const auto code = static_cast<unsigned char>(character);
    if (code < 32) return lowCharacters[code];
    if (code < 127) return code;
    return code == 127 ? house : highCharacters[code - 128U];
}

} // namespace

std::string utf8OfCodePage437(std::string_view text) {
    std::string shown;
    for (const char character : text)
        appendUtf8(shown, codePointOf(character));
    return shown;
}

// Kept so: 199 and 182, whose horizontal stroke is a single one, are drawn wholly with the double pen.
std::optional<BoxStrokes> boxStrokesOf(char character) {
    switch (static_cast<unsigned char>(character)) {
    case 218: return BoxStrokes{.right = true, .bottom = true};
    case 201: return BoxStrokes{.right = true, .bottom = true, .penWidth = 2};
    case 194: return BoxStrokes{.left = true, .right = true, .bottom = true};
    case 191: return BoxStrokes{.left = true, .bottom = true};
    case 187: return BoxStrokes{.left = true, .bottom = true, .penWidth = 2};
    case 195: return BoxStrokes{.right = true, .top = true, .bottom = true};
    case 199: return BoxStrokes{.right = true, .top = true, .bottom = true, .penWidth = 2};
    case 180: return BoxStrokes{.left = true, .top = true, .bottom = true};
    case 182: return BoxStrokes{.left = true, .top = true, .bottom = true, .penWidth = 2};
    case 192: return BoxStrokes{.right = true, .top = true};
    case 200: return BoxStrokes{.right = true, .top = true, .penWidth = 2};
    case 193: return BoxStrokes{.left = true, .right = true, .top = true};
    case 217: return BoxStrokes{.left = true, .top = true};
    case 188: return BoxStrokes{.left = true, .top = true, .penWidth = 2};
    case 196: return BoxStrokes{.left = true, .right = true};
    case 205: return BoxStrokes{.left = true, .right = true, .penWidth = 2};
    case 179: return BoxStrokes{.top = true, .bottom = true};
    default: return std::nullopt;
    }
}

} // namespace korvel
