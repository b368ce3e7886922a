// Free-format list input: fields separated by commas or line ends, strings optionally in double quotes, read
// in one forward pass over chunks of bytes. A Ctrl-Z behind which only blanks, line ends and Ctrl-Zs stand
// ends the file, wherever it stands; any other is an ordinary character.
#pragma once

#include "basic/ByteSource.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

class ListInput {
  public:
    // The source must outlive the input. `chunkSize` bytes are asked for at a time.
    explicit ListInput(ByteSource& source, std::size_t chunkSize = std::size_t{512} * 1024);

    // One field each; the views hold until the next call. Failures: 62 a field wanted at the end of the file,
    // 13 text that is not wholly a number or is beyond a double's range, 6 an integer beyond 32 bits.
    double number();
    void numbers(std::span<double> into); // as many fields
    int integer();                        // a fraction is rounded half to even
    std::string_view text();
    void skip(); // reads any field, of whatever form, and drops it

    // One whole line without its end (CR LF, LF or CR); 62 at the end of the file.
    std::string_view line();
    // Whether line() has one to give, be it blank.
    bool hasLine();

    // Yes where only blanks and blank lines are left.
    bool atEnd();

    // The bytes in hand, for a reader that knows what stands there, and its word of how many it has used.
    // The view holds until the next call; ahead() itself brings no more bytes.
    std::string_view ahead() const { return {m_buffer.data() + m_next, m_end - m_next}; }
    void advance(std::size_t count) { m_kept = m_next += count; }

    std::size_t bytesConsumed() const { return m_dropped + m_next; }

  private:
    struct Field { // from m_kept
        std::size_t start = 0;
        std::size_t length = 0;
    };

    bool more();
    std::size_t readChunk();
    bool hasByte();
    void beginField();
    void endField();
    void endLine();
    void skipBlanks();
    Field quotedField();
    template <typename IsEnd>
    Field plainField(IsEnd isEnd);
    std::string_view viewOf(const Field& field) const;
    double generalNumber();

    ByteSource& m_source;
    std::size_t m_chunkSize;
    // The bytes in hand: [m_kept, m_end), of which those before m_next are consumed but still in use. One
    // line end stands behind them as a sentinel, so that scans need no other bound.
    std::vector<char> m_buffer;
    std::size_t m_kept = 0;
    std::size_t m_next = 0;
    std::size_t m_end = 0;
    std::size_t m_dropped = 0; // bytes that the buffer no longer holds
    bool m_sourceEnded = false;
};

} // namespace korvel
