#include "panels/TextFitting.h"

#include "basic/Fitting.h"
#include "basic/Text.h"

namespace korvel {

namespace {

constexpr const char* ellipsis = "\u2026";

// With `kept` of its letters.
std::string shortened(const std::string& text, std::size_t kept, Shorten shorten) {
    if (shorten == Shorten::end) return trimRight(firstShown(text, kept)) + ellipsis;
    const std::size_t front = (kept + 1) / 2, back = kept - front;
    const std::string untilBack = firstShown(text, shownLength(text) - back);
    return firstShown(text, front) + ellipsis + text.substr(untilBack.size());
}

} // namespace

std::string shortenedTo(const std::string& utf8, std::size_t letters, Shorten shorten) {
    return shownLength(utf8) <= letters ? utf8 : shortened(utf8, letters - 1, shorten);
}

std::string fittedText(const std::string& utf8, double width, const Font& font, const TextMetrics& metrics,
                       Shorten shorten) {
    const auto fits = [&](const std::string& text) { return metrics.measure(text, font).width <= width; };
    if (fits(utf8)) return utf8;
    const std::size_t fitting = mostFitting(
        0, shownLength(utf8), [&](std::size_t letters) { return fits(shortened(utf8, letters, shorten)); });
    return fitting == 0 ? "" : shortened(utf8, fitting, shorten);
}

DrawnText textAt(DrawnPoint at, TextAlign align, const std::string& text, const Font& font, Rgb colour,
                 const TextMetrics& metrics) {
    const TextSize size = metrics.measure(text, font);
    const double offset = align == TextAlign::left     ? 0
                          : align == TextAlign::centre ? size.width / 2
                                                       : size.width;
    return {{at.x - offset, at.y}, size.width, size.height, text, font, colour};
}

} // namespace korvel
