#include "endtoend/WindowsFixture.h"

namespace korvel {

std::string engineTitle(const std::string& state, const std::string& dataFile, int runType) {
    return "KORVEL model run" + (state.empty() ? "" : ": " + state) + " - " + dataFile + ", run type " +
           std::to_string(runType);
}

// A picture of a test that failed is left in the build folder.
void WindowsFixture::TearDown() {
    if (HasFailure()) {
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        screen.savePicture(std::string(KORVEL_TESTED_FOLDER) + "/" + name + ".png");
    }
    m_program.reset();
}

void WindowsFixture::startWithoutWaiting(const std::vector<std::string>& arguments) {
    std::vector<std::string> settings = screen.settings();
    settings.insert(settings.end(), further.begin(), further.end());
    m_program = std::make_unique<BackgroundProgram>(korvel.korvel(arguments),
                                                    Surroundings{korvel.dataFolder(), settings});
}

void WindowsFixture::endKorvel() {
    m_program.reset();
    waitFor([this] {
        if (!screen.windows().empty()) screen.closeFront();
        return screen.windows().empty();
    });
}

void WindowsFixture::startKorvel(const std::vector<std::string>& arguments) {
    startWithoutWaiting(arguments);
    if (!waitFor([this] { return !screen.windows().empty(); }))
        throw std::runtime_error("no window is shown");
    designTitle = screen.windows().front().title;
    screen.front(designTitle);
}

// The letter R belongs to two items of the menu bar, which take turns; after another letter it is the first
// one's.
void WindowsFixture::openRunMenu() const {
    screen.press({"alt+o", "Escape", "Escape", "alt+r"});
}

void WindowsFixture::chooseRun(int runType, const std::string& dataFile) {
    openRunMenu();
    screen.press({std::to_string(runType)});
    const ShownWindow dialog = screen.front(openTitle);
    screen.type(dataFile);
    screen.press({"Return"});
    if (!screen.waitUntilGone(dialog)) throw std::runtime_error("the open dialog stays");
}

ShownWindow WindowsFixture::waitForEngine(const std::string& state) {
    return screen.front(engineTitle(state));
}

ShownWindow WindowsFixture::openSetUp() {
    screen.press({"alt+g"});
    return screen.front(setUpTitle);
}

// In the order of the tab key: upstream, downstream, determinands. Flow and the first two of them.
void WindowsFixture::chooseWholeRiver() {
    screen.press({"Down", "Tab", "End", "Tab", "Home", "shift+Down", "shift+Down"});
}

ShownWindow WindowsFixture::plot() {
    screen.press({"alt+p"});
    return screen.front(setUpTitle, 2);
}

} // namespace korvel
