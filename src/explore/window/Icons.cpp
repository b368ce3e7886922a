#include "explore/window/Icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

#include <array>

namespace korvel {

namespace {

// Paths on a square of 16; strokes of one and a half.
constexpr std::array<const char*, 11> drawings = {
    "M1.5 12.5v-9h4.5l1.5 2h6v2M1.5 12.5l2.3-5h11.2l-2.3 5z",
    "M2.5 2.5h9l2 2v9h-11zM5 2.5v3.5h5.5v-3.5M5 13.5v-4.500h6v4.500",
    "M7 2.500a4.500 4.500 0 1 0 0.010 0M10.300 10.300l4 4M7 5v4M5 7h4",
    "M7 2.500a4.500 4.500 0 1 0 0.010 0M10.300 10.300l4 4M5 7h4",
    "M2.500 6v-3.500h3.500M10 2.500h3.500v3.500M13.500 10v3.500h-3.500M6 13.500h-3.500v-3.500",
    "M13.500 8h-11M6.500 4l-4 4l4 4",
    "M8 10v-8M5 4.500l3-3l3 3M2.500 8.500v5h11v-5",
    "M4 4l8 8M12 4l-8 8",
    "M3.500 14v-12M3.500 2.500h9l-2.500 3l2.500 3h-9",
    "M8 13v-10M4 7l4-4l4 4",
    "M8 3v10M4 9l4 4l4-4",
};

QByteArray svgOf(Picture picture, const QColor& colour) {
    return QString("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 16 16'><path d='%1' fill='none' "
                   "stroke='%2' stroke-width='1.3' stroke-linecap='round' stroke-linejoin='round'/></svg>")
        .arg(drawings[static_cast<std::size_t>(picture)], colour.name())
        .toUtf8();
}

// Painted at whatever size is asked for, sharp on every screen.
class PaintedEngine : public QIconEngine {
  public:
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
};

// In the colours that the program has when it is painted.
class PictureEngine : public PaintedEngine {
  public:
    explicit PictureEngine(Picture picture) : m_picture(picture) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        QSvgRenderer svg(svgOf(m_picture, QGuiApplication::palette().color(group, QPalette::ButtonText)));
        painter->setRenderHint(QPainter::Antialiasing);
        svg.render(painter, QRectF(rect));
    }
    QIconEngine* clone() const override { return new PictureEngine(*this); }

  private:
    Picture m_picture;
};

constexpr Qt::PenStyle penStyle(Dash dash) {
    switch (dash) {
    case Dash::dash: return Qt::DashLine;
    case Dash::dot: return Qt::DotLine;
    case Dash::dashDot: return Qt::DashDotLine;
    case Dash::dashDotDot: return Qt::DashDotDotLine;
    case Dash::solid: break;
    }
    return Qt::SolidLine;
}

class SwatchEngine : public PaintedEngine {
  public:
    explicit SwatchEngine(RunStyle style) : m_style(style) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        const Rgb rgb = m_style.colour;
        QPen pen(QColor(rgb.red, rgb.green, rgb.blue), 2.5, penStyle(m_style.dash), Qt::FlatCap);
        painter->setPen(pen);
        const double middle = rect.center().y() + 0.5;
        painter->drawLine(QPointF(rect.left(), middle), QPointF(rect.right() + 1, middle));
    }
    QIconEngine* clone() const override { return new SwatchEngine(*this); }

  private:
    RunStyle m_style;
};

} // namespace

QIcon iconOf(Picture picture) {
    return QIcon(new PictureEngine(picture));
}

QIcon swatchOf(std::size_t run, Theme theme) {
    return QIcon(new SwatchEngine(runStyle(run, theme)));
}

} // namespace korvel
