#include "reports/PrintedReport.h"

#include "fakes/ExpectedFile.h"
#include "fakes/FixedTextMetrics.h"
#include "reports/ReportData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr double lineHeight = 192.0 / 1440; // of size 8 in the fixed metrics, inches
constexpr double letter = 80.0 / 1440;

std::vector<Drawing> pagesOf(const LoadedRiver& river, const ReportSelection& selection) {
    const FixedTextMetrics metrics;
    PrintedReport report(river.results, selection, "05/11/2026", metrics);
    std::vector<Drawing> pages;
    while (auto page = report.nextPage())
        pages.push_back(std::move(*page));
    return pages;
}

std::vector<Drawing> pagesOf(const LoadedRiver& river) {
    return pagesOf(river, river.choices.selection());
}

std::vector<DrawnText> textsOf(const Drawing& page) {
    std::vector<DrawnText> texts;
    for (const DrawnCommand& command : page.commands)
        if (const auto* text = std::get_if<DrawnText>(&command)) texts.push_back(*text);
    return texts;
}

std::vector<DrawnLine> rulesOf(const Drawing& page) {
    std::vector<DrawnLine> rules;
    for (const DrawnCommand& command : page.commands)
        if (const auto* rule = std::get_if<DrawnLine>(&command)) rules.push_back(*rule);
    return rules;
}

DrawnText textNamed(const Drawing& page, const std::string& words) {
    for (const DrawnText& text : textsOf(page))
        if (text.text == words) return text;
    ADD_FAILURE() << "no text " << words;
    return {};
}

bool hasRule(const Drawing& page, DrawnPoint from, DrawnPoint to) {
    const auto near = [](double a, double b) { return std::abs(a - b) < 1e-9; };
    return std::ranges::any_of(rulesOf(page), [&](const DrawnLine& rule) {
        return near(rule.from.x, from.x) && near(rule.from.y, from.y) && near(rule.to.x, to.x) &&
               near(rule.to.y, to.y);
    });
}

double ruleY(int line) {
    return 0.5 + line * lineHeight - 0.002;
}

// One determinand whose every box is ticked: 17 columns.
ReportSelection seventeenColumns() {
    ReportSelection selection;
    selection.targets = selection.observed = selection.limits = true;
    selection.statistics = {allStatistics.begin(), allStatistics.end()};
    selection.determinands = {1};
    selection.reaches = {1, 12};
    return selection;
}

} // namespace

TEST(PrintedReport, HeadsThePageWithTitleDateAndNumber) {
    const Drawing page = pagesOf(LoadedRiver()).at(0);
    EXPECT_EQ(page.width, 8.26 / 1.043);
    EXPECT_EQ(page.height, 11.69 / 1.09);
    const DrawnText title = textNamed(page, "River Alder, base run");
    EXPECT_EQ(title.corner, (DrawnPoint{0.4, 0.5}));
    EXPECT_EQ(title.font, (Font{"Arial", 10, true}));
    const DrawnText name = textNamed(page, "KORVEL RESULTS");
    EXPECT_DOUBLE_EQ(name.corner.x, 7.7 - 14 * letter);
    EXPECT_EQ(name.corner.y, 0.5);
    EXPECT_EQ(name.font, (Font{"Arial", 8, false}));
    const DrawnText date = textNamed(page, "05/11/2026");
    EXPECT_DOUBLE_EQ(date.corner.x, 7.7 - 10 * letter);
    EXPECT_DOUBLE_EQ(date.corner.y, 0.5 + lineHeight);
    const DrawnText number = textNamed(page, "Page 1");
    EXPECT_DOUBLE_EQ(number.corner.x, 7.7 - 6 * letter);
    EXPECT_DOUBLE_EQ(number.corner.y, 0.5 + 2 * lineHeight);
    EXPECT_TRUE(hasRule(page, {0.4, ruleY(4)}, {7.7, ruleY(4)}));
}

