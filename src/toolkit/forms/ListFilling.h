// Lists and combos shown from a value: filled anew only where their texts have changed, so that they keep
// their place.
#pragma once

#include <QComboBox>
#include <QListWidget>

#include <string>
#include <vector>

namespace korvel {

// `current`: index, -1 for none.
void showItems(QComboBox& combo, const std::vector<std::string>& texts, int current);
void showItems(QListWidget& list, const std::vector<std::string>& texts, const std::vector<bool>& selected);
void showSelection(QListWidget& list, const std::vector<bool>& selected);
std::vector<bool> selectionOf(const QListWidget& list);

} // namespace korvel
