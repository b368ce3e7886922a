#include "panels/RangePyramid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace korvel {

TEST(RangePyramid, FindsWhatAPlainWalkFinds) {
    std::mt19937 random(7);
    for (const std::size_t size : {1, 7, 8, 9, 63, 64, 65, 511, 512, 513, 5000}) {
        std::vector<double> numbers(size);
        for (double& number : numbers)
            number = std::uniform_real_distribution(-5.0, 5.0)(random);
        const RangePyramid pyramid(numbers);
        for (int round = 0; round < 400; ++round) {
            std::size_t begin = random() % size, end = random() % size;
            if (begin > end) std::swap(begin, end);
            const auto [low, high] =
                std::minmax_element(numbers.begin() + static_cast<std::ptrdiff_t>(begin),
                                    numbers.begin() + static_cast<std::ptrdiff_t>(end) + 1);
            ASSERT_EQ(pyramid.range(numbers, begin, end + 1), (NumberRange{*low, *high}))
                << size << ' ' << begin << ' ' << end;
            for (const double number : {*low, *high}) {
                const auto first = std::find(numbers.begin() + static_cast<std::ptrdiff_t>(begin),
                                             numbers.begin() + static_cast<std::ptrdiff_t>(end) + 1, number);
                ASSERT_EQ(pyramid.find(numbers, begin, end + 1, number),
                          static_cast<std::size_t>(first - numbers.begin()));
            }
        }
    }
}

} // namespace korvel