TEST(PrintedReport, PrintsWhatIsTooWideForItsColumnNarrower) {
    const double width = (10.7 - 2.8) / 17, room = 0.8 * width; // between the insets
    ResultsFileBuilder river = smallRiver();
    river.point(12, 8, "Works of the water company", 3).setAll(0);
    const Drawing page = pagesOf(LoadedRiver(river), seventeenColumns()).at(0);
    const DrawnText number = textNamed(page, "0.0000000");
    EXPECT_DOUBLE_EQ(number.width, room) << "9 letters in the room of 6.7";
    EXPECT_DOUBLE_EQ(number.narrowing, room / (9 * letter));
    EXPECT_NEAR(std::remainder(number.corner.x + number.width + 0.1 * width - 2.8, width), 0, 1e-9)
        << "ends at the inset of its column";
    EXPECT_EQ(textNamed(page, "12.35").narrowing, 1);
    EXPECT_DOUBLE_EQ(textNamed(page, "90%-ile").width, room);
    EXPECT_EQ(textNamed(page, "Works of the water company").narrowing, 1);
    EXPECT_EQ(number.height, textNamed(page, "12.35").height);
}

TEST(PrintedReport, CutsALabelThatIsTooLongAtHalfItsWidth) {
    ResultsFileBuilder river = smallRiver();
    const std::string narrowed(60, 'a'), tooLong(120, 'b');
    river.point(12, 8, narrowed, 3).point(12, 9, tooLong, 3);
    const LoadedRiver loaded(river);
    const Drawing page = pagesOf(loaded).at(0); // eight columns
    const double inset = (7.7 - 2.8) / 80, room = 2.4 - 2 * inset;
    EXPECT_DOUBLE_EQ(textNamed(page, narrowed).width, room);
    const auto most = static_cast<std::size_t>(room / (letter / 2));
    const DrawnText cut = textNamed(page, std::string(most - 1, 'b') + "\xE2\x80\xA6");
    EXPECT_EQ(cut.narrowing, 0.5);
    EXPECT_LE(cut.width, room);
    EXPECT_EQ(cut.corner.x, 0.4 + inset);
}

TEST(PrintedReport, KeepsTheTitleAwayFromTheProgramsName) {
    const double room = 7.7 - 14 * letter - 0.1 - 0.4, titleLetter = letter * 10 / 8;
    for (const std::size_t length : {std::size_t{60}, std::size_t{130}, std::size_t{300}}) {
        const std::string title(length, 't');
        const DrawnText drawn = textsOf(pagesOf(LoadedRiver(smallRiver().title(title))).at(0)).at(0);
        EXPECT_EQ(drawn.corner.x, 0.4);
        EXPECT_LE(drawn.width, room * (1 + 1e-12)) << length;
        EXPECT_EQ(drawn.text.ends_with("\xE2\x80\xA6"), length == 300) << length;
        const double wanted = static_cast<double>(length) * titleLetter;
        EXPECT_DOUBLE_EQ(drawn.narrowing, std::clamp(room / wanted, 0.5, 1.0)) << length;
    }
}

TEST(PrintedReport, CentresANarrowedDeterminandOverItsColumns) {
    ResultsFileBuilder river;
    river.determinand(1, "Biochemical oxygen demand of five days").determinand(2, "BOD");
    river.reach(1, "Only").point(1, 0, "Head");
    LoadedRiver loaded(river);
    loaded.choices.chooseDeterminands({true, true, true, true});
    const Drawing page = pagesOf(loaded).at(0); // eight columns, two a determinand
    const double width = (7.7 - 2.8) / 8;
    const DrawnText name = textsOf(page).at(5);
    EXPECT_TRUE(name.text.starts_with("Biochemical")) << name.text;
    EXPECT_LE(name.width, 1.8 * width * (1 + 1e-12));
    EXPECT_NEAR(name.corner.x + name.width / 2, 2.8 + width, 1e-9);
}

