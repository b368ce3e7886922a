// The files last opened, the last one first.
#pragma once

#include <string>
#include <vector>

namespace korvel {

inline constexpr std::size_t MostRecentFiles = 10;

std::vector<std::string> withRecent(const std::vector<std::string>& files, const std::string& opened);

} // namespace korvel
