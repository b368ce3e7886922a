// Text for people at a terminal: what was taken on top, tables, and what it comes to in words.
#pragma once

#include "tables/TextTable.h"

#include <string>

namespace korvel {

class TextPage {
  public:
    explicit TextPage(TextLook look = {}) : m_look(look) {}

    void heading(const std::string& line);
    void line(const std::string& line); // as in the files; converted here
    void space();                       // an empty line, but never two
    void table(const TextTable& table);

    const std::string& text() const { return m_text; }

  private:
    void add(const std::string& line, TextTone tone);

    TextLook m_look;
    std::string m_text;
};

} // namespace korvel
