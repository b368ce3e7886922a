// Tables as values: columns by name, rows handed out one after another, so that a table of millions is never
// whole in memory. Whatever is shown or written as a table goes this way.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace korvel {

struct Nothing {
    bool operator==(const Nothing&) const = default;
};

// Texts are 8-bit as in the files; they are made UTF-8 where they are written.
using Cell = std::variant<Nothing, bool, int, double, std::string_view, std::span<const std::string>>;

using OwnedCell =
    std::variant<Nothing, bool, int, double, std::string, std::vector<std::string>>; // a Cell that stays

Cell viewOf(const OwnedCell& cell);

template <typename T>
Cell cellOf(const std::optional<T>& value) {
    return value ? Cell(*value) : Cell(Nothing());
}

void addCells(std::vector<Cell>& cells, std::initializer_list<Cell> more);

struct Column {
    std::string name;
    // Columns of one group, side by side, are one thing with several parts. It is not there at all where its
    // first part is Nothing.
    std::string group = {};

    std::string flatName() const { return group.empty() ? name : group + "_" + name; }
};

// Cells of columns side by side that many rows begin with, made ready by whoever takes the rows.
struct ReadyCells {
    std::string bytes;
    std::vector<OwnedCell> cells = {};
};

class RowTaker {
  public:
    virtual ~RowTaker() = default;
    // Texts live until the call has ended.
    virtual void row(std::span<const Cell> cells) = 0;

    // The quick way for long tables: cells from `firstColumn` on, once for many rows ...
    virtual ReadyCells ready(std::size_t firstColumn, std::span<const Cell> cells) = 0;
    // ... and rows of two such parts and the cells that remain.
    virtual void row(const ReadyCells& first, const ReadyCells& second, std::span<const Cell> last) = 0;
};

struct Table {
    std::string name; // in words for programs: "reaches"
    std::vector<Column> columns;
    std::function<void(RowTaker&)> rows;
};

// Something that holds for all rows of a run.
struct Fact {
    Column column;
    OwnedCell value;
    bool inRows = false; // repeated in each row where there are only rows
};

struct RunTables {
    std::vector<Fact> facts;
    std::vector<Table> lists;
    std::vector<Fact> factsBelow; // behind the lists, where there are not only rows
    std::optional<Table> flat;    // what stands for the first list where there are only rows
};

struct TableReport {
    std::vector<Fact> facts;
    std::vector<RunTables> runs;
};

// What stands for the first list of a run where there are only rows.
const Table& rowsOf(const RunTables& run);

// The facts that are repeated in each row.
std::vector<Fact> factsInRows(const RunTables& run);

// "BOD; Zinc": names where a cell holds one text.
std::string joined(std::span<const std::string> names);

} // namespace korvel
