#include "toolkit/forms/PlainStyle.h"

#include "toolkit/desktop/Theme.h"

#include <QAbstractScrollArea>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QStyleOption>
#include <QToolButton>
#include <QWidget>

namespace korvel {

namespace {

constexpr int besideHeading = 4; // pixels more than Fusion leaves, so that headings stand over their cells
constexpr int menuArrow = 12;    // room for it
constexpr double shareOfLine = 0.65;   // a mark's, of the height of a line beside it
constexpr double shareOfButton = 0.45; // an arrow's, of the shorter side of the button that bears it

// Two angles that point to what lies further on.
QIcon furtherOn() {
    constexpr int size = 32;
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette palette = QGuiApplication::palette();
    const bool isDark = themeOf(palette) == Theme::dark;
    painter.setPen(QPen(isDark ? palette.color(QPalette::ButtonText) : QColor(0x40, 0x40, 0x40), 3));
    for (const int x : {8, 17})
        painter.drawPolyline(QPolygon({{x, 8}, {x + 7, 16}, {x, 24}}));
    return picture;
}

bool isMark(QStyle::PixelMetric which) {
    return which == QStyle::PM_IndicatorWidth || which == QStyle::PM_IndicatorHeight ||
           which == QStyle::PM_ExclusiveIndicatorWidth || which == QStyle::PM_ExclusiveIndicatorHeight;
}

// Wherever it is pressed.
bool opensMenu(const QStyleOption* option) {
    const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    return button != nullptr && button->features.testFlag(QStyleOptionToolButton::HasMenu) &&
           !button->features.testFlag(QStyleOptionToolButton::MenuButtonPopup);
}

enum class Outline { box, circle };

void outline(const QStyleOption& option, QPainter& painter, QPalette::ColorRole colour, Outline shape) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, shape == Outline::circle);
    painter.setPen(option.palette.color(colour));
    painter.setBrush(Qt::NoBrush);
    const QRect place = option.rect.adjusted(0, 0, -1, -1);
    if (shape == Outline::circle)
        painter.drawEllipse(QRectF(place).adjusted(0.5, 0.5, 0.5, 0.5));
    else
        painter.drawRect(place);
    painter.restore();
}

bool isArrow(QStyle::PrimitiveElement element) {
    return element == QStyle::PE_IndicatorArrowUp || element == QStyle::PE_IndicatorArrowDown ||
           element == QStyle::PE_IndicatorArrowLeft || element == QStyle::PE_IndicatorArrowRight;
}

bool bearsArrow(const QWidget* widget) {
    const auto* button = qobject_cast<const QToolButton*>(widget);
    return button != nullptr && button->arrowType() != Qt::NoArrow;
}

// Fusion's stays small however large the button is.
void drawArrow(QStyle::PrimitiveElement element, const QStyleOption& option, QPainter& painter) {
    const double half = qMin(option.rect.width(), option.rect.height()) * shareOfButton / 2;
    const QPolygonF up({{-half, half / 2}, {0, -half / 2}, {half, half / 2}});
    const double turned = element == QStyle::PE_IndicatorArrowRight  ? 90
                          : element == QStyle::PE_IndicatorArrowDown ? 180
                          : element == QStyle::PE_IndicatorArrowLeft ? 270
                                                                     : 0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(option.rect).center());
    painter.rotate(turned);
    painter.setPen(Qt::NoPen);
    painter.setBrush(option.palette.color(QPalette::ButtonText));
    painter.drawPolygon(up);
    painter.restore();
}

// Lists, tables and long texts.
bool isView(const QWidget* widget) {
    return qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
}

bool isButton(const QStyleOption* option, QStyleOptionButton::ButtonFeature kind) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    return button != nullptr && button->features.testFlag(kind);
}

// Fusion gives the button of the Enter key the same frame with the focus and without it.
void drawFocusInside(const QStyleOptionButton& button, QPainter& painter) {
    QStyleOptionButton inside = button;
    inside.rect.adjust(3, 3, -3, -3);
    outline(inside, painter, QPalette::Highlight, Outline::box);
}

} // namespace

QIcon PlainStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                               const QWidget* widget) const {
    if (which == SP_ToolBarHorizontalExtensionButton) return furtherOn();
    return QProxyStyle::standardIcon(which, option, widget);
}

// Fusion's outlines are darker than the ground: on a dark one an empty box could not be seen.
void PlainStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (isArrow(element) && bearsArrow(widget)) return drawArrow(element, *option, *painter);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_Frame && isView(widget) && widget->hasFocus())
        return outline(*option, *painter, QPalette::Highlight, Outline::box);
    if (themeOf(option->palette) == Theme::light) return;
    switch (element) {
    case PE_IndicatorCheckBox:
    case PE_FrameLineEdit: return outline(*option, *painter, QPalette::PlaceholderText, Outline::box);
    case PE_IndicatorRadioButton:
        return outline(*option, *painter, QPalette::PlaceholderText, Outline::circle);
    case PE_Frame: return outline(*option, *painter, QPalette::Mid, Outline::box);
    default: return;
    }
}

// Off the lines between headings.
template <typename Heading>
void PlainStyle::drawHeading(Heading heading, QPainter* painter, const QWidget* widget) const {
    heading.rect.adjust(besideHeading, 0, -besideHeading, 0);
    QProxyStyle::drawControl(CE_HeaderLabel, &heading, painter, widget);
}

void PlainStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    if (element == CE_HeaderLabel) {
        if (const auto* heading = qstyleoption_cast<const QStyleOptionHeaderV2*>(option))
            return drawHeading(*heading, painter, widget);
        if (const auto* heading = qstyleoption_cast<const QStyleOptionHeader*>(option))
            return drawHeading(*heading, painter, widget);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element != CE_PushButton || !option->state.testFlag(State_HasFocus)) return;
    if (isButton(option, QStyleOptionButton::Flat))
        outline(*option, *painter, QPalette::Highlight, Outline::box);
    else if (isButton(option, QStyleOptionButton::DefaultButton) &&
             option->state.testFlag(State_KeyboardFocusChange))
        drawFocusInside(*qstyleoption_cast<const QStyleOptionButton*>(option), *painter);
}

QSize PlainStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                   const QWidget* widget) const {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_HeaderSection) return size + QSize(2 * besideHeading, 0);
    if (type == CT_ToolButton && opensMenu(option)) return size + QSize(2 * menuArrow, 0);
    return size;
}

// Fusion puts the arrow of a button that is a menu into its corner, onto the text.
void PlainStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    if (control != CC_ToolButton || !opensMenu(option))
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    QStyleOptionToolButton button = *qstyleoption_cast<const QStyleOptionToolButton*>(option);
    button.features &= ~QStyleOptionToolButton::HasMenu;
    QProxyStyle::drawComplexControl(control, &button, painter, widget);
    QStyleOption arrow = button;
    arrow.rect.setLeft(arrow.rect.right() - menuArrow);
    drawPrimitive(PE_IndicatorArrowDown, &arrow, painter, widget);
}

int PlainStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* result) const {
    if (hint == SH_Widget_Animation_Duration) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

int PlainStyle::pixelMetric(PixelMetric which, const QStyleOption* option, const QWidget* widget) const {
    const int size = QProxyStyle::pixelMetric(which, option, widget);
    if (!isMark(which) || widget == nullptr) return size;
    return qMax(size, qRound(widget->fontMetrics().height() * shareOfLine));
}

} // namespace korvel
