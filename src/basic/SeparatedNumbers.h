// Numbers of any width between separators.
//
//     text      12.5, 3 ,-0.75 17,8
//     blanks    .....1.1......1....       a bit for each of 64 bytes
//     enders    ....1...1........1.       commas and line ends
//     starts    1.....1..1.....1..1       where a separator ends
//     ends      ....1..1......1..1.
//
// The separators of 64 bytes are found first, sixteen at a time, and whole fields follow from a few
// operations on the bits, so that no number waits for the end of the one before; its digits are taken at
// once, as among columns. An empty field shows in that two enders stand before one start. What is no plain
// number of at most sixteen characters, an empty field and the last number before the end of the bytes in
// hand are left to the reader that goes character by character, which gives the same values. Files without
// columns take 1.25 times as long without it.
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
