#include "tables/OutputBytes.h"

#include "tables/ShortNumber.h"

#include <charconv>
#include <cstring>
#include <utility>

namespace korvel {

OutputBytes::OutputBytes(Write write) : m_write(std::move(write)), m_bytes(new char[block]) {}

void OutputBytes::append(std::string_view text) {
    if (text.size() > block / 2) {
        flush();
        m_write(text);
        return;
    }
    std::memcpy(room(text.size()), text.data(), text.size());
    m_end += text.size();
}

void OutputBytes::appendNumber(double value) {
    char* const begin = room(longestNumber);
    m_end += static_cast<std::size_t>(writeShortest(begin, value) - begin);
}

void OutputBytes::appendNumber(int value) {
    char* const begin = room(longestNumber);
    m_end += static_cast<std::size_t>(std::to_chars(begin, begin + longestNumber, value).ptr - begin);
}

void OutputBytes::flush() {
    if (m_end > 0) m_write({m_bytes.get(), m_end});
    m_end = 0;
}

} // namespace korvel
