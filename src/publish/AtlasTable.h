// Tables on the pages of an atlas.
#pragma once

#include "publish/AtlasSheet.h"
#include "tables/Table.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace korvel {

enum class AtlasNumber { figures, percent }; // four of them; one decimal

struct AtlasColumn {
    std::string name; // of the table's column, with its group: "worst_ratio"
    std::string heading;
    AtlasNumber number = AtlasNumber::figures;
};

struct AtlasTable {
    std::string title;
    std::string note; // under the title, "" for nothing
    std::vector<std::string> headings;
    std::vector<bool> textColumns;              // which stand to the left
    std::vector<std::vector<std::string>> rows; // UTF-8
};

// Rows of a table for pages: the columns wanted, numbers rounded. Rows whose cells in the columns `oneOf` are
// all empty are left out.
struct TableWish {
    std::vector<AtlasColumn> columns;
    std::vector<std::string> oneOf = {};
    std::string leftOut = {};                   // what a note says of those: "without any change"
    std::size_t most = 5000;                    // rows; a note tells of more
    std::map<int, std::string> reachNames = {}; // shown behind their numbers
};
AtlasTable atlasTable(const Table& table, const TableWish& wish);

} // namespace korvel
