#include "toolkit/forms/LineBox.h"

#include "drawing/paint/Shown.h"

#include <QPainter>

#include <algorithm>

namespace korvel {

namespace {

constexpr int sampleWidth = 10; // pixels
constexpr int gap = 5;
constexpr double leastSize = 7; // points
constexpr std::size_t everyLine = 10000;

QPen penOf(const BoxLine& line) {
    const QColor colour(line.colour.red, line.colour.green, line.colour.blue);
    if (line.sample == BoxLine::Sample::thickLine) return {colour, 4, Qt::SolidLine, Qt::FlatCap};
    return {colour, 1, line.sample == BoxLine::Sample::dottedLine ? Qt::DotLine : Qt::SolidLine};
}

// In the colour of the graph, and on its paper.
void paintSample(QPainter& painter, const BoxLine& line, const QRect& place) {
    painter.fillRect(place, Qt::white);
    painter.setPen(penOf(line));
    const QPoint middle = place.center();
    if (line.sample == BoxLine::Sample::cross) {
        painter.drawLine(middle + QPoint(-3, -3), middle + QPoint(3, 3));
        painter.drawLine(middle + QPoint(-3, 3), middle + QPoint(3, -3));
    } else {
        painter.drawLine(place.left(), middle.y(), place.right() + 1, middle.y());
    }
}

int widthOf(const QPainter& painter, const std::string& text) {
    return painter.fontMetrics().horizontalAdvance(shown(text));
}

void paintText(QPainter& painter, const QRect& place, Qt::Alignment align, const std::string& text) {
    const QString fitting = painter.fontMetrics().elidedText(shown(text), Qt::ElideRight, place.width());
    painter.drawText(place, align | Qt::AlignVCenter, fitting);
}

// A value's name must be read whole: which set it is of stands at its end.
bool fitsIn(const BoxLine& line, const QFont& font, int width) {
    if (line.value.empty()) return true;
    const QFontMetrics metrics(font);
    const auto wide = [&](const std::string& text) { return metrics.horizontalAdvance(shown(text)); };
    return sampleWidth + gap + wide(line.text) + gap + wide(line.value) <= width;
}

QFont fontOf(QFont font, BoxLine::Look look) {
    font.setBold(look == BoxLine::Look::bold);
    font.setItalic(look == BoxLine::Look::italic);
    return font;
}

void paintLine(QPainter& painter, const BoxLine& line, QRect place) {
    const QPen ink = painter.pen();
    if (line.sample != BoxLine::Sample::none) {
        paintSample(painter, line, QRect(place.topLeft(), QSize(sampleWidth, place.height())));
        place.setLeft(place.left() + sampleWidth + gap);
    }
    painter.setPen(ink);
    paintText(painter, place, Qt::AlignRight, line.value);
    if (!line.value.empty()) place.setRight(place.right() - widthOf(painter, line.value) - gap);
    paintText(painter, place, Qt::AlignLeft, line.text);
}

} // namespace

LineBox::LineBox(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void LineBox::tell(Lines lines, const std::string& spoken) {
    if (!text().isEmpty()) clear();
    m_lines = std::move(lines);
    setAccessibleName(shown(spoken));
    setToolTip(shown(spoken));
    update();
}

void LineBox::hint(const std::string& text) {
    m_lines = {};
    setText(shown(text));
    setAccessibleName(shown(text));
    setToolTip({});
}

std::size_t LineBox::room(const QFont& font) const {
    return static_cast<std::size_t>(qMax(0, height() / QFontMetrics(font).height()));
}

QFont LineBox::fittingFont() const {
    const std::vector<BoxLine> wanted = m_lines ? m_lines(everyLine) : std::vector<BoxLine>();
    QFont fitting = font();
    const auto fits = [&] {
        return wanted.size() <= room(fitting) && std::ranges::all_of(wanted, [&](const BoxLine& line) {
                   return fitsIn(line, fitting, width());
               });
    };
    while (!fits() && fitting.pointSizeF() > leastSize)
        fitting.setPointSizeF(qMax(leastSize, fitting.pointSizeF() - 1));
    return fitting;
}

std::vector<BoxLine> LineBox::lines() const {
    return m_lines ? m_lines(room(fittingFont())) : std::vector<BoxLine>();
}

void LineBox::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    QPainter painter(this);
    const QFont fitting = fittingFont();
    QRect place(0, 0, width(), QFontMetrics(fitting).height());
    for (const BoxLine& line : lines()) {
        painter.setFont(fontOf(fitting, line.look));
        paintLine(painter, line, place);
        place.translate(0, place.height());
    }
}

} // namespace korvel
