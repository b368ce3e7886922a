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

    // Room for so many bytes, fewer than a block, for whoever writes them himself and then says where they
    // end.
    static constexpr std::size_t block = std::size_t{1} << 18;
    char* begin(std::size_t bytes) { return room(bytes); }
    void end(const char* end) { m_end = static_cast<std::size_t>(end - m_bytes.get()); }

  private:
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
