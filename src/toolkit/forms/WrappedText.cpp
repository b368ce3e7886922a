#include "toolkit/forms/WrappedText.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextDocument>
#include <QTextOption>

#include <cmath>

namespace korvel {

namespace {

// Inside a word only where the word is longer than the line.
void layOut(QTextDocument& text, const QLabel& label, int width) {
    text.setDocumentMargin(0);
    text.setDefaultFont(label.font());
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    text.setDefaultTextOption(option);
    text.setPlainText(label.text());
    text.setTextWidth(width);
}

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
    QTextDocument text;
    layOut(text, *this, width);
    return static_cast<int>(std::ceil(text.size().height()));
}

void WrappedText::paintEvent(QPaintEvent*) {
    QTextDocument text;
    layOut(text, *this, contentsRect().width());
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, palette().color(foregroundRole()));
    QPainter painter(this);
    text.documentLayout()->draw(&painter, context);
}

} // namespace korvel
