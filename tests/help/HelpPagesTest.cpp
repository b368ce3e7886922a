// The pages that come with the program: their layout, and that what they say of the data file is true.
#include "help/HelpPage.h"

#include "engine/CatchmentParser.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace korvel {

namespace {

constexpr int firstPage = 4, lastPage = 10;
constexpr std::size_t shownWidth = 80; // characters that fit the viewer's column

std::string textOfPage(int page) {
    std::ifstream file(std::string(KORVEL_HELP_PAGES) + "/" + helpPageFile(std::to_string(page)),
                       std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> rowsOfPage(int page) {
    TextSource source(textOfPage(page));
    return helpPageRows(source, helpPageLayout(std::to_string(page)));
}

// Examples are indented by four blanks.
std::string examplesOfPage(int page) {
    std::string examples;
    for (const std::string& row : rowsOfPage(page))
        if (row.starts_with("    ") && !row.starts_with("     ")) examples += row + "\n";
    return examples;
}

} // namespace

TEST(HelpPages, EndEveryLineWithCarriageReturnAndLineFeed) {
    for (int page = firstPage; page <= lastPage; ++page) {
        const std::string text = textOfPage(page);
        ASSERT_TRUE(text.ends_with("\r\n")) << page;
        EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), std::count(text.begin(), text.end(), '\n'));
        for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1))
            EXPECT_EQ(text[at - 1], '\r') << page;
    }
}

TEST(HelpPages, BeginWithTheirHeadlineAndHideTheirEndMark) {
    const char* const headlines[] = {"THE DATA FILE, AND ITS SECTION [RUN]",
                                     "DETERMINANDS",
                                     "REACHES",
                                     "FEATURES",
                                     "FLOWS",
                                     "QUALITIES",
                                     "TARGETS"};
    for (int page = firstPage; page <= lastPage; ++page) {
        const std::vector<std::string> rows = rowsOfPage(page);
        ASSERT_GT(rows.size(), 10u) << page;
        EXPECT_EQ(rows.front(), headlines[page - firstPage]);
        EXPECT_TRUE(textOfPage(page).ends_with("\r\nEND OF PAGE " + std::to_string(page) + "\r\n"));
        for (const std::string& row : rows) {
            EXPECT_FALSE(row.starts_with("END OF PAGE")) << page;
            EXPECT_LE(row.size(), shownWidth) << row;
        }
    }
}

TEST(HelpPages, GiveExamplesThatTogetherAreADataFile) {
    std::string text;
    for (int page = firstPage; page <= lastPage; ++page) {
        EXPECT_NE(examplesOfPage(page), "") << page;
        text += examplesOfPage(page);
    }
    const auto parsed = engine::parseCatchment(text);
    const auto* error = std::get_if<engine::DataError>(&parsed);
    ASSERT_EQ(error, nullptr) << error->line << ": " << error->message << "\n" << text;
    const auto& catchment = std::get<engine::Catchment>(parsed);
    EXPECT_EQ(catchment.settings.title, "Small River, present day");
    EXPECT_EQ(catchment.determinands.size(), 2u);
    EXPECT_EQ(catchment.reaches.size(), 3u);
    EXPECT_EQ(catchment.features.size(), 5u);
    EXPECT_EQ(catchment.flows.size(), 5u);
    EXPECT_EQ(catchment.qualities.size(), 4u);
    EXPECT_EQ(catchment.targets.size(), 1u);
    EXPECT_EQ(catchment.observed.size(), 2u);
}

TEST(HelpPages, TellTheSectionsOfTheDataFileEachInAnExample) {
    std::string examples;
    for (int page = firstPage; page <= lastPage; ++page)
        examples += examplesOfPage(page);
    for (const char* section : {"[RUN]", "[DETERMINANDS]", "[REACHES]", "[FEATURES]", "[FLOWS]",
                                "[QUALITIES]", "[TARGETS]", "[OBSERVED]"})
        EXPECT_NE(examples.find("    " + std::string(section) + "\n"), std::string::npos) << section;
}

} // namespace korvel
