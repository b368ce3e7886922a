// The pages of an atlas that tell of the whole.
#include "publish/Atlas.h"

#include "basic/Product.h"
#include "basic/ShownText.h"
#include "basic/Text.h"
#include "panels/NetworkLayout.h"
#include "panels/ProfileKey.h"
#include "panels/TextFitting.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

const Font titleFont{"Arial", 22, true};
constexpr double networkRoom = 14; // lines that the title page keeps for it

std::string factsOf(const StudyRun& run) {
    const ResultsDataSet& results = run.results();
    return counted(run.reaches().count(), "reach", "reaches") + ", " +
           counted(results.pointCount, "point", "points") + ", " +
           counted(results.determinandCount, "determinand", "determinands");
}

} // namespace

void Atlas::paintTitlePage(AtlasSheet& sheet) const {
    const PanelLook& look = sheet.look();
    double y = sheet.paragraph({0, 0}, atlasWidth, title(), titleFont, look.text, 2);
    const std::string what = m_study.runs().size() == 1 ? "Profiles and targets of one run"
                                                        : "Profiles, targets and changes of " +
                                                              std::to_string(m_study.runs().size()) + " runs";
    sheet.text({0, y}, TextAlign::left, what, {"Arial", 11, false}, look.quietText);
    sheet.text({atlasWidth, y + 0.3 * sheet.line()}, TextAlign::right,
               std::string("Written by ") + productName + " " + productVersion, look.font, look.quietText);
    y += 2.6 * sheet.line();
    sheet.rule(y, look.axis);
    y = paintRuns(sheet, y + 0.8 * sheet.line());
    y = paintFindings(sheet, y + 0.6 * sheet.line());
    y += 0.6 * sheet.line();
    const std::string shown = "Network of " + shownName(m_study.base().name) +
                              ": what its reaches come to with confidence, all judged determinands together";
    sheet.text({0, y}, TextAlign::left,
               fittedText(shown, atlasWidth, look.titleFont, m_metrics, Shorten::middle), look.titleFont,
               look.text);
    paintNetwork(sheet, 0, y + 1.4 * sheet.line(), AtlasSheet::bottom());
}

double Atlas::paintRuns(AtlasSheet& sheet, double top) const {
    const PanelLook& look = sheet.look();
    const double line = sheet.line(), nameWidth = 0.3 * atlasWidth;
    for (std::size_t run = 0; run < m_study.runs().size(); ++run) {
        const StudyRun& of = m_study.runs()[run];
        const double middle = top + line / 2;
        sheet.drawing().commands.push_back(DrawnLine{{0, middle}, {2 * line, middle}, curvePen(run, look)});
        const auto fitted = [&](const std::string& text, double width, const Font& font, Shorten shorten) {
            return fittedText(firstShown(text, 400), width, font, m_metrics, shorten);
        };
        const std::string name =
            fitted(shownLine(of.name), nameWidth - 3 * line, look.titleFont, Shorten::middle);
        sheet.text({2.6 * line, top}, TextAlign::left, name, look.titleFont, look.text);
        const std::string role = m_study.runs().size() > 1 && run == 0 ? " (the base)" : "";
        const std::string words = shownLine(trim(of.results().resultsTitle));
        const double right =
            sheet.text({atlasWidth, top}, TextAlign::right, factsOf(of) + role, look.font, look.quietText);
        const double room = right - sheet.width(factsOf(of) + role, look.font) - nameWidth - line;
        sheet.text({nameWidth, top}, TextAlign::left, fitted(words, room, look.font, Shorten::end), look.font,
                   look.text);
        top += 1.45 * line;
    }
    return top;
}

// What was found of each run; of many the last ones stand in the tables alone.
double Atlas::paintFindings(AtlasSheet& sheet, double top) const {
    const PanelLook& look = sheet.look();
    const double line = sheet.line(), indent = 2.6 * line;
    top = sheet.paragraph({0, top}, atlasWidth, "Judged: " + judgedWords(m_study.base(), compliance()),
                          look.font, look.quietText, 4) +
          0.4 * line;
    for (std::size_t run = 0; run < m_findings.size(); ++run) {
        const std::string words = findingsInWords(run);
        const double height =
            1.25 * line *
            (1 + static_cast<double>(wrapped(words, atlasWidth - indent, look.font, m_metrics).size()));
        if (top + height > AtlasSheet::bottom() - networkRoom * line) {
            sheet.text({0, top}, TextAlign::left, "Further runs: see the verdicts of each run.", look.font,
                       look.quietText);
            return top + 1.5 * line;
        }
        sheet.text({0, top}, TextAlign::left,
                   fittedText(shownLine(m_study.runs()[run].name), atlasWidth, look.titleFont, m_metrics,
                              Shorten::middle),
                   look.titleFont, look.text);
        top = sheet.paragraph({indent, top + 1.25 * line}, atlasWidth - indent, words, look.font, look.text) +
              0.3 * line;
    }
    return top;
}

std::string Atlas::findingsInWords(std::size_t run) const {
    std::string words;
    for (const std::string& sentence : m_findings[run].sentences)
        words += (words.empty() ? "" : " ") + sentence;
    return words;
}

void Atlas::paintNetwork(AtlasSheet& sheet, std::size_t run, double top, double bottom) const {
    const StudyRun& of = m_study.runs()[run];
    NetworkView view;
    view.colours = NetworkColours::byVerdict;
    view.verdicts = m_findings[run].verdicts;
    const NetworkLayout layout =
        layOutNetwork(*of.file, networkOf(*of.file), view, sheet.look(), atlasWidth, bottom - top, m_metrics);
    sheet.add({0, top}, [&](Drawing& drawing) { paint(layout, drawing); });
}

double Atlas::contentsTop() const {
    return AtlasSheet(m_metrics).head("Contents", "");
}

std::size_t Atlas::partsAPage() const {
    const double line = AtlasSheet(m_metrics).line();
    return static_cast<std::size_t>(
        std::floor((AtlasSheet::bottom() - contentsTop()) / (atlasPartHeight * line)));
}

void Atlas::paintContents(AtlasSheet& sheet, std::size_t from) const {
    const PanelLook& look = sheet.look();
    double y = sheet.head("Contents", "");
    for (std::size_t k = from; k < std::min(from + partsAPage(), m_parts.size()); ++k) {
        const Part& part = m_parts[k];
        const Font& font = part.level == 0 ? look.titleFont : look.font;
        const double left = 2 * part.level * sheet.line();
        const std::string title = fittedText(part.title, 0.8 * atlasWidth, font, m_metrics);
        const double end =
            sheet.text({left, y}, TextAlign::left, title, font, look.text) + 0.5 * sheet.line();
        const std::string number = std::to_string(part.page + 1);
        const double begin = atlasWidth - sheet.width(number, font) - 0.5 * sheet.line();
        sheet.text({atlasWidth, y}, TextAlign::right, number, font, look.text);
        const double dots = y + 0.8 * sheet.line();
        if (begin > end)
            sheet.drawing().commands.push_back(
                DrawnLine{{end, dots}, {begin, dots}, {look.axis, look.hairline, Dash::dot}});
        y += atlasPartHeight * sheet.line();
    }
}

} // namespace korvel
