// Paints cells: numbers lined up by their points, verdicts in their colour, bars beside shares.
#pragma once

#include <QStyledItemDelegate>

namespace korvel {

class CellDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace korvel
