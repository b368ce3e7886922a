// Several ways to do one job, measured in turn in one run: the medians of their costs, and of the ratios of
// the costs of one turn.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <functional>
#include <vector>

namespace korvel {

struct Cost { // seconds
    double clock = 0;
    double processor = 0; // of user and kernel together; other programs on the machine count less in it
};

inline double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// Of work that this process does.
inline Cost costOf(const std::function<void()>& work) {
    const auto clock = std::chrono::steady_clock::now();
    const double processor = processorSeconds();
    work();
    const double used = processorSeconds() - processor;
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - clock).count(), used};
}

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

class Contest {
  public:
    using Way = std::function<Cost()>;

    // Each way once before, not counted: it warms the memory and the caches.
    Contest(int rounds, const std::vector<Way>& ways) : m_costs(ways.size()) {
        for (const Way& way : ways)
            way();
        for (int round = 0; round < rounds; ++round)
            for (std::size_t k = 0; k < ways.size(); ++k)
                m_costs[k].push_back(ways[k]());
    }

    Cost medianOf(std::size_t way) const {
        return {medianBy(way, &Cost::clock), medianBy(way, &Cost::processor)};
    }

    // What `way` costs, in units of what `yardstick` costs.
    Cost ratio(std::size_t way, std::size_t yardstick) const {
        return {ratioBy(way, yardstick, &Cost::clock), ratioBy(way, yardstick, &Cost::processor)};
    }

  private:
    double medianBy(std::size_t way, double Cost::*part) const {
        std::vector<double> values;
        for (const Cost& cost : m_costs[way])
            values.push_back(cost.*part);
        return median(values);
    }
    double ratioBy(std::size_t way, std::size_t yardstick, double Cost::*part) const {
        std::vector<double> ratios;
        for (std::size_t round = 0; round < m_costs[way].size(); ++round)
            ratios.push_back(m_costs[way][round].*part / (m_costs[yardstick][round].*part));
        return median(ratios);
    }

    std::vector<std::vector<Cost>> m_costs; // by way and round
};

} // namespace korvel
