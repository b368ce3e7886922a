#include "endtoend/Desktop.h"

#include <sstream>
#include <stdexcept>

namespace korvel {

namespace {

std::string describe(const std::vector<ShownWindow>& windows) {
    std::string text;
    for (const ShownWindow& window : windows)
        text += " '" + window.title + "'";
    return text.empty() ? " none" : text;
}

int numberBehind(const std::string& text, const std::string& words) {
    const auto found = text.find(words);
    if (found == std::string::npos) throw std::runtime_error("no '" + words + "' in: " + text);
    return std::stoi(text.substr(found + words.size()));
}

std::string withoutLineEnd(std::string text) {
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

} // namespace

Desktop::Desktop() {
    startServer();
    startManager();
}

// The server takes a free display and writes its number. It must not start anew when its first client goes.
void Desktop::startServer() {
    const std::string screen = std::to_string(width) + "x" + std::to_string(height) + "x24";
    const std::string number = m_home.path("display");
    const std::string command =
        "exec Xvfb -displayfd 3 -screen 0 " + screen + " -noreset -nolisten tcp 3>'" + number + "'";
    m_server = std::make_unique<BackgroundProgram>(std::vector<std::string>{"sh", "-c", command},
                                                   Surroundings{m_home.path(), {}});
    if (!waitFor([&] { return contentOf(number).ends_with('\n'); }))
        throw std::runtime_error("Xvfb does not start");
    m_display = "DISPLAY=:" + withoutLineEnd(contentOf(number));
}

void Desktop::startManager() {
    m_manager = std::make_unique<BackgroundProgram>(std::vector<std::string>{"openbox", "--sm-disable"},
                                                    Surroundings{m_home.path(), settings()});
    const auto answers = [this] {
        return ask({"xprop", "-root", "_NET_CLIENT_LIST"}).find("window id") != std::string::npos;
    };
    if (!waitFor(answers)) throw std::runtime_error("openbox does not start");
}

std::string Desktop::ask(const std::vector<std::string>& command) const {
    return runProgram(command, {m_home.path(), settings()}).out;
}

std::string Desktop::titleOf(const std::string& id) const {
    return withoutLineEnd(ask({"xdotool", "getwindowname", id}));
}

std::vector<ShownWindow> Desktop::windows() const {
    std::string list = ask({"xprop", "-root", "_NET_CLIENT_LIST"});
    for (char& letter : list) {
        if (letter == ',') letter = ' ';
    }
    std::vector<ShownWindow> found;
    std::istringstream words(list);
    for (std::string word; words >> word;) {
        if (word.starts_with("0x")) found.push_back({word, titleOf(word)});
    }
    return found;
}

std::size_t Desktop::countOf(const std::string& title) const {
    std::size_t count = 0;
    for (const ShownWindow& window : windows())
        count += window.title == title ? 1 : 0;
    return count;
}

bool Desktop::isFront(const ShownWindow& window) const {
    const std::string active = ask({"xprop", "-root", "_NET_ACTIVE_WINDOW"});
    return withoutLineEnd(active).ends_with("# " + window.id);
}

ShownWindow Desktop::front(const std::string& title, std::size_t howMany) const {
    ShownWindow last;
    const auto isThere = [&] {
        std::size_t count = 0;
        for (const ShownWindow& window : windows()) {
            if (window.title != title) continue;
            last = window;
            ++count;
        }
        return count >= howMany;
    };
    if (!waitFor(isThere))
        throw std::runtime_error("no window '" + title + "'; there are:" + describe(windows()));
    const auto isInFront = [&] {
        if (isFront(last)) return true;
        ask({"xdotool", "windowactivate", last.id});
        return false;
    };
    if (!waitFor(isInFront)) throw std::runtime_error("'" + title + "' does not come to the front");
    return last;
}

bool Desktop::waitUntilGone(const ShownWindow& window) const {
    return waitFor([&] {
        for (const ShownWindow& shown : windows()) {
            if (shown.id == window.id) return false;
        }
        return true;
    });
}

void Desktop::press(const std::vector<std::string>& keys) const {
    std::vector<std::string> command = {"xdotool", "key", "--delay", "40"};
    command.insert(command.end(), keys.begin(), keys.end());
    ask(command);
}

void Desktop::type(const std::string& text) const {
    ask({"xdotool", "type", "--delay", "20", text});
}

void Desktop::closeFront() const {
    press({"alt+F4"});
}

Frame Desktop::frameOf(const ShownWindow& window) const {
    const std::string told = ask({"xwininfo", "-frame", "-id", window.id});
    return {numberBehind(told, "Absolute upper-left X:"), numberBehind(told, "Absolute upper-left Y:"),
            numberBehind(told, "Width:"), numberBehind(told, "Height:")};
}

int Desktop::pixelsOf(const ShownWindow& window, const std::string& colour) const {
    const std::string picture = m_home.path("window.png");
    ask({"import", "-window", window.id, picture});
    return std::stoi(ask({"convert", picture, "-fill", "black", "+opaque", colour, "-fill", "white",
                          "-opaque", colour, "-format", "%[fx:round(mean*w*h)]", "info:"}));
}

std::string Desktop::pictureOf(const ShownWindow& window) const {
    const std::string picture = m_home.path("window.png");
    ask({"import", "-window", window.id, picture});
    return ask({"identify", "-format", "%#", picture});
}

void Desktop::savePicture(const std::string& file) const {
    ask({"import", "-window", "root", file});
}

} // namespace korvel
