#include "basic/NaturalOrder.h"

#include "basic/FieldCharacters.h"

#include <algorithm>
#include <compare>

namespace korvel {

namespace {

// Takes the run of digits that the name begins with off it; without its leading zeros.
std::string_view takeNumber(std::string_view& name) {
    const auto end = std::min(name.find_first_not_of("0123456789"), name.size());
    std::string_view number = name.substr(0, end);
    name.remove_prefix(end);
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

std::strong_ordering byNumber(std::string_view& name, std::string_view& other) {
    const std::string_view number = takeNumber(name), otherNumber = takeNumber(other);
    if (number.size() != otherNumber.size()) return number.size() <=> otherNumber.size();
    return number <=> otherNumber;
}

std::strong_ordering byLetter(std::string_view& name, std::string_view& other) {
    const auto letter = static_cast<unsigned char>(name[0]),
               otherLetter = static_cast<unsigned char>(other[0]);
    name.remove_prefix(1);
    other.remove_prefix(1);
    return letter <=> otherLetter;
}

} // namespace

bool comesBefore(std::string_view name, std::string_view other) {
    std::string_view rest = name, otherRest = other;
    while (!rest.empty() && !otherRest.empty()) {
        const bool bothNumbers = isDigit(rest[0]) && isDigit(otherRest[0]);
        const auto order = bothNumbers ? byNumber(rest, otherRest) : byLetter(rest, otherRest);
        if (order != 0) return order < 0;
    }
    if (rest.empty() != otherRest.empty()) return rest.empty();
    return name < other; // the same but for leading zeros
}

} // namespace korvel
