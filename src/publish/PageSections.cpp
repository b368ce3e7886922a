#include "publish/PageSections.h"

#include "publish/PageText.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

void openSection(PageHtml& html, const std::string& id, const std::string& heading) {
    html.open("section", {{"id", id}, {"aria-labelledby", id + "-h"}}).line();
    html.element("h2", heading, {{"id", id + "-h"}}).line();
}

void writeRunName(PageHtml& html, const PageStudy& study, std::size_t run) {
    html.open("span", {{"class", "run"}});
    html.open("svg", {{"class", "swatch"},
                      {"viewBox", "0 0 28 8"},
                      {"width", "28"},
                      {"height", "8"},
                      {"aria-hidden", "true"},
                      {"focusable", "false"}});
    html.element("path", "", {{"d", "M1 4H27"}, {"class", "line run-" + std::to_string(run)}}).close();
    html.name(study.runs()[run].run.name).close();
}

void writeNote(PageHtml& html, const std::string& words) {
    html.element("p", words, {{"class", "note"}}).line();
}

void writeBar(PageHtml& html, const std::vector<BarPart>& parts) {
    html.open("svg", {{"class", "bar"},
                      {"viewBox", "0 0 100 6"},
                      {"preserveAspectRatio", "none"},
                      {"aria-hidden", "true"},
                      {"focusable", "false"}});
    html.element("rect", "", {{"class", "track"}, {"width", "100"}, {"height", "6"}});
    double from = 0;
    for (const BarPart& part : parts) {
        const double width = 100 * std::clamp(part.share, 0.0, 1.0);
        if (width > 0)
            html.element("rect", "",
                         {{"class", part.kind},
                          {"x", shownDecimals(from, 1)},
                          {"width", shownDecimals(width, 1)},
                          {"height", "6"}});
        from += width;
    }
    html.closeLine();
}

} // namespace korvel
