// Numbers of any width between separators: those of 64 bytes are found first, so that no number waits for the
// end of the one before, and its digits are taken at once. What is no plain number of at most sixteen
// characters, an empty field and the last number before the end of the bytes in hand are left to the reader
// that goes character by character, which gives the same values.
#pragma once

#include <cstddef>
#include <span>

namespace korvel {

struct NumbersRead {
    std::size_t count = 0;
    const char* next = nullptr; // behind the separator of the last one
};

// Reads the fields from `at` on for as long as it can; none where the processor has no vectors. Seven bytes
// behind `end` must be readable.
NumbersRead readSeparatedNumbers(const char* at, const char* end, std::span<double> into);

} // namespace korvel
