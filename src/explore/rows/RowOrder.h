// Which rows of a table are shown, and in which order.
#pragma once

#include "explore/rows/RowSource.h"

#include <string>
#include <vector>

namespace korvel {

enum class SortDirection { fileOrder, ascending, descending };

struct RowSorting {
    int column = -1;
    SortDirection direction = SortDirection::fileOrder;
    bool operator==(const RowSorting&) const = default;
};

// Indices of the rows of which a text holds the words typed (a to z in either case), sorted. Equal ones stand
// in file order, and what has no value stands last in either direction.
std::vector<int> shownRows(const RowSource& source, const RowSorting& sorting, const std::string& filter);

} // namespace korvel
