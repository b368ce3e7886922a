#include "commands/Commands.h"

#include "commands/CommandLine.h"
#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace korvel {

namespace {

struct Called {
    int status;
    std::string out;
    std::string errors;
};

Called call(const std::vector<std::string>& arguments) {
    FakePlatform fake;
    std::ostringstream out, errors;
    const int status = runCommand(arguments, fake.platform(), out, errors);
    return {status, out.str(), errors.str()};
}

using Kind = CommandOption::Kind;

CommandLine parsed(const std::vector<std::string>& arguments) {
    return CommandLine(arguments, {{"--output", Kind::withValue}, {"--json", Kind::flag}});
}

std::string usageErrorOf(const std::vector<std::string>& arguments) {
    try {
        parsed(arguments);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "";
}

} // namespace

TEST(Commands, PrintTheirHelp) {
    const Called called = call({"--help"});
    EXPECT_EQ(called.status, 0);
    EXPECT_NE(called.out.find("  info "), std::string::npos);
    EXPECT_EQ(called.errors, "");
}

TEST(Commands, PrintTheVersion) {
    EXPECT_EQ(call({"--version"}).out, "korvel 1.0.0\n");
}

TEST(Commands, FailWhereTheirOutputCannotBeWritten) {
    FakePlatform fake;
    for (const char* option : {"--version", "--help"}) {
        std::ofstream full("/dev/full");
        std::ostringstream errors;
        EXPECT_EQ(runCommand({option}, fake.platform(), full, errors), 1);
        EXPECT_EQ(errors.str(), "[critical] : Run-time error '57': The output can't be written\n");
    }
}

TEST(Commands, ABatchTitleIsOneLine) {
    const Called called = call({"batch", "--title", "a\r\nZ:\\", "x.dat"});
    EXPECT_EQ(called.status, 2);
    EXPECT_NE(called.errors.find("the title is longer than a line"), std::string::npos);
}

TEST(Commands, PrintTheHelpOfOne) {
    const Called called = call({"info", "--help"});
    EXPECT_EQ(called.status, 0);
    EXPECT_EQ(called.out.find("Usage: korvel info FILE.SGR"), 0u);
}

TEST(Commands, AnswerWrongUsageWithOneLineAndStatus2) {
    const struct {
        std::vector<std::string> arguments;
        const char* line;
    } cases[] = {
        {{}, "korvel: no command given (read 'korvel --help')\n"},
        {{"fly"}, "korvel: no command 'fly' (read 'korvel --help')\n"},
        {{"--fly"}, "korvel: unknown option '--fly' (read 'korvel --help')\n"},
        {{"info"}, "korvel info: no results file given (read 'korvel info --help')\n"},
        {{"info", "a", "b"},
         "korvel info: more than one results file given: 'b' (read 'korvel info --help')\n"},
        {{"info", "a", "--fly"}, "korvel info: unknown option '--fly' (read 'korvel info --help')\n"},
        {{"info", "a", "--against"},
         "korvel info: option '--against' needs a value (read 'korvel info --help')\n"},
        {{"info", "a", "--json=1"},
         "korvel info: option '--json' takes no value (read 'korvel info --help')\n"},
        {{"--application-folder"},
         "korvel: option '--application-folder' needs a value (read 'korvel --help')\n"},
        {{"--graphs", "info"},
         "korvel: option '--graphs' is for the windows, not for 'info' (read 'korvel --help')\n"},
        {{"--graphs", "S.korvel-study"},
         "korvel: option '--graphs' is for the windows, not for 'explore' (read 'korvel --help')\n"},
    };
    for (const auto& [arguments, line] : cases) {
        const Called called = call(arguments);
        EXPECT_EQ(called.status, 2) << line;
        EXPECT_EQ(called.errors, line);
        EXPECT_EQ(called.out, "");
    }
}

TEST(Commands, TakeTheApplicationFolderBeforeTheCommand) {
    EXPECT_EQ(call({"--application-folder", "/tmp", "--version"}).status, 0);
    EXPECT_EQ(takeProgramOptions({"--application-folder", "/x", "a.sgr"}).applicationFolder, "/x");
    EXPECT_EQ(takeProgramOptions({"--application-folder=/x", "a.sgr"}).applicationFolder, "/x");
    EXPECT_EQ(takeProgramOptions({"--application-folder=/x", "a.sgr"}).rest,
              std::vector<std::string>{"a.sgr"});
    EXPECT_EQ(takeProgramOptions({"a.sgr"}).applicationFolder, std::nullopt);
}

TEST(Commands, TakeTheWishForGraphsBeforeTheFile) {
    using Words = std::vector<std::string>;
    const std::vector<std::pair<Words, Words>> cases = {
        {{"--graphs"}, {}},
        {{"--graphs", "a.sgr"}, {"a.sgr"}},
        {{"--graphs", "--application-folder", "f", "a.sgr"}, {"a.sgr"}},
        {{"--application-folder", "f", "--graphs"}, {}},
    };
    for (const auto& [arguments, rest] : cases) {
        EXPECT_TRUE(takeProgramOptions(arguments).opensGraphs) << arguments.front();
        EXPECT_EQ(takeProgramOptions(arguments).rest, rest) << arguments.front();
    }
    EXPECT_FALSE(takeProgramOptions({"a.sgr"}).opensGraphs);
    EXPECT_EQ(takeProgramOptions({"a.sgr", "--graphs"}).rest, (Words{"a.sgr", "--graphs"}));
}

TEST(Commands, LeaveAStudyToTheExplorer) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(takeProgramOptions({"river.korvel-study"}).rest, (Words{"explore", "river.korvel-study"}));
    EXPECT_EQ(takeProgramOptions({"--application-folder", "f", "R.KORVEL-STUDY"}).rest,
              (Words{"explore", "R.KORVEL-STUDY"}));
    EXPECT_EQ(takeProgramOptions({"river.sgr"}).rest, (Words{"river.sgr"}));
}

