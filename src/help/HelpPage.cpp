#include "help/HelpPage.h"

#include "basic/ListInput.h"
#include "basic/ModelName.h"

#include <algorithm>

namespace korvel {

namespace {

struct KnownPage {
    const char* page;
    int headerLines;
};
constexpr KnownPage knownPages[] = {{"4", 3}, {"5", 6}, {"6", 4}, {"7", 4}, {"8", 4}, {"9", 4}, {"10", 4}};

std::string pathOfPage(Platform& platform, std::string_view page) {
    return inFolder(platform.machine.applicationFolder(), helpPageFile(page));
}

} // namespace

HelpPageLayout helpPageLayout(std::string_view page) {
    for (const KnownPage& known : knownPages)
        if (page == known.page) return {known.headerLines, false};
    return {};
}

std::string helpPageFile(std::string_view page) {
    return "KORDAT" + std::string(page) + ".TXT";
}

std::vector<std::string> helpPageRows(ByteSource& file, const HelpPageLayout& layout) {
    ListInput lines(file);
    for (int skipped = 0; skipped < layout.headerLines; ++skipped)
        lines.line();
    std::vector<std::string> rows;
    while (lines.hasLine())
        rows.emplace_back(lines.line());
    // Kept so: the last line of these pages is never shown.
    if (!layout.showsLastLine && !rows.empty()) rows.pop_back();
    return rows;
}

std::vector<std::string> readHelpPage(Platform& platform, std::string_view page) {
    const std::unique_ptr<ByteSource> file = platform.files.open(pathOfPage(platform, page));
    return helpPageRows(*file, helpPageLayout(page));
}

std::vector<std::string> helpPagesThere(Platform& platform) {
    std::vector<std::string> there;
    for (const KnownPage& known : knownPages)
        if (platform.files.exists(pathOfPage(platform, known.page))) there.emplace_back(known.page);
    return there;
}

std::string turnedPage(const std::vector<std::string>& pagesThere, const std::string& page, PageTurn turn) {
    const auto place = std::ranges::find(pagesThere, page);
    if (place == pagesThere.end()) return pagesThere.empty() ? page : pagesThere.front();
    if (turn == PageTurn::back) return place == pagesThere.begin() ? page : *std::prev(place);
    return std::next(place) == pagesThere.end() ? page : *std::next(place);
}

} // namespace korvel
