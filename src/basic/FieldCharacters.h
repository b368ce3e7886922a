// The characters that part and form the fields of list input.
#pragma once

namespace korvel {

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t';
}
constexpr bool isLineEnd(char c) {
    return c == '\n' || c == '\r';
}
constexpr bool endsText(char c) {
    return c == ',' || isLineEnd(c);
}
constexpr bool endsNumber(char c) {
    return endsText(c) || isBlank(c);
}
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isExponentMark(char c) {
    return (c | 0x20) == 'e' || (c | 0x20) == 'd';
}

// The first character from `at` on that is no blank; one must be there.
inline const char* pastBlanks(const char* at) {
    while (isBlank(*at))
        ++at;
    return at;
}

} // namespace korvel
