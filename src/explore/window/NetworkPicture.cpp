#include "explore/window/NetworkPicture.h"

#include "drawing/paint/DrawingPainter.h"
#include "drawing/paint/Shown.h"
#include "drawing/paint/Twips.h"
#include "explore/PathChoice.h"
#include "toolkit/forms/Spoken.h"

#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace korvel {

namespace {

constexpr double near = 8; // pixels
constexpr int leastWidth = 240, leastHeight = 50;

bool isSame(const ExploreState& a, const ExploreState& b) {
    return a.study == b.study && a.from == b.from && a.to == b.to;
}

bool isSame(const NetworkView& a, const NetworkView& b) {
    return a.colours == b.colours && a.verdicts == b.verdicts && a.values == b.values &&
           a.valueName == b.valueName;
}

DrawnPoint twipsAt(QPointF at) {
    return {at.x() * twipsPerPixel, at.y() * twipsPerPixel};
}

} // namespace

NetworkPicture::NetworkPicture(const TextMetrics& metrics, Handlers& handlers, QWidget* parent)
    : QWidget(parent), m_metrics(metrics), m_handlers(handlers) {
    setObjectName("picNetwork");
    tellAsChart(*this);
    setAccessibleName("Network of rivers");
    setAccessibleDescription("A click on a river looks down it; the boxes From and to do the same.");
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(leastWidth, leastHeight);
}

void NetworkPicture::show(const ExploreState& state, NetworkView view) {
    if (m_layout && isSame(state, m_state) && isSame(view, m_view)) return;
    m_state = state;
    m_view = std::move(view);
    refresh();
}

void NetworkPicture::showCursor(const std::optional<ExplorePlace>& cursor) {
    if (m_state.cursor == cursor) return;
    update(spotOfCursor());
    m_state.cursor = cursor;
    update(spotOfCursor());
}

// The pixels of its mark; none while nothing is laid out, when all will be painted.
QRect NetworkPicture::spotOfCursor() const {
    if (!m_layout || !m_state.cursor || m_state.isEmpty()) return {};
    const int place = m_state.study->base().reaches().placeOf(m_state.cursor->reach);
    const auto at = placeOf(*m_layout, {place, m_state.cursor->distance});
    if (!at) return {};
    const double half = 2 * m_layout->symbolHalf;
    return QRectF((at->x - half) / twipsPerPixel, (at->y - half) / twipsPerPixel, 2 * half / twipsPerPixel,
                  2 * half / twipsPerPixel)
        .toAlignedRect();
}

void NetworkPicture::setTheme(Theme theme) {
    m_theme = theme;
    refresh();
}

void NetworkPicture::refresh() {
    m_layout.reset();
    m_picture = {};
    update();
}

const NetworkLayout& NetworkPicture::layoutShown() {
    if (!m_layout)
        m_layout = layOutNetwork(*m_state.study->base().file, *m_state.network, m_view,
                                 withFamily(panelLook(m_theme, font().pointSizeF() - 1, devicePixelRatioF()),
                                            typed(font().family())),
                                 width() * twipsPerPixel, height() * twipsPerPixel, m_metrics);
    return *m_layout;
}

Drawing NetworkPicture::drawn(const NetworkLayout& layout) const {
    Drawing drawing;
    drawing.width = layout.width;
    drawing.height = layout.height;
    paintChosen(layout, pathOf(m_state), drawing);
    paint(layout, drawing);
    return drawing;
}

Drawing NetworkPicture::drawing(double width, double height, Theme theme) const {
    if (m_state.isEmpty()) return {};
    return drawn(layOutNetwork(*m_state.study->base().file, *m_state.network, m_view, panelLook(theme), width,
                               height, m_metrics));
}

void NetworkPicture::paintPicture() {
    const Rgb ground = layoutShown().look.background;
    m_picture = QPixmap((QSizeF(size()) * devicePixelRatioF()).toSize());
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture.fill(QColor(ground.red, ground.green, ground.blue));
    QPainter painter(&m_picture);
    paintOnScreen(drawn(layoutShown()), painter);
}

void NetworkPicture::paintAll(QPainter& painter) {
    if (m_state.isEmpty()) return painter.fillRect(rect(), palette().color(QPalette::Base));
    if (m_picture.size() != (QSizeF(size()) * devicePixelRatioF()).toSize()) paintPicture();
    painter.drawPixmap(0, 0, m_picture);
    if (!m_state.cursor) return;
    const int place = m_state.study->base().reaches().placeOf(m_state.cursor->reach);
    if (place < 0) return;
    Drawing cursor;
    paintSpot(layoutShown(), {place, m_state.cursor->distance}, cursor);
    paintOnScreen(cursor, painter);
}

void NetworkPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_handlers.run([&] { paintAll(painter); });
}

void NetworkPicture::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    refresh();
}

std::optional<NetworkSpot> NetworkPicture::spotUnder(QPointF at) {
    if (m_state.isEmpty()) return {};
    return spotAt(layoutShown(), twipsAt(at), near * twipsPerPixel);
}

void NetworkPicture::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    m_handlers.run([&] {
        const auto spot = spotUnder(event->position());
        if (!spot) return;
        const int reach = m_state.study->base().reaches().number(spot->place);
        event->modifiers() & Qt::ControlModifier ? onSecondEnd(reach) : onRiver(reach);
    });
}

// A feature before the reach that it lies on.
std::string NetworkPicture::nameUnder(QPointF at) {
    const RunFile& base = *m_state.study->base().file;
    if (const auto feature = featureAt(layoutShown(), twipsAt(at), near * twipsPerPixel))
        return base.results.pointLabel[layoutShown().features[*feature].point];
    const auto spot = spotUnder(at);
    return spot ? base.reachName(base.reaches.number(spot->place)) : "";
}

void NetworkPicture::mouseMoveEvent(QMouseEvent* event) {
    if (m_state.isEmpty()) return;
    m_handlers.run([&] {
        const std::string name = nameUnder(event->position());
        setCursor(spotUnder(event->position()) ? Qt::PointingHandCursor : Qt::ArrowCursor);
        if (name.empty())
            QToolTip::hideText();
        else
            QToolTip::showText(event->globalPosition().toPoint(), shown(name), this);
    });
}

} // namespace korvel
