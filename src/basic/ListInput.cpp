#include "basic/ListInput.h"

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

constexpr char sentinel = '\n';
constexpr char controlZ = 26;

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}
bool isLineEnd(char c) {
    return c == '\n' || c == '\r';
}
bool endsNumber(char c) {
    return c == ',' || isLineEnd(c) || isBlank(c);
}
bool endsText(char c) {
    return c == ',' || isLineEnd(c);
}
bool isDigit(char c) {
    return static_cast<unsigned char>(c - '0') <= 9;
}
bool isExponentMark(char c) {
    return (c | 0x20) == 'e' || (c | 0x20) == 'd';
}

constexpr int exactPower = 22; // 10^22 is the largest power of ten that a double holds exactly
constexpr std::array<double, exactPower + 1> powersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::ptrdiff_t countedDigits = 18;                   // as many never overflow 64 bits
constexpr std::uint64_t exactInteger = std::uint64_t(1) << 53; // whole numbers up to it are exact

const char* pastBlanks(const char* at) {
    while (isBlank(*at))
        ++at;
    return at;
}

// Appends the digits from `at` on to a number.
const char* readDigits(const char* at, std::uint64_t& number) {
    std::uint64_t value = number;
    for (; isDigit(*at); ++at)
        value = value * 10 + static_cast<std::uint64_t>(*at - '0');
    number = value;
    return at;
}

// The exponent's digits after its mark; where there are none or too many, the pointer that came in.
const char* readExponent(const char* mark, int& power) {
    const char* at = mark + 1;
    const bool negative = *at == '-';
    if (negative || *at == '+') ++at;
    std::uint64_t digits = 0;
    const char* end = readDigits(at, digits);
    if (end == at || end - at > 4) return mark;
    power += negative ? -static_cast<int>(digits) : static_cast<int>(digits);
    return end;
}

// A decimal whose digits and power of ten are both exact doubles is one correctly rounded operation away from
// its value. Returns where the number ends, or nothing where that doesn't hold and the general parser is
// needed.
const char* readExactNumber(const char* at, double& value) {
    const bool negative = *at == '-';
    if (negative || *at == '+') ++at;
    std::uint64_t digits = 0;
    const char* first = at;
    at = readDigits(at, digits);
    std::ptrdiff_t count = at - first;
    int power = 0;
    if (*at == '.') {
        const char* fraction = at + 1;
        at = readDigits(fraction, digits);
        power = -static_cast<int>(at - fraction);
        count -= power;
    }
    if (count == 0 || count > countedDigits || digits > exactInteger) return nullptr;
    if (isExponentMark(*at)) at = readExponent(at, power);
    if (power < -exactPower || power > exactPower || !endsNumber(*at)) return nullptr;
    const double whole = static_cast<double>(digits);
    const double size = power < 0 ? whole / powersOfTen[static_cast<std::size_t>(-power)]
                                  : whole * powersOfTen[static_cast<std::size_t>(power)];
    value = negative ? -size : size;
    return at;
}

// The same with the blanks before the number and the separator behind it; nothing also where the field may go
// on behind the bytes in hand.
const char* readExactField(const char* at, const char* end, double& value) {
    at = readExactNumber(pastBlanks(at), value);
    if (!at) return nullptr;
    if (isBlank(*at)) at = pastBlanks(at);
    if (end - at < 2) return nullptr;
    if (*at == ',' || *at == '\n') return at + 1;
    if (*at == '\r') return at + (at[1] == '\n' ? 2 : 1);
    return at;
}

// Whether a number that no double can hold is too small rather than too large: the power of its first digit.
bool isTiny(std::string_view number) {
    const std::size_t mark = number.find('e');
    long long power = 0;
    if (mark != std::string_view::npos) {
        std::string_view exponent = number.substr(mark + 1);
        if (exponent.starts_with('+')) exponent.remove_prefix(1);
        const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
        if (read.ec != std::errc()) return exponent.starts_with('-');
    }
    const std::string_view digits = number.substr(0, mark);
    const std::size_t first = digits.find_first_of("123456789");
    const std::size_t point = std::min(digits.find('.'), digits.size());
    return first == std::string_view::npos ||
           static_cast<long long>(point) - static_cast<long long>(first) + power < 0;
}

double parseNumber(std::string text) {
    for (char& c : text) {
        if (isExponentMark(c)) c = 'e';
    }
    // Words such as "inf" and a second sign are no numbers here.
    const std::size_t unsignedAt = text[0] == '-' || text[0] == '+' ? 1 : 0;
    if (!isDigit(text[unsignedAt]) && text[unsignedAt] != '.') throw RunTimeError(errors::typeMismatch);
    const char* start = text.data() + (text[0] == '+' ? 1 : 0);
    const char* end = text.data() + text.size();
    double value = 0;
    const auto read = std::from_chars(start, end, value);
    if (read.ptr != end) throw RunTimeError(errors::typeMismatch);
    if (read.ec == std::errc::result_out_of_range && isTiny({start, end})) return 0;
    if (read.ec != std::errc() || std::isinf(value)) throw RunTimeError(errors::typeMismatch);
    return value;
}

} // namespace

