#include "reports/ReportNumber.h"

#include "basic/Numbers.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr std::array<const char*, decimalBounds.size() + 1> formats{
    "########0", "######0.0", "#####0.00", "####0.000", "###0.0000", "##0.00000", "#0.000000", "0.0000000"};

} // namespace

const char* reportFormat(double value) {
    const auto decimals = std::ranges::count_if(decimalBounds, [&](double bound) { return value < bound; });
    return formats[static_cast<std::size_t>(decimals)];
}

std::string reportNumber(double value) {
    return formatPattern(value, reportFormat(value));
}

} // namespace korvel
