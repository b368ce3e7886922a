#include "reports/NumberCode.h"

namespace korvel {

namespace numbers {

// Half away from zero, judged on the value's first 15 digits: within 3e-16 of a half it is one in that
// decimal form too. Nearer to a half than `epsilon`, but not as near, the 16th digit might matter.
std::int32_t roundedNearHalf(double scaled) {
    const auto whole = static_cast<std::int32_t>(scaled);
    return std::fabs(scaled - whole - 0.5) <= 3e-16 * scaled ? whole + 1 : -1;
}

NumberCode rareCode(std::int32_t number, unsigned decimals) {
    if (number < 0) return NumberCode::plainWay;
    const auto digits = static_cast<std::uint32_t>(number);
    if (digits >= textsOfEachKind)
        return NumberCode{static_cast<std::uint32_t>(NumberCode::wholeNumber) + digits};
    // With one or two decimals a zero in the first place is left out.
    const bool missesZero = (decimals == 1 || decimals == 2) && digits < textsOfEachKind / 10;
    return NumberCode{formats[decimals].code + digits - (missesZero ? 1U << 20 : 0)};
}

} // namespace numbers

} // namespace korvel
