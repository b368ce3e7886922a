#include "publish/PageMetrics.h"

#include "basic/Text.h"
#include "drawing/Units.h"

#include <array>

namespace korvel {

namespace {

constexpr int otherLetter = 600; // of a letter beyond the list, thousandths of the font's size
constexpr int wideLetter = 1000; // of scripts whose letters fill a square

// From the blank to the tilde, thousandths of the font's size.
constexpr std::array<int, 95> widths = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333,  278, 278, 556, 556, 556,
    556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667,
    611, 778, 722, 278, 500, 667, 556, 833, 722, 778, 667, 778, 722, 667,  611, 722, 667, 944, 667,
    667, 611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278,  556, 556, 222, 222, 500,
    222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,  500, 334, 260, 334, 584};

int widthOf(unsigned char lead) {
    if (lead >= ' ' && lead <= '~') return widths[lead - static_cast<std::size_t>(' ')];
    if (lead < 0x80) return 0;
    return lead >= 0xE3 ? wideLetter : otherLetter;
}

} // namespace

TextSize PageMetrics::measure(std::string_view text, const Font& font) const {
    int thousandths = 0;
    for (const char c : shownUtf8(text)) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0U) != 0x80U) thousandths += widthOf(byte);
    }
    const double size = font.size * twipsPerPoint;
    const double bold = font.bold ? 1.06 : 1;
    return {thousandths / 1000.0 * size * bold, size * lineHeight};
}

} // namespace korvel
