#include "panels/RangePyramid.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr int blockBits = 3;
constexpr std::size_t block = 1 << blockBits;

void take(NumberRange& range, const NumberRange& other) {
    range.lowest = std::min(range.lowest, other.lowest);
    range.highest = std::max(range.highest, other.highest);
}

NumberRange rangeOf(double number) {
    return {number, number};
}
const NumberRange& rangeOf(const NumberRange& range) {
    return range;
}

template <typename Entry>
NumberRange rangeOfAll(std::span<const Entry> entries) {
    NumberRange range = rangeOf(entries.front());
    for (const Entry& entry : entries.subspan(1))
        take(range, rangeOf(entry));
    return range;
}

// Whole blocks have a length that the compiler knows: a page's curves have many thousand.
template <typename Entry>
std::vector<NumberRange> blocksOf(std::span<const Entry> entries) {
    const std::size_t whole = entries.size() / block;
    std::vector<NumberRange> blocks(whole);
    for (std::size_t k = 0; k < whole; ++k) {
        NumberRange range = rangeOf(entries[k * block]);
        for (std::size_t j = 1; j < block; ++j)
            take(range, rangeOf(entries[k * block + j]));
        blocks[k] = range;
    }
    if (entries.size() > whole * block) blocks.push_back(rangeOfAll(entries.subspan(whole * block)));
    return blocks;
}

// Of so few it is quicker to look at each.
constexpr std::size_t few = 16 * block;

// Two numbers at once, four pairs side by side, so that none waits for the one before. The compiler has it
// on every machine.
using Pair = double __attribute__((vector_size(2 * sizeof(double))));

struct PairRange {
    Pair lowest, highest;

    void take(Pair pair) {
        lowest = pair < lowest ? pair : lowest;
        highest = pair > highest ? pair : highest;
    }
};

Pair pairAt(const double* at) {
    return Pair{at[0], at[1]};
}

// Of at least a block. The last block may hold some that were counted before: that does no harm.
NumberRange rangeOfBlocks(std::span<const double> numbers) {
    PairRange ranges[block / 2];
    for (std::size_t k = 0; k < block / 2; ++k)
        ranges[k] = {pairAt(&numbers[2 * k]), pairAt(&numbers[2 * k])};
    for (std::size_t begin = block; begin < numbers.size(); begin += block) {
        const double* const at = &numbers[std::min(begin, numbers.size() - block)];
        for (std::size_t k = 0; k < block / 2; ++k)
            ranges[k].take(pairAt(at + 2 * k));
    }
    for (std::size_t k = 1; k < block / 2; ++k) {
        ranges[0].take(ranges[k].lowest);
        ranges[0].take(ranges[k].highest);
    }
    const PairRange& all = ranges[0];
    return {std::min(all.lowest[0], all.lowest[1]), std::max(all.highest[0], all.highest[1])};
}

NumberRange rangeOfFew(std::span<const double> numbers) {
    if (numbers.size() >= block) return rangeOfBlocks(numbers);
    NumberRange range = rangeOf(numbers.front());
    for (const double number : numbers)
        take(range, rangeOf(number));
    return range;
}

// Takes entries until those that are left are whole blocks, which are then counted instead.
template <typename Entry>
void takeEnds(std::span<const Entry> entries, std::size_t& begin, std::size_t& end, NumberRange& range) {
    for (; begin < end && begin % block != 0; ++begin)
        take(range, rangeOf(entries[begin]));
    for (; begin < end && end % block != 0; --end)
        take(range, rangeOf(entries[end - 1]));
    begin /= block;
    end /= block;
}

} // namespace

RangePyramid::RangePyramid(std::span<const double> numbers) {
    if (numbers.size() <= block) return;
    m_levels.push_back(blocksOf(numbers));
    while (m_levels.back().size() > block)
        m_levels.push_back(blocksOf(std::span<const NumberRange>(m_levels.back())));
}

NumberRange RangePyramid::range(std::span<const double> numbers, std::size_t begin, std::size_t end) const {
    if (end - begin <= few || m_levels.empty()) return rangeOfFew(numbers.subspan(begin, end - begin));
    NumberRange range = rangeOf(numbers[begin]);
    takeEnds(numbers, begin, end, range);
    for (std::size_t level = 0; begin < end; ++level) {
        const std::span<const NumberRange> blocks = m_levels[level];
        if (level + 1 < m_levels.size()) {
            takeEnds(blocks, begin, end, range);
            continue;
        }
        for (; begin < end; ++begin)
            take(range, blocks[begin]);
    }
    return range;
}

// Whole blocks that can't hold it are passed, the largest that begin there first.
std::size_t RangePyramid::find(std::span<const double> numbers, std::size_t begin, std::size_t end,
                               double number) const {
    const auto passed = [&](std::size_t at) {
        std::size_t steps = 0;
        int bits = blockBits; // a division takes longer than all the rest
        for (const std::vector<NumberRange>& blocks : m_levels) {
            const std::size_t size = std::size_t{1} << bits;
            if ((at & (size - 1)) != 0 || at + size > end) break;
            const NumberRange& range = blocks[at >> bits];
            if (range.lowest <= number && number <= range.highest) break;
            steps = size;
            bits += blockBits;
        }
        return steps;
    };
    while (begin < end) {
        if (const std::size_t steps = passed(begin)) {
            begin += steps;
            continue;
        }
        if (numbers[begin] == number) return begin;
        ++begin;
    }
    return end;
}

} // namespace korvel
