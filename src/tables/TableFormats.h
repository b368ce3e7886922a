// The formats in which tables are written. A further one is an entry of the list.
#pragma once

#include "tables/Database.h"
#include "tables/OutputBytes.h"
#include "tables/Sheets.h"
#include "tables/Table.h"
#include "tables/TextPage.h"
#include "tables/Writing.h"

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
    Taken taken = {};                // what else is told where only tables are written
    std::optional<DatabaseContent> database = {};
    std::optional<ChartedTable> charted = {}; // a further sheet of a workbook
};

// For people: in words. As a file: never on the standard output. Database: a file that is updated.
enum class TableFormatKind { forPeople, forPrograms, asFile, database };

// What a command makes: tables with words about them, or all values of runs.
enum class TableUse { analysis, allValues };

struct TableFormat {
    std::string_view name;      // for --format
    std::string_view extension; // of files, in any case
    std::string_view title;     // what it is, for dialogs and messages: "Workbook"
    TableFormatKind kind;
    // Null for a database, which is written by writeDatabase().
    void (*write)(const TableContent& content, const Writing& writing, OutputBytes& out);
};

std::span<const TableFormat> tableFormats();
const TableFormat& workbookFormat();
std::string tableFilter(const TableFormat& format); // of a file dialog: "Workbook (*.xlsx)|*.xlsx"
bool needsFile(const TableFormat& format);          // the standard output is none
bool isFormatFor(TableUse use, const TableFormat& format);
std::string formatNames(TableUse use);                       // "text, csv, json or xlsx"
const TableFormat* formatNamed(std::string_view name);       // null for none
const TableFormat* formatOfExtension(std::string_view file); // null for another extension

} // namespace korvel
