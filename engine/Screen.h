// What the engine says while it runs: a line at a time, shown at once and kept for the copy in the .SCN file.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace korvel::engine {

class Screen {
  public:
    explicit Screen(std::ostream& output) : m_output(output) {}

    void line(const std::string& text) {
        m_lines.push_back(text);
        m_output << text << std::endl;
    }
    // The lines since the file in hand was begun.
    const std::vector<std::string>& lines() const { return m_lines; }
    void beginFile() { m_lines.clear(); }

  private:
    std::ostream& m_output;
    std::vector<std::string> m_lines;
};

} // namespace korvel::engine
