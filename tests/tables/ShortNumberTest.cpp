#include "tables/ShortNumber.h"

#include "basic/Numbers.h"
#include "fakes/Rounds.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace korvel {

namespace {

std::string shortest(double value) {
    char text[longestNumber];
    return {text, writeShortest(text, value)};
}

void expectAsTheGeneralOne(double value) {
    for (const double each : {value, -value, std::nextafter(value, 0), std::nextafter(value, 1e300)})
        EXPECT_EQ(shortest(each), shortestNumber(each));
}

} // namespace

TEST(ShortNumber, IsWhatTheGeneralFormatterGives) {
    for (const double value : {0.0,         1.0,        0.1,         0.25,           0.001,
                               0.0009,      0.00100001, 0.123456789, 999.999999,     1000.0,
                               1000.000001, 1001.01,    70070.07,    99999.999999,   9.0,
                               10.0,        99999.0,    100000.0,    99999.99999999, 12345.678,
                               1e-8,        5e-324,     1e23,        1e300,          0.30000000000000004,
                               20000.0,     0.3,        4.7,         21.8467,        0.0426})
        expectAsTheGeneralOne(value);
}

TEST(ShortNumber, IsThatForRandomDecimalsAndRandomBits) {
    std::mt19937_64 random(7);
    for (int round = 0; round < 100000; ++round) {
        const double digits = static_cast<double>(random() % 10000000000);
        expectAsTheGeneralOne(digits / std::pow(10, static_cast<double>(random() % 13)));
        const double bits = std::bit_cast<double>(random());
        if (!std::isfinite(bits)) continue;
        EXPECT_EQ(shortest(bits), shortestNumber(bits));
    }
}

} // namespace korvel
