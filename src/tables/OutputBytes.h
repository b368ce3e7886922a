// Bytes on their way to a file or a stream, gathered so that few calls write many.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

namespace korvel {

class OutputBytes {
  public:
    using Write = std::function<void(std::string_view)>;

    explicit OutputBytes(Write write);

    void append(std::string_view text);
    void append(char c) {
        *room(1) = c;
        ++m_end;
    }
    void appendNumber(double value); // in its shortest exact form
    void appendNumber(int value);
    void flush(); // whoever made it calls this at the end

  private:
    static constexpr std::size_t block = std::size_t{1} << 18;

    // Where so many bytes fit; they are few.
    char* room(std::size_t bytes) {
        if (m_end + bytes > block) flush();
        return m_bytes.get() + m_end;
    }

    Write m_write;
    std::unique_ptr<char[]> m_bytes;
    std::size_t m_end = 0;
};

} // namespace korvel
