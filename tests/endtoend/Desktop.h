// A screen that nobody looks at, with a window manager: windows are found by their titles, driven by keys,
// and their pictures looked at.
#pragma once

#include "endtoend/Process.h"
#include "endtoend/TestFolder.h"

#include <memory>
#include <string>
#include <vector>

namespace korvel {

struct ShownWindow {
    std::string id;
    std::string title;
};

struct Frame { // pixels, title bar and borders included
    int left = 0, top = 0, width = 0, height = 0;
};

class Desktop {
  public:
    static constexpr int width = 1366;
    static constexpr int height = 768;

    Desktop();

    // Settings of a program that is to show its windows here.
    std::vector<std::string> settings() const { return {m_display, "HOME=" + m_home.path()}; }

    std::vector<ShownWindow> windows() const; // in the order in which they were shown
    std::size_t countOf(const std::string& title) const;

    // Waits for the window, the last one where several have this title, and for the keys to go to it.
    ShownWindow front(const std::string& title, std::size_t howMany = 1) const;
    bool waitUntilGone(const ShownWindow& window) const;

    void press(const std::vector<std::string>& keys) const;
    void type(const std::string& text) const;
    void closeFront() const; // as the button of the title bar does

    Frame frameOf(const ShownWindow& window) const;
    int pixelsOf(const ShownWindow& window, const std::string& colour) const;
    std::string pictureOf(const ShownWindow& window) const; // the same text for the same picture
    void savePicture(const std::string& file) const;

  private:
    std::string ask(const std::vector<std::string>& command) const;
    std::string titleOf(const std::string& id) const;
    bool isFront(const ShownWindow& window) const;
    void startServer();
    void startManager();

    TestFolder m_home;
    std::string m_display; // "DISPLAY=:n"
    std::unique_ptr<BackgroundProgram> m_server, m_manager;
};

} // namespace korvel
