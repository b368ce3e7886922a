#include "toolkit/forms/OneLine.h"

#include <QRegularExpression>

namespace korvel {

namespace {

QString inOneLine(QString text) {
    static const QRegularExpression breaks(R"(\r\n|[\t\n\v\f\r\x{85}\x{2028}\x{2029}])");
    return text.replace(breaks, " ");
}

} // namespace

QValidator::State OneLine::validate(QString& text, int& cursor) const {
    cursor = static_cast<int>(inOneLine(text.left(cursor)).size());
    text = inOneLine(text);
    return Acceptable;
}

} // namespace korvel
