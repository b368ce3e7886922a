#include "platform/Guide.h"

namespace korvel {

std::vector<std::string> guidePlaces(const std::string& programFolder) {
    return {programFolder + "/../../share/doc/korvel/guide.html", programFolder + "/../guide/guide.html"};
}

std::vector<std::string> samplesPlaces(const std::string& programFolder) {
    return {programFolder + "/../../share/doc/korvel/examples", programFolder + "/../../../samples"};
}

void OpenGuide(Platform& platform) {
    const std::string guide = platform.machine.guideFile();
    if (guide.empty())
        platform.dialogs.show(
            {"The guide is not installed with this program. Its chapters lie in docs/guide of the sources.",
             "Guide", Icon::information, Buttons::ok});
    else if (!platform.machine.openGuide(guide))
        platform.dialogs.show({"There is no program to show the guide with. Open it in a browser: " + guide,
                               "Guide", Icon::information, Buttons::ok});
}

} // namespace korvel
