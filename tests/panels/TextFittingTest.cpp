#include "panels/TextFitting.h"

#include "basic/Text.h"
#include "fakes/FixedTextMetrics.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(FittedText, ShortensWithAnEllipsisWhereItMust) {
    const FixedTextMetrics metrics;
    const Font font{"Arial", 10, false};
    const double letter = 100; // twips
    const struct {
        const char* text;
        double letters;
        Shorten shorten;
        const char* fitted;
    } cases[] = {
        {"Holcombe STW", 12, Shorten::end, "Holcombe STW"},
        {"Holcombe STW", 11, Shorten::end, "Holcombe S\u2026"},
        {"Holcombe STW", 10, Shorten::end, "Holcombe\u2026"}, // no blank before it
        {"Holcombe STW", 2, Shorten::end, "H\u2026"},
        {"Holcombe STW", 1, Shorten::end, ""},
        {"scheme-2026-a.sgr", 9, Shorten::middle, "sche\u2026.sgr"},
        {"\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9", 4, Shorten::middle, "\u00e9\u00e9\u2026\u00e9"},
        {"", 0, Shorten::end, ""},
    };
    for (const auto& [text, letters, shorten, fitted] : cases)
        EXPECT_EQ(fittedText(text, letters * letter, font, metrics, shorten), fitted) << text << letters;
}

TEST(TextAt, StandsOnItsEnd) {
    const FixedTextMetrics metrics;
    const Font font{"Arial", 10, false};
    EXPECT_EQ(textAt({500, 7}, TextAlign::left, "ab", font, {}, metrics).corner, (DrawnPoint{500, 7}));
    EXPECT_EQ(textAt({500, 7}, TextAlign::centre, "ab", font, {}, metrics).corner, (DrawnPoint{400, 7}));
    EXPECT_EQ(textAt({500, 7}, TextAlign::right, "ab", font, {}, metrics).corner, (DrawnPoint{300, 7}));
}

} // namespace korvel
