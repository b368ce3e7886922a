#include "explore/window/ProfilePicture.h"

#include "drawing/paint/DrawingPainter.h"
#include "drawing/paint/Shown.h"
#include "drawing/paint/Twips.h"
#include "toolkit/forms/Spoken.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>
#include <QWheelEvent>

#include <array>
#include <cmath>

namespace korvel {

namespace {

constexpr int leastWidth = 240, leastHeight = 90; // pixels
constexpr double oneNotch = 120;                  // of a wheel
constexpr double zoomOfNotch = 1.25;
constexpr double scrollOfNotch = 0.1; // of what is seen
constexpr int aroundCursor = 12;      // pixels that marks reach to either side

QColor colourOf(Rgb rgb) {
    return {rgb.red, rgb.green, rgb.blue};
}

struct StepKey {
    int key;
    bool withControl;
    CursorStep step;
};
constexpr std::array<StepKey, 8> stepKeys = {{{Qt::Key_Left, false, CursorStep::left},
                                              {Qt::Key_Right, false, CursorStep::right},
                                              {Qt::Key_Left, true, CursorStep::featureLeft},
                                              {Qt::Key_Right, true, CursorStep::featureRight},
                                              {Qt::Key_Home, false, CursorStep::first},
                                              {Qt::Key_End, false, CursorStep::last},
                                              {Qt::Key_PageUp, false, CursorStep::panelUp},
                                              {Qt::Key_PageDown, false, CursorStep::panelDown}}};

} // namespace

ProfilePicture::ProfilePicture(Navigator& navigator, const ExploreScene& scene, const TextMetrics& metrics,
                               Handlers& handlers, Told told, QWidget* parent)
    : QWidget(parent),
      m_navigator(navigator),
      m_scene(scene),
      m_metrics(metrics),
      m_handlers(handlers),
      m_told(std::move(told)) {
    setObjectName("picProfile");
    tellAsChart(*this);
    setAccessibleName("Profile along the river");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(leastWidth, leastHeight);
    m_clock.start();
}

void ProfilePicture::refresh() {
    m_layout.reset();
    m_pictureIsOld = true;
    takeRoom();
    update();
}

PanelLook ProfilePicture::look(Theme theme) const {
    return withFamily(panelLook(theme, font().pointSizeF() - 1, devicePixelRatioF()), typed(font().family()));
}

// With many panels more than there is on a low screen: it can be scrolled then.
void ProfilePicture::takeRoom() {
    if (m_scene.isEmpty()) return;
    const std::size_t panels = m_scene.data().panels.size();
    const double least = leastProfileHeight(panels, look(m_theme), m_metrics) / twipsPerPixel;
    setMinimumHeight(std::max(leastHeight, static_cast<int>(std::ceil(least))));
}

void ProfilePicture::refreshCursor() {
    if (!m_layout) return update();
    update(m_strip);
    m_strip = cursorStrip();
    update(m_strip);
}

void ProfilePicture::setTheme(Theme theme) {
    m_theme = theme;
    refresh();
}

const ProfileLayout& ProfilePicture::layoutShown() {
    if (!m_layout)
        m_layout = layOutProfile(m_scene.data(), m_scene.view(), look(m_theme), width() * twipsPerPixel,
                                 height() * twipsPerPixel, m_metrics);
    return *m_layout;
}

Drawing ProfilePicture::drawing(double width, double height, Theme theme) const {
    Drawing drawing;
    drawing.width = width;
    drawing.height = height;
    if (!m_scene.isEmpty())
        paint(layOutProfile(m_scene.data(), m_scene.view(), panelLook(theme), width, height, m_metrics),
              drawing);
    return drawing;
}

QSize ProfilePicture::sizeInDots() const {
    return (QSizeF(size()) * devicePixelRatioF()).toSize();
}

void ProfilePicture::paintPicture() {
    Drawing drawing;
    drawing.width = width() * twipsPerPixel;
    drawing.height = height() * twipsPerPixel;
    m_layout.reset(); // curves were taken out of one that was painted before
    layoutShown();
    paintAway(*m_layout, drawing);
    // Memory that is there already: asking for as much again takes longer than filling it.
    if (m_picture.size() != sizeInDots()) m_picture = QImage(sizeInDots(), QImage::Format_RGB32);
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    m_pictureIsOld = false;
    m_picture.fill(colourOf(layoutShown().look.background));
    QPainter painter(&m_picture);
    paintOnScreen(drawing, painter);
}

QRect ProfilePicture::cursorStrip() const {
    const auto place = m_navigator.place();
    if (!place || !m_layout) return {};
    const double x = xOf(*m_layout, m_scene.path().places[*place].km) / twipsPerPixel;
    return {static_cast<int>(std::floor(x)) - aroundCursor, 0, 2 * aroundCursor + 1, height()};
}

void ProfilePicture::paintBox(QPainter& painter) const {
    QColor accent = palette().color(QPalette::Highlight);
    painter.setPen(accent);
    accent.setAlphaF(0.15F);
    painter.setBrush(accent);
    const auto x = [this](double of) { return std::clamp(of, 0.0, width() - 1.0); };
    painter.drawRect(QRectF(QPointF(x(m_pressed.x()), 0), QPointF(x(m_pointer.x()), height() - 1)));
}

void ProfilePicture::paintAll(QPainter& painter) {
    if (m_scene.isEmpty()) {
        painter.fillRect(rect(), palette().color(QPalette::Base));
        return;
    }
    if (m_pictureIsOld || m_picture.size() != sizeInDots()) paintPicture();
    painter.drawImage(QPoint(), m_picture);
    if (const auto place = m_navigator.place()) {
        Drawing cursor;
        paintCursor(layoutShown(), m_scene.data(), *place, cursor);
        paintOnScreen(cursor, painter);
        m_strip = cursorStrip();
    }
    if (m_gesture == Gesture::box) paintBox(painter);
}

void ProfilePicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_handlers.run([&] { paintAll(painter); });
}

