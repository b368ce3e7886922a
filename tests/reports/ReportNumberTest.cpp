#include "reports/ReportNumber.h"

#include "basic/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

// The fast way and the plain one must agree; counts how often the fast one gave an answer.
class BothWays {
  public:
    void compare(double value) {
        char room[reportNumberRoom];
        ++m_count;
        const char* const end = writeReportNumber(room, value);
        if (!end) return;
        ++m_fast;
        const std::string fast(room, static_cast<std::size_t>(end - room));
        if (fast == formatPattern(value, reportFormat(value))) return;
        ADD_FAILURE() << shortestNumber(value) << " became " << fast;
    }
    void compareAround(double value) {
        for (const double target : {-1e300, 1e300}) {
            double near = value;
            for (int step = 0; step < 4; ++step, near = std::nextafter(near, target))
                compare(near);
        }
    }
    double fastShare() const { return m_fast / m_count; }

  private:
    double m_count = 0;
    double m_fast = 0;
};

struct Shown {
    double value;
    const char* text;
};

} // namespace

class ReportNumber : public testing::TestWithParam<Shown> {};

TEST_P(ReportNumber, IsShownInTheFormatOfItsSize) {
    EXPECT_EQ(reportNumber(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Values, ReportNumber,
    testing::Values(Shown{1234.5, "1235"}, Shown{500, "500.0"}, Shown{50, "50.00"}, Shown{5, "5.000"},
                    Shown{0.5, "0.5000"}, Shown{0.05, "0.05000"}, Shown{0.005, "0.005000"},
                    Shown{0, "0.0000000"}, Shown{-0.0, "0.0000000"}, Shown{-5, "-5.0000000"},
                    Shown{-1234.5, "-1234.5000000"}, Shown{-1e-9, "0.0000000"}, Shown{1e-300, "0.0000000"},
                    Shown{123456789, "123456789"}, Shown{1234567890123, "1234567890123"},
                    Shown{99999999.5, "100000000"}, Shown{12.345, "12.35"}, Shown{1.0005, "1.001"},
                    Shown{0.12345, "0.1235"}, Shown{99.95, "100.0"}, Shown{9.995, "10.00"},
                    Shown{0.99995, "1.000"}));

class ReportNumberBounds : public testing::TestWithParam<std::pair<Shown, Shown>> {};

TEST_P(ReportNumberBounds, AreStrict) {
    EXPECT_EQ(reportNumber(GetParam().first.value), GetParam().first.text);
    EXPECT_EQ(reportNumber(GetParam().second.value), GetParam().second.text);
}

INSTANTIATE_TEST_SUITE_P(Bounds, ReportNumberBounds,
                         testing::Values(std::pair{Shown{999.9, "1000"}, Shown{999.89, "999.9"}},
                                         std::pair{Shown{99.9, "99.9"}, Shown{99.89, "99.89"}},
                                         std::pair{Shown{9.9, "9.90"}, Shown{9.899, "9.899"}},
                                         std::pair{Shown{0.9, "0.900"}, Shown{0.89999, "0.9000"}},
                                         std::pair{Shown{0.09, "0.0900"}, Shown{0.089999, "0.09000"}},
                                         std::pair{Shown{0.009, "0.00900"}, Shown{0.0089999, "0.009000"}},
                                         std::pair{Shown{0.0009, "0.000900"},
                                                   Shown{0.00089999, "0.0009000"}}));

TEST(ReportNumberFast, AgreesOnValuesOfEverySize) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> exponent(-12, 10);
    BothWays both;
    for (int k = 0; k < 300000; ++k)
        both.compare(std::pow(10.0, exponent(random)));
    EXPECT_GT(both.fastShare(), 0.8);
}

TEST(ReportNumberFast, AgreesOnDecimalsAndTheirNeighbours) {
    std::mt19937_64 random(12);
    BothWays both;
    for (int k = 0; k < 60000; ++k)
        both.compareAround(static_cast<double>(random() % 100000000) / std::pow(10.0, random() % 9));
    EXPECT_GT(both.fastShare(), 0.9);
}

TEST(ReportNumberFast, AgreesOnHalvesAndWhatIsNearThem) {
    BothWays both;
    for (int decimals = 0; decimals < 8; ++decimals)
        for (int k = 0; k < 3000; ++k) {
            const double half = (k + 0.5) / std::pow(10.0, decimals);
            both.compareAround(half);
            for (const double part : {3e-16, 5e-16, 1e-15, 3e-15, 5e-15, 1e-14, 1e-13, 1e-12})
                for (const double sign : {-1.0, 1.0})
                    both.compare(half * (1 + sign * part));
        }
    EXPECT_GT(both.fastShare(), 0.4);
}

TEST(ReportNumberFast, AgreesAtTheBoundsAndTheEndsOfTheRange) {
    using Limits = std::numeric_limits<double>;
    BothWays both;
    for (const double value : {999.9,
                               99.9,
                               9.9,
                               0.9,
                               0.09,
                               0.009,
                               0.0009,
                               0.0,
                               -0.0,
                               -0.0009,
                               -5.0,
                               1e8,
                               99999998.5,
                               99999999.4,
                               99999999.5,
                               9999.5,
                               10000.0,
                               Limits::min(),
                               Limits::denorm_min(),
                               Limits::max(),
                               -Limits::max()})
        both.compareAround(value);
}
