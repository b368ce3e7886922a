// How the runs of a study are named.
#pragma once

#include <string>
#include <vector>

namespace korvel {

// Of each file its name without the folder; where several have the same, each with so much of its path as no
// other file's ends with. The same file again gets " (2)", then " (3)". Paths are model names; the names have
// strokes where the host's paths have.
std::vector<std::string> runNames(const std::vector<std::string>& files);

} // namespace korvel
