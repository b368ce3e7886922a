#include "basic/Numbers.h"

#include "basic/RunTimeError.h"
#include "fakes/Rounds.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <random>
#include <string>

namespace korvel {

namespace {

template <typename Call>
int errorOf(Call call) {
    try {
        call();
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Numbers, PrintFreelyWithBlanksAround) {
    EXPECT_EQ(freePrint(3), " 3 ");
    EXPECT_EQ(freePrint(0), " 0 ");
    EXPECT_EQ(freePrint(-12), "-12 ");
    EXPECT_EQ(withLeadingBlank(3), " 3");
    EXPECT_EQ(withLeadingBlank(-12), "-12");
    EXPECT_EQ(withLeadingBlank(std::numeric_limits<long long>::min()), "-9223372036854775808");
}

TEST(Numbers, ReadTheLongestLeadingNumber) {
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"12", 12},
        {"  12 km", 12},
        {"\t 7", 7},
        {"", 0},
        {"abc", 0},
        {"-1.5x", -1.5},
        {"+2.5", 2.5},
        {".5", 0.5},
        {"5.", 5},
        {".", 0},
        {"-", 0},
        {"+-1", 0},
        {"- 1", 0},
        {"1e3", 1000},
        {"1E3", 1000},
        {"1d3", 1000},
        {"1D-3", 0.001},
        {"1e", 1},
        {"1e+", 1},
        {"1ex", 1},
        {"1e+2z", 100},
        {"1.2.3", 1.2},
        {"1,5", 1},
        {"1 2", 1},
        {"0x10", 0},
        {"inf", 0},
        {"nan", 0},
        {"007", 7},
        {"0.1", 0.1},
        {"\r\n5", 0},
        {"1e-400", 0},
        {"0e999999", 0},
        {"1e-99999999999", 0},
        {"4.9e-324", 4.9e-324},
        {"123456789012345678901234567890", 123456789012345678901234567890.0},
        {"1.7976931348623157e308", 1.7976931348623157e308},
    };
    for (const auto& row : rows)
        EXPECT_EQ(leadingNumber(row.text), row.value) << row.text;
}

TEST(Numbers, RefuseALeadingNumberBeyondADouble) {
    const std::string manyDigits(400, '9');
    for (const std::string& text :
         {std::string("1e309"), std::string("-1e309"), std::string("1d99999999999"), manyDigits})
        EXPECT_EQ(errorOf([&] { leadingNumber(text); }), 6) << text;
    EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1"), 0);
}

TEST(Numbers, TellTooLargeFromTooSmallByTheFirstDigitNotByTheExponentsSign) {
    const std::string zeros(400, '0');
    EXPECT_EQ(errorOf([&] { leadingNumber("1" + zeros + "E-5"); }), 6);
    EXPECT_EQ(leadingNumber("0." + zeros + "1E+5"), 0);
}

TEST(Numbers, ReadATextThatIsWhollyANumber) {
    const double infinite = std::numeric_limits<double>::infinity();
    const struct {
        std::string text;
        std::optional<double> value;
    } rows[] = {
        {"12", 12},
        {"-1.5d-1", -0.15},
        {"+.5E+1", 5},
        {"5.", 5},
        {"1e999", infinite},
        {"-1e999", -infinite},
        {"1e-999", 0},
        {"1e-99999999999", 0},
        {"", std::nullopt},
        {" 12", std::nullopt},
        {"12 ", std::nullopt},
        {"95x", std::nullopt},
        {"1e", std::nullopt},
        {"1,5", std::nullopt},
        {".", std::nullopt},
        {"+-1", std::nullopt},
        {"inf", std::nullopt},
        {"nan", std::nullopt},
        {"0x10", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(decimalNumber(row.text), row.value) << row.text;
}

TEST(Numbers, FillPatterns) {
    const struct {
        double value;
        const char* pattern;
        const char* text;
    } rows[] = {
        {0, "####", ""},
        {0, "#", ""},
        {0.4, "####", ""},
        {-0.4, "####", ""},
        {0.5, "####", "1"},
        {7, "####", "7"},
        {1234, "###", "1234"},
        {-12, "####", "-12"},
        {0, "########0", "0"},
        {0, "##0.0", "0.0"},
        {0, "0.0000000", "0.0000000"},
        {0.25, "#.0", ".3"},
        {0, "#.0", ".0"},
        {7, "000", "007"},
        {7, "#00.0", "07.0"},
        {-7, "000", "-007"},
        {0.05, "##0.0", "0.1"},
        {-0.05, "##0.0", "-0.1"},
        {0.04999, "##0.0", "0.0"},
        {-0.04999, "##0.0", "0.0"},
        {-0.0, "##0.0", "0.0"},
        {0.15, "##0.0", "0.2"},
        {0.25, "##0.0", "0.3"},
        {0.35, "##0.0", "0.4"},
        {1.005, "#####0.00", "1.01"},
        {2.675, "#####0.00", "2.68"},
        {-2.675, "#####0.00", "-2.68"},
        {1.0049999999999, "#####0.00", "1.00"},
        {9.995, "#####0.00", "10.00"},
        {99.95, "##0.0", "100.0"},
        {999.96, "##0.0", "1000.0"},
        {0.99999995, "0.0000000", "1.0000000"},
        {12.3456789, "###0.000", "12.346"},
        {0.1 + 0.2, "0.0000000", "0.3000000"},
        {1e-7, "0.0000000", "0.0000001"},
        {5e-8, "0.0000000", "0.0000001"},
        {4.9e-8, "0.0000000", "0.0000000"},
        {1e-300, "0.0000000", "0.0000000"},
        {-5e-324, "##0.0", "0.0"},
        {1e9, "######0.0", "1000000000.0"},
        {123456789012345678.0, "##0.0", "123456789012346000.0"},
        {1e22, "##0", "10000000000000000000000"},
        {999999999999999.9, "##0.0", "1000000000000000.0"},
        {0.5, "0", "1"},
        {1.5, "0", "2"},
        {2.5, "0", "3"},
        {-2.5, "0", "-3"},
        {0.49999999999999994, "0", "1"}, // 0.500000000000000 at 15 digits
        {3, "0.", "3."},
    };
    for (const auto& row : rows)
        EXPECT_EQ(formatPattern(row.value, row.pattern), row.text) << row.value << " in " << row.pattern;
}

TEST(Numbers, FillPatternsWithTheLargestNumber) {
    EXPECT_EQ(formatPattern(1.7976931348623157e308, "##0.0"),
              "179769313486232" + std::string(294, '0') + ".0");
}

TEST(Numbers, RefuseAPatternForWhatIsNoNumber) {
    for (const double value : {infinity, -infinity, std::nan("")})
        EXPECT_EQ(errorOf([&] { formatPattern(value, "##0.0"); }), 6);
}

// The twin works on the number's exact decimal expansion, as a string of digits with `point` of them before
// the point.
struct ExactDecimal {
    std::string digits;
    int point;
};

ExactDecimal exactDecimalOf(double value) {
    std::string text(1500, '\0');
    text.resize(
        static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.1080f", std::fabs(value))));
    const std::size_t point = text.find_first_of(".,");
    text.erase(point, 1);
    const std::size_t zeros = std::min(text.find_first_not_of('0'), text.size());
    return {text.substr(zeros), static_cast<int>(point) - static_cast<int>(zeros)};
}

enum class Tie { toEven, away };

// The first `kept` digits of a number, rounded; a carry may make them one more.
ExactDecimal rounded(ExactDecimal number, int kept, Tie tie) {
    if (kept < 0) return {"", 0};
    if (kept >= static_cast<int>(number.digits.size())) return number;
    const auto cut = static_cast<std::size_t>(kept);
    std::string head = "0" + number.digits.substr(0, cut);
    const std::string tail = number.digits.substr(cut);
    const std::string half = "5" + std::string(tail.size() - 1, '0');
    const bool odd = (head.back() - '0') % 2 == 1;
    if (tail > half || (tail == half && (tie == Tie::away || odd))) {
        std::size_t i = head.size() - 1;
        for (; head[i] == '9'; --i)
            head[i] = '0';
        ++head[i];
    }
    return {head, number.point + 1};
}

// The value's decimal form of 15 significant digits, without zeros in front.
ExactDecimal fifteenDigitsOf(double value) {
    const ExactDecimal form = rounded(exactDecimalOf(value), 15, Tie::toEven);
    const std::size_t lead = std::min(form.digits.find_first_not_of('0'), form.digits.size());
    return {form.digits.substr(lead), form.point - static_cast<int>(lead)};
}

std::string twinPattern(const ExactDecimal& normal, bool negative, int decimals, int leastDigits) {
    ExactDecimal result = rounded(normal, normal.point + decimals, Tie::away);
    if (result.digits.find_first_not_of('0') == std::string::npos) result = {"", 0};
    if (result.point < 0) {
        result.digits.insert(0, static_cast<std::size_t>(-result.point), '0');
        result.point = 0;
    }
    result.digits.resize(static_cast<std::size_t>(result.point + decimals), '0');
    std::string whole = result.digits.substr(0, static_cast<std::size_t>(result.point));
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    if (whole.size() < static_cast<std::size_t>(leastDigits))
        whole.insert(0, static_cast<std::size_t>(leastDigits) - whole.size(), '0');
    const bool zero = result.digits.find_first_not_of('0') == std::string::npos;
    const std::string fraction =
        decimals > 0 ? "." + result.digits.substr(static_cast<std::size_t>(result.point)) : "";
    return (negative && !zero ? "-" : "") + whole + fraction;
}

struct Pattern {
    const char* text;
    int decimals;
    int leastDigits;
};

constexpr Pattern patterns[] = {{"####", 0, 0},      {"########0", 0, 1}, {"######0.0", 1, 1},
                                {"#####0.00", 2, 1}, {"####0.000", 3, 1}, {"###0.0000", 4, 1},
                                {"##0.00000", 5, 1}, {"#0.000000", 6, 1}, {"0.0000000", 7, 1},
                                {"#.00", 2, 0},      {"000.0", 1, 3}};

void compareWithTwin(double value) {
    const ExactDecimal normal = fifteenDigitsOf(value);
    for (const Pattern& pattern : patterns)
        ASSERT_EQ(formatPattern(value, pattern.text),
                  twinPattern(normal, value < 0, pattern.decimals, pattern.leastDigits))
            << value << " in " << pattern.text;
}

TEST(NumbersTwin, AgreesOnDecimalsOfFewDigits) {
    std::mt19937_64 random(1);
    for (int i = 0; i < roundsOf(6000); ++i) {
        const auto whole =
            static_cast<double>(static_cast<std::int64_t>(random() % 2'000'000'001) - 1'000'000'000);
        ASSERT_NO_FATAL_FAILURE(compareWithTwin(whole / std::pow(10.0, static_cast<double>(random() % 13))));
    }
}

TEST(NumbersTwin, AgreesOnHalves) {
    std::mt19937_64 random(2);
    for (int i = 0; i < roundsOf(6000); ++i) {
        const auto whole = static_cast<double>(random() % 1'000'000'000);
        const double scale = std::pow(10.0, static_cast<double>(random() % 9));
        const double half = (whole + 0.5) / scale;
        ASSERT_NO_FATAL_FAILURE(compareWithTwin(half));
        ASSERT_NO_FATAL_FAILURE(compareWithTwin(-std::nextafter(half, 0)));
        ASSERT_NO_FATAL_FAILURE(compareWithTwin(std::nextafter(half, infinity)));
    }
}

TEST(NumbersTwin, AgreesOnSumsOfPowersOfTwo) {
    std::mt19937_64 random(3);
    for (int i = 0; i < roundsOf(6000); ++i) {
        const auto bits = static_cast<double>(random() >> (random() % 60));
        ASSERT_NO_FATAL_FAILURE(compareWithTwin(std::ldexp(bits, -static_cast<int>(random() % 80))));
    }
}

TEST(NumbersTwin, AgreesOnAnyNumber) {
    std::mt19937_64 random(4);
    for (int i = 0; i < roundsOf(3000); ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) continue;
        ASSERT_NO_FATAL_FAILURE(compareWithTwin(value));
    }
}

class CommaForPoint : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Numbers, DoNotDependOnTheLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaForPoint));
    EXPECT_EQ(formatPattern(1234.5, "##0.0"), "1234.5");
    EXPECT_EQ(freePrint(12345), " 12345 ");
    EXPECT_EQ(leadingNumber("1.5"), 1.5);
    EXPECT_EQ(shortestNumber(1234.5), "1234.5");
    std::locale::global(before);
}

TEST(Numbers, HaveAShortestText) {
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {0, "0"},
        {0.1, "0.1"},
        {1e23, "1e+23"},
        {12.5, "12.5"},
        {-3, "-3"},
        {1e-7, "1e-07"},
        {0.1 + 0.2, "0.30000000000000004"},
        {59999, "59999"},
        {5e-324, "5e-324"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(shortestNumber(row.value), row.text);
}

TEST(Numbers, RoundHalvesToEven) {
    const struct {
        double value;
        int whole;
    } rows[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {2.4999, 2},
        {2.5001, 3},
        {7, 7},
        {2147483647.4, 2147483647},
        {-2147483648.5, -2147483647 - 1},
        {2147483646.5, 2147483646},
    };
    for (const auto& row : rows)
        EXPECT_EQ(roundHalfToEven(row.value), row.whole) << row.value;
}

TEST(Numbers, RefuseToRoundBeyond32Bits) {
    for (const double value : {2147483647.5, -2147483649.0, 1e300, infinity, -infinity, std::nan("")})
        EXPECT_EQ(errorOf([&] { roundHalfToEven(value); }), 6) << value;
}

} // namespace

} // namespace korvel
