// The columns of Qt's own file dialog: read whole, and with sizes as the forms write their numbers.
#pragma once

#include <QFileDialog>
#include <QLocale>

namespace korvel {

void settleFileColumns(QFileDialog& dialog);

// A text of this country's with a decimal point.
QString withDecimalPoint(QString text, const QLocale& country);

} // namespace korvel
