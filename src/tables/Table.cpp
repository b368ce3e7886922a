#include "tables/Table.h"

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

} // namespace korvel
