#include "results/PointLabels.h"

#include "basic/Text.h"

namespace korvel {

std::string labelInFile(std::string_view field) {
    return withoutLast(field, 3);
}

PointLabel makePointLabel(std::string_view label, const std::function<std::string()>& reachName) {
    PointLabel made{trim(label), ""};
    for (const char* side : {"U/S", "D/S"}) {
        if (!beginsWith(made.text, side)) continue;
        made = {trim(std::string_view(made.text).substr(3)), side};
        break;
    }
    const std::string lower = lowerCase(std::string_view(made.text).substr(0, 14));
    if (beginsWith(lower, "end of reach"))
        made.text = "End of reach " + trim(reachName());
    else if (lower == "start of reach")
        made.text = "Start of reach " + trim(reachName());
    return made;
}

} // namespace korvel
