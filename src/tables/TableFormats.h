// The formats in which tables are written. A further one is an entry of the list.
#pragma once

#include "tables/OutputBytes.h"
#include "tables/Table.h"
#include "tables/TextPage.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvel {

// What a command has to say, for programs and for people.
struct TableContent {
    std::function<TableReport()> report;
    std::function<void(TextPage&)> text;
    std::optional<Table> alone = {}; // in place of the report: one table with the runs in its rows
};

struct TableFormat {
    std::string_view name;      // for --format
    std::string_view extension; // of files, in any case
    bool forPeople;
    void (*write)(const TableContent& content, const TextLook& look, OutputBytes& out);
};

std::span<const TableFormat> tableFormats();
const TableFormat* formatNamed(std::string_view name);       // null for none
const TableFormat* formatOfExtension(std::string_view file); // null for another extension

} // namespace korvel
