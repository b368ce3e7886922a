// Light or dark: what is named, what a palette says, and what stands on a given colour.
#include "toolkit/desktop/Theme.h"

#include "toolkit/forms/LineBox.h"
#include "toolkit/forms/Looks.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <utility>

namespace korvel {

namespace {

constexpr double leastContrast = 4.5;

double luminance(const QColor& colour) {
    const auto part = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor colourOf(Rgb rgb) {
    return {rgb.red, rgb.green, rgb.blue};
}

struct NamedTheme {
    explicit NamedTheme(const char* name) { qputenv("KORVEL_THEME", name); }
    ~NamedTheme() { qunsetenv("KORVEL_THEME"); }
};

} // namespace

TEST(Theme, IsTheOneThatIsNamed) {
    qunsetenv("KORVEL_THEME");
    EXPECT_FALSE(namedTheme());
    using Named = std::pair<const char*, Theme>;
    for (const auto& [name, theme] :
         {Named("dark", Theme::dark), Named("Dark", Theme::dark), Named("light", Theme::light)}) {
        const NamedTheme named(name);
        EXPECT_EQ(namedTheme(), theme) << name;
        EXPECT_EQ(desktopTheme(), theme) << name;
    }
    const NamedTheme none("blue");
    EXPECT_FALSE(namedTheme());
}

TEST(Theme, IsKnownByItsGround) {
    EXPECT_EQ(themeOf(paletteOf(Theme::light)), Theme::light);
    EXPECT_EQ(themeOf(paletteOf(Theme::dark)), Theme::dark);
}

TEST(Theme, LetsWordsStandOutFromTheirGrounds) {
    for (const Theme theme : {Theme::light, Theme::dark}) {
        const QPalette palette = paletteOf(theme);
        using Words = std::pair<QPalette::ColorRole, QPalette::ColorRole>;
        for (const auto& [words, ground] :
             {Words(QPalette::WindowText, QPalette::Window), Words(QPalette::Text, QPalette::Base),
              Words(QPalette::ButtonText, QPalette::Button),
              Words(QPalette::HighlightedText, QPalette::Highlight), Words(QPalette::Link, QPalette::Window),
              Words(QPalette::ToolTipText, QPalette::ToolTipBase)})
            EXPECT_GE(contrast(palette.color(words), palette.color(ground)), leastContrast) << words;
        for (const looks::ThemedColour& words : {looks::title, looks::warning, looks::done}) {
            EXPECT_GE(contrast(colourOf(words.in(theme)), palette.color(QPalette::Base)), leastContrast);
            EXPECT_GE(contrast(colourOf(words.in(theme)), palette.color(QPalette::Window)), leastContrast);
        }
    }
}

// Which set a value is of stands at the end of its name.
TEST(LineBox, TakesSmallerLettersWhereANameWouldBeCut) {
    LineBox box(nullptr);
    box.setFont(QFont("Arial", 16));
    box.tell([](std::size_t) { return std::vector<BoxLine>{{.text = "mean, set 1", .value = "0.1858"}}; },
             "");
    box.resize(400, 200);
    EXPECT_EQ(box.fittingFont().pointSizeF(), 16);
    const int widest = QFontMetrics(box.font()).horizontalAdvance("mean, set 1 0.1858");
    box.resize(widest * 3 / 4, 200);
    EXPECT_LT(box.fittingFont().pointSizeF(), 14);
    EXPECT_GE(box.fittingFont().pointSizeF(), 7);
    box.resize(10, 200);
    EXPECT_EQ(box.fittingFont().pointSizeF(), 7) << "and no less";
}

} // namespace korvel
