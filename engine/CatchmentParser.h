// From the text of a data file to a catchment, or to what is wrong with it. A pure function of any bytes.
#pragma once

#include "engine/Catchment.h"
#include "engine/DataRow.h"

#include <string_view>
#include <variant>

namespace korvel::engine {

inline constexpr std::string_view dataFileMark = "DEMONSTRATION RIVER DATA";

std::variant<Catchment, DataError> parseCatchment(std::string_view text);

} // namespace korvel::engine