TEST(PrintedReport, CentresGroupsAndTheWordFeature) {
    const Drawing page = pagesOf(LoadedRiver()).at(0); // four determinands of two columns
    const double width = (7.7 - 2.8) / 8;
    const DrawnText feature = textNamed(page, "Feature");
    EXPECT_DOUBLE_EQ(feature.corner.x, 0.4 + ((2.8 - 0.4) - 7 * letter) / 2);
    EXPECT_DOUBLE_EQ(feature.corner.y, 0.5 + 4 * lineHeight);
    EXPECT_TRUE(feature.font.bold);
    const DrawnText second = textNamed(page, "Ammonia");
    EXPECT_DOUBLE_EQ(second.corner.x, 2.8 + 2 * width + (2 * width - 7 * letter) / 2);
    const DrawnText kind = textNamed(page, "(Conc)");
    EXPECT_DOUBLE_EQ(kind.corner.x, 2.8 + (2 * width - 6 * letter) / 2);
    EXPECT_DOUBLE_EQ(kind.corner.y, 0.5 + 5 * lineHeight);
    EXPECT_TRUE(hasRule(page, {2.8 + 4 * width, ruleY(4)}, {2.8 + 4 * width, ruleY(6)}));
}

TEST(PrintedReport, AlignsColumnHeadingsAndValuesAtTheRight) {
    const LoadedRiver river;
    const Drawing page = pagesOf(river, seventeenColumns()).at(0);
    const double width = (10.7 - 2.8) / 17, inset = width / 10;
    EXPECT_EQ(page.width, 11.69 / 1.09);
    EXPECT_EQ(page.height, 8.26 / 1.043);
    const DrawnText target = textNamed(page, "Target"); // the 13th
    EXPECT_DOUBLE_EQ(target.corner.x, 2.8 + 13 * width - inset - 6 * letter);
    EXPECT_DOUBLE_EQ(target.corner.y, 0.5 + 6 * lineHeight);
    const DrawnText limit = textNamed(page, "UCL"); // the 3rd
    EXPECT_DOUBLE_EQ(limit.corner.x, 2.8 + 3 * width - inset - 3 * letter);
    EXPECT_DOUBLE_EQ(limit.corner.y, 0.5 + 7 * lineHeight);
    EXPECT_TRUE(hasRule(page, {2.8 + 13 * width, ruleY(6)}, {2.8 + 13 * width, ruleY(8)}));
    const DrawnText value = textNamed(page, "1010"); // the mean of the first point
    EXPECT_DOUBLE_EQ(value.corner.x, 2.8 + width - inset - 4 * letter);
    EXPECT_DOUBLE_EQ(value.corner.y, 0.5 + 9 * lineHeight);
    EXPECT_FALSE(value.font.bold);
}

TEST(PrintedReport, RulesReachesAndRows) {
    const Drawing page = pagesOf(LoadedRiver()).at(0);
    const double width = (7.7 - 2.8) / 8, inset = width / 10;
    const DrawnText reach = textNamed(page, "Upper Mill      ");
    EXPECT_DOUBLE_EQ(reach.corner.x, 0.4 + inset / 2);
    EXPECT_DOUBLE_EQ(reach.corner.y, 0.5 + 8 * lineHeight);
    EXPECT_TRUE(reach.font.bold);
    EXPECT_TRUE(hasRule(page, {0.4, ruleY(8)}, {7.7, ruleY(8)}));
    const DrawnText label = textNamed(page, "Head of Alder");
    EXPECT_DOUBLE_EQ(label.corner.x, 0.4 + inset);
    EXPECT_DOUBLE_EQ(label.corner.y, 0.5 + 9 * lineHeight);
    EXPECT_TRUE(hasRule(page, {0.4, ruleY(9)}, {0.4, ruleY(13)})); // four rows in one piece
    EXPECT_TRUE(hasRule(page, {2.8, ruleY(9)}, {2.8, ruleY(13)}));
    EXPECT_TRUE(hasRule(page, {2.8 + 8 * width, ruleY(9)}, {2.8 + 8 * width, ruleY(13)}));
    EXPECT_TRUE(hasRule(page, {0.4, ruleY(13)}, {7.7, ruleY(13)})); // the second reach
    EXPECT_TRUE(hasRule(page, {0.4, ruleY(16)}, {7.7, ruleY(16)})); // closes the table
    for (const DrawnLine& rule : rulesOf(page))
        EXPECT_EQ(rule.pen, (Pen{Rgb{}, 2, Dash::solid}));
}

TEST(PrintedReport, ClosesEveryPageAndCountsThem) {
    LoadedRiver river(smallRiver().points(200, 12, 1));
    const auto pages = pagesOf(river);
    ASSERT_EQ(pages.size(), 4U);
    for (std::size_t k = 0; k < pages.size(); ++k) {
        textNamed(pages[k], "Page " + std::to_string(k + 1));
        textNamed(pages[k], "Feature");
    }
    textNamed(pages[1], "Lower Mill       (Cont'd)");
    EXPECT_TRUE(hasRule(pages[0], {0.4, ruleY(73)}, {7.7, ruleY(73)}));
}

