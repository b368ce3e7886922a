#include "results/ColumnNumbers.h"

#include "basic/ExactDecimal.h"
#include "basic/FieldCharacters.h"
#include "basic/SixteenDigits.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr std::size_t eight = sizeof(std::uint64_t);
constexpr std::size_t sixteen = 2 * eight;

// By a count of characters: all bits of the bytes before the last so many.
constexpr std::array<std::uint64_t, eight + 1> bytesBeforeLast = [] {
    std::array<std::uint64_t, eight + 1> masks{};
    for (std::size_t count = 0; count < eight; ++count)
        masks[count] = ~std::uint64_t(0) >> (8 * count);
    return masks;
}();

// Digits before the decimal point with blanks before them. Yes in `plain` if there is nothing else.
struct WholePart {
    std::uint64_t value;
    bool plain;
    bool empty;
};

WholePart wholePartBefore(const char* point, std::size_t width) {
    const std::uint64_t outside = bytesBeforeLast[width];
    const std::uint64_t text = (eightCharacters(point - eight) & ~outside) | (eightTimes(' ') & outside);
    const std::uint64_t digitLike = text & eightTimes(0x10);
    const std::uint64_t blanks = ~digitLike & (digitLike - 1) & eightTimes(0x10); // before the first of them
    const std::uint64_t blankBytes = (blanks << 4) - (blanks >> 4);
    const std::uint64_t values = (text | blanks) ^ eightTimes('0');
    const std::uint64_t wrong = ((text ^ eightTimes(' ')) & blankBytes) | notDigitValues(values);
    return {joinedDigits(values), wrong == 0, digitLike == 0};
}

struct Fraction {
    std::uint64_t value;
    bool plain;
};

Fraction fractionBefore(const char* end, std::size_t width) {
    const std::uint64_t inside = ~bytesBeforeLast[width];
    const std::uint64_t values = (eightCharacters(end - eight) ^ eightTimes('0')) & inside;
    return {joinedDigits(values), notDigitValues(values) == 0};
}

constexpr std::array<std::uint64_t, eight + 1> wholePowers = {1,      10,      100,      1000,     10000,
                                                              100000, 1000000, 10000000, 100000000};

// A number in columns; no where it is anything but blanks, digits and the point.
bool readInEights(const char* start, const char* point, const char* end, double& value) {
    const WholePart whole = wholePartBefore(point, static_cast<std::size_t>(point - start));
    const std::size_t decimals = point == end ? 0 : static_cast<std::size_t>(end - point - 1);
    const Fraction fraction = fractionBefore(end, decimals);
    const std::uint64_t digits = whole.value * wholePowers[decimals] + fraction.value;
    if (!whole.plain || !fraction.plain || digits > exactInteger || (whole.empty && decimals == 0))
        return false;
    value = static_cast<double>(digits) / powersOfTen[decimals];
    return true;
}

// Any number that ends where it should.
bool readAtPlace(const char* text, const ColumnNumber& number, double& value) {
    const char* start = text + number.start;
    const char* end = text + number.end;
    if (number.inEights && readInEights(start, text + number.point, end, value)) return true;
    return readExactDecimal(pastBlanks(start), value) == end;
}

bool isSign(char c) {
    return c == '-' || c == '+';
}

// Whether the characters are digits with at most one point, few enough on either side of it.
bool fitsEights(std::string_view number, std::size_t point) {
    const std::string_view whole = number.substr(isSign(number[0]) ? 1 : 0);
    const auto isPlain = [](char c) { return isDigit(c) || c == '.'; };
    return std::ranges::all_of(whole, isPlain) && std::ranges::count(whole, '.') <= 1 && point <= eight &&
           number.size() - point <= eight + 1;
}

DigitOrder digitOrder(const ColumnNumber& number) {
    DigitOrder order{};
    order.from.fill(0x80);
    std::size_t digit = sixteen;
    for (std::size_t byte = number.end; byte-- > number.start;) {
        if (byte != number.point)
            order.from[--digit] = static_cast<std::uint8_t>(sixteen - (number.end - byte));
    }
    order.none = static_cast<std::uint16_t>((1U << digit) - 1);
    const std::size_t decimals = number.point == number.end ? 1 : number.end - number.point - 1;
    order.mostBlanks = static_cast<std::uint16_t>((1U << (sixteen - decimals)) - 1);
    return order;
}

} // namespace

ColumnNumber columnNumber(std::string_view text, std::size_t start, std::size_t first, std::size_t end) {
    const std::string_view characters = text.substr(first, end - first);
    const std::size_t point = first + std::min(characters.find('.'), characters.size());
    ColumnNumber number{};
    number.inEights = point >= eight && fitsEights(characters, point - first);
    if (number.inEights) start = std::max(start, point - eight);
    number.start = static_cast<std::uint32_t>(start);
    number.point = static_cast<std::uint32_t>(point);
    number.end = static_cast<std::uint32_t>(end);
    // Without decimals behind its point, a number could be all blanks.
    number.inSixteens = number.inEights && end >= sixteen && end - start <= sixteen && point + 1 != end;
    if (number.inSixteens) number.order = digitOrder(number);
    return number;
}

bool readColumnsByWords(const char* text, std::span<const ColumnNumber> numbers, double* into) {
    for (const ColumnNumber& number : numbers) {
        if (!readAtPlace(text, number, *into++)) return false;
    }
    return true;
}

#if defined(__x86_64__)

namespace {

WITH_VECTORS bool readInSixteens(const char* text, const ColumnNumber& number, double& value) {
    const auto* bytes = reinterpret_cast<const __m128i*>(text + number.end - sixteen);
    const auto* order = reinterpret_cast<const __m128i*>(number.order.from.data());
    const __m128i characters = _mm_shuffle_epi8(_mm_loadu_si128(bytes), _mm_loadu_si128(order));
    const __m128i values = _mm_sub_epi8(characters, _mm_set1_epi8('0'));
    const __m128i isDigit = digitValues(values);
    const auto digits = static_cast<unsigned>(_mm_movemask_epi8(isDigit));
    const auto blanks =
        static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(characters, _mm_set1_epi8(' '))));
    const unsigned others = digits ^ 0xFFFF; // blanks all, and before every digit
    if ((others & ~(blanks | number.order.none)) != 0 || (others & (others + 1)) != 0 ||
        others > number.order.mostBlanks)
        return false;
    const std::uint64_t whole = joinedSixteen(_mm_and_si128(values, isDigit));
    if (whole > exactInteger) return false;
    const std::size_t decimals = number.end - std::min(number.point + 1, number.end);
    value = static_cast<double>(whole) / powersOfTen[decimals];
    return true;
}

} // namespace

WITH_VECTORS bool readColumnsByVectors(const char* text, std::span<const ColumnNumber> numbers,
                                       double* into) {
    for (const ColumnNumber& number : numbers) {
        double& value = *into++;
        if (number.inSixteens && readInSixteens(text, number, value)) continue;
        if (!readAtPlace(text, number, value)) return false;
    }
    return true;
}

#else

bool readColumnsByVectors(const char* text, std::span<const ColumnNumber> numbers, double* into) {
    return readColumnsByWords(text, numbers, into);
}

#endif

bool readColumns(const char* text, std::span<const ColumnNumber> numbers, double* into) {
    static const auto way = hasVectors() ? readColumnsByVectors : readColumnsByWords;
    return way(text, numbers, into);
}

} // namespace korvel
