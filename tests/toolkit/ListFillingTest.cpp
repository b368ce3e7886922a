#include "toolkit/forms/ListFilling.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(ListFilling, ShowsTextsAndTheChosenOneInACombo) {
    QComboBox combo;
    showItems(combo, {"1 Upper", "2 Lower"}, 1);
    EXPECT_EQ(combo.count(), 2);
    EXPECT_EQ(combo.currentText(), "2 Lower");
    showItems(combo, {"1 Upper", "2 Lower"}, -1);
    EXPECT_EQ(combo.currentIndex(), -1);
    EXPECT_EQ(combo.currentText(), "");
}

TEST(ListFilling, FillsAComboAnewWhereATextHasChanged) {
    QComboBox combo;
    showItems(combo, {"A", "B"}, 0);
    showItems(combo, {"A", "C"}, 1);
    EXPECT_EQ(combo.currentText(), "C");
    showItems(combo, {}, -1);
    EXPECT_EQ(combo.count(), 0);
}

TEST(ListFilling, ShowsBytesThatAreNoUtf8) {
    QComboBox combo;
    showItems(combo,
              {"Gie\xDF"
               "en"},
              0);
    EXPECT_EQ(combo.currentText(), QString::fromUtf8("Gie\u00dfen"));
}

TEST(ListFilling, KeepsAListsItemsWhereTheTextsAreTheSame) {
    QListWidget list;
    list.setSelectionMode(QAbstractItemView::MultiSelection);
    showItems(list, {"A", "B", "C"}, {true, false, true});
    const QListWidgetItem* second = list.item(1);
    showItems(list, {"A", "B", "C"}, {false, true, false});
    EXPECT_EQ(list.item(1), second);
    EXPECT_EQ(selectionOf(list), (std::vector<bool>{false, true, false}));
    showItems(list, {"A", "B"}, {true, true});
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(selectionOf(list), (std::vector<bool>{true, true}));
}

TEST(ListFilling, DeselectsWhatASelectionDoesNotReach) {
    QListWidget list;
    list.setSelectionMode(QAbstractItemView::MultiSelection);
    showItems(list, {"A", "B", "C"}, {true, true, true});
    showSelection(list, {true});
    EXPECT_EQ(selectionOf(list), (std::vector<bool>{true, false, false}));
}

TEST(ListFilling, ReadsTheSelectionOfAnEmptyList) {
    const QListWidget list;
    EXPECT_TRUE(selectionOf(list).empty());
}

} // namespace korvel
