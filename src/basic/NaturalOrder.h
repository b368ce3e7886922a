// Names in the order in which people count: runs of digits by their number, so that FILE2 comes before
// FILE10.
#pragma once

#include <string_view>

namespace korvel {

bool comesBefore(std::string_view name, std::string_view other);

} // namespace korvel