TEST(Commands, LeaveFilesToTheWindows) {
    EXPECT_TRUE(isForCommands({"info"}));
    EXPECT_TRUE(isForCommands({"--help"}));
    EXPECT_FALSE(isForCommands({"info.sgr"}));
    EXPECT_FALSE(isForCommands({}));
}

TEST(CommandLine, KeepsOptionsInTheirOrder) {
    const CommandLine line = parsed({"--output", "a", "file", "--json", "--output=b=c", "--", "--json"});
    EXPECT_EQ(line.operands(), (std::vector<std::string>{"file", "--json"}));
    ASSERT_EQ(line.given().size(), 3u);
    EXPECT_EQ(line.given()[0].value, "a");
    EXPECT_EQ(line.given()[1].name, "--json");
    EXPECT_EQ(line.given()[2].value, "b=c");
    EXPECT_EQ(line.value("--output"), "b=c");
    EXPECT_TRUE(line.has("--json"));
    EXPECT_FALSE(parsed({"-"}).has("--json"));
    EXPECT_EQ(parsed({}).value("--output"), std::nullopt);
}

TEST(CommandLine, RefusesWhatItDoesNotKnow) {
    EXPECT_EQ(usageErrorOf({"-x"}), "unknown option '-x'");
    EXPECT_EQ(usageErrorOf({"--outpu=1"}), "unknown option '--outpu'");
    EXPECT_EQ(usageErrorOf({"--output"}), "option '--output' needs a value");
    EXPECT_EQ(usageErrorOf({"--json=yes"}), "option '--json' takes no value");
}

TEST(CommandLine, MakesModelNamesOfWhatIsTyped) {
    EXPECT_EQ(modelNameOfTyped("/no/such/./folder/../a.sgr"), "Z:\\no\\such\\a.sgr");
    EXPECT_TRUE(modelNameOfTyped("a.sgr").ends_with("\\a.sgr"));
    EXPECT_TRUE(modelNameOfTyped("a.sgr").starts_with("Z:\\"));
    EXPECT_EQ(modelNameOfTyped(""), "");
    EXPECT_THROW(modelNameOfTyped("a\\b.sgr"), RefusedName);
}

TEST(ConsoleDialogs, WriteAMessageInOneLine) {
    EXPECT_EQ(consoleLine({"One\r\ntwo\n\nthree", "Title", Icon::question, Buttons::ok}),
              "[question] Title: One two three");
    EXPECT_EQ(consoleLine({RunTimeError(53).message(), "", Icon::critical, Buttons::ok}),
              "[critical] : Run-time error '53': File not found");
    EXPECT_EQ(consoleLine({"\xC9tang", "", Icon::information, Buttons::ok}), "[information] : \xC3\x89tang");
}

TEST(ConsoleDialogs, AskNothing) {
    std::ostringstream errors;
    ConsoleDialogs dialogs(errors);
    EXPECT_EQ(dialogs.show({"Go on?", "Batch", Icon::question, Buttons::yesNo}), Answer::no);
    EXPECT_EQ(dialogs.show({"Done.", "Batch", Icon::information, Buttons::ok}), Answer::ok);
    EXPECT_FALSE(dialogs.chooseFile(FileDialogKind::open, {}).has_value());
    EXPECT_EQ(errors.str(), "[question] Batch: Go on?\n[information] Batch: Done.\n");
    EXPECT_EQ(dialogs.takeMessages().size(), 2u);
    EXPECT_TRUE(dialogs.takeMessages().empty());
}

} // namespace korvel
