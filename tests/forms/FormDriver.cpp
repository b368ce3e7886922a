#include "forms/FormDriver.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QMenu>
#include <QTest>

namespace korvel {

namespace {

template <typename Visit>
void visitItems(const QWidget& menu, int level, bool reachable, const Visit& visit) {
    for (const QAction* item : menu.actions()) {
        const bool enabled = reachable && item->isEnabled();
        visit(*item, level, enabled);
        if (item->menu() != nullptr) visitItems(*item->menu(), level + 1, enabled, visit);
    }
}

} // namespace

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

void showActive(QWidget& form) {
    form.show();
    QApplication::setActiveWindow(&form);
    passEvents();
}

void passEvents() {
    for (int round = 0; round < 3; ++round)
        QApplication::processEvents();
}

void click(QWidget& control) {
    const bool isButton = qobject_cast<QAbstractButton*>(&control) != nullptr;
    const QPoint middle = control.rect().center();
    QTest::mouseClick(&control, Qt::LeftButton, Qt::NoModifier, isButton ? QPoint(8, middle.y()) : middle);
    passEvents();
}

void clickLine(QListWidget& list, int line, Qt::KeyboardModifiers keys) {
    list.scrollToItem(list.item(line));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, list.visualItemRect(list.item(line)).center());
    passEvents();
}

std::vector<std::string> selectedLines(const QListWidget& list) {
    std::vector<std::string> lines;
    for (int i = 0; i < list.count(); ++i)
        if (list.item(i)->isSelected()) lines.push_back(list.item(i)->text().toStdString());
    return lines;
}

std::string menuListing(const QMenuBar& bar) {
    std::string listing;
    visitItems(bar, 0, true, [&](const QAction& item, int level, bool) {
        listing += std::string(static_cast<std::size_t>(level) * 2, ' ') + item.objectName().toStdString() +
                   "|" + item.text().toStdString() + "\n";
    });
    return listing;
}

std::vector<std::string> greyedItems(const QMenuBar& bar) {
    std::vector<std::string> names;
    visitItems(bar, 0, true, [&](const QAction& item, int, bool enabled) {
        if (!enabled) names.push_back(item.objectName().toStdString());
    });
    return names;
}

void closeWindow(ShownForm& form) {
    dynamic_cast<QWidget&>(form).close();
}

QWidget& formNamed(const std::string& name) {
    for (QWidget* form : QApplication::topLevelWidgets())
        if (form->objectName().toStdString() == name) return *form;
    throw std::runtime_error("no form named " + name);
}

} // namespace korvel
