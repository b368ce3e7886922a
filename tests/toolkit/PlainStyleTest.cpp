#include "toolkit/forms/PlainStyle.h"

#include <QImage>
#include <QStyleFactory>

#include <gtest/gtest.h>

#include <memory>

#include <QCheckBox>

namespace korvel {

namespace {

constexpr QSize size(32, 32);

QImage imageOf(const QStyle& style, QStyle::StandardPixmap which) {
    return style.standardIcon(which).pixmap(size).toImage();
}

TEST(PlainStyle, PaintsTheExtensionIconItself) {
    const QIcon icon =
        PlainStyle().standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr);
    EXPECT_EQ(icon.availableSizes(), QList<QSize>{size}); // that from the files comes in others
    const QImage image = icon.pixmap(size).toImage();
    EXPECT_EQ(qAlpha(image.pixel(2, 16)), 0);
    for (const int x : {8 + 6, 17 + 6})
        EXPECT_GT(qAlpha(image.pixel(x, 16)), 200) << x;
}

TEST(PlainStyle, LetsBoxesAndCirclesGrowWithTheirText) {
    const PlainStyle style;
    QCheckBox box;
    for (const auto mark : {QStyle::PM_IndicatorWidth, QStyle::PM_IndicatorHeight,
                            QStyle::PM_ExclusiveIndicatorWidth, QStyle::PM_ExclusiveIndicatorHeight}) {
        box.setFont(QFont("Arial", 8));
        const int small = style.pixelMetric(mark, nullptr, &box);
        EXPECT_EQ(small, style.QProxyStyle::pixelMetric(mark, nullptr, &box)) << "never below Fusion's";
        box.setFont(QFont("Arial", 19));
        const int large = style.pixelMetric(mark, nullptr, &box);
        EXPECT_GT(large, small + 3);
        EXPECT_LT(large, box.fontMetrics().height());
        EXPECT_EQ(style.pixelMetric(mark, nullptr, nullptr), small);
    }
    EXPECT_EQ(style.pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &box),
              style.QProxyStyle::pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &box));
}

TEST(PlainStyle, LeavesTheOtherIconsToFusion) {
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create("Fusion"));
    const PlainStyle plain;
    for (const auto which : {QStyle::SP_MessageBoxWarning, QStyle::SP_DirIcon, QStyle::SP_DialogOkButton})
        EXPECT_EQ(imageOf(plain, which), imageOf(*fusion, which)) << which;
}

} // namespace

} // namespace korvel
