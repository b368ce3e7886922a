// How a feature's label is shown: its side of the point apart, reach boundaries with the reach's name.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace korvel {

// The label as a results file holds it, less its last three characters. They are dropped always: the engine
// ends every label with three characters that are not part of the name.
std::string labelInFile(std::string_view field);

struct PointLabel {
    std::string text;
    std::string side; // "U/S", "D/S" or ""
    bool operator==(const PointLabel&) const = default;
};

// `reachName` is asked only where the label names its reach.
PointLabel makePointLabel(std::string_view label, const std::function<std::string()>& reachName);

} // namespace korvel
