#include "basic/ListInput.h"

#include "basic/ExactDecimal.h"
#include "basic/FieldCharacters.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "basic/SeparatedNumbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace korvel {

namespace {

constexpr char sentinel = '\n';
constexpr char controlZ = 26;
constexpr std::size_t padding = 8; // a sentinel, and as many bytes as numbers are read beyond it

// An exact decimal with the blanks before it and the separator behind it; nothing where it has another form,
// or where the field may go on behind the bytes in hand.
const char* readExactField(const char* at, const char* end, double& value) {
    double read = 0;
    at = readExactDecimal(pastBlanks(at), read);
    if (!at) return nullptr;
    if (isBlank(*at)) at = pastBlanks(at);
    if (end - at < 2) return nullptr;
    value = read;
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
    : m_source(source), m_chunkSize(chunkSize), m_buffer(chunkSize + padding, sentinel) {}

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
    const std::size_t needed = m_end + m_chunkSize + padding;
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
    const auto [read, behind] = readSeparatedNumbers(m_buffer.data() + m_next, m_buffer.data() + m_end, into);
    const char* at = behind;
    const auto putBack = [&] { m_kept = m_next = static_cast<std::size_t>(at - m_buffer.data()); };
    for (double& value : into.subspan(read)) {
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
    if (field.length > 0 && readExactDecimal(viewOf(field).data(), value) == nullptr)
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

} // namespace korvel
