// The statistic of a series that is looked at.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace korvel {

enum class Statistic { mean, p90, p95, p99 };

inline constexpr std::array allStatistics = {Statistic::mean, Statistic::p90, Statistic::p95, Statistic::p99};

// "mean", "90", "95", "99"
constexpr std::string_view nameOf(Statistic statistic) {
    constexpr std::array<std::string_view, 4> names = {"mean", "90", "95", "99"};
    return names[static_cast<std::size_t>(statistic)];
}

constexpr std::optional<Statistic> statisticNamed(std::string_view name) {
    for (Statistic statistic : allStatistics)
        if (nameOf(statistic) == name) return statistic;
    return std::nullopt;
}

} // namespace korvel
