#include "explore/window/RunLoading.h"

#include <utility>

namespace korvel {

namespace {

constexpr int betweenLooks = 15; // milliseconds

} // namespace

RunLoading::RunLoading(Files& files, Handlers& handlers) : m_files(files) {
    m_tick.setInterval(betweenLooks);
    QObject::connect(&m_tick, &QTimer::timeout, handlers.guarded([this] { look(); }));
}

void RunLoading::load(std::vector<std::string> files, Loaded loaded) {
    m_orders.push_back({std::move(files), std::move(loaded)});
    if (!m_reading) begin();
}

void RunLoading::begin() {
    m_reading = std::make_unique<RunReading>(m_files, m_orders.front().files);
    m_tick.start();
}

void RunLoading::look() {
    if (!m_reading->isDone()) {
        if (onProgress) onProgress(m_reading->share());
        return;
    }
    m_tick.stop();
    std::vector<ReadRun> runs = std::exchange(m_reading, nullptr)->take();
    const Order order = std::move(m_orders.front());
    m_orders.erase(m_orders.begin());
    if (!m_orders.empty()) begin();
    order.loaded(order.files, std::move(runs));
}

void RunLoading::cancel() {
    m_tick.stop();
    m_orders.clear();
    m_reading.reset();
}

} // namespace korvel
