// A table of texts for a terminal: columns as wide as they need be, numbers to the right.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <set>
#include <string>
#include <vector>

namespace korvel {

class TextTable {
  public:
    // The first row, and which columns (from 0) stand to the left.
    TextTable(std::vector<std::string> headings, std::set<std::size_t> leftColumns);
    void row(std::vector<std::string> cells); // as in the files; converted here
    void print(std::ostream& out) const;      // with an empty line below

  private:
    std::vector<std::vector<std::string>> m_rows;
    std::vector<std::size_t> m_widths;
    std::set<std::size_t> m_leftColumns;
};

} // namespace korvel
