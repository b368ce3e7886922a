// Bytes that arrive in order: an open file, or a text in memory.
#pragma once

#include <cstddef>
#include <string>

namespace korvel {

class ByteSource {
  public:
    virtual ~ByteSource() = default;
    // Fills up to `capacity` bytes and returns how many; 0 only at the end. Fails with RunTimeError (57).
    virtual std::size_t read(char* into, std::size_t capacity) = 0;
    // Size in bytes where known, else 0. Serves progress bars only.
    virtual std::size_t size() const { return 0; }
};

class TextSource : public ByteSource {
  public:
    explicit TextSource(std::string text) : m_text(std::move(text)) {}
    std::size_t read(char* into, std::size_t capacity) override {
        const std::size_t count = m_text.copy(into, capacity, m_position);
        m_position += count;
        return count;
    }
    std::size_t size() const override { return m_text.size(); }

  private:
    std::string m_text;
    std::size_t m_position = 0;
};

} // namespace korvel
