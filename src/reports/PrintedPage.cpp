#include "reports/PrintedPage.h"

#include "basic/Fitting.h"
#include "basic/Text.h"

#include <algorithm>
#include <utility>

namespace korvel {

namespace {

constexpr double rulePenWidth = 2; // printer dots
constexpr double narrowest = 0.5;
const char* const ellipsis = "\xE2\x80\xA6"; // U+2026

} // namespace

Drawing emptyPage(Orientation orientation) {
    const bool portrait = orientation == Orientation::portrait;
    Drawing page;
    page.width = portrait ? printableShortSide : printableLongSide;
    page.height = portrait ? printableLongSide : printableShortSide;
    page.unitsPerInch = 1;
    return page;
}

PrintedPage::PrintedPage(Orientation orientation, const TextMetrics& metrics)
    : font(reportFont),
      m_metrics(metrics),
      m_lineHeight(metrics.measure(" ", font).height / twipsPerInch),
      m_drawing(emptyPage(orientation)) {}

TextSize PrintedPage::sizeOf(const std::string& text) const {
    const TextSize twips = m_metrics.measure(text, font);
    return {twips.width / twipsPerInch, twips.height / twipsPerInch};
}

FittedText PrintedPage::fitted(const std::string& text) const {
    const TextSize size = sizeOf(text);
    if (size.width <= room.width) return {text, size, 1};
    if (room.tooWide == TooWide::cut && size.width * narrowest > room.width) {
        const std::string cut = cutToRoom(text);
        return {cut, {sizeOf(cut).width * narrowest, size.height}, narrowest};
    }
    const double narrowing = std::max(room.width / size.width, narrowest);
    return {text, {size.width * narrowing, size.height}, narrowing};
}

std::string PrintedPage::cutToRoom(const std::string& text) const {
    const std::string whole = shownUtf8(text);
    const auto cut = [&](std::size_t length) { return trimRight(firstShown(whole, length)) + ellipsis; };
    return cut(mostFitting(0, shownLength(whole), [&](std::size_t length) {
        return sizeOf(cut(length)).width * narrowest <= room.width;
    }));
}

void PrintedPage::print(FittedText text) {
    if (!text.text.empty())
        m_drawing.commands.push_back(DrawnText{position, text.size.width, text.size.height,
                                               std::move(text.text), font, paletteColour(colours::black),
                                               text.narrowing});
    position = {0, position.y + m_lineHeight};
}

void PrintedPage::rule(DrawnPoint from, DrawnPoint to) {
    m_drawing.commands.push_back(
        DrawnLine{from, to, {paletteColour(colours::black), rulePenWidth, Dash::solid}});
}

void Ptext(PrintedPage& page, double xp, double yp, const std::string& Text1, double& LastY,
           const std::string& Fmt) {
    const std::string format = lowerCase(Fmt);
    page.font.bold = contains(format, "b");
    FittedText text = page.fitted(Text1);
    const double x = contains(format, "r") ? xp - text.size.width : xp;
    if (x > 0 && yp > 0) page.position = {x, yp};
    page.print(std::move(text));
    LastY = page.position.y;
}

} // namespace korvel
