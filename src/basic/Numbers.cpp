#include "basic/Numbers.h"

#include "basic/FieldCharacters.h"
#include "basic/RunTimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

namespace korvel {

namespace {

std::size_t skipDigits(std::string_view text, std::size_t position) {
    while (position < text.size() && isDigit(text[position]))
        ++position;
    return position;
}

std::size_t skipSign(std::string_view text, std::size_t position) {
    return position < text.size() && (text[position] == '+' || text[position] == '-') ? position + 1
                                                                                      : position;
}

// The end of the exponent that begins at a position, or the position itself where none does.
std::size_t skipExponent(std::string_view text, std::size_t position) {
    if (position == text.size() || !isExponentMark(text[position])) return position;
    const std::size_t digits = skipSign(text, position + 1);
    const std::size_t end = skipDigits(text, digits);
    return end > digits ? end : position;
}

// The longest leading decimal number, as a part of the text; "" where there is none.
std::string_view leadingNumberText(std::string_view text) {
    const std::size_t digits = skipSign(text, 0);
    std::size_t end = skipDigits(text, digits);
    std::size_t digitCount = end - digits;
    if (end < text.size() && text[end] == '.') {
        const std::size_t fraction = end + 1;
        end = skipDigits(text, fraction);
        digitCount += end - fraction;
    }
    return digitCount == 0 ? std::string_view() : text.substr(0, skipExponent(text, end));
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

// Of a text that has the form of a number.
double valueOfNumber(std::string number) {
    if (number.starts_with('+')) number.erase(0, 1);
    for (char& c : number)
        if (isExponentMark(c)) c = 'e';
    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    if (read.ec != std::errc::result_out_of_range) return value;
    if (isTiny(number)) return 0;
    return (number.starts_with('-') ? -1 : 1) * std::numeric_limits<double>::infinity();
}

// A finite value's absolute amount as 0.d1d2..d15 times ten to `point`.
struct DecimalForm {
    static constexpr int size = 15;
    std::array<char, size> digits;
    int point;

    // The digit at a place counted from the decimal point: 0 is the units, -1 the tenths.
    char at(int place) const {
        const int index = point - 1 - place;
        return index < 0 || index >= size ? '0' : digits[static_cast<std::size_t>(index)];
    }
};

DecimalForm decimalFormOf(double value) {
    std::array<char, 32> text; // "d.dddddddddddddde+xxx"
    const auto written = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                       std::chars_format::scientific, DecimalForm::size - 1);
    DecimalForm form;
    form.digits[0] = text[0];
    std::copy_n(text.begin() + 2, DecimalForm::size - 1, form.digits.begin() + 1);
    const char* exponent = text.data() + DecimalForm::size + 2;
    if (*exponent == '+') ++exponent;
    std::from_chars(exponent, written.ptr, form.point);
    ++form.point;
    return form;
}

// Rounded half away from zero to `decimals` places: what lies below them becomes 0.
void roundTo(DecimalForm& form, int decimals) {
    const int kept = form.point + decimals;
    if (kept >= DecimalForm::size) return;
    const bool up = kept >= 0 && form.digits[static_cast<std::size_t>(kept)] >= '5';
    std::fill(form.digits.begin() + std::max(kept, 0), form.digits.end(), '0');
    if (!up) return;
    int last = kept - 1;
    for (; last >= 0 && form.digits[static_cast<std::size_t>(last)] == '9'; --last)
        form.digits[static_cast<std::size_t>(last)] = '0';
    if (last >= 0) {
        ++form.digits[static_cast<std::size_t>(last)];
    } else {
        form.digits[0] = '1';
        ++form.point;
    }
}

bool isZero(const DecimalForm& form) {
    return std::all_of(form.digits.begin(), form.digits.end(), [](char digit) { return digit == '0'; });
}

} // namespace

std::string freePrint(long long value) {
    return withLeadingBlank(value) + ' ';
}

std::string withLeadingBlank(long long value) {
    return (value < 0 ? "" : " ") + std::to_string(value);
}

std::optional<double> decimalNumber(std::string_view text) {
    const std::string_view number = leadingNumberText(text);
    if (number.empty() || number.size() < text.size()) return std::nullopt;
    return valueOfNumber(std::string(number));
}

double leadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const std::string_view number = leadingNumberText(text);
    const double value = number.empty() ? 0 : valueOfNumber(std::string(number));
    if (std::isinf(value)) throw RunTimeError(errors::overflow);
    return value;
}

std::string formatPattern(double value, std::string_view pattern) {
    if (!std::isfinite(value)) throw RunTimeError(errors::overflow);
    const std::size_t point = std::min(pattern.find('.'), pattern.size());
    const int decimals = point < pattern.size() ? static_cast<int>(pattern.size() - point - 1) : 0;
    const int leastDigits = static_cast<int>(point - std::min(pattern.find('0'), point));

    DecimalForm form = decimalFormOf(value);
    roundTo(form, decimals);
    const bool zero = isZero(form);
    std::string text;
    if (value < 0 && !zero) text.push_back('-');
    for (int place = std::max(zero ? 0 : form.point, leastDigits) - 1; place >= 0; --place)
        text.push_back(form.at(place));
    if (point < pattern.size()) text.push_back('.');
    for (int place = 1; place <= decimals; ++place)
        text.push_back(form.at(-place));
    return text;
}

std::string shortestNumber(double value) {
    std::array<char, 32> text;
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

int roundHalfToEven(double value) {
    const double whole = std::nearbyint(value);
    if (!(whole >= std::numeric_limits<int>::min() && whole <= std::numeric_limits<int>::max()))
        throw RunTimeError(errors::overflow);
    return static_cast<int>(whole);
}

} // namespace korvel
