#include "basic/ListInput.h"

#include "basic/ExactDecimal.h"
#include "basic/FieldCharacters.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "basic/SeparatedNumbers.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>

namespace korvel {

namespace {

constexpr char sentinel = '\n';
constexpr char controlZ = 26;
constexpr std::size_t padding = 8; // a sentinel, and as many bytes as numbers are read beyond it

// The first Ctrl-Z among the blanks, line ends and Ctrl-Zs at the end of the bytes in hand, of which `chunk`
// are the last and `before` is what was found without them.
constexpr std::size_t noMark = std::string_view::npos;

std::size_t endMark(std::size_t before, std::string_view chunk, std::size_t chunkStart) {
    static constexpr std::string_view ignored = " \t\r\n\x1a";
    const std::size_t last = chunk.find_last_not_of(ignored);
    if (last == noMark && before != noMark) return before;
    const std::size_t mark = chunk.find(controlZ, last + 1); // from the beginning where all are ignored
    return mark == noMark ? noMark : chunkStart + mark;
}

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

double parseNumber(std::string_view text) {
    const std::optional<double> value = decimalNumber(text);
    if (!value || std::isinf(*value)) throw RunTimeError(errors::typeMismatch);
    return *value;
}

} // namespace

ListInput::ListInput(ByteSource& source, std::size_t chunkSize)
    : m_source(source), m_chunkSize(chunkSize), m_buffer(chunkSize + padding, sentinel) {}

// Brings the next chunk behind the bytes still in use; no at the end of the source. Where the file may end
// with a Ctrl-Z, it brings as many more as tell.
bool ListInput::more() {
    if (m_sourceEnded) return false;
    if (m_kept > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_kept, m_end - m_kept);
        m_dropped += m_kept;
        m_next -= m_kept;
        m_end -= m_kept;
        m_kept = 0;
    }
    const std::size_t before = m_end;
    std::size_t mark = noMark;
    std::size_t start = m_end;
    while (const std::size_t count = readChunk()) {
        mark = endMark(mark, {m_buffer.data() + start, count}, start);
        if (mark == noMark) break;
        start = m_end;
    }
    if (mark != noMark) m_end = mark;
    m_buffer[m_end] = sentinel;
    return m_end > before;
}

std::size_t ListInput::readChunk() {
    const std::size_t needed = m_end + m_chunkSize + padding;
    if (m_buffer.size() < needed) m_buffer.resize(needed);
    const std::size_t count = m_source.read(m_buffer.data() + m_end, m_chunkSize);
    m_end += count;
    m_sourceEnded = count == 0;
    return count;
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
    if (m_next == m_end) throw RunTimeError(errors::inputPastEndOfFile);
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
        value = parseNumber(viewOf(field));
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
    return hasByte();
}

std::string_view ListInput::line() {
    if (!hasLine()) throw RunTimeError(errors::inputPastEndOfFile);
    const Field field = plainField(isLineEnd);
    if (m_next < m_end) endLine();
    return viewOf(field);
}

bool ListInput::atEnd() {
    m_kept = m_next;
    do {
        while (m_next < m_end && (isBlank(m_buffer[m_next]) || isLineEnd(m_buffer[m_next])))
            ++m_next;
    } while (m_next == m_end && more());
    const bool ended = m_next == m_end;
    m_next = m_kept;
    return ended;
}

} // namespace korvel
