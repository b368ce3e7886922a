#include "panels/RunStyle.h"

#include "panels/PanelLook.h"
#include "study/Study.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

double linear(std::uint8_t part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double contrast(Rgb a, Rgb b) {
    const auto light = [](Rgb c) {
        return 0.2126 * linear(c.red) + 0.7152 * linear(c.green) + 0.0722 * linear(c.blue) + 0.05;
    };
    return std::max(light(a), light(b)) / std::min(light(a), light(b));
}

} // namespace

TEST(RunStyle, TellsTwelveRunsApart) {
    for (const Theme theme : {Theme::light, Theme::dark, Theme::paper})
        for (std::size_t a = 0; a < MaxRuns; ++a)
            for (std::size_t b = 0; b < a; ++b)
                EXPECT_NE(runStyle(a, theme), runStyle(b, theme)) << a << ' ' << b;
}

TEST(RunStyle, KeepsTheColourOfARunInEveryThemeButBlackOnDark) {
    for (std::size_t run = 0; run < MaxRuns; ++run) {
        EXPECT_EQ(runStyle(run, Theme::light), runStyle(run, Theme::paper));
        if (run % 7 != 6) {
            EXPECT_EQ(runStyle(run, Theme::light), runStyle(run, Theme::dark)) << run;
        }
    }
    EXPECT_GT(contrast(runStyle(6, Theme::dark).colour, panelLook(Theme::dark).plot), 10);
    EXPECT_GT(contrast(runStyle(6, Theme::light).colour, panelLook(Theme::light).plot), 10);
}

TEST(PanelLook, HasTextsThatCanBeRead) {
    for (const Theme theme : {Theme::light, Theme::dark, Theme::paper}) {
        const PanelLook look = panelLook(theme);
        for (const Rgb ground : {look.background, look.plot})
            for (const Rgb colour :
                 {look.text, look.quietText, look.pass, look.fail, look.accent, look.target})
                EXPECT_GE(contrast(colour, ground), 4.5);
        EXPECT_GE(contrast(look.unsure, look.background), 3);
    }
}

} // namespace korvel
