#include "explore/rows/RowOrder.h"

#include "basic/NaturalOrder.h"
#include "basic/Text.h"
#include "explore/rows/ShownCells.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace korvel {

namespace {

// What rows are compared by: a number, or a text in lower case.
struct SortKey {
    bool isNothing = true;
    double number = 0;
    std::string text;
};

SortKey keyOf(const Cell& cell) {
    if (const auto* number = std::get_if<double>(&cell)) return {std::isnan(*number), *number, {}};
    if (const auto* whole = std::get_if<int>(&cell)) return {false, static_cast<double>(*whole), {}};
    if (const auto* truth = std::get_if<bool>(&cell)) return {false, *truth ? 1.0 : 0.0, {}};
    const std::string text = lowerCase(shownCell(cell, CellLook::text).text);
    return {text.empty(), 0, text};
}

bool isLess(const SortKey& a, const SortKey& b) {
    return a.number != b.number ? a.number < b.number : comesBefore(a.text, b.text);
}

void sortRows(std::vector<int>& rows, const RowSource& source, const RowSorting& sorting) {
    std::vector<SortKey> keys(static_cast<std::size_t>(source.rowCount()));
    const auto key = [&](int row) -> SortKey& { return keys[static_cast<std::size_t>(row)]; };
    for (const int row : rows)
        key(row) = keyOf(source.sortedBy(row, sorting.column));
    const bool descending = sorting.direction == SortDirection::descending;
    std::ranges::stable_sort(rows, [&](int a, int b) {
        const SortKey &first = key(a), &second = key(b);
        if (first.isNothing || second.isNothing) return !first.isNothing && second.isNothing;
        return descending ? isLess(second, first) : isLess(first, second);
    });
}

bool holds(const Cell& cell, const std::string& words) {
    return contains(lowerCase(shownUtf8(shownCell(cell, CellLook::text).text)), words);
}

std::vector<int> textColumns(const RowSource& source) {
    std::vector<int> columns;
    for (int column = 0; column < source.columnCount(); ++column)
        if (isText(source.column(column).look)) columns.push_back(column);
    return columns;
}

std::vector<int> filteredRows(const RowSource& source, const std::string& filter) {
    const std::string words = lowerCase(trim(filter));
    std::vector<int> rows(static_cast<std::size_t>(source.rowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    if (words.empty()) return rows;
    const std::vector<int> columns = textColumns(source);
    std::erase_if(rows, [&](int row) {
        return std::ranges::none_of(columns,
                                    [&](int column) { return holds(source.cell(row, column), words); });
    });
    return rows;
}

} // namespace

std::vector<int> shownRows(const RowSource& source, const RowSorting& sorting, const std::string& filter) {
    std::vector<int> rows = filteredRows(source, filter);
    const bool isSorted = sorting.direction != SortDirection::fileOrder && sorting.column >= 0 &&
                          sorting.column < source.columnCount();
    if (isSorted) sortRows(rows, source, sorting);
    return rows;
}

} // namespace korvel
