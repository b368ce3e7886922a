#include "drawing/paint/MergedLines.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

using Lines = std::vector<QLine>;

struct Case {
    const char* what;
    Lines lines;
    Lines merged;
};

} // namespace

TEST(MergedLines, JoinsWhatGoesOn) {
    const Case cases[] = {
        {"nothing", {}, {}},
        {"touching", {{5, 0, 5, 10}, {5, 10, 5, 20}}, {{5, 0, 5, 20}}},
        {"in any order and direction", {{5, 20, 5, 10}, {5, 0, 5, 10}}, {{5, 0, 5, 20}}},
        {"overlapping", {{0, 7, 9, 7}, {3, 7, 5, 7}, {8, 7, 12, 7}}, {{0, 7, 12, 7}}},
        {"the same", {{5, 0, 5, 10}, {5, 0, 5, 10}}, {{5, 0, 5, 10}}},
        {"apart", {{5, 0, 5, 10}, {5, 11, 5, 20}}, {{5, 0, 5, 10}, {5, 11, 5, 20}}},
        {"side by side", {{5, 0, 5, 10}, {6, 10, 6, 20}}, {{5, 0, 5, 10}, {6, 10, 6, 20}}},
        {"a corner", {{0, 0, 0, 9}, {0, 9, 9, 9}}, {{0, 0, 0, 9}, {0, 9, 9, 9}}},
        {"a slope", {{0, 0, 5, 5}, {5, 5, 9, 9}}, {{0, 0, 5, 5}, {5, 5, 9, 9}}},
        {"a point on a line", {{5, 0, 5, 10}, {5, 4, 5, 4}}, {{5, 0, 5, 10}}},
    };
    for (const Case& one : cases)
        EXPECT_EQ(mergedLines(one.lines), one.merged) << one.what;
}

} // namespace korvel
