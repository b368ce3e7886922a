#include "reports/PrintedPage.h"

#include "basic/Text.h"

namespace korvel {

namespace {

constexpr double rulePenWidth = 2; // printer dots

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
      m_lineHeight(metrics.measure(" ", font).height / twipsToAnInch),
      m_drawing(emptyPage(orientation)) {}

TextSize PrintedPage::sizeOf(const std::string& text) const {
    const TextSize twips = m_metrics.measure(text, font);
    return {twips.width / twipsToAnInch, twips.height / twipsToAnInch};
}

void PrintedPage::print(const std::string& text, TextSize size) {
    if (!text.empty())
        m_drawing.commands.push_back(
            DrawnText{position, size.width, size.height, text, font, paletteColour(colours::black)});
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
    const TextSize size = page.sizeOf(Text1);
    const double x = contains(format, "r") ? xp - size.width : xp;
    if (x > 0 && yp > 0) page.position = {x, yp};
    page.print(Text1, size);
    LastY = page.position.y;
}

} // namespace korvel
