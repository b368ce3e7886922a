#include "explore/tables/CellDelegate.h"

#include "explore/rows/RowSource.h"
#include "explore/tables/RowsModel.h"
#include "explore/tables/TableColours.h"

#include <QApplication>
#include <QPainter>

namespace korvel {

namespace {

CellLook lookOf(const QModelIndex& index) {
    return static_cast<CellLook>(index.data(RowsModel::lookRole).toInt());
}

// The room right of a number that has fewer decimals than others of its column.
int decimalRoom(const QFontMetrics& metrics, const QModelIndex& index) {
    const int decimals = index.data(RowsModel::decimalsRole).toInt();
    const int most = index.data(RowsModel::columnDecimalsRole).toInt();
    if (decimals < 0 || decimals >= most) return 0;
    const int point = decimals == 0 ? metrics.horizontalAdvance('.') : 0;
    return point + (most - decimals) * metrics.horizontalAdvance('0');
}

int barRoom(const QFontMetrics& metrics) {
    return 8 * metrics.horizontalAdvance('0');
}

QColor textColour(const QStyleOptionViewItem& option, const QModelIndex& index) {
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const auto group = option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    if (isSelected) return option.palette.color(group, QPalette::HighlightedText);
    if (lookOf(index) != CellLook::verdict) return option.palette.color(group, QPalette::Text);
    return colourOf(index.data(Qt::AccessibleTextRole).toString().toStdString(),
                    tableColours(option.palette));
}

void paintBar(QPainter& painter, const QRect& place, double share, const QPalette& palette) {
    const int width = qRound(place.width() * share);
    if (width > 0)
        painter.fillRect(QRect(place.left(), place.top(), width, place.height()), tableColours(palette).bar);
}

} // namespace

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& plain,
                         const QModelIndex& index) const {
    QStyleOptionViewItem option = plain;
    initStyleOption(&option, index);
    const QString text = option.text;
    option.text.clear();
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);

    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 3;
    QRect room = option.rect.adjusted(margin, 0, -margin, 0);
    if (lookOf(index) == CellLook::share) {
        const int inset = room.height() / 4;
        const QRect bar(room.left(), room.top() + inset, barRoom(option.fontMetrics),
                        room.height() - 2 * inset);
        paintBar(*painter, bar, index.data(RowsModel::barRole).toDouble(), option.palette);
        room.setLeft(bar.right() + margin);
    }
    room.setRight(room.right() - decimalRoom(option.fontMetrics, index));
    painter->save();
    painter->setFont(option.font);
    painter->setPen(textColour(option, index));
    painter->drawText(room, static_cast<int>(option.displayAlignment) | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(text, Qt::ElideMiddle, room.width()));
    painter->restore();
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& plain, const QModelIndex& index) const {
    QStyleOptionViewItem option = plain;
    initStyleOption(&option, index);
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 3;
    const QFontMetrics& metrics = option.fontMetrics;
    int width = metrics.horizontalAdvance(option.text) + decimalRoom(metrics, index) + 2 * margin + 2;
    if (lookOf(index) == CellLook::share) width += barRoom(metrics) + margin;
    return {width, metrics.height() + 6};
}

} // namespace korvel
