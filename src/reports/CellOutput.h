// Cells and lines on their way into a file, through a block of memory.
#pragma once

#include "platform/Files.h"
#include "reports/ReportNumber.h"

#include <string_view>
#include <vector>

class CellOutput {
  public:
    explicit CellOutput(NewFile& file) : m_file(file), m_block(blockSize + reportNumberRoom) {}

    void text(std::string_view characters) {
        if (m_used + characters.size() > blockSize) flush();
        if (characters.size() > blockSize) return m_file.write(characters);
        characters.copy(m_block.data() + m_used, characters.size());
        m_used += characters.size();
    }
    void cell(std::string_view characters) {
        text(characters);
        text(",");
    }
    void cell(double value) {
        if (m_used > blockSize) flush();
        char* const start = m_block.data() + m_used;
        char* const end = writeReportNumber(start, value);
        if (!end) return cell(reportNumber(value));
        *end = ',';
        m_used += static_cast<std::size_t>(end - start) + 1;
    }
    void endLine() { text("\r\n"); }
    void flush() {
        m_file.write({m_block.data(), m_used});
        m_used = 0;
    }

  private:
    static constexpr std::size_t blockSize = 64 * 1024;

    NewFile& m_file;
    std::vector<char> m_block;
    std::size_t m_used = 0;
};
