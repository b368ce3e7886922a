#include "explore/rows/ShownCells.h"

#include "basic/Numbers.h"
#include "basic/Text.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

namespace {

int decimalsOf(const std::string& number) {
    if (number.find_first_not_of("-+.0123456789") != std::string::npos) return -1;
    const std::size_t point = number.find('.');
    return point == std::string::npos ? 0 : static_cast<int>(number.size() - point - 1);
}

ShownCell numberCell(std::string text) {
    const int decimals = decimalsOf(text);
    return {std::move(text), decimals};
}

ShownCell shownDouble(double value, CellLook look) {
    switch (look) {
    case CellLook::exact: return numberCell(shortestNumber(value));
    case CellLook::percent:
    case CellLook::share: return numberCell(shownDecimals(value, 1));
    default: return numberCell(shownFigures(value));
    }
}

std::string exactText(const Cell& cell) {
    if (const auto* number = std::get_if<double>(&cell)) return shortestNumber(*number);
    if (const auto* whole = std::get_if<int>(&cell)) return std::to_string(*whole);
    if (const auto* truth = std::get_if<bool>(&cell)) return *truth ? "true" : "false";
    if (const auto* text = std::get_if<std::string_view>(&cell)) return shownUtf8(*text);
    if (const auto* names = std::get_if<std::span<const std::string>>(&cell))
        return shownUtf8(joined(*names));
    return {};
}

bool isText(const Cell& cell) {
    return std::holds_alternative<std::string_view>(cell) ||
           std::holds_alternative<std::span<const std::string>>(cell);
}

// One cell of a row: without what would begin another, and with a ' before what a spreadsheet program would
// take for a formula.
std::string copiedText(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    const bool likeFormula =
        !text.empty() && std::string_view("=+-@").find(text[0]) != std::string_view::npos;
    return likeFormula ? "'" + text : text;
}

std::string copied(const Cell& cell) {
    return isText(cell) ? copiedText(exactText(cell)) : exactText(cell);
}

template <typename Text>
void addLine(std::string& lines, std::span<const int> columns, Text text) {
    for (std::size_t k = 0; k < columns.size(); ++k)
        lines += (k == 0 ? "" : "\t") + text(columns[k]);
    lines += '\n';
}

} // namespace

ShownCell shownCell(const Cell& cell, CellLook look) {
    if (const auto* number = std::get_if<double>(&cell)) return shownDouble(*number, look);
    if (const auto* whole = std::get_if<int>(&cell)) return numberCell(std::to_string(*whole));
    if (const auto* truth = std::get_if<bool>(&cell)) return {*truth ? "yes" : "no"};
    if (const auto* text = std::get_if<std::string_view>(&cell)) return {std::string(*text)};
    if (const auto* names = std::get_if<std::span<const std::string>>(&cell)) return {joined(*names)};
    return {};
}

std::string_view verdictSymbol(std::string_view verdict) {
    if (verdict == "pass") return "\u2713";
    if (verdict == "unsure") return "?";
    if (verdict == "fail") return "\u2717";
    return "";
}

std::string copiedRows(const RowSource& source, std::span<const int> rows, std::span<const int> columns) {
    std::string lines;
    addLine(lines, columns, [&](int column) { return copiedText(shownUtf8(source.column(column).heading)); });
    for (const int row : rows)
        addLine(lines, columns, [&](int column) { return copied(source.cell(row, column)); });
    return lines;
}

Table tableOf(std::shared_ptr<const RowSource> source, std::vector<int> rows) {
    std::vector<Column> columns;
    for (const ShownColumn& each : source->columns())
        columns.push_back(each.column);
    const auto give = [source, rows = std::move(rows)](RowTaker& taker) {
        std::vector<Cell> cells(source->columns().size());
        for (const int row : rows) {
            for (int column = 0; column < source->columnCount(); ++column)
                cells[static_cast<std::size_t>(column)] = source->cell(row, column);
            taker.row(cells);
        }
    };
    return {source->name(), std::move(columns), give};
}

} // namespace korvel
