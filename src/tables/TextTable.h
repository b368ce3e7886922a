// A table of texts for a terminal: columns as wide as they need be, numbers to the right.
#pragma once

#include "tables/TextLook.h"

#include <cstddef>
#include <iosfwd>
#include <set>
#include <string>
#include <vector>

namespace korvel {

struct TextCell {
    TextCell(std::string words, TextTone toneOfWords = TextTone::plain)
        : text(std::move(words)), tone(toneOfWords) {}
    TextCell(const char* words) : text(words) {}

    std::string text;
    TextTone tone = TextTone::plain;
};

class TextTable {
  public:
    // The first row, and which columns (from 0) stand to the left.
    TextTable(std::vector<std::string> headings, std::set<std::size_t> leftColumns);
    void row(std::vector<TextCell> cells); // as in the files; converted here
    std::string text(const TextLook& look = {}) const;
    void print(std::ostream& out) const; // with an empty line below

  private:
    std::vector<std::vector<TextCell>> m_rows;
    std::vector<std::size_t> m_widths;
    std::set<std::size_t> m_leftColumns;
};

} // namespace korvel
