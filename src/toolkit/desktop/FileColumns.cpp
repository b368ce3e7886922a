#include "toolkit/desktop/FileColumns.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace korvel {

namespace {

constexpr int nameColumn = 0;
constexpr int sizeColumn = 1;

// The dialog's model writes them as the country does.
class SizesWithPoint : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = withDecimalPoint(option->text, QLocale::system());
    }
};

} // namespace

void settleFileColumns(QFileDialog& dialog) {
    auto* files = dialog.findChild<QTreeView*>("treeView");
    if (files == nullptr) return;
    files->setItemDelegateForColumn(sizeColumn, new SizesWithPoint(files));
    files->header()->setStretchLastSection(false);
    files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    files->header()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
}

QString withDecimalPoint(QString text, const QLocale& country) {
    return text.replace(country.decimalPoint(), ".");
}

} // namespace korvel
