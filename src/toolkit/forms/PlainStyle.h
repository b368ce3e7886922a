// The look of the forms: Fusion, with boxes and circles that grow with their text, and but for one icon. Each
// menu bar asks for that of its extension button when it is made, shown or not, and Fusion's comes from a
// file, for which Qt loads the libraries of all image formats: an eighth of the time that the program takes
// to start. So it is painted here.
#pragma once

#include <QIcon>
#include <QProxyStyle>

namespace korvel {

class PlainStyle : public QProxyStyle {
  public:
    PlainStyle() : QProxyStyle("Fusion") {}

    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    // Nothing moves by itself.
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    int pixelMetric(PixelMetric which, const QStyleOption* option, const QWidget* widget) const override;

  private:
    template <typename Heading>
    void drawHeading(Heading heading, QPainter* painter, const QWidget* widget) const;
};

} // namespace korvel
