#include "toolkit/forms/Watches.h"

#include "drawing/paint/Shown.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

namespace korvel {

EnterWatch::EnterWatch(QWidget& control, std::function<void()> onEnter)
    : QObject(&control), m_onEnter(std::move(onEnter)) {
    control.installEventFilter(this);
}

bool EnterWatch::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        const bool comesBack = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                               reason == Qt::MenuBarFocusReason;
        if (!comesBack) m_onEnter();
    }
    return false;
}

LeaveWatch::LeaveWatch(QWidget& control, std::function<void()> onLeave)
    : QObject(&control), m_onLeave(std::move(onLeave)) {
    control.installEventFilter(this);
}

void LeaveWatch::runPending() {
    if (!m_pending) return;
    m_pending = false;
    m_onLeave();
}

// A message box that opened while the mouse is down would take the release, and with it the click.
void LeaveWatch::settle() {
    auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
    if (button == nullptr || !button->isDown()) return runPending();
    connect(
        button, &QAbstractButton::released, this, [this] { runPending(); }, Qt::SingleShotConnection);
}

bool LeaveWatch::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        const bool taken = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                           reason == Qt::MenuBarFocusReason;
        if (!taken && !m_pending) {
            m_pending = true;
            QMetaObject::invokeMethod(
                this, [this] { settle(); }, Qt::QueuedConnection);
        }
    }
    return false;
}

KeyWatch::KeyWatch(QWidget& control, std::function<bool(int key)> onKey)
    : QObject(&control), m_onKey(std::move(onKey)) {
    control.installEventFilter(this);
}

bool KeyWatch::eventFilter(QObject*, QEvent* event) {
    return event->type() == QEvent::KeyPress && m_onKey(static_cast<QKeyEvent*>(event)->key());
}

HoverTip::HoverTip(QWidget& control, std::function<std::string()> text)
    : QObject(&control), m_control(control), m_text(std::move(text)) {
    control.setMouseTracking(true);
    control.installEventFilter(this);
    control.setToolTip(shown(m_text()));
}

bool HoverTip::eventFilter(QObject*, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseMove || type == QEvent::Enter || type == QEvent::ToolTip)
        m_control.setToolTip(shown(m_text()));
    return false;
}

} // namespace korvel
