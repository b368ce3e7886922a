#include "toolkit/forms/Spoken.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace korvel {

namespace {

const char* const spokenRole = "spokenRole";

QAccessibleInterface* spoken(const QString&, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    const QVariant role = widget != nullptr ? widget->property(spokenRole) : QVariant();
    if (!role.isValid()) return nullptr;
    // Qt keeps and deletes it.
    return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

void tellAs(QWidget& picture, QAccessible::Role role) {
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(spoken), true);
    picture.setProperty(spokenRole, static_cast<int>(role));
}

} // namespace

void tellAsChart(QWidget& picture) {
    tellAs(picture, QAccessible::Chart);
}

void tellAsImage(QWidget& picture) {
    tellAs(picture, QAccessible::Graphic);
}

} // namespace korvel
