#include "publish/PagePicture.h"

#include <algorithm>
#include <utility>

namespace korvel {

namespace {

std::vector<std::pair<Rgb, Rgb>> themedColours(std::size_t runs) {
    const PanelLook light = panelLook(Theme::light), dark = panelLook(Theme::dark);
    std::vector<std::pair<Rgb, Rgb>> pairs;
    const auto add = [&](const Rgb& ofLight, const Rgb& ofDark) {
        const bool isKnown =
            std::ranges::any_of(pairs, [&](const auto& pair) { return pair.first == ofLight; });
        if (!isKnown) pairs.emplace_back(ofLight, ofDark);
    };
    for (const auto part : {&PanelLook::grid, &PanelLook::axis, &PanelLook::text, &PanelLook::quietText,
                            &PanelLook::accent, &PanelLook::pass, &PanelLook::unsure, &PanelLook::fail,
                            &PanelLook::target, &PanelLook::plot, &PanelLook::background})
        add(light.*part, dark.*part);
    for (std::size_t run = 0; run < runs; ++run)
        add(runStyle(run, Theme::light).colour, runStyle(run, Theme::dark).colour);
    return pairs;
}

std::string runRules(std::size_t runs, Theme theme) {
    std::string rules;
    for (std::size_t run = 0; run < runs; ++run) {
        const RunStyle style = runStyle(run, theme);
        const std::string dashes = dashesOf(style.dash), number = std::to_string(run);
        rules += ".line.run-" + number + "{stroke:" + hexOf(style.colour) +
                 (dashes.empty() ? "" : ";stroke-dasharray:" + dashes) + "}\n.band.run-" + number +
                 "{stroke:none;fill:" + hexOf(style.colour) + "}\n";
    }
    return rules;
}

} // namespace

std::string pictureStyle(std::size_t runs) {
    std::string style = runRules(runs, Theme::light);
    style += "@media screen and (prefers-color-scheme:dark){\n" + runRules(runs, Theme::dark);
    for (const auto& [light, dark] : themedColours(runs)) {
        style += ".picture [stroke=\"" + hexOf(light) + "\"]{stroke:" + hexOf(dark) + "}\n";
        style += ".picture [fill=\"" + hexOf(light) + "\"]{fill:" + hexOf(dark) + "}\n";
    }
    return style + "}\n";
}

} // namespace korvel
