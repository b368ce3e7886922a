// What results hold of a series at a point: the mean and the percentiles, each with its confidence limits and
// its observed value, and what they are called wherever they are read, asked for or shown. A further
// statistic is an entry of the enumeration and a row of the table: reader, reports, commands and their help
// follow.
#pragma once

#include "basic/Text.h"
#include "results/ValueField.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

// In the order of files, columns and lists.
enum class Statistic { mean, p90, p95, p99 };

struct StatisticFacts {
    ValueField value, limit1, limit2, observed;
    int level = 0;          // of these fields
    std::string_view name;  // on the command line and in JSON
    const char* caption;    // over a column of a report
    const char* columnName; // in a table for other programs
};

namespace statistics {

using enum ValueField;

constexpr StatisticFacts mean(std::string_view name, const char* caption, const char* columnName) {
    return {meanValue, meanLimit1, meanLimit2, observedMean, 0, name, caption, columnName};
}
constexpr StatisticFacts percentile(int level, std::string_view name, const char* caption,
                                    const char* columnName) {
    return {percentileValues, percentileLimit1, percentileLimit2, observedPercentiles, level, name,
            caption,          columnName};
}

inline constexpr std::array table{
    mean("mean", "Mean", "mean"),
    percentile(0, "90", "90%-ile", "p90"),
    percentile(1, "95", "95%-ile", "p95"),
    percentile(2, "99", "99%-ile", "p99"),
};
inline constexpr auto percentiles = std::span(table).subspan<1>(); // by level
inline constexpr int levels = static_cast<int>(percentiles.size());

constexpr auto allOfTable() {
    std::array<Statistic, table.size()> all{};
    for (std::size_t row = 0; row < table.size(); ++row)
        all[row] = static_cast<Statistic>(row);
    return all;
}

inline std::vector<std::string> namesOf(std::span<const StatisticFacts> some) {
    std::vector<std::string> names;
    for (const StatisticFacts& each : some)
        names.emplace_back(each.name);
    return names;
}

} // namespace statistics

inline constexpr auto allStatistics = statistics::allOfTable();

constexpr const StatisticFacts& factsOf(Statistic statistic) {
    return statistics::table[static_cast<std::size_t>(statistic)];
}
constexpr std::string_view nameOf(Statistic statistic) {
    return factsOf(statistic).name;
}
constexpr std::optional<Statistic> statisticNamed(std::string_view name) {
    const auto found = std::ranges::find(allStatistics, name, [](Statistic each) { return nameOf(each); });
    return found == allStatistics.end() ? std::nullopt : std::optional(*found);
}
// Level 0, 1, 2: the 90, 95 and 99 percentile.
constexpr Statistic percentileOfLevel(int level) {
    return static_cast<Statistic>(static_cast<int>(Statistic::p90) + level);
}
// A file's percentile mode: 2 and 3 stand for the 90 and 99 percentile, what is below for the 95.
constexpr std::optional<Statistic> percentileOfMode(int mode) {
    if (mode > 3) return std::nullopt;
    return mode == 2 ? Statistic::p90 : mode == 3 ? Statistic::p99 : Statistic::p95;
}

// What a determinand's standard is set for, by the code in its line of the file; none for the other codes.
constexpr std::optional<Statistic> statisticOfStandard(int code) {
    switch (code) {
    case 1: return Statistic::mean;
    case 2: return Statistic::p95;
    case 3: return Statistic::p90;
    case 6: return Statistic::p99;
    default: return std::nullopt;
    }
}

// "mean", "95 percentile"
inline std::string wordsOf(Statistic statistic) {
    return statistic == Statistic::mean ? "mean" : std::string(nameOf(statistic)) + " percentile";
}

// "mean, 90, 95 or 99", and the levels alone.
inline std::string statisticChoice() {
    return inWords(statistics::namesOf(statistics::table), "or");
}
inline std::string levelChoice() {
    return inWords(statistics::namesOf(statistics::percentiles), "or");
}

// "mean,90,95,99": how a list of them is typed.
inline std::string statisticNames() {
    std::string names;
    for (const Statistic each : allStatistics)
        (names += names.empty() ? "" : ",") += nameOf(each);
    return names;
}

// The fields by the names under which they are shown as they are held: one value a series, and one a series
// and level.
struct FieldName {
    ValueField field;
    const char* name;
};
inline constexpr std::array<FieldName, 5> plainFieldNames = {{{ValueField::meanValue, "meanValue"},
                                                              {ValueField::meanLimit1, "meanLimit1"},
                                                              {ValueField::meanLimit2, "meanLimit2"},
                                                              {ValueField::observedMean, "observedMean"},
                                                              {ValueField::targetValue, "targetValue"}}};
inline constexpr std::array<FieldName, 4> percentileFieldNames = {
    {{ValueField::percentileValues, "percentileValues"},
     {ValueField::percentileLimit1, "percentileLimit1"},
     {ValueField::percentileLimit2, "percentileLimit2"},
     {ValueField::observedPercentiles, "observedPercentiles"}}};

} // namespace korvel
