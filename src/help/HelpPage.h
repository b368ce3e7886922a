// A help page about a section of the input data file: a text file in the application folder, of which the
// lines at the top, and for the pages of a known layout the last one, are not shown.
#pragma once

#include "platform/Platform.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvel {

struct HelpPageLayout {
    int headerLines = 0; // not shown
    bool showsLastLine = true;
};
// Pages "4" to "10" have layouts of their own.
HelpPageLayout helpPageLayout(std::string_view page);

// "KORDAT7.TXT"
std::string helpPageFile(std::string_view page);

// The rows that a page shows. Error 62 where the file ends within the header.
std::vector<std::string> helpPageRows(ByteSource& file, const HelpPageLayout& layout);

// The rows of this page. Error 53 where it has no file.
std::vector<std::string> readHelpPage(Platform& platform, std::string_view page);

// The pages of known layouts that have a file, in order.
std::vector<std::string> helpPagesThere(Platform& platform);
// The next of the pages there in this direction; the page itself where there is none.
enum class PageTurn { back, forth };
std::string turnedPage(const std::vector<std::string>& pagesThere, const std::string& page, PageTurn turn);

} // namespace korvel
