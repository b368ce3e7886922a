#include "toolkit/forms/PlainStyle.h"

#include "forms/FormDriver.h"
#include "toolkit/desktop/StartQt.h"

#include <QImage>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolButton>

#include <gtest/gtest.h>

#include <array>
#include <memory>

#include <QCheckBox>
#include <QDoubleSpinBox>

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

// How far the outline of an empty box stands out from the ground around it.
int outlineStandsOut(const QPalette& palette) {
    PlainStyle style;
    QImage image(24, 24, QImage::Format_RGB32);
    const QColor ground = palette.color(QPalette::Window);
    image.fill(ground);
    QPainter painter(&image);
    QStyleOptionButton option;
    option.rect = QRect(4, 4, 14, 14);
    option.palette = palette;
    option.state = QStyle::State_Enabled | QStyle::State_Off;
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, nullptr);
    painter.end();
    return qAbs(qGray(image.pixel(10, 4)) - qGray(ground.rgb()));
}

TEST(PlainStyle, LetsEmptyBoxesBeSeenOnAnyGround) {
    EXPECT_GT(outlineStandsOut(QPalette(QColor(0xee, 0xf1, 0xf2), QColor(0xf7, 0xf8, 0xf9))), 40);
    QPalette dark(QColor(0x2d, 0x34, 0x38), QColor(0x22, 0x27, 0x2a));
    dark.setColor(QPalette::PlaceholderText, QColor(0x7d, 0x88, 0x8d));
    EXPECT_GT(outlineStandsOut(dark), 80);
}

// How wide an arrow's dark part is in a button of this size.
int widthOfArrow(int side) {
    PlainStyle style;
    QToolButton button;
    button.setArrowType(Qt::UpArrow);
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOption option;
    option.rect = image.rect();
    option.palette.setColor(QPalette::ButtonText, Qt::black);
    style.drawPrimitive(QStyle::PE_IndicatorArrowUp, &option, &painter, &button);
    painter.end();
    int left = side, right = 0;
    for (int x = 0; x < side; ++x)
        for (int y = 0; y < side; ++y)
            if (qGray(image.pixel(x, y)) < 128) left = qMin(left, x), right = qMax(right, x);
    return right - left + 1;
}

TEST(PlainStyle, LetsArrowsGrowWithTheirButton) {
    EXPECT_NEAR(widthOfArrow(40), 17, 2);
    EXPECT_NEAR(widthOfArrow(80), 35, 3);
}

// Fusion shows it of neither: of a list by its current line alone, of a flat button not at all.
TEST(PlainStyle, ShowsTheFocusOfEmptyListsAndFlatButtons) {
    PlainStyle style;
    QWidget window;
    QListWidget list(&window);
    QPushButton button("More", &window), other(&window);
    button.setFlat(true);
    list.setGeometry(10, 10, 80, 60);
    button.setGeometry(10, 80, 80, 24);
    other.setGeometry(10, 120, 80, 24);
    const std::array<QWidget*, 2> both{&list, &button};
    for (QWidget* each : both)
        each->setStyle(&style);
    showActive(window);
    for (QWidget* each : both) {
        other.setFocus();
        const QImage without = each->grab().toImage();
        each->setFocus();
        EXPECT_NE(each->grab().toImage(), without) << each->metaObject()->className();
    }
}

QImage imageOfDefaultButton(QStyle::State more) {
    QPushButton button("Print");
    QStyleOptionButton option;
    option.initFrom(&button);
    option.rect = QRect(0, 0, 80, 24);
    option.features = QStyleOptionButton::DefaultButton;
    option.state |= QStyle::State_Enabled | QStyle::State_Active | more;
    QImage image(80, 24, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PlainStyle().drawControl(QStyle::CE_PushButton, &option, &painter, &button);
    return image;
}

TEST(PlainStyle, ShowsTheFocusOfTheButtonOfTheEnterKeyOnceKeysAreUsed) {
    const QImage without = imageOfDefaultButton(QStyle::State_None);
    EXPECT_NE(imageOfDefaultButton(QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange), without);
    EXPECT_EQ(imageOfDefaultButton(QStyle::State_KeyboardFocusChange), without);
}

TEST(PlainStyle, MovesNothingByItself) {
    const PlainStyle style;
    EXPECT_EQ(style.styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, nullptr, nullptr), 0);
    EXPECT_FALSE(QApplication::isEffectEnabled(Qt::UI_AnimateMenu));
    EXPECT_FALSE(QApplication::isEffectEnabled(Qt::UI_AnimateCombo));
}

TEST(PlainStyle, LeavesTheOtherIconsToFusion) {
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create("Fusion"));
    const PlainStyle plain;
    for (const auto which : {QStyle::SP_MessageBoxWarning, QStyle::SP_DirIcon, QStyle::SP_DialogOkButton})
        EXPECT_EQ(imageOf(plain, which), imageOf(*fusion, which)) << which;
}

TEST(Look, WritesDecimalPointsWhateverTheCountry) {
    QLocale::setDefault(QLocale(QLocale::German));
    QDoubleSpinBox unsettled;
    unsettled.setValue(1.5);
    EXPECT_EQ(unsettled.text(), "1,50");
    settleLook();
    QDoubleSpinBox box;
    box.setValue(1.5);
    EXPECT_EQ(box.text(), "1.50");
}

} // namespace

} // namespace korvel
