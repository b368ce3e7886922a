#include "toolkit/forms/ListFilling.h"

#include "drawing/paint/Shown.h"

namespace korvel {

namespace {

QStringList shownList(const std::vector<std::string>& texts) {
    QStringList list;
    for (const std::string& text : texts)
        list << shown(text);
    return list;
}

} // namespace

void showItems(QComboBox& combo, const std::vector<std::string>& texts, int current) {
    const QStringList wanted = shownList(texts);
    QStringList there;
    for (int i = 0; i < combo.count(); ++i)
        there << combo.itemText(i);
    if (there != wanted) {
        combo.clear();
        combo.addItems(wanted);
    }
    combo.setCurrentIndex(current);
}

void showItems(QListWidget& list, const std::vector<std::string>& texts, const std::vector<bool>& selected) {
    const QStringList wanted = shownList(texts);
    QStringList there;
    for (int i = 0; i < list.count(); ++i)
        there << list.item(i)->text();
    if (there != wanted) {
        list.clear();
        list.addItems(wanted);
    }
    showSelection(list, selected);
}

void showSelection(QListWidget& list, const std::vector<bool>& selected) {
    for (int i = 0; i < list.count(); ++i) {
        const auto k = static_cast<std::size_t>(i);
        list.item(i)->setSelected(k < selected.size() && selected[k]);
    }
}

std::vector<bool> selectionOf(const QListWidget& list) {
    std::vector<bool> selected(static_cast<std::size_t>(list.count()), false);
    for (const QModelIndex& index : list.selectionModel()->selectedIndexes())
        selected[static_cast<std::size_t>(index.row())] = true;
    return selected;
}

} // namespace korvel
