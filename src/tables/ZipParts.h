// How large the parts of a zip file are, as its directory tells.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace korvel {

// By name; nothing of a file that is none. `descriptor`: open for reading.
std::map<std::string, std::uint64_t> zipPartSizes(int descriptor);

} // namespace korvel
