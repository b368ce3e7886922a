#include "reports/Listing.h"

#include "fakes/ExpectedFile.h"
#include "fakes/FixedTextMetrics.h"
#include "reports/PrintedPage.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// A cell of 1 by 1 tenth of an inch.
class TenthMetrics : public TextMetrics {
  public:
    TextSize measure(std::string_view text, const Font&) const override {
        return {static_cast<double>(text.size()) * 144, 144};
    }
};

std::vector<Drawing> pagesOf(const std::string& text, const TextMetrics& metrics) {
    TextSource file(text);
    Listing listing(file, metrics);
    std::vector<Drawing> pages;
    while (const auto page = listing.nextPage())
        pages.push_back(*page);
    return pages;
}

std::vector<Drawing> pagesOf(const std::string& text) {
    return pagesOf(text, TenthMetrics());
}

// As many cells a line as are named, to the last bit: the next one begins where the paper's printable part
// ends.
class EvenMetrics : public TextMetrics {
  public:
    explicit EvenMetrics(int cells) : m_width((8.26 / 1.043 - 0.3) / cells * twipsPerInch) {}
    TextSize measure(std::string_view text, const Font&) const override {
        return {static_cast<double>(text.size()) * m_width, 144};
    }

  private:
    double m_width;
};

// "x y words" of each text.
std::vector<std::string> textsOf(const Drawing& page) {
    std::vector<std::string> texts;
    for (const DrawnCommand& command : page.commands) {
        if (const auto* text = std::get_if<DrawnText>(&command)) {
            char place[64];
            std::snprintf(place, sizeof place, "%.2f %.2f ", text->corner.x, text->corner.y);
            texts.push_back(place + text->text);
        }
    }
    return texts;
}

