// The words of options that take lists.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korvel {

// Parted by commas, without the blanks around them.
std::vector<std::string> partsOf(const std::string& list);

// Nothing for text that is not wholly a number from 0 up.
std::optional<int> wholeNumber(const std::string& text);

// "all", "none", or numbers and ranges: 1,2,5-9. One entry a reach, in the order of the results; UsageError
// where they lack a reach.
std::vector<bool> reachesNamed(const std::string& list, const std::vector<int>& reachOrder);

// Takes a list's first entry off it: a name, which may hold commas, or the position of one, counted from
// `firstPosition`. UsageError with `what` in words where it is neither.
std::size_t takeNamed(const std::vector<std::string>& names, std::string& list, int firstPosition,
                      const std::string& what);

} // namespace korvel
