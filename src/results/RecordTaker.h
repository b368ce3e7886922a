// What the reader does with the records that it meets: the first data set keeps them, the second checks them.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvel {

struct DeterminandLine {
    int type = 0;
    std::string_view name;
    int statistic = 0;
};

struct ReachLine {
    int number = 0;
    std::string_view name; // 16 characters, blanks included; less from a short line
    double length = 0;
    int next = 0;
};

struct PointLine {
    int reach = 0;
    double distance = 0;
    std::string_view label;
    int featureType = 0;
};

// Why a load is abandoned: the words for the user.
using Refusal = std::optional<std::string>;

class RecordTaker {
  public:
    virtual ~RecordTaker() = default;
    virtual void title(std::string_view line) = 0;
    // A warning for the user; reading goes on.
    virtual std::optional<std::string> percentileMode(int mode) = 0;
    virtual Refusal determinandCount(int count) = 0;
    virtual Refusal determinand(int number, const DeterminandLine& line) = 0;
    virtual void determinandsEnd() {}
    virtual Refusal reachCount(int count) = 0;
    virtual Refusal reach(const ReachLine& line) = 0;
    virtual void pointsBegin() {}
    virtual Refusal point(int index, const PointLine& line) = 0;
    // All values of the point are read; `values` are in the file's order.
    virtual void pointEnd(int index, std::span<const double> values) = 0;
    // The last point has been read, or reading has failed or was refused before that.
    virtual void pointsEnd() {}
};

} // namespace korvel
