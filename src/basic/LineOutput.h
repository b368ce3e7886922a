// Text lines ended by carriage return and line feed, gathered for a file that is written whole.
#pragma once

#include <string>
#include <string_view>

namespace korvel {

class LineOutput {
  public:
    void line(std::string_view text) { m_text.append(text).append("\r\n"); }
    const std::string& text() const { return m_text; }

  private:
    std::string m_text;
};

} // namespace korvel
