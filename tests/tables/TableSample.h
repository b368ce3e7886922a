// A table with everything that a cell can be.
#pragma once

#include "tables/OutputBytes.h"
#include "tables/Table.h"

#include <array>
#include <limits>

namespace korvel {

inline Table tableSample() {
    return {"rows",
            {{"name"}, {"count"}, {"value", "worst"}, {"feature", "worst"}, {"sure"}, {"names"}},
            [](RowTaker& taker) {
                const std::vector<std::string> names = {"BOD", "Zinc"};
                taker.row(std::array<Cell, 6>{std::string_view("=A, \"B\""), 2, 0.25,
                                              std::string_view("Weir"), true,
                                              std::span<const std::string>(names)});
                taker.row(std::array<Cell, 6>{std::string_view(""), -3, Nothing(), Nothing(), Nothing(),
                                              std::span<const std::string>()});
            }};
}

// The same rows, given in parts.
inline Table tableInParts() {
    Table table = tableSample();
    table.rows = [](RowTaker& taker) {
        const std::vector<std::string> names = {"BOD", "Zinc"};
        const ReadyCells second = taker.ready(1, std::array<Cell, 1>{2});
        const ReadyCells first = taker.ready(0, std::array<Cell, 1>{std::string_view("=A, \"B\"")});
        taker.row(
            first, second,
            std::array<Cell, 4>{0.25, std::string_view("Weir"), true, std::span<const std::string>(names)});
        taker.row(taker.ready(0, std::array<Cell, 1>{std::string_view("")}),
                  taker.ready(1, std::array<Cell, 1>{-3}),
                  std::array<Cell, 4>{Nothing(), Nothing(), Nothing(), std::span<const std::string>()});
    };
    return table;
}

inline constexpr double tooLarge = std::numeric_limits<double>::infinity();

inline Table tableBeyondRange() {
    return {"rows", {{"a"}, {"b"}, {"c"}}, [](RowTaker& taker) {
                taker.row(std::array<Cell, 3>{tooLarge, tooLarge - tooLarge, 1.0});
            }};
}

inline TableReport reportSample() {
    TableReport report;
    report.facts = {{{"base"}, "a.sgr"}};
    for (const char* run : {"b.sgr", "c.sgr"}) {
        RunTables tables;
        tables.facts = {{{"run"}, run, true},
                        {{"reach", "at"}, 3, true},
                        {{"distance", "at"}, Nothing(), true},
                        {{"load"}, 1.5}};
        tables.lists = {tableSample()};
        tables.factsBelow = {{{"pass", "agreement"}, 1}, {{"fail", "agreement"}, 2}};
        report.runs.push_back(std::move(tables));
    }
    return report;
}

template <typename Write>
std::string written(Write write) {
    std::string text;
    OutputBytes bytes([&](std::string_view part) { text += part; });
    write(bytes);
    bytes.flush();
    return text;
}

} // namespace korvel
