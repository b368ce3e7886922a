#include "reports/ReportNumber.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

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

} // namespace korvel
