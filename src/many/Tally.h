// How far the rows of a plan are, and the words for it.
#pragma once

#include "many/RunRecord.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace korvel {

class Tally {
  public:
    enum class Row { waiting, kept, running, done, failed, stopped };

    explicit Tally(std::size_t rows) : m_rows(rows, Row::waiting), m_messages(rows) {}

    void set(std::size_t row, Row state, const std::string& message = "");
    void set(std::size_t row, const RunRecord& record);
    Row at(std::size_t row) const { return m_rows[row]; }
    std::size_t count(Row state) const { return m_counts[static_cast<std::size_t>(state)]; }
    std::size_t rows() const { return m_rows.size(); }
    const std::string& message(std::size_t row) const { return m_messages[row]; }
    // In the plan's order.
    std::vector<std::size_t> rowsIn(Row state) const;
    bool allDone() const { return count(Row::kept) + count(Row::done) == rows(); }

    // "12 done, 2 running, 1 failed, 35 to go, about 3 min left". `elapsed`: since the first run started.
    std::string progress(std::chrono::milliseconds elapsed) const;
    // "12 done, 3 kept, 1 failed, 34 not run."
    std::string summary() const;

  private:
    std::vector<Row> m_rows;
    std::vector<std::string> m_messages;
    std::size_t m_counts[6] = {m_rows.size(), 0, 0, 0, 0, 0};
};

} // namespace korvel