void ProfilePicture::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    refresh();
}

double ProfilePicture::kmAtPixel(double x) {
    return kmAt(layoutShown(), x * twipsPerPixel);
}

std::optional<std::size_t> ProfilePicture::panelAtPixel(QPointF at) {
    return panelAt(layoutShown(), {at.x() * twipsPerPixel, at.y() * twipsPerPixel});
}

void ProfilePicture::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || m_scene.isEmpty()) return;
    m_pressed = m_pointer = event->position();
    m_gesture = event->modifiers() & Qt::ShiftModifier ? Gesture::box : Gesture::press;
    m_handlers.run([&] { m_kmPerPixel = kmAtPixel(1) - kmAtPixel(0); });
}

void ProfilePicture::moved(const QMouseEvent& event) {
    m_pointer = event.position();
    const QPointF way = m_pointer - m_pressed;
    if (m_gesture == Gesture::press &&
        way.manhattanLength() >= QGuiApplication::styleHints()->startDragDistance()) {
        m_gesture = Gesture::pan;
        m_navigator.beginDrag();
        setCursor(Qt::ClosedHandCursor);
    }
    if (m_gesture == Gesture::pan) return m_told(m_navigator.drag(-way.x() * m_kmPerPixel));
    if (m_gesture == Gesture::box) return update();
    if (m_gesture == Gesture::none)
        m_told(m_navigator.pointAt(kmAtPixel(m_pointer.x()), panelAtPixel(m_pointer)));
}

void ProfilePicture::mouseMoveEvent(QMouseEvent* event) {
    if (!m_scene.isEmpty()) m_handlers.run([&] { moved(*event); });
}

void ProfilePicture::released(const QMouseEvent& event) {
    const Gesture gesture = std::exchange(m_gesture, Gesture::none);
    unsetCursor();
    if (gesture == Gesture::press)
        m_told(m_navigator.click(kmAtPixel(event.position().x()), panelAtPixel(event.position())));
    if (gesture != Gesture::box) return;
    update();
    const double one = kmAtPixel(m_pressed.x()), other = kmAtPixel(event.position().x());
    m_told(m_navigator.zoomTo(one, other));
}

void ProfilePicture::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !m_scene.isEmpty()) m_handlers.run([&] { released(*event); });
}

void ProfilePicture::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) m_handlers.run([&] { m_told(m_navigator.doubleClick()); });
}

// Some desktops turn the wheel sideways while Shift is held.
void ProfilePicture::turned(const QWheelEvent& event) {
    const QPoint angle = event.angleDelta();
    const bool scrolls = event.modifiers() & Qt::ShiftModifier || angle.y() == 0;
    const double notches = (angle.y() != 0 ? angle.y() : angle.x()) / oneNotch;
    const double seen = kmAtPixel(width()) - kmAtPixel(0);
    m_told(scrolls ? m_navigator.scroll(-notches * scrollOfNotch * seen, m_clock.elapsed())
                   : m_navigator.zoom(kmAtPixel(event.position().x()), std::pow(zoomOfNotch, notches),
                                      m_clock.elapsed()));
}

void ProfilePicture::wheelEvent(QWheelEvent* event) {
    if (!m_scene.isEmpty()) m_handlers.run([&] { turned(*event); });
    event->accept();
}

bool ProfilePicture::stepped(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    for (const StepKey& each : stepKeys) {
        const Qt::KeyboardModifiers wanted = each.withControl ? Qt::ControlModifier : Qt::NoModifier;
        if (event.key() != each.key || held != wanted) continue;
        m_told(m_navigator.step(each.step));
        if (each.step == CursorStep::panelUp || each.step == CursorStep::panelDown) tellPanel();
        return true;
    }
    return false;
}

void ProfilePicture::tellPanel() {
    if (!onPanel || m_scene.isEmpty() || m_navigator.panel() >= layoutShown().panels.size()) return;
    const ProfilePanel& panel = layoutShown().panels[m_navigator.panel()];
    const double title = panel.texts.empty() ? panel.area.top : panel.texts.front().corner.y;
    onPanel(static_cast<int>(title / twipsPerPixel), static_cast<int>(panel.area.bottom / twipsPerPixel));
}

void ProfilePicture::keyPressEvent(QKeyEvent* event) {
    bool used = false;
    m_handlers.run([&] { used = stepped(*event); });
    if (!used) QWidget::keyPressEvent(event);
}

void ProfilePicture::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    m_handlers.run([&] { m_told(m_navigator.pointerLeft()); });
}

} // namespace korvel
