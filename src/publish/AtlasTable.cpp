#include "publish/AtlasTable.h"

#include "basic/Text.h"
#include "panels/TextFitting.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr std::size_t longestText = 200; // letters of a cell
constexpr double rowHeight = 1.3;        // lines

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
    return firstShown(shownUtf8(text), longestText);
}
std::string cellText(std::span<const std::string> names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + shownUtf8(name);
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
            texts.push_back(reach ? reachText(std::get<int>(cell)) : textOf(cell));
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

// Columns as wide as they need be; where that is too much, wide ones of texts give way.
std::vector<double> columnWidths(const AtlasTable& table, const AtlasSheet& sheet) {
    const double gap = sheet.line();
    std::vector<double> widths;
    for (std::size_t k = 0; k < table.headings.size(); ++k) {
        double width = sheet.width(table.headings[k], sheet.look().titleFont);
        for (const std::vector<std::string>& row : table.rows)
            width = std::max(width, sheet.width(row[k], sheet.look().font));
        widths.push_back(width + gap);
    }
    const auto excess = [&] {
        double sum = -atlasWidth;
        for (const double width : widths)
            sum += width;
        return sum;
    };
    while (excess() > 0) {
        const auto widest = std::ranges::max_element(widths);
        const double least = 3 * gap;
        if (*widest <= least) break;
        *widest = std::max({least, *widest - excess(), 0.8 * *widest});
    }
    return widths;
}

double headHeight(const AtlasTable& table, double line) {
    return table.note.empty() ? 0 : 1.6 * line;
}

Rgb colourOf(const std::string& text, const PanelLook& look) {
    if (text == "pass" || text == "fail to pass") return look.pass;
    if (text == "fail" || text == "pass to fail") return look.fail;
    return text == "unsure" ? look.unsure : look.text;
}

class TablePainting {
  public:
    TablePainting(const AtlasTable& table, AtlasSheet& sheet)
        : m_table(table), m_sheet(sheet), m_widths(columnWidths(table, sheet)) {}

    void paint(const TablePart& part, double top) {
        const PanelLook& look = m_sheet.look();
        const double height = rowHeight * m_sheet.line();
        paintRow(m_table.headings, top, look.titleFont, true);
        m_sheet.rule(top + height, look.axis);
        double y = top + 1.15 * height;
        for (std::size_t row = part.from; row < part.to; ++row, y += height) {
            std::vector<std::string> cells = m_table.rows[row];
            const bool goesOn =
                row > part.from && m_table.textColumns[0] && cells[0] == m_table.rows[row - 1][0];
            if (goesOn)
                cells[0].clear(); // said once a page
            else if (row > part.from)
                m_sheet.rule(y - 0.1 * height, look.grid);
            paintRow(cells, y, look.font, false);
        }
    }

  private:
    void paintRow(const std::vector<std::string>& cells, double y, const Font& font, bool heading) {
        const PanelLook& look = m_sheet.look();
        const double gap = m_sheet.line();
        double x = 0;
        for (std::size_t k = 0; k < cells.size(); ++k) {
            const std::string text = fittedText(cells[k], m_widths[k] - gap + 1, font, m_sheet.metrics());
            const Rgb colour = heading ? look.text : colourOf(text, look);
            if (m_table.textColumns[k])
                m_sheet.text({x, y}, TextAlign::left, text, font, colour);
            else
                m_sheet.text({x + m_widths[k] - gap, y}, TextAlign::right, text, font, colour);
            x += m_widths[k];
        }
    }

    const AtlasTable& m_table;
    AtlasSheet& m_sheet;
    std::vector<double> m_widths;
};

} // namespace

AtlasTable atlasTable(const Table& table, const TableWish& wish) {
    AtlasTable made;
    RowGathering gathering(table, wish, made);
    table.rows(gathering);
    made.note = gathering.note();
    return made;
}

std::vector<TablePart> tableParts(const AtlasTable& table, const TextMetrics& metrics) {
    AtlasSheet sheet(metrics);
    const double top = sheet.head("", "") + headHeight(table, sheet.line());
    const double height = rowHeight * sheet.line();
    const auto rows =
        static_cast<std::size_t>(std::max(1.0, std::floor((AtlasSheet::bottom() - top) / height - 1.2)));
    std::vector<TablePart> parts;
    for (std::size_t from = 0; from < table.rows.size(); from += rows)
        parts.push_back({from, std::min(from + rows, table.rows.size())});
    if (parts.empty()) parts.push_back({});
    return parts;
}

void paintTable(const AtlasTable& table, const TablePart& part, AtlasSheet& sheet) {
    const bool whole = part.from == 0 && part.to == table.rows.size();
    const std::string rows = whole ? ""
                                   : "rows " + std::to_string(part.from + 1) + " to " +
                                         std::to_string(part.to) + " of " + std::to_string(table.rows.size());
    double top = sheet.head(table.title, rows);
    if (!table.note.empty()) {
        sheet.text({0, top}, TextAlign::left,
                   fittedText(table.note, atlasWidth, sheet.look().font, sheet.metrics()), sheet.look().font,
                   sheet.look().quietText);
        top += headHeight(table, sheet.line());
    }
    if (table.rows.empty())
        sheet.text({0, top}, TextAlign::left, "Nothing to show.", sheet.look().font, sheet.look().quietText);
    else
        TablePainting(table, sheet).paint(part, top);
}

} // namespace korvel
