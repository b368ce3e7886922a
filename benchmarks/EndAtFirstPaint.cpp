// Ends the program that it is linked into as soon as its first window has been painted.
#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <unistd.h>

namespace korvel {

namespace {

class FirstPaint : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(object);
        // The timer comes when all of the window is painted.
        if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow())
            QTimer::singleShot(0, [] { _exit(0); });
        return false;
    }
};

void watchFirstPaint() {
    qApp->installEventFilter(new FirstPaint(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchFirstPaint)

} // namespace korvel
