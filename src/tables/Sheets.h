// What a workbook holds, before it is written: sheets of rows, and what was taken to make them.
#pragma once

#include "tables/Table.h"
#include "tables/TextPage.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

// Beside the tables: what a reader wants to know before trusting them.
struct Taken {
    struct Fact {
        std::string name;
        std::string value; // as in the files
    };
    std::string title;
    std::vector<Fact> facts;
    std::function<void(TextPage&)> notes = {}; // may be empty
};

// A line for each text of the first column, whose rows stand together.
struct LineChart {
    std::string title, across, up;
    std::size_t acrossColumn = 0, upColumn = 0;
};

struct ChartedTable {
    Table table;
    LineChart chart;
};

struct SheetPart {
    std::vector<Fact> lead; // cells before those of each row
    Table table;
};

struct Sheet {
    std::string name;
    std::vector<std::string> headings;
    std::vector<SheetPart> parts;
    std::optional<LineChart> chart = {};
};

Sheet sheetOf(const Table& table);
// A sheet for each list, with the rows of all runs. Facts that no row repeats are added to `taken`.
std::vector<Sheet> sheetsOf(const TableReport& report, Taken& taken);

} // namespace korvel