// In the fixed metrics the 51st line of a landscape page begins exactly at the limit.
TEST(PrintedReport, HoldsTheRowThatBeginsAtTheLimitOfALandscapePage) {
    LoadedRiver river(ResultsFileBuilder().determinand(1, "BOD").reach(1, "A").points(44, 1, 1));
    ReportSelection selection = seventeenColumns();
    selection.reaches = {1};
    EXPECT_EQ(pagesOf(river, selection).size(), 2U);
    LoadedRiver fitting(ResultsFileBuilder().determinand(1, "BOD").reach(1, "A").points(43, 1, 1));
    EXPECT_EQ(pagesOf(fitting, selection).size(), 1U);
}

TEST(PrintedReport, WithoutRowsIsAHeadingAndAClosingRule) {
    LoadedRiver river;
    river.choices.chooseReaches({});
    const auto pages = pagesOf(river);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_TRUE(hasRule(pages[0], {0.4, ruleY(8)}, {7.7, ruleY(8)}));
    EXPECT_EQ(textsOf(pages[0]).size(), 4U + 1 + 8 + 8);
}

TEST(PrintedReport, WithoutValueColumnsPrintsLabelsOnly) {
    LoadedRiver river;
    river.choices.chooseDeterminands({});
    const auto pages = pagesOf(river);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(textsOf(pages[0]).size(), 4U + 1 + 2 + 4); // two of the six labels are empty
    EXPECT_TRUE(hasRule(pages[0], {2.8, ruleY(9)}, {2.8, ruleY(13)}));
}

TEST(PrintedReport, LooksAsItDidBefore) {
    expectSameAsFile(textOf(pagesOf(LoadedRiver()).at(0)), "reports/portrait.drawing");
    LoadedRiver longRiver(smallRiver().points(45, 12, 1));
    const auto pages = pagesOf(longRiver, seventeenColumns());
    ASSERT_EQ(pages.size(), 2U);
    expectSameAsFile(textOf(pages[1]), "reports/landscape-page2.drawing");
}

TEST(Ptext, PlacesTextAndGivesTheNextLine) {
    const FixedTextMetrics metrics;
    PrintedPage page(Orientation::portrait, metrics);
    double lastY = 0;
    Ptext(page, 1, 2, "left", lastY, "");
    EXPECT_DOUBLE_EQ(lastY, 2 + lineHeight);
    Ptext(page, 5, lastY, "right", lastY, "BR");
    EXPECT_DOUBLE_EQ(lastY, 2 + 2 * lineHeight);
    const auto texts = textsOf(page.drawing());
    EXPECT_EQ(texts.at(0).corner, (DrawnPoint{1, 2}));
    EXPECT_FALSE(texts.at(0).font.bold);
    EXPECT_DOUBLE_EQ(texts.at(1).corner.x, 5 - 5 * letter);
    EXPECT_DOUBLE_EQ(texts.at(1).corner.y, 2 + lineHeight);
    EXPECT_TRUE(texts.at(1).font.bold);
}

TEST(Ptext, KeepsThePositionWhereNoneIsGiven) {
    const FixedTextMetrics metrics;
    PrintedPage page(Orientation::portrait, metrics);
    page.position = {3, 4};
    double lastY = 0;
    Ptext(page, 0, 7, "a", lastY, "");
    EXPECT_DOUBLE_EQ(lastY, 4 + lineHeight);
    Ptext(page, 1, 0, "b", lastY, "");
    Ptext(page, letter, 7, "cc", lastY, "r");
    const auto texts = textsOf(page.drawing());
    EXPECT_EQ(texts.at(0).corner, (DrawnPoint{3, 4}));
    EXPECT_EQ(texts.at(1).corner, (DrawnPoint{0, 4 + lineHeight}));
    EXPECT_EQ(texts.at(2).corner, (DrawnPoint{0, 4 + lineHeight + lineHeight}));
}

} // namespace korvel
