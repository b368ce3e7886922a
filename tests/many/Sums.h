#pragma once

#include "basic/Sha256.h"

#include <string>
#include <string_view>

namespace korvel {

inline std::string sha256Of(std::string_view bytes) {
    Sha256 sum;
    sum.add(bytes);
    return sum.hex();
}

} // namespace korvel
