#include "platform/Machine.h"

namespace korvel {

namespace {

std::string padded(int number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

} // namespace

std::string dayMonthYear(const Date& date) {
    return padded(date.day, 2) + '/' + padded(date.month, 2) + '/' + padded(date.year, 4);
}

} // namespace korvel
