#include "toolkit/forms/Spoken.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace korvel {

namespace {

const char* const isChart = "isChart";

QAccessibleInterface* chartOf(const QString&, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr || !widget->property(isChart).toBool()) return nullptr;
    return new QAccessibleWidget(widget, QAccessible::Chart); // Qt keeps and deletes it
}

} // namespace

void tellAsChart(QWidget& picture) {
    static const bool isInstalled = (QAccessible::installFactory(chartOf), true);
    picture.setProperty(isChart, isInstalled);
}

} // namespace korvel
