#include "forms/FormDriver.h"

#include <QElapsedTimer>

bool waitFor(const std::function<bool()>& condition) {
    constexpr int patienceMilliseconds = 10000;
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > patienceMilliseconds) return false;
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}
