// How much of a text fits.
#pragma once

#include <cstddef>

namespace korvel {

// The largest number of characters below `tooMany` that fits, where `least` does, or is taken all the same;
// what fits does so with fewer of them, too.
template <typename Fits>
std::size_t mostFitting(std::size_t least, std::size_t tooMany, Fits fits) {
    while (tooMany > least + 1) {
        const std::size_t middle = (least + tooMany) / 2;
        (fits(middle) ? least : tooMany) = middle;
    }
    return least;
}

} // namespace korvel
