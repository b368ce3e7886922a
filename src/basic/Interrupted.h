// System calls that a signal may interrupt.
#pragma once

#include <cerrno>

namespace korvel {

// What the call returns, -1 with errno set where it fails; called again where a signal came in between.
template <typename Call>
auto untilNotInterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace korvel
