#include "basic/SeparatedNumbers.h"

#include "basic/ExactDecimal.h"
#include "basic/SixteenDigits.h"

namespace korvel {

#if defined(__x86_64__)

namespace {

constexpr int sixteen = 16;
constexpr int windowSize = 64;
constexpr std::ptrdiff_t neededBytes = windowSize + 8; // a number is read from a window's last byte on, too

// A bit for each of 64 bytes, the first in the lowest.
using Places = std::uint64_t;

constexpr Places before(int place) {
    return (Places(1) << place) - 1;
}

constexpr Places withoutFirst(Places places) {
    return places & (places - 1);
}

struct Window {
    Places blanks = 0;
    Places commas = 0;
    Places returns = 0;
    Places feeds = 0;
    Places points = 0;
};

WITH_VECTORS Places placesOf(char character, __m128i characters, int from) {
    const auto found = _mm_movemask_epi8(_mm_cmpeq_epi8(characters, _mm_set1_epi8(character)));
    return static_cast<Places>(found) << from;
}

WITH_VECTORS Window windowAt(const char* text) {
    Window window;
    for (int from = 0; from < windowSize; from += sixteen) {
        const __m128i characters = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + from));
        window.blanks |= placesOf(' ', characters, from) | placesOf('\t', characters, from);
        window.commas |= placesOf(',', characters, from);
        window.returns |= placesOf('\r', characters, from);
        window.feeds |= placesOf('\n', characters, from);
        window.points |= placesOf('.', characters, from);
    }
    return window;
}

// Digits with at most one point, which is `decimals` digits before the end; without one, `decimals` is 0.
WITH_VECTORS bool readDigits(const char* first, int length, bool hasPoint, int decimals, double& value) {
    const __m128i places = _mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    // The last digit comes to the end, and what is before the point one place nearer.
    const __m128i toTheEnd = _mm_add_epi8(places, _mm_set1_epi8(static_cast<char>(length - sixteen)));
    const char fraction = static_cast<char>(hasPoint ? sixteen - decimals : 0);
    const __m128i order = _mm_add_epi8(toTheEnd, _mm_cmplt_epi8(places, _mm_set1_epi8(fraction)));
    const __m128i characters = _mm_loadu_si128(reinterpret_cast<const __m128i*>(first));
    const __m128i values = _mm_sub_epi8(_mm_shuffle_epi8(characters, order), _mm_set1_epi8('0'));
    const __m128i digits = digitValues(values);
    const __m128i none = _mm_cmplt_epi8(order, _mm_setzero_si128());
    if (_mm_movemask_epi8(_mm_or_si128(digits, none)) != 0xFFFF) return false;
    const std::uint64_t whole = joinedSixteen(_mm_and_si128(values, digits));
    if (whole > exactInteger) return false;
    value = static_cast<double>(whole) / powersOfTen[static_cast<std::size_t>(decimals)];
    return true;
}

WITH_VECTORS bool readNumber(const char* text, int start, int end, Places points, double& value) {
    const bool negative = text[start] == '-';
    if (negative || text[start] == '+') ++start;
    const Places point = points & before(end) & ~before(start);
    const int decimals = point == 0 ? 0 : end - std::countr_zero(point) - 1;
    const int length = end - start;
    if (length > sixteen || length <= (point == 0 ? 0 : 1)) return false;
    if (!readDigits(text + start, length, point != 0, decimals, value)) return false;
    if (negative) value = -value;
    return true;
}

struct Fields {
    Places starts = 0; // the last one is that of a field whose end is not in sight
    Places ends = 0;   // of the others
    Places enders = 0; // the first byte of each comma and line end before the last start
};

// Nothing where a field is empty, which takes two enders among the same separators, or one before the first
// field.
WITH_VECTORS Fields fieldsOf(const Window& window) {
    const Places enders = window.commas | window.returns | (window.feeds & ~(window.returns << 1));
    const Places separators = window.blanks | enders | window.feeds;
    const Places starts = ~separators & ~(~separators << 1);
    if (withoutFirst(starts) == 0) return {};
    const Places beforeFirst = before(std::countr_zero(starts));
    const Places beforeLast = before(windowSize - 1 - std::countl_zero(starts));
    const Places known = enders & beforeLast;
    // Each ender carries through the separators behind it into a start; two among the same ones into one
    // start.
    const Places reached = ((separators & beforeLast) + known) & starts;
    if ((known & beforeFirst) != 0 || std::popcount(reached) != std::popcount(known)) return {};
    return {starts, separators & ~(separators << 1) & ~beforeFirst, known};
}

// Where the field behind the separators from `end` up to `next` begins, blanks before it included.
int behindSeparators(const Window& window, Places enders, int end, int next) {
    const Places ender = enders & before(next) & ~before(end);
    if (ender == 0) return next;
    const bool isPair = (ender & window.returns) != 0 && ((ender << 1) & window.feeds) != 0;
    return std::countr_zero(ender) + (isPair ? 2 : 1);
}

WITH_VECTORS NumbersRead readWindow(const char* text, std::span<double> into) {
    const Window window = windowAt(text);
    Fields fields = fieldsOf(window);
    std::size_t count = 0;
    int end = 0;
    while (count < into.size() && withoutFirst(fields.starts) != 0) {
        const int start = std::countr_zero(fields.starts);
        const int itsEnd = std::countr_zero(fields.ends);
        if (!readNumber(text, start, itsEnd, window.points, into[count])) break;
        end = itsEnd;
        ++count;
        fields.starts = withoutFirst(fields.starts);
        fields.ends = withoutFirst(fields.ends);
    }
    if (count == 0) return {};
    return {count, text + behindSeparators(window, fields.enders, end, std::countr_zero(fields.starts))};
}

} // namespace

NumbersRead readSeparatedNumbers(const char* at, const char* end, std::span<double> into) {
    static const bool possible = hasVectors();
    NumbersRead all{0, at};
    while (possible && all.count < into.size() && end - all.next >= neededBytes) {
        const NumbersRead read = readWindow(all.next, into.subspan(all.count));
        if (read.count == 0) break;
        all.count += read.count;
        all.next = read.next;
    }
    return all;
}

#else

NumbersRead readSeparatedNumbers(const char* at, const char*, std::span<double>) {
    return {0, at};
}

#endif

} // namespace korvel
