// Results files read beside the window's own life: it hears how far they are and gets the runs at the end.
#pragma once

#include "study/RunFile.h"
#include "toolkit/forms/Handlers.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace korvel {

class RunLoading {
  public:
    using Loaded =
        std::function<void(const std::vector<std::string>& files, const std::vector<ReadRun>& runs)>;

    RunLoading(Files& files, Handlers& handlers);

    std::function<void(double share)> onProgress; // 0 to 1

    // One set of files after the other.
    void load(std::vector<std::string> files, Loaded loaded);
    bool isLoading() const { return m_reading != nullptr; }
    // What is being read and what waits is dropped; nothing more is heard of it.
    void cancel();

  private:
    struct Order {
        std::vector<std::string> files;
        Loaded loaded;
    };

    void begin();
    void look();

    Files& m_files;
    QTimer m_tick;
    std::vector<Order> m_orders; // the first is being read
    std::unique_ptr<RunReading> m_reading;
};

} // namespace korvel
