// Cells and lines on their way into a file, through a block of memory:
//
//     | Reach,"label",0.5679,12.35,...           <- room ->|   full? then to the file, and from the front
//     again
//                                    ^ m_used
//
// There is room for a whole row of numbers before the first is written, so that none asks for it. Those that
// the plain way must make (ReportNumber) interrupt the row.
#pragma once

#include "platform/Files.h"
#include "reports/NumberBlock.h"
#include "reports/ReportNumber.h"

#include <string_view>
#include <vector>

namespace korvel {

class CellOutput {
  public:
    explicit CellOutput(NewFile& file) : m_file(file), m_block(blockSize) {}

    void text(std::string_view characters) {
        if (characters.size() > blockSize - m_used) flush();
        if (characters.size() > blockSize) return m_file.write(characters);
        characters.copy(m_block.data() + m_used, characters.size());
        m_used += characters.size();
    }
    void cell(std::string_view characters) {
        text(characters);
        text(",");
    }
    void quotedCell(std::string_view characters) {
        text("\"");
        text(characters);
        text("\",");
    }
    // The cells of one row of the block.
    void numbers(const NumberBlock& block, std::size_t row) {
        const std::span<const NumberCode> codes = block.codes(row);
        for (std::size_t column = usualNumbers(codes, 0); column < codes.size();
             column = usualNumbers(codes, column + 1))
            cell(reportNumber(block.value(row, column)));
    }
    void endLine() { text("\r\n"); }
    void flush() {
        m_file.write({m_block.data(), m_used});
        m_used = 0;
    }

  private:
    static constexpr std::size_t blockSize = std::size_t{64} * 1024;

    // Up to the next one for the plain way, whose column is returned. A row is at most some hundred numbers.
    std::size_t usualNumbers(std::span<const NumberCode> codes, std::size_t column) {
        const std::size_t wanted = codes.size() * NumberTexts::room;
        if (wanted > blockSize - m_used) flush();
        char* to = m_block.data() + m_used;
        for (; column < codes.size() && codes[column] != NumberCode::plainWay; ++column)
            to = m_texts.write(to, codes[column]);
        m_used = static_cast<std::size_t>(to - m_block.data());
        return column;
    }

    NewFile& m_file;
    const NumberTexts& m_texts = NumberTexts::all();
    std::vector<char> m_block;
    std::size_t m_used = 0;
};

} // namespace korvel
