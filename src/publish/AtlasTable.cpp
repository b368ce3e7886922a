#include "publish/AtlasTable.h"

#include "basic/ShownText.h"
#include "basic/Text.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr std::size_t longestText = 200; // letters of a cell

std::string cellText(Nothing) {
    return "";
}
std::string cellText(bool value) {
    return value ? "yes" : "no";
}
std::string cellText(int value) {
    return std::to_string(value);
}
std::string cellText(double value) {
    return shownNumber(value);
}
std::string cellText(std::string_view text) {
    return firstShown(shownLine(text), longestText);
}
std::string cellText(std::span<const std::string> names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + shownName(name);
    return firstShown(text, longestText);
}

bool isNumber(const Cell& cell) {
    return std::holds_alternative<int>(cell) || std::holds_alternative<double>(cell);
}

class RowGathering : public RowTaker {
  public:
    RowGathering(const Table& table, const TableWish& wish, AtlasTable& made) : m_wish(wish), m_made(made) {
        const auto columnOf = [&](const std::string& name) {
            const auto found = std::ranges::find(table.columns, name, &Column::flatName);
            return static_cast<std::size_t>(found - table.columns.begin());
        };
        for (const AtlasColumn& column : wish.columns) {
            m_columns.push_back(columnOf(column.name));
            made.headings.push_back(column.heading);
        }
        for (const std::string& name : wish.oneOf)
            m_oneOf.push_back(columnOf(name));
        made.textColumns.assign(wish.columns.size(), true);
    }

    void row(std::span<const Cell> cells) override {
        const auto isEmpty = [&](std::size_t k) { return k >= cells.size() || textOf(cells[k]).empty(); };
        if (!m_oneOf.empty() && std::ranges::all_of(m_oneOf, isEmpty)) {
            ++m_leftOut;
            return;
        }
        if (++m_count > m_wish.most) return;
        std::vector<std::string> texts;
        for (std::size_t k = 0; k < m_columns.size(); ++k) {
            const Cell cell = m_columns[k] < cells.size() ? cells[m_columns[k]] : Cell(Nothing());
            const bool reach = m_wish.columns[k].name == "reach" && std::holds_alternative<int>(cell);
            if (isNumber(cell) && !reach) m_made.textColumns[k] = false;
            const auto* const value = std::get_if<double>(&cell);
            const bool percent = value != nullptr && m_wish.columns[k].number == AtlasNumber::percent;
            texts.push_back(reach     ? reachText(std::get<int>(cell))
                            : percent ? shownPercent(*value)
                                      : textOf(cell));
        }
        m_made.rows.push_back(std::move(texts));
    }
    // Long tables are for programs; nobody asks this one.
    ReadyCells ready(std::size_t, std::span<const Cell>) override { return {}; }
    void row(const ReadyCells&, const ReadyCells&, std::span<const Cell> last) override { row(last); }

    std::string note() const {
        std::string note;
        if (m_count > m_wish.most)
            note = "The first " + std::to_string(m_wish.most) + " of " + std::to_string(m_count) + " rows. ";
        if (m_leftOut > 0 && !m_wish.leftOut.empty())
            note += counted(static_cast<int>(m_leftOut), "row ", "rows ") + m_wish.leftOut + " left out.";
        return trim(note);
    }

  private:
    static std::string textOf(const Cell& cell) {
        return std::visit([](const auto& value) { return cellText(value); }, cell);
    }
    std::string reachText(int number) const {
        const auto name = m_wish.reachNames.find(number);
        return std::to_string(number) + (name == m_wish.reachNames.end() ? "" : " " + name->second);
    }

    const TableWish& m_wish;
    AtlasTable& m_made;
    std::vector<std::size_t> m_columns;
    std::vector<std::size_t> m_oneOf;
    std::size_t m_count = 0;
    std::size_t m_leftOut = 0;
};

} // namespace

AtlasTable atlasTable(const Table& table, const TableWish& wish) {
    AtlasTable made;
    RowGathering gathering(table, wish, made);
    table.rows(gathering);
    made.note = gathering.note();
    return made;
}

} // namespace korvel
