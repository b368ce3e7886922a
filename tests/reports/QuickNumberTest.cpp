#include "reports/QuickNumber.h"

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "fakes/Rounds.h"
#include "reports/ReportNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace korvel {

namespace {

// Both ways must agree; counts how often the quick one needed no help.
class BothWays {
  public:
    void compare(double value) {
        ++m_count;
        if (numberCode(value) != NumberCode::plainWay) ++m_quick;
        const std::string plain = reportNumber(value);
        if (quickNumber(value) == plain) return;
        ADD_FAILURE() << shortestNumber(value) << " became " << quickNumber(value) << ", not " << plain;
    }
    void compareAround(double value) {
        for (const double target : {-1e300, 1e300}) {
            double near = value;
            for (int step = 0; step < 4; ++step, near = std::nextafter(near, target))
                compare(near);
        }
    }
    double quickShare() const { return m_quick / m_count; }

  private:
    double m_count = 0;
    double m_quick = 0;
};

} // namespace

TEST(QuickNumber, AgreesOnEveryNumberOfItsTexts) {
    BothWays both;
    for (int decimals = 0; decimals <= 7; ++decimals)
        for (int number = 0; number <= 10100; ++number)
            both.compare(number / std::pow(10.0, decimals));
    EXPECT_EQ(both.quickShare(), 1);
}

TEST(QuickNumber, LeavesNegativeHugeAndNonsenseToThePlainWay) {
    using Limits = std::numeric_limits<double>;
    for (const double value : {-0.0, -1e-9, -5.0, -1e300, 99999998.0, 1e15, 1e300, Limits::infinity(),
                               -Limits::infinity(), Limits::quiet_NaN()})
        EXPECT_EQ(numberCode(value), NumberCode::plainWay) << value;
    for (const double value : {0.0, Limits::denorm_min(), 0.0009, 9999.5, 99999997.0})
        EXPECT_NE(numberCode(value), NumberCode::plainWay) << value;
    EXPECT_THROW(quickNumber(Limits::infinity()), RunTimeError);
}

TEST(QuickNumber, AgreesOnValuesOfEverySize) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> exponent(-12, 10);
    BothWays both;
    for (int k = 0; k < roundsOf(300000); ++k)
        both.compare(std::pow(10.0, exponent(random)));
    EXPECT_GT(both.quickShare(), 0.8);
}

TEST(QuickNumber, AgreesOnDecimalsAndTheirNeighbours) {
    std::mt19937_64 random(12);
    BothWays both;
    for (int k = 0; k < roundsOf(60000); ++k)
        both.compareAround(static_cast<double>(random() % 100000000) / std::pow(10.0, random() % 9));
    EXPECT_GT(both.quickShare(), 0.9);
}

TEST(QuickNumber, AgreesOnHalvesAndWhatIsNearThem) {
    BothWays both;
    for (int decimals = 0; decimals < 8; ++decimals)
        for (int k = 0; k < roundsOf(3000); ++k) {
            const double half = (k + 0.5) / std::pow(10.0, decimals);
            both.compareAround(half);
            for (const double part : {3e-16, 5e-16, 1e-15, 3e-15, 5e-15, 1e-14, 1e-13, 1e-12})
                for (const double sign : {-1.0, 1.0})
                    both.compare(half * (1 + sign * part));
        }
    EXPECT_GT(both.quickShare(), 0.4);
}

TEST(QuickNumber, AgreesAtTheBoundsAndTheEndsOfTheRange) {
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

} // namespace korvel
