#include "toolkit/forms/WrappedText.h"

#include <QPainter>

namespace korvel {

namespace {

constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | Qt::TextWrapAnywhere;
constexpr int anyHeight = 100000; // pixels

} // namespace

WrappedText::WrappedText(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void WrappedText::tell(const QString& text) {
    setText(text);
    setToolTip(text.toHtmlEscaped().replace('\n', "<br>"));
}

int WrappedText::heightForWidth(int width) const {
    return fontMetrics().boundingRect(QRect(0, 0, width, anyHeight), flags, text()).height();
}

void WrappedText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawText(contentsRect(), flags, text());
}

} // namespace korvel
