#include "panels/RangePyramid.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr std::size_t block = 8;

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
    NumberRange range = rangeOf(numbers[begin]);
    if (end - begin <= block || m_levels.empty()) {
        for (std::size_t k = begin; k < end; ++k)
            take(range, rangeOf(numbers[k]));
        return range;
    }
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
        std::size_t steps = 0, size = block;
        for (const std::vector<NumberRange>& blocks : m_levels) {
            if (at % size != 0 || at + size > end) break;
            const NumberRange& range = blocks[at / size];
            if (range.lowest <= number && number <= range.highest) break;
            steps = size;
            size *= block;
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
