// The rows of the table that ./bench prints.
#pragma once

#include "Contest.h"

#include <cstdio>
#include <string>

namespace korvel {

inline std::string milliseconds(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f ms", seconds * 1e3);
    return text;
}

inline std::string megabytes(double bytes) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f MB", bytes / 1e6);
    return text;
}

struct Row {
    std::string job;
    std::string ours;
    std::string yardstick;
    std::string theirs;
    std::string ratio;
    std::string ratioByClock;
    std::string target;
    bool missed = false;
};

inline void print(const Row& row) {
    std::printf("| %-49s | %9s | %-26s | %9s | %6s | %6s | %9s | %-6s |\n", row.job.c_str(), row.ours.c_str(),
                row.yardstick.c_str(), row.theirs.c_str(), row.ratio.c_str(), row.ratioByClock.c_str(),
                row.target.c_str(), row.missed ? "missed" : "");
    std::fflush(stdout);
}

inline std::string twoDecimals(double ratio) {
    char text[32];
    std::snprintf(text, sizeof text, ratio < 0.2 ? "%.3f" : "%.2f", ratio);
    return text;
}

inline std::string atMost(double target) {
    char text[32];
    std::snprintf(text, sizeof text, "<= %g", target);
    return text;
}

// The first way of the contest is ours. The target holds for processor time.
inline void printTimes(const std::string& job, const std::string& yardstick, const Contest& contest,
                       std::size_t yardstickWay, double target) {
    const Cost ratio = contest.ratio(0, yardstickWay);
    print({job, milliseconds(contest.medianOf(0).processor), yardstick,
           milliseconds(contest.medianOf(yardstickWay).processor), twoDecimals(ratio.processor),
           twoDecimals(ratio.clock), atMost(target), ratio.processor > target});
}

// Sizes, in bytes, of which ours is to be at most `target` times the other.
inline void printSizes(const std::string& job, double ours, const std::string& yardstick, double theirs,
                       double target) {
    print({job, megabytes(ours), yardstick, megabytes(theirs), twoDecimals(ours / theirs), "", atMost(target),
           ours / theirs > target});
}

// A quantity with a bound of its own, in bytes.
inline void printBound(const std::string& job, double ours, const std::string& bound, double limit) {
    print(
        {job, megabytes(ours), bound, megabytes(limit), twoDecimals(ours / limit), "", "<= 1", ours > limit});
}

// The same in seconds.
inline void printTimeBound(const std::string& job, double ours, const std::string& bound, double limit) {
    print({job, milliseconds(ours), bound, milliseconds(limit), twoDecimals(ours / limit), "", "<= 1",
           ours > limit});
}

} // namespace korvel
