#include "tables/Table.h"

#include <algorithm>
#include <iterator>

namespace korvel {

void addCells(std::vector<Cell>& cells, std::initializer_list<Cell> more) {
    for (const Cell& cell : more)
        cells.push_back(cell);
}

Cell viewOf(const OwnedCell& cell) {
    return std::visit(
        [](const auto& value) -> Cell {
            using T = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<T, std::string>)
                return std::string_view(value);
            else if constexpr (std::is_same_v<T, std::vector<std::string>>)
                return std::span<const std::string>(value);
            else
                return value;
        },
        cell);
}

const Table& rowsOf(const RunTables& run) {
    return run.flat ? *run.flat : run.lists.front();
}

std::vector<Fact> factsInRows(const RunTables& run) {
    std::vector<Fact> facts;
    std::ranges::copy_if(run.facts, std::back_inserter(facts), &Fact::inRows);
    return facts;
}

std::string joined(std::span<const std::string> names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : "; ") + name;
    return text;
}

} // namespace korvel
