// Tables as people look at them: cells by index, so that nothing of a long table is made before it is seen.
#pragma once

#include "explore/ExploreState.h"
#include "tables/Table.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvel {

enum class CellLook {
    text,
    whole,   // a count, a number that names something
    number,  // rounded to about four figures
    exact,   // as read
    percent, // one decimal
    share,   // percent, with a bar beside it
    verdict, // a word with its symbol and colour
};

struct ShownColumn {
    Column column;       // as other programs name it
    std::string heading; // for people; lines parted by '\n'
    CellLook look = CellLook::text;
    bool largestFirst = false; // when it is first sorted
};

inline bool isText(CellLook look) {
    return look == CellLook::text || look == CellLook::verdict;
}

class RowSource {
  public:
    RowSource(std::string name, std::vector<ShownColumn> columns)
        : m_name(std::move(name)), m_columns(std::move(columns)) {}
    virtual ~RowSource() = default;
    RowSource(const RowSource&) = delete;
    RowSource& operator=(const RowSource&) = delete;

    const std::string& name() const { return m_name; } // of the table, for other programs
    const std::vector<ShownColumn>& columns() const { return m_columns; }
    int columnCount() const { return static_cast<int>(m_columns.size()); }
    const ShownColumn& column(int index) const { return m_columns[static_cast<std::size_t>(index)]; }

    virtual int rowCount() const = 0;
    // Texts live as long as the source.
    virtual Cell cell(int row, int column) const = 0;
    // What a column is sorted by where that isn't what it shows.
    virtual Cell sortedBy(int row, int column) const { return cell(row, column); }
    // How long the bar of a share is, 0 to 1.
    virtual double bar(int, int) const { return 0; }
    // More about a cell; "" where there is no more.
    virtual std::string note(int, int) const { return {}; }
    // Where the cell is, and what it is about.
    virtual std::optional<ExplorePlace> place(int row, int column) const = 0;
    virtual std::optional<int> series(int, int) const { return std::nullopt; }
    // The rows that are about this place, in file order.
    virtual std::vector<int> rowsAt(const ExplorePlace& place) const = 0;
    // Why there are no rows, and what to do about it.
    virtual std::string whyEmpty() const = 0;

  protected:
    void setColumns(std::vector<ShownColumn> columns) { m_columns = std::move(columns); }

  private:
    std::string m_name;
    std::vector<ShownColumn> m_columns;
};

} // namespace korvel
