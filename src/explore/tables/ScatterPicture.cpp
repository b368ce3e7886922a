#include "explore/tables/ScatterPicture.h"

#include "drawing/paint/DrawingPainter.h"
#include "drawing/paint/QtTextMetrics.h"
#include "drawing/paint/Shown.h"
#include "explore/tables/TableColours.h"
#include "toolkit/forms/Spoken.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace korvel {

namespace {

constexpr double twips = 15; // a pixel
constexpr double reachOfPointer = 12 * twips;

// Never destroyed: at the end of the program its fonts would outlive the application.
const QtTextMetrics& metrics() {
    static const QtTextMetrics* const measured = new QtTextMetrics;
    return *measured;
}

Rgb rgb(const QColor& colour) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

// As the transparent colour looks on the ground.
QColor onGround(const QColor& colour, const QColor& ground) {
    const double share = colour.alphaF();
    const auto mixed = [&](int above, int below) { return qRound(above * share + below * (1 - share)); };
    return {mixed(colour.red(), ground.red()), mixed(colour.green(), ground.green()),
            mixed(colour.blue(), ground.blue())};
}

} // namespace

ScatterPicture::ScatterPicture(Handlers& handlers, QWidget* parent) : QWidget(parent), m_handlers(handlers) {
    setObjectName("picFit");
    tellAsChart(*this);
    setAccessibleName(tr("Observed and simulated values"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void ScatterPicture::setPoints(std::optional<FitRows::Points> points) {
    m_points = std::move(points);
    m_marked = -1;
    layOut();
}

void ScatterPicture::setScale(ScaleKind kind) {
    m_kind = kind;
    layOut();
}

void ScatterPicture::layOut() {
    m_scatter = {};
    if (m_points)
        m_scatter = layOutScatter(*m_points, width() * twips, height() * twips, m_kind, metrics(),
                                  {typed(font().family()), font().pointSizeF() - 1});
    mark(-1);
    update();
}

void ScatterPicture::mark(int point) {
    setAccessibleDescription(
        point < 0 ? shown(m_scatter.title)
                  : shown(wordsOf(m_scatter, m_scatter.points[static_cast<std::size_t>(point)])));
    if (m_marked != point) update();
    m_marked = point;
}

int ScatterPicture::pointUnder(const QPointF& place) const {
    const ScatterPoint* point = m_scatter.pointAt({place.x() * twips, place.y() * twips}, reachOfPointer);
    return point == nullptr ? -1 : static_cast<int>(point - m_scatter.points.data());
}

void ScatterPicture::choose(int point) {
    if (point < 0) return;
    const ExplorePlace place =
        placeOf(m_scatter.run.results(), m_scatter.points[static_cast<std::size_t>(point)].observed.point);
    emit placeChosen(place.reach, place.distance, shown(place.side));
}

void ScatterPicture::step(int by) {
    const int count = static_cast<int>(m_scatter.points.size());
    if (count > 0) mark(m_marked < 0 ? 0 : (m_marked + by + count) % count);
}

void ScatterPicture::paint() {
    const TableColours colours = tableColours(palette());
    const QColor ground = palette().color(QPalette::Base);
    QPainter painter(this);
    painter.fillRect(rect(), ground);
    const ScatterPoint* marked =
        m_marked < 0 ? nullptr : &m_scatter.points[static_cast<std::size_t>(m_marked)];
    const Drawing drawing =
        drawScatter(m_scatter, width() * twips, height() * twips, marked,
                    {rgb(colours.ink), rgb(onGround(colours.faint, ground)), rgb(colours.points)}, metrics());
    paintOnScreen(drawing, painter);
    if (!hasFocus()) return;
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ScatterPicture::paintEvent(QPaintEvent*) {
    m_handlers.run([this] { paint(); });
}

void ScatterPicture::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_handlers.run([this] { layOut(); });
}

void ScatterPicture::mouseMoveEvent(QMouseEvent* event) {
    m_handlers.run([&] { mark(pointUnder(event->position())); });
}

void ScatterPicture::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) m_handlers.run([&] { choose(pointUnder(event->position())); });
}

void ScatterPicture::leaveEvent(QEvent*) {
    m_handlers.run([this] { mark(-1); });
}

// From point to point, and Enter chooses the marked one.
void ScatterPicture::keyPressEvent(QKeyEvent* event) {
    m_handlers.run([&] {
        switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Up: return step(-1);
        case Qt::Key_Right:
        case Qt::Key_Down: return step(1);
        case Qt::Key_Return:
        case Qt::Key_Enter: return choose(m_marked);
        default: QWidget::keyPressEvent(event);
        }
    });
}

bool ScatterPicture::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    m_handlers.run([&] {
        const int point = pointUnder(help->pos());
        if (point < 0)
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(),
                               shown(wordsOf(m_scatter, m_scatter.points[static_cast<std::size_t>(point)])),
                               this);
    });
    return true;
}

} // namespace korvel
