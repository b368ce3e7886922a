#include "commands/TerminalText.h"

#include <gtest/gtest.h>

#include <sstream>
#include <unistd.h>

namespace korvel {

namespace {

std::string onTerminal(const std::string& text) {
    std::ostringstream terminal;
    TerminalText shown(*terminal.rdbuf());
    std::ostream(&shown) << text << std::flush;
    return terminal.str();
}

} // namespace

TEST(TerminalText, ShowsControlCharactersAsLetters) {
    const std::pair<std::string, std::string> texts[] = {{"\x1B]0;title\a", "^[]0;title^G"},
                                                         {std::string("a\0b", 3), "a^@b"},
                                                         {"\x7F\b\f", "^?^H^L"},
                                                         {"\xC2\x9B"
                                                          "2J",
                                                          "^[[2J"},
                                                         {"\x9B"
                                                          "2J",
                                                          "^[[2J"},
                                                         {"\xC2\x1B[2J", "\xC2^[[2J"}};
    for (const auto& [text, shown] : texts)
        EXPECT_EQ(onTerminal(text), shown);
}

TEST(TerminalText, LetsTextPass) {
    for (const std::string text :
         {"two\nlines\r\n\tand a tab\r", "Ch\xC3\xA9zy \xC2\xB5g/l",
          "\xE2\x80\x93 \xE2\x82\xAC \xF0\x9F\x90\x9F", "\xC3\x9B \xC5\x93", "a lone \xE9"})
        EXPECT_EQ(onTerminal(text), text);
}

TEST(TerminalText, LetsTheProgramsOwnColoursPassWhereItHasSome) {
    std::ostringstream terminal;
    TerminalText shown(*terminal.rdbuf(), OwnControls::coloursAndProgress);
    std::ostream(&shown) << "\033[32mpass\033[0m \r\033[K\033[2J\033]0;title\a\033\033[1m" << std::flush;
    EXPECT_EQ(terminal.str(), "\033[32mpass\033[0m \r\033[K^[[2J^[]0;title^G^[^[[1m");
}

TEST(TerminalText, LeavesPipesAsTheyAre) {
    std::ostringstream stream;
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    {
        const OnTerminal shown(stream, ends[1]);
        stream << "\x1B[2J";
    }
    EXPECT_EQ(stream.str(), "\x1B[2J");
}

} // namespace korvel
