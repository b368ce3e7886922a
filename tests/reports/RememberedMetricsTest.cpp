#include "reports/RememberedMetrics.h"

#include "fakes/FixedTextMetrics.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class CountingMetrics : public FixedTextMetrics {
  public:
    TextSize measure(std::string_view text, const Font& font) const override {
        ++count;
        return FixedTextMetrics::measure(text, font);
    }
    mutable int count = 0;
};

const Font rows{"Arial", 8, false};

} // namespace

TEST(RememberedMetrics, MeasuresAShortTextOnce) {
    const CountingMetrics metrics;
    const RememberedMetrics remembered(metrics, rows);
    const double width = FixedTextMetrics().measure("12.35", rows).width;
    EXPECT_EQ(remembered.measure("12.35", rows).width, width);
    EXPECT_EQ(remembered.measure("12.35", rows).width, width);
    EXPECT_EQ(metrics.count, 1);
}

TEST(RememberedMetrics, AsksAgainForOtherFontsAndLongTexts) {
    const CountingMetrics metrics;
    const RememberedMetrics remembered(metrics, rows);
    for (int k = 0; k < 2; ++k) {
        EXPECT_GT(remembered.measure("12.35", {"Arial", 10, true}).width,
                  remembered.measure("12.35", rows).width);
        remembered.measure("a label of a feature", rows);
    }
    EXPECT_EQ(metrics.count, 5);
}

TEST(RememberedMetrics, StaysRightWhenItForgets) {
    const CountingMetrics metrics;
    const RememberedMetrics remembered(metrics, rows);
    for (int k = 0; k < 120000; ++k)
        remembered.measure(std::to_string(k), rows);
    EXPECT_EQ(remembered.measure("7", rows).width, FixedTextMetrics().measure("7", rows).width);
    EXPECT_EQ(metrics.count, 120001);
}

} // namespace korvel