std::vector<std::string> linesOf(const Drawing& page) {
    std::vector<std::string> lines;
    for (const DrawnCommand& command : page.commands) {
        if (const auto* line = std::get_if<DrawnLine>(&command)) {
            char place[96];
            std::snprintf(place, sizeof place, "%.2f %.2f - %.2f %.2f pen %g", line->from.x, line->from.y,
                          line->to.x, line->to.y, line->pen.width);
            lines.push_back(place);
        }
    }
    return lines;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(Listing, PrintsPlainTextAsItStands) {
    const auto pages = pagesOf("KORVEL\r\n\r\n  Flow  = 1.5\nlast");
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(textsOf(pages[0]), (Texts{"0.30 0.30 KORVEL", "0.50 0.50 Flow  = 1.5", "0.30 0.60 last"}));
    const auto& first = std::get<DrawnText>(pages[0].commands[0]);
    EXPECT_EQ(first.font, (Font{"Courier New", 7, false}));
    EXPECT_EQ(first.colour, Rgb{});
    EXPECT_EQ(pages[0].width, 8.26 / 1.043);
    EXPECT_EQ(pages[0].height, 11.69 / 1.09);
    EXPECT_EQ(pages[0].unitsPerInch, 1);
}

TEST(Listing, OfAnEmptyFileIsOneEmptyPage) {
    const auto pages = pagesOf("");
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_TRUE(pages[0].commands.empty());
}

// From 0.3 on there is room for 102 lines a tenth of an inch high: the last one begins exactly at 10.4.
TEST(Listing, BreaksPagesBelowTheLimitOnly) {
    std::string text;
    for (int line = 1; line <= 102; ++line)
        text += std::to_string(line) + "\r\n";
    EXPECT_EQ(pagesOf(text).size(), 1U);
    EXPECT_EQ(textsOf(pagesOf(text)[0]).back(), "0.30 10.40 102");
    const auto pages = pagesOf(text + "103\r\n");
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(textsOf(pages[0]).size(), 102U);
    EXPECT_EQ(textsOf(pages[1]), (Texts{"0.30 0.30 103"}));
}

TEST(Listing, CountsBlankLines) {
    EXPECT_EQ(pagesOf(std::string(102, '\n')).size(), 1U);
    EXPECT_EQ(pagesOf(std::string(103, '\n')).size(), 2U);
}

TEST(Listing, LetsFormFeedsTakeNoCellAndBreakNoPage) {
    const auto pages = pagesOf("\fone\ftwo\r\n\f\r\nthree");
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(textsOf(pages[0]), (Texts{"0.30 0.30 onetwo", "0.30 0.50 three"}));
}

TEST(Listing, LosesWhatLiesBeyondThePaper) {
    const auto pages = pagesOf(std::string(500, 'x') + "\r\nnext");
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(textsOf(pages[0]), (Texts{"0.30 0.30 " + std::string(77, 'x'), "0.30 0.40 next"}));
}

TEST(Listing, LosesACharacterThatStartsAtTheVeryEdgeOfThePaper) {
    const EvenMetrics metrics(4);
    const double cell = metrics.measure(" ", {}).width / twipsPerInch;
    ASSERT_EQ(0.3 + 4 * cell, 8.26 / 1.043);
    EXPECT_EQ(textsOf(pagesOf("abcde", metrics).at(0)), (Texts{"0.30 0.30 abcd"}));
    EXPECT_TRUE(linesOf(pagesOf("abcd\xC4", metrics).at(0)).empty());
    EXPECT_EQ(linesOf(pagesOf("abc\xC4", metrics).at(0)).size(), 1U);
}

TEST(Listing, ShowsCharactersOfTheCodePageEachInItsCell) {
    const auto pages = pagesOf("20\xF8"
                               "C \xBA end");
    EXPECT_EQ(textsOf(pages[0]),
              (Texts{"0.30 0.30 20", "0.50 0.30 °", "0.60 0.30 C", "0.80 0.30 ║", "1.00 0.30 end"}));
    EXPECT_TRUE(linesOf(pages[0]).empty());
}

TEST(Listing, DrawsABoxWithoutGaps) {
    const auto pages = pagesOf("\xDA\xC4\xC4\xBF\r\n\xB3Hi\xB3\r\n\xC0\xC4\xC4\xD9");
    EXPECT_EQ(linesOf(pages[0]), (Texts{"0.35 0.35 - 0.35 0.40 pen 1", "0.35 0.35 - 0.65 0.35 pen 1",
                                        "0.65 0.35 - 0.65 0.40 pen 1", "0.35 0.40 - 0.35 0.45 pen 1",
                                        "0.35 0.45 - 0.35 0.50 pen 1", "0.65 0.40 - 0.65 0.45 pen 1",
                                        "0.65 0.45 - 0.65 0.50 pen 1", "0.35 0.50 - 0.35 0.55 pen 1",
                                        "0.35 0.55 - 0.65 0.55 pen 1", "0.65 0.50 - 0.65 0.55 pen 1"}));
    EXPECT_EQ(textsOf(pages[0]), (Texts{"0.40 0.40 Hi"}));
}

TEST(Listing, DrawsDoubleBoxesWithTheWiderPen) {
    const auto pages = pagesOf("\xC9\xCD\xBB\r\n\xC7\xC4\xB6");
    EXPECT_EQ(linesOf(pages[0]), (Texts{"0.35 0.35 - 0.35 0.40 pen 2", "0.35 0.35 - 0.55 0.35 pen 2",
                                        "0.55 0.35 - 0.55 0.40 pen 2", "0.35 0.40 - 0.35 0.45 pen 2",
                                        "0.35 0.45 - 0.35 0.50 pen 2", "0.35 0.45 - 0.40 0.45 pen 2",
                                        "0.40 0.45 - 0.50 0.45 pen 1", "0.50 0.45 - 0.55 0.45 pen 2",
                                        "0.55 0.40 - 0.55 0.45 pen 2", "0.55 0.45 - 0.55 0.50 pen 2"}));
}

TEST(Listing, MeetsNeighbouringCellsAtTheVerySamePlaces) {
    const auto pages = pagesOf("\xC2\xC2\xC2\r\n\xB3\xB3\xB3", FixedTextMetrics());
    std::vector<DrawnLine> lines;
    for (const DrawnCommand& command : pages[0].commands)
        lines.push_back(std::get<DrawnLine>(command));
    ASSERT_EQ(lines.size(), 13U);
    EXPECT_EQ(lines[2].to, lines[3].from); // from the first middle to the second
    EXPECT_EQ(lines[1].to, lines[7].from); // from the first row to the second
    EXPECT_EQ(lines[3].to.x, lines[9].from.x);
}

TEST(Listing, LooksAsItDidBefore) {
    const std::string text = "KORVEL  water quality   Run type  0\r\n\r\n"
                             "\xC9\xCD\xCD\xCD\xCD\xCD\xCD\xCD\xCD\xCD\xBB\r\n"
                             "\xC7\xC4\xC4\xC4\xC4\xC2\xC4\xC4\xC4\xC4\xB6\r\n"
                             "\xC3 BOD\xB3 1.2\xB4\r\n"
                             "\xC0\xC4\xC4\xC4\xC4\xC1\xC4\xC4\xC4\xC4\xD9\r\n"
                             "\xC8\xCD\xCD\xCD\xBC  12 \xF8"
                             "C\r\n";
    expectSameAsFile(textOf(pagesOf(text, FixedTextMetrics()).at(0)), "listing/boxes.drawing");
}

} // namespace korvel
