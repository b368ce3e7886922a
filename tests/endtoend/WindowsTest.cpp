// The real windows: start, the main job, the engine's window, and the ends.
#include "endtoend/WindowsFixture.h"

#include <algorithm>
#include <csignal>
#include <filesystem>

namespace korvel {

namespace {

const char* const plottedBlue = "#0000FF"; // colour 9 of the palette

class StartAndEnd : public WindowsFixture {};
class MainJob : public WindowsFixture {};
class EngineWindow : public WindowsFixture {};

bool isOnScreen(const Frame& frame) {
    return frame.left >= 0 && frame.top >= 0 && frame.left + frame.width <= Desktop::width &&
           frame.top + frame.height <= Desktop::height && frame.width > 0 && frame.height > 0;
}

} // namespace

TEST_F(StartAndEnd, WithoutSettingsTheProgramEndsWithTheRunTimesMessage) {
    std::filesystem::remove(korvel.application("MISC.TXT"));
    startWithoutWaiting();
    const ShownWindow missing = messageBox();
    EXPECT_EQ(screen.windows().size(), 1u) << "nothing but the message is shown";
    const std::string pictureOfMissing = screen.pictureOf(missing);
    screen.press({"Return"});
    EXPECT_EQ(waitForEnd(), 1);

    // Another failure shows other words.
    write(korvel.application("MISC.TXT"), "Z:\\\r\nabc\r\nFalse\r\n");
    startWithoutWaiting();
    EXPECT_NE(screen.pictureOf(messageBox()), pictureOfMissing);
    screen.press({"Return"});
    EXPECT_EQ(waitForEnd(), 1);
}

TEST_F(StartAndEnd, ExitEndsTheProgram) {
    startKorvel();
    EXPECT_TRUE(designTitle.starts_with("KORVEL 1.0.0 ... ")) << designTitle;
    screen.press({"alt+e"});
    EXPECT_EQ(waitForEnd(), 0);
    EXPECT_TRUE(screen.windows().empty());
}

TEST_F(StartAndEnd, TheTitleBarsButtonEndsTheProgram) {
    startKorvel();
    screen.closeFront();
    EXPECT_EQ(waitForEnd(), 0);
}

TEST_F(StartAndEnd, AResultsFileIsOpenedInTheSetUpForm) {
    korvel.putResults("ALDER.SGR");
    startWithoutWaiting({"ALDER.SGR"});
    screen.front(setUpTitle);
    EXPECT_EQ(screen.windows().size(), 2u) << "the main form is there too";
    chooseWholeRiver();
    const ShownWindow graph = plot();
    EXPECT_TRUE(waitFor([&] { return screen.pixelsOf(graph, plottedBlue) > 1000; }));
}

TEST_F(StartAndEnd, AMissingResultsFileIsTheReadersMessage) {
    startWithoutWaiting({"NOWHERE.SGR"});
    screen.front("Error");
    screen.press({"Return"});
    screen.front(setUpTitle);
    EXPECT_TRUE(running());
}

TEST_F(StartAndEnd, EveryFormFitsTheScreenWithItsFrame) {
    korvel.putResults("ALDER.SGR");
    korvel.putEngine("wait_for end\n");
    korvel.putSample("ALDER.DAT");
    const auto fits = [this](const ShownWindow& window) {
        const bool settled =
            waitFor([&] { return isOnScreen(screen.frameOf(window)); }, std::chrono::seconds(5));
        const Frame frame = screen.frameOf(window);
        EXPECT_TRUE(settled) << window.title << ": " << frame.width << "x" << frame.height << " at "
                             << frame.left << "," << frame.top;
        EXPECT_GT(frame.width, Desktop::width * 9 / 10) << window.title;
        EXPECT_GT(frame.height, Desktop::height * 9 / 10) << window.title;
    };
    startKorvel();
    fits(screen.front(designTitle));
    chooseRun(0, "ALDER.DAT");
    fits(screen.front(engineTitle()));
    screen.front("KORVEL");
    fits(openSetUp());
    chooseWholeRiver();
    fits(plot());
}

TEST_F(MainJob, LeadsFromARunToItsGraph) {
    korvel.putSample("ALDER.DAT");
    startKorvel();
    chooseRun(0, "ALDER.DAT");
    const ShownWindow engine = waitForEngine("Finished");
    EXPECT_EQ(contentOf(korvel.application("RUNDAT.TMP")), korvel.runControlFor("ALDER.DAT", 0));
    EXPECT_GT(contentOf(korvel.data("ALDER.SGR")).size(), 100000u);
    screen.press({"alt+c"});
    EXPECT_TRUE(screen.waitUntilGone(engine));

    screen.front("KORVEL");
    const ShownWindow setUp = openSetUp();
    chooseWholeRiver();
    const ShownWindow graph = plot();
    EXPECT_TRUE(waitFor([&] { return screen.pixelsOf(graph, plottedBlue) > 1000; }));

    screen.press({"alt+e"});
    EXPECT_TRUE(screen.waitUntilGone(graph));
    screen.front(setUpTitle);
    screen.press({"alt+e"});
    EXPECT_TRUE(screen.waitUntilGone(setUp));
    screen.front("KORVEL");
    screen.press({"alt+e"});
    EXPECT_EQ(waitForEnd(), 0);
}

TEST_F(MainJob, ShowsASecondDisplayMode) {
    korvel.putResults("ALDER.SGR");
    startWithoutWaiting({"ALDER.SGR"});
    screen.front(setUpTitle);
    // Past the first mode's controls: the determinand, then three reaches.
    screen.press({"Tab", "Tab", "Tab", "Down", "Down", "Tab", "Home", "shift+Down", "shift+Down"});
    const ShownWindow graph = plot();
    EXPECT_TRUE(waitFor([&] { return screen.pixelsOf(graph, plottedBlue) > 1000; }));
}

TEST_F(MainJob, PlotsNothingBeforeAChoice) {
    startKorvel();
    openSetUp();
    screen.press({"alt+p"});
    screen.front("Missing data");
    screen.press({"Return"});
    EXPECT_EQ(screen.countOf(setUpTitle), 1u);
    screen.front(setUpTitle);
}

TEST_F(MainJob, AnAbandonedChoiceStartsNothing) {
    startKorvel();
    openRunMenu();
    screen.press({"0"});
    screen.front(openTitle);
    screen.press({"Escape"});
    screen.front("KORVEL:  New Data");
    EXPECT_FALSE(std::filesystem::exists(korvel.application("RUNDAT.TMP")));
    EXPECT_EQ(screen.windows().size(), 1u);
}

TEST_F(EngineWindow, ASecondRunStartsWhileOneIsBusy) {
    korvel.putSample("ALDER.DAT");
    korvel.putSample("ALDER2.DAT");
    korvel.putEngine("wait_for end\n");
    startKorvel();
    chooseRun(0, "ALDER.DAT");
    screen.front(engineTitle());
    EXPECT_EQ(contentOf(korvel.application("RUNDAT.TMP")), korvel.runControlFor("ALDER.DAT", 0));
    screen.front("KORVEL");
    chooseRun(3, "ALDER2.DAT");
    screen.front(engineTitle("", "ALDER2.DAT", 3));
    EXPECT_EQ(contentOf(korvel.application("RUNDAT.TMP")), korvel.runControlFor("ALDER2.DAT", 3));
    korvel.release("end");
    EXPECT_TRUE(waitFor([&] {
        return screen.countOf(engineTitle("Finished")) == 1 &&
               screen.countOf(engineTitle("Finished", "ALDER2.DAT", 3)) == 1;
    }));
}

TEST_F(EngineWindow, OutlivesTheFrontEnd) {
    korvel.putSample("ALDER.DAT");
    korvel.putEngine("wait_for end\n");
    startKorvel();
    chooseRun(0, "ALDER.DAT");
    screen.front(engineTitle());
    screen.front("KORVEL");
    screen.press({"alt+e"});
    EXPECT_EQ(waitForEnd(), 0);
    EXPECT_EQ(screen.countOf(engineTitle()), 1u);
    korvel.release("end");
    waitForEngine("Finished");
}

TEST_F(EngineWindow, SaysThatTheEngineWasKilled) {
    korvel.putSample("ALDER.DAT");
    korvel.putEngine("kill -9 $$\n");
    startKorvel();
    chooseRun(0, "ALDER.DAT");
    waitForEngine("Failed (status 137)");
    EXPECT_TRUE(running());
}

TEST_F(EngineWindow, AsksBeforeItStopsTheEngine) {
    korvel.putSample("ALDER.DAT");
    korvel.putEngine("echo $$ > number\nwait_for end\n");
    startKorvel();
    chooseRun(0, "ALDER.DAT");
    const ShownWindow engine = screen.front(engineTitle());
    ASSERT_TRUE(waitFor([this] { return contentOf(korvel.application("number")).ends_with('\n'); }));
    const std::string process = "/proc/" + std::to_string(std::stoi(contentOf(korvel.application("number"))));
    screen.closeFront();
    screen.front("KORVEL", 2); // the main form has this title too
    screen.press({"alt+y"});
    EXPECT_TRUE(screen.waitUntilGone(engine));
    EXPECT_TRUE(waitFor([&] { return !std::filesystem::exists(process); }));
}

TEST_F(EngineWindow, AMissingEngineEndsTheProgram) {
    korvel.putSample("ALDER.DAT");
    std::filesystem::remove(korvel.application("korvelf157.exe"));
    startKorvel();
    chooseRun(0, "ALDER.DAT");
    messageBox();
    screen.press({"Return"});
    EXPECT_EQ(waitForEnd(), 1);
}

TEST_F(EngineWindow, EndsTheEngineWhenItIsAskedToEnd) {
    korvel.putEngine("echo $$ > number\nwait_for end\n");
    BackgroundProgram window(korvel.korvel({"--engine-window", "0", "Z:\\DATA\\ALDER.DAT"}),
                             {"", screen.settings()});
    screen.front(engineTitle());
    ASSERT_TRUE(waitFor([this] { return contentOf(korvel.application("number")).ends_with('\n'); }));
    const std::string process = "/proc/" + std::to_string(std::stoi(contentOf(korvel.application("number"))));
    kill(window.id(), SIGTERM);
    EXPECT_EQ(window.waitForEnd(), 128 + SIGTERM);
    EXPECT_TRUE(waitFor([&] { return !std::filesystem::exists(process); }));
}

TEST_F(EngineWindow, IsMaximisedAlsoOnABusyMachine) {
    korvel.putEngine("wait_for end\n");
    std::vector<std::unique_ptr<BackgroundProgram>> windows;
    constexpr std::size_t atOnce = 6;
    for (std::size_t k = 0; k < atOnce; ++k)
        windows.push_back(std::make_unique<BackgroundProgram>(
            korvel.korvel({"--engine-window", "0", "Z:\\DATA\\ALDER.DAT"}),
            Surroundings{"", screen.settings()}));
    ASSERT_TRUE(waitFor([&] { return screen.countOf(engineTitle()) == atOnce; }));
    const auto isMaximised = [&](const ShownWindow& window) {
        return screen.frameOf(window).width >= Desktop::width;
    };
    EXPECT_TRUE(waitFor([&] { return std::ranges::all_of(screen.windows(), isMaximised); }));
}

} // namespace korvel
