// Between the program's 8-bit text and Qt's.
#pragma once

#include "basic/Text.h"

#include <QString>

namespace korvel {

inline QString shown(std::string_view text) {
    const std::string utf8 = shownUtf8(text);
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// What is typed is UTF-8.
inline std::string typed(const QString& text) {
    return text.toStdString();
}

} // namespace korvel
