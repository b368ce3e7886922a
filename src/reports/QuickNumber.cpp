#include "reports/QuickNumber.h"

#include "reports/ReportNumber.h"

#include <algorithm>
#include <charconv>

namespace korvel {

using numbers::textsOfEachKind;

const NumberTexts& NumberTexts::all() {
    static const NumberTexts texts;
    return texts;
}

NumberTexts::NumberTexts() {
    for (unsigned decimals = 0; decimals < 4; ++decimals)
        for (unsigned number = 0; number < textsOfEachKind; ++number)
            m_texts.push_back(textOf(number, decimals));
}

// Without a point all four digits are there, with one no zero stands first, but right before the point.
NumberTexts::Text NumberTexts::textOf(unsigned number, unsigned decimals) {
    std::string text = std::to_string(textsOfEachKind + number).substr(1);
    if (decimals > 0) text.insert(4 - decimals, ".");
    if (decimals > 0 && decimals < 3 && text.front() == '0') text.erase(0, 1);
    text += ',';
    Text result{};
    std::ranges::copy(text, result.begin());
    return result;
}

char* NumberTexts::writeWhole(char* to, std::uint32_t bits) {
    const std::uint32_t number = bits - static_cast<std::uint32_t>(NumberCode::wholeNumber);
    char* const end = std::to_chars(to, to + room, number).ptr;
    *end = ',';
    return end + 1;
}

std::string quickNumber(double value) {
    const NumberCode code = numberCode(value);
    if (code == NumberCode::plainWay) return reportNumber(value);
    std::array<char, NumberTexts::room> text;
    const char* const end = NumberTexts::all().write(text.data(), code);
    return {text.data(), static_cast<std::size_t>(end - text.data()) - 1};
}

} // namespace korvel
