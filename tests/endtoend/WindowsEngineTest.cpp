// An engine that is a Windows program, run through Wine by the command and in the engine's window.
#include "endtoend/Desktop.h"
#include "endtoend/Installation.h"

#include <cmath>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <thread>

namespace korvel {

namespace fs = std::filesystem;

namespace {

// Wine's own folder for these tests, made by the first of them.
const TestFolder& prefix() {
    static const TestFolder folder;
    return folder;
}

bool isInstalled(const std::string& program) {
    return runProgram({"sh", "-c", "command -v " + program}).status == 0;
}

class WindowsEngine : public testing::Test {
  protected:
    void SetUp() override {
        if (!fs::exists(KORVEL_WINDOWS_ENGINE))
            GTEST_SKIP() << "no compiler for Windows programs is installed";
        if (!isInstalled("wine")) GTEST_SKIP() << "wine is not installed";
        fs::remove(korvel.application("korvelf157.exe"));
        fs::copy_file(KORVEL_WINDOWS_ENGINE, korvel.application("korvelf157.exe"));
    }
    static std::vector<std::string> settings() {
        return {"WINEPREFIX=" + prefix().path(".wine"), "LC_ALL=C.UTF-8"};
    }
    Outcome runKorvel(const std::vector<std::string>& arguments) const {
        return runProgram(korvel.korvel(arguments), {"", settings()}, std::chrono::minutes(3));
    }
    // The same file again and again.
    static void putLongBatch(const Installation& installation) {
        installation.putSample("ALDER.DAT");
        const std::string run = installation.runControlFor("ALDER.DAT", 0);
        std::string batch = "Long\r\n";
        for (int k = 0; k < 200; ++k)
            batch += run.substr(run.find('\n') + 1);
        write(installation.application("RUNDAT.TMP"), batch);
    }
    std::string native(const std::string& file) const {
        const Installation other;
        other.putResults(file);
        return contentOf(other.data(file));
    }

    const Installation korvel;
};

// One unit of the number's last digit.
double lastUnit(const std::string& number) {
    const std::size_t exponent = std::min(number.find_first_of("eE"), number.size());
    const std::size_t point = std::min(number.find('.'), exponent);
    const double unit = point < exponent ? std::pow(10.0, -static_cast<double>(exponent - point - 1)) : 1;
    return exponent < number.size() ? unit * std::pow(10.0, std::stod(number.substr(exponent + 1))) : unit;
}

bool areAlike(const std::string& word, const std::string& other) {
    if (word == other) return true;
    char *end = nullptr, *otherEnd = nullptr;
    const double value = std::strtod(word.c_str(), &end), otherValue = std::strtod(other.c_str(), &otherEnd);
    if (*end != '\0' || *otherEnd != '\0') return false;
    return std::abs(value - otherValue) <= 1.001 * std::max(lastUnit(word), lastUnit(other));
}

// The first words that differ by more than a unit of the last digit; "" where none do.
std::string difference(const std::string& text, const std::string& other) {
    std::istringstream words(text), otherWords(other);
    std::string word, otherWord;
    while (words >> word) {
        if (!(otherWords >> otherWord)) return word + " and the end";
        if (!areAlike(word, otherWord)) return word + " and " + otherWord;
    }
    return otherWords >> otherWord ? "the end and " + otherWord : "";
}

} // namespace

TEST_F(WindowsEngine, WritesWhatTheNativeOneWrites) {
    korvel.putSample("ALDER.DAT");
    const Outcome outcome = runKorvel({"run", korvel.data("ALDER.DAT"), "--wait"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.out.find("Finished."), std::string::npos) << outcome.out;
    for (const std::string ending : {"SGR", "OUT", "LOD", "SUM"})
        EXPECT_EQ(difference(contentOf(korvel.data("ALDER." + ending)), native("ALDER." + ending)), "")
            << ending;
    EXPECT_EQ(std::distance(fs::directory_iterator(korvel.dataFolder()), fs::directory_iterator()), 6);
}

// So that the engine's window does not warn of letters outside a code page.
TEST_F(WindowsEngine, DeclaresThatItsNamesAreUtf8) {
    EXPECT_NE(contentOf(KORVEL_WINDOWS_ENGINE).find(">UTF-8</activeCodePage>"), std::string::npos);
}

TEST_F(WindowsEngine, RunsABatchOfNamesWithBlanksMixedCaseAndAccents) {
    std::vector<std::string> arguments = {"batch", "--wait"};
    for (const char* name : {"Upper and lower.dat", "\xC3\x89tang No 2.Dat"}) {
        korvel.putSample("ALDER.DAT");
        fs::rename(korvel.data("ALDER.DAT"), korvel.data(name));
        arguments.push_back(korvel.data(name));
    }
    const Outcome outcome = runKorvel(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.out << outcome.err;
    for (const char* name : {"UPPER AND LOWER.SGR", "\xC3\x89TANG NO 2.SGR"})
        EXPECT_EQ(difference(contentOf(korvel.data(name)), native("ALDER.SGR")), "") << name;
}

TEST_F(WindowsEngine, FailsWithItsStatusAndItsWords) {
    write(korvel.data("A.DAT"), "no catchment");
    const Outcome outcome = runKorvel({"run", korvel.data("A.DAT"), "--wait"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.out.find("ERROR: A.DAT"), std::string::npos) << outcome.out;
}

TEST_F(WindowsEngine, IsStoppedAloneAmongTheUsersWindowsPrograms) {
    const Installation others;
    fs::remove(others.application("korvelf157.exe"));
    fs::copy_file(KORVEL_WINDOWS_ENGINE, others.application("korvelf157.exe"));
    const Desktop screen;
    Surroundings surroundings{others.application(""), screen.settings()};
    for (const std::string& setting : settings())
        surroundings.settings.push_back(setting);
    putLongBatch(korvel);
    putLongBatch(others);
    BackgroundProgram other({"wine", others.application("korvelf157.exe")}, surroundings);
    BackgroundProgram window(korvel.korvel({"--engine-window"}), surroundings);
    screen.front("KORVEL model run");
    ASSERT_TRUE(waitFor([&] { return fs::exists(korvel.data("ALDER.SGR")); }));
    kill(window.id(), SIGTERM);
    EXPECT_EQ(window.waitForEnd(), 128 + SIGTERM);
    const auto kept = fs::last_write_time(korvel.data("ALDER.SGR"));
    std::this_thread::sleep_for(std::chrono::seconds(3));
    EXPECT_EQ(fs::last_write_time(korvel.data("ALDER.SGR")), kept) << "the engine has ended";
    EXPECT_TRUE(other.running());
}

} // namespace korvel