ListInput::ListInput(ByteSource& source, std::size_t chunkSize)
    : m_source(source), m_chunkSize(chunkSize), m_buffer(chunkSize + 1, sentinel) {}

// Brings the next chunk behind the bytes still in use; no at the end of the source.
bool ListInput::more() {
    if (m_sourceEnded) return false;
    if (m_kept > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_kept, m_end - m_kept);
        m_dropped += m_kept;
        m_next -= m_kept;
        m_end -= m_kept;
        m_kept = 0;
    }
    const std::size_t needed = m_end + m_chunkSize + 1;
    if (m_buffer.size() < needed) m_buffer.resize(needed);
    const std::size_t count = m_source.read(m_buffer.data() + m_end, m_chunkSize);
    m_end += count;
    m_buffer[m_end] = sentinel;
    m_sourceEnded = count == 0;
    return count > 0;
}

bool ListInput::hasByte() {
    return m_next < m_end || more();
}

void ListInput::skipBlanks() {
    do {
        while (isBlank(m_buffer[m_next]))
            ++m_next;
    } while (m_next == m_end && more());
}

void ListInput::beginField() {
    do {
        while (isBlank(m_buffer[m_next]))
            ++m_next;
        m_kept = m_next;
    } while (m_next == m_end && more());
    if (m_next == m_end || (m_buffer[m_next] == controlZ && atEnd()))
        throw RunTimeError(errors::inputPastEndOfFile);
}

void ListInput::endField() {
    if (m_buffer[m_next] != ',') {
        skipBlanks();
        if (m_next == m_end) return;
    }
    if (m_buffer[m_next] == ',')
        ++m_next;
    else if (isLineEnd(m_buffer[m_next]))
        endLine();
}

void ListInput::endLine() {
    const char first = m_buffer[m_next];
    ++m_next;
    if (first == '\r' && hasByte() && m_buffer[m_next] == '\n') ++m_next;
}

std::string_view ListInput::viewOf(const Field& field) const {
    return {m_buffer.data() + m_kept + field.start, field.length};
}

// From m_next, where a double quote stands, past the closing one or to the end of the file.
ListInput::Field ListInput::quotedField() {
    ++m_next;
    const std::size_t start = m_next - m_kept;
    while (hasByte()) {
        const char* from = m_buffer.data() + m_next;
        const void* quote = std::memchr(from, '"', m_end - m_next);
        if (quote) {
            m_next += static_cast<std::size_t>(static_cast<const char*>(quote) - from);
            const std::size_t length = m_next - m_kept - start;
            ++m_next;
            return {start, length};
        }
        m_next = m_end;
    }
    return {start, m_next - m_kept - start};
}

template <typename IsEnd>
ListInput::Field ListInput::plainField(IsEnd isEnd) {
    const std::size_t start = m_next - m_kept;
    do {
        while (!isEnd(m_buffer[m_next]))
            ++m_next;
    } while (m_next == m_end && more());
    return {start, m_next - m_kept - start};
}

double ListInput::number() {
    double value = 0;
    numbers({&value, 1});
    return value;
}

// The position stays in a register from field to field; it is put back where a field needs the general way.
void ListInput::numbers(std::span<double> into) {
    const char* at = m_buffer.data() + m_next;
    const auto putBack = [&] { m_kept = m_next = static_cast<std::size_t>(at - m_buffer.data()); };
    for (double& value : into) {
        if (const char* next = readExactField(at, m_buffer.data() + m_end, value)) {
            at = next;
            continue;
        }
        putBack();
        value = generalNumber();
        at = m_buffer.data() + m_next;
    }
    putBack();
}

// A number that is empty, unusual, or cut off by the end of the bytes in hand.
double ListInput::generalNumber() {
    beginField();
    const Field field = plainField(endsNumber);
    double value = 0;
    if (field.length > 0 && !readExactNumber(viewOf(field).data(), value))
        value = parseNumber(std::string(viewOf(field)));
    endField();
    return value;
}

int ListInput::integer() {
    return roundHalfToEven(number());
}

std::string_view ListInput::text() {
    beginField();
    if (m_buffer[m_next] == '"') {
        const Field field = quotedField();
        endField();
        return viewOf(field);
    }
    Field field = plainField(endsText);
    while (field.length > 0 && isBlank(viewOf(field).back()))
        --field.length;
    endField();
    return viewOf(field);
}

void ListInput::skip() {
    beginField();
    if (m_buffer[m_next] == '"')
        quotedField();
    else
        plainField(endsNumber);
    endField();
}

bool ListInput::hasLine() {
    m_kept = m_next;
    return hasByte() && !(m_buffer[m_next] == controlZ && atEnd());
}

std::string_view ListInput::line() {
    if (!hasLine()) throw RunTimeError(errors::inputPastEndOfFile);
    const Field field = plainField(isLineEnd);
    if (m_next < m_end) endLine();
    return viewOf(field);
}

bool ListInput::atEnd() {
    m_kept = m_next;
    const auto isIgnored = [](char c) { return isBlank(c) || isLineEnd(c) || c == controlZ; };
    do {
        while (m_next < m_end && isIgnored(m_buffer[m_next]))
            ++m_next;
    } while (m_next == m_end && more());
    const bool ended = m_next == m_end;
    m_next = m_kept;
    return ended;
}
