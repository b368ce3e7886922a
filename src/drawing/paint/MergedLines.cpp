#include "drawing/paint/MergedLines.h"

#include <algorithm>
#include <tuple>

namespace korvel {

namespace {

// A stretch of a vertical or a horizontal line: `at` across it, from `begin` to `end` along it.
struct Stretch {
    int at = 0;
    int begin = 0;
    int end = 0;
};

std::vector<Stretch> joined(std::vector<Stretch> stretches) {
    std::sort(stretches.begin(), stretches.end(), [](const Stretch& a, const Stretch& b) {
        return std::tie(a.at, a.begin) < std::tie(b.at, b.begin);
    });
    std::vector<Stretch> result;
    for (const Stretch& stretch : stretches) {
        if (!result.empty() && result.back().at == stretch.at && stretch.begin <= result.back().end)
            result.back().end = std::max(result.back().end, stretch.end);
        else
            result.push_back(stretch);
    }
    return result;
}

} // namespace

std::vector<QLine> mergedLines(const std::vector<QLine>& lines) {
    std::vector<QLine> merged;
    std::vector<Stretch> vertical, horizontal;
    for (const QLine& line : lines) {
        if (line.dx() == 0)
            vertical.push_back({line.x1(), std::min(line.y1(), line.y2()), std::max(line.y1(), line.y2())});
        else if (line.dy() == 0)
            horizontal.push_back({line.y1(), std::min(line.x1(), line.x2()), std::max(line.x1(), line.x2())});
        else
            merged.push_back(line);
    }
    for (const Stretch& stretch : joined(std::move(vertical)))
        merged.emplace_back(stretch.at, stretch.begin, stretch.at, stretch.end);
    for (const Stretch& stretch : joined(std::move(horizontal)))
        merged.emplace_back(stretch.begin, stretch.at, stretch.end, stretch.at);
    return merged;
}

} // namespace korvel
