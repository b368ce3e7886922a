// How far long work has come, in one line on a terminal that is gone at the end.
#pragma once

#include <chrono>
#include <iosfwd>
#include <string>

namespace korvel {

class ProgressLine {
  public:
    // Nothing is shown of work that ends soon.
    ProgressLine(std::ostream& terminal, std::string what) : m_terminal(terminal), m_what(std::move(what)) {}
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void show(double share); // 0 to 1

  private:
    std::ostream& m_terminal;
    std::string m_what;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    int m_shownPercent = -1;
};

} // namespace korvel
