#include "tables/TextRows.h"

#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

namespace {

std::string heading(const Column& column) {
    std::string words = column.flatName();
    std::ranges::replace(words, '_', ' ');
    return words;
}

TextCell textCell(Nothing) {
    return "-";
}
TextCell textCell(bool value) {
    return value ? "yes" : "no";
}
TextCell textCell(int value) {
    return std::to_string(value);
}
TextCell textCell(double value) {
    return shownNumber(value);
}
TextCell textCell(std::string_view text) {
    return {std::string(text), toneOf(text)};
}
TextCell textCell(std::span<const std::string> names) {
    return joined(names);
}

class TextRows : public RowTaker {
  public:
    void row(std::span<const Cell> cells) override {
        std::vector<TextCell> texts;
        for (std::size_t k = 0; k < cells.size(); ++k) {
            const bool isText = std::holds_alternative<std::string_view>(cells[k]) ||
                                std::holds_alternative<std::span<const std::string>>(cells[k]);
            if (isText) m_textColumns.insert(k);
            texts.push_back(std::visit([](const auto& value) { return textCell(value); }, cells[k]));
        }
        m_rows.push_back(std::move(texts));
    }
    // Long tables are for programs; nobody asks this one.
    ReadyCells ready(std::size_t, std::span<const Cell>) override { return {}; }
    void row(const ReadyCells&, const ReadyCells&, std::span<const Cell> last) override { row(last); }

    TextTable table(const std::vector<Column>& columns) {
        std::vector<std::string> headings;
        for (const Column& column : columns)
            headings.push_back(heading(column));
        TextTable table(std::move(headings), m_textColumns);
        for (std::vector<TextCell>& row : m_rows)
            table.row(std::move(row));
        return table;
    }

  private:
    std::vector<std::vector<TextCell>> m_rows;
    std::set<std::size_t> m_textColumns;
};

} // namespace

TextTable textTable(const Table& table) {
    TextRows rows;
    table.rows(rows);
    return rows.table(table.columns);
}

TextTone toneOf(std::string_view verdict) {
    if (verdict == "pass") return TextTone::good;
    if (verdict == "unsure") return TextTone::doubtful;
    if (verdict == "fail") return TextTone::bad;
    return TextTone::plain;
}

} // namespace korvel
