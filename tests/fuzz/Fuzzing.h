// What the fuzz harnesses share. A harness hands any bytes to one reader and holds it to its promises; a
// broken one ends the program, so that the bytes at hand are kept as a finding.
#pragma once

#include "basic/ByteSource.h"
#include "basic/RunTimeError.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

// The way in: one run on the bytes at hand. Always 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

void require(bool kept, const char* promise);

std::string textOf(const std::uint8_t* data, std::size_t size);

// The number of the failure that an action ends with, which must be one of these; 0 for none.
template <typename Action>
int failureOf(std::initializer_list<int> known, Action&& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        require(std::ranges::find(known, error.number) != known.end(), "a failure is one of those known");
        return error.number;
    }
    return 0;
}

// A text that comes a few bytes at a time: reads of 1, 2, ... `longest` bytes, and again.
class ShortReads : public ByteSource {
  public:
    ShortReads(std::string text, std::size_t longest) : m_text(std::move(text)), m_longest(longest) {}
    std::size_t read(char* into, std::size_t capacity) override;
    std::size_t size() const override { return m_text.size(); }

  private:
    std::string m_text;
    std::size_t m_longest;
    std::size_t m_last = 0;
    std::size_t m_position = 0;
};

// The lines of a text file by the rules of list input, told letter by letter.
std::vector<std::string> plainLines(const std::string& text);

// The characters of a UTF-8 text, each as its bytes; breaks a promise where the text isn't UTF-8.
std::vector<std::string> utf8Characters(std::string_view text);

} // namespace korvel
