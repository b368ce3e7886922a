// Help pages: the first byte chooses the page, the others are its file.
#include "basic/Text.h"
#include "fuzz/Fuzzing.h"
#include "help/HelpPage.h"

namespace korvel {

namespace {

constexpr const char* pages[] = {"4", "5", "6", "7", "8", "9", "10", "11"};

struct Page {
    int failure = 0;
    std::vector<std::string> rows;
    bool operator==(const Page&) const = default;
};

Page pageIn(ByteSource&& file, const HelpPageLayout& layout) {
    Page page;
    page.failure = failureOf({errors::inputPastEndOfFile}, [&] { page.rows = helpPageRows(file, layout); });
    return page;
}

Page plainPage(const std::string& text, const HelpPageLayout& layout) {
    const std::vector<std::string> lines = plainLines(text);
    const auto skipped = static_cast<std::size_t>(layout.headerLines);
    if (lines.size() < skipped) return {errors::inputPastEndOfFile, {}};
    Page page{0, {lines.begin() + layout.headerLines, lines.end()}};
    if (!layout.showsLastLine && !page.rows.empty()) page.rows.pop_back();
    return page;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const HelpPageLayout layout = helpPageLayout(pages[data[0] % std::size(pages)]);
    const std::string text = textOf(data + 1, size - 1);
    const Page page = pageIn(TextSource(text), layout);
    require(page == plainPage(text, layout), "a page shows the file's lines but for those left out");
    require(page == pageIn(ShortReads(text, 3), layout), "a file may come in any pieces");
    for (const std::string& row : page.rows)
        utf8Characters(shownUtf8(row));
    return 0;
}

} // namespace korvel
