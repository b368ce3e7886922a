#include "explore/rows/RowOrder.h"
#include "ListedRows.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvel {

namespace {

using enum SortDirection;
using Rows = std::vector<int>;

ListedRows listed(const std::vector<OwnedCell>& cells, CellLook look) {
    std::vector<std::vector<OwnedCell>> rows;
    for (const OwnedCell& cell : cells)
        rows.push_back({cell});
    return {{{{"c"}, "C", look}}, rows};
}

} // namespace

TEST(RowOrder, KeepsFileOrderUnlessSorted) {
    const ListedRows rows = listed({3.0, 1.0, 2.0}, CellLook::number);
    EXPECT_EQ(shownRows(rows, {}, ""), (Rows{0, 1, 2}));
    EXPECT_EQ(shownRows(rows, {0, fileOrder}, ""), (Rows{0, 1, 2}));
    EXPECT_EQ(shownRows(rows, {7, ascending}, ""), (Rows{0, 1, 2})); // no such column
}

TEST(RowOrder, SortsNumbersByValue) {
    const ListedRows rows = listed({10.0, -3.0, 9.5, 100.0}, CellLook::number);
    EXPECT_EQ(shownRows(rows, {0, ascending}, ""), (Rows{1, 2, 0, 3}));
    EXPECT_EQ(shownRows(rows, {0, descending}, ""), (Rows{3, 0, 2, 1}));
}

TEST(RowOrder, SortsTextsAsPeopleCountInEitherCase) {
    const ListedRows rows =
        listed({std::string("weir 10"), std::string("Weir 9"), std::string("bridge")}, CellLook::text);
    EXPECT_EQ(shownRows(rows, {0, ascending}, ""), (Rows{2, 1, 0}));
    EXPECT_EQ(shownRows(rows, {0, descending}, ""), (Rows{0, 1, 2}));
}

TEST(RowOrder, KeepsEqualRowsInFileOrderEitherWay) {
    const ListedRows rows = listed({2.0, 1.0, 2.0, 1.0}, CellLook::number);
    EXPECT_EQ(shownRows(rows, {0, ascending}, ""), (Rows{1, 3, 0, 2}));
    EXPECT_EQ(shownRows(rows, {0, descending}, ""), (Rows{0, 2, 1, 3}));
}

TEST(RowOrder, PutsWhatHasNoValueLastEitherWay) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    const ListedRows numbers = listed({Nothing(), 2.0, none, 1.0}, CellLook::number);
    EXPECT_EQ(shownRows(numbers, {0, ascending}, ""), (Rows{3, 1, 0, 2}));
    EXPECT_EQ(shownRows(numbers, {0, descending}, ""), (Rows{1, 3, 0, 2}));
    const ListedRows texts = listed({std::string(), std::string("b"), std::string("a")}, CellLook::text);
    EXPECT_EQ(shownRows(texts, {0, ascending}, ""), (Rows{2, 1, 0}));
    EXPECT_EQ(shownRows(texts, {0, descending}, ""), (Rows{1, 2, 0}));
}

TEST(RowOrder, FiltersByAnyTextWithLettersInEitherCase) {
    const ListedRows rows({{{"a"}, "A"}, {{"b"}, "B"}}, {{std::string("Holcombe STW"), std::string("D/S")},
                                                         {std::string("Weir"), std::string("U/S")},
                                                         {std::string("Bridge"), std::string("holcombe")}});
    EXPECT_EQ(shownRows(rows, {}, "HOLC"), (Rows{0, 2}));
    EXPECT_EQ(shownRows(rows, {}, "  u/s "), (Rows{1}));
    EXPECT_EQ(shownRows(rows, {}, "mill"), (Rows{}));
    EXPECT_EQ(shownRows(rows, {}, "   "), (Rows{0, 1, 2}));
}

TEST(RowOrder, FiltersByNoNumber) {
    const ListedRows rows({{{"a"}, "A"}, {{"b"}, "B", CellLook::number}},
                          {{std::string("Weir"), 12.0}, {std::string("12 Mill"), 3.0}});
    EXPECT_EQ(shownRows(rows, {}, "12"), (Rows{1}));
}

TEST(RowOrder, FiltersAsTextsAreShown) {
    const ListedRows rows = listed({std::string("M\xFChle"), std::string("M\xC3\x9CHLE")}, CellLook::text);
    EXPECT_EQ(shownRows(rows, {}, "m\xC3\xBCh"), (Rows{0})); // other letters in their own case alone
}

TEST(RowOrder, SortsWhatTheFilterLeaves) {
    const ListedRows rows({{{"a"}, "A"}, {{"b"}, "B", CellLook::number}},
                          {{std::string("x1"), 3.0}, {std::string("y"), 2.0}, {std::string("x2"), 1.0}});
    EXPECT_EQ(shownRows(rows, {1, ascending}, "x"), (Rows{2, 0}));
}

} // namespace korvel
