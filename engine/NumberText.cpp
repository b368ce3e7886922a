#include "engine/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace korvel::engine {

namespace {

// Digits after the point that leave about so many significant ones.
int decimalsFor(double magnitude, int digits) {
    int decimals = digits - 1;
    for (double limit = 10; magnitude >= limit && decimals > 0; limit *= 10)
        --decimals;
    for (double limit = 1; magnitude < limit && decimals < 9; limit /= 10)
        ++decimals;
    return decimals;
}

std::string withoutTrailingZeros(std::string text) {
    if (text.find('.') == std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text == "-0" ? "0" : text;
}

} // namespace

std::string fixed(double value, int decimals) {
    std::array<char, 400> buffer;
    const auto [end, problem] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                              std::chars_format::fixed, decimals);
    return problem == std::errc() ? std::string(buffer.data(), end) : "0";
}

std::string significant(double value) {
    return withoutTrailingZeros(fixed(value, decimalsFor(std::abs(value), 6)));
}

std::string tableNumber(double value) {
    return fixed(value, std::min(5, decimalsFor(std::abs(value), 4)));
}

std::string padded(std::string_view text, std::size_t width) {
    std::string result(text.substr(0, width));
    result.resize(width, ' ');
    return result;
}

std::string rightAligned(std::string_view text, std::size_t width) {
    return std::string(width > text.size() ? width - text.size() : 0, ' ').append(text);
}

} // namespace korvel::engine
