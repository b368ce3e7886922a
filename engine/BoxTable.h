// A table in the box characters of code page 437, of those that listings draw.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvel {
class LineOutput;
}

namespace korvel::engine {

class BoxTable {
  public:
    // The first column is text, the others hold numbers at their right edge.
    BoxTable(std::string title, std::vector<std::string> headings);

    void row(std::vector<std::string> cells);
    void print(LineOutput& output) const;

  private:
    std::vector<std::size_t> widths() const;

    std::string m_title;
    std::vector<std::vector<std::string>> m_rows; // the headings first
};

// The band that begins a report: a double rule with the text in it.
void printBand(LineOutput& output, std::string_view text);

} // namespace korvel::engine
