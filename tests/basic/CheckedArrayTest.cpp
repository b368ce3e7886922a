#include "basic/CheckedArray.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace korvel {

namespace {

template <typename Access>
int errorOf(Access access) {
    try {
        access();
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

TEST(CheckedArray, StartsWithDefaultValues) {
    const CheckedArray<int, 1, 3> numbers;
    const CheckedArray<std::string, 0, 1> names;
    EXPECT_TRUE(std::all_of(numbers.begin(), numbers.end(), [](int number) { return number == 0; }));
    EXPECT_EQ(names[0] + names[1], "");
}

TEST(CheckedArray, HoldsBothBounds) {
    CheckedArray<int, -2, 2> numbers;
    numbers[-2] = 7;
    numbers[2] = 9;
    EXPECT_EQ(numbers[-2], 7);
    EXPECT_EQ(numbers[2], 9);
    EXPECT_EQ(numbers.end() - numbers.begin(), 5);
}

TEST(CheckedArray, RefusesAnIndexOutsideItsBounds) {
    CheckedArray<int, 1, 20> numbers;
    const auto& fixed = numbers;
    for (const long long index : {0LL, 21LL, -1LL, 1LL << 40, -(1LL << 40)}) {
        EXPECT_EQ(errorOf([&] { numbers[index] = 1; }), 9) << index;
        EXPECT_EQ(errorOf([&] { static_cast<void>(fixed[index]); }), 9) << index;
    }
    EXPECT_EQ(numbers, (CheckedArray<int, 1, 20>{}));
}

TEST(CheckedArray, FillsWhole) {
    CheckedArray<int, 0, 4> numbers;
    numbers.fill(3);
    for (int i = 0; i <= 4; ++i)
        EXPECT_EQ(numbers[i], 3);
    numbers[4] = 0;
    CheckedArray<int, 0, 4> others;
    others.fill(3);
    EXPECT_NE(numbers, others);
}

TEST(CheckedVector, ReadsWhatWasNeverWrittenAsDefault) {
    CheckedVector<double, 59999> values;
    EXPECT_EQ(values[0], 0.0);
    EXPECT_EQ(values[59999], 0.0);
    values.set(10, 2.5);
    EXPECT_EQ(values[10], 2.5);
    EXPECT_EQ(values[9], 0.0);
    EXPECT_EQ(values[11], 0.0);
}

TEST(CheckedVector, KeepsWhatWasWrittenBefore) {
    CheckedVector<int, 100> values;
    values.set(3, 1);
    values.set(100, 2);
    values.set(0, 5);
    EXPECT_EQ(values[3], 1);
    EXPECT_EQ(values[100], 2);
    EXPECT_EQ(values[0], 5);
    values.clear();
    EXPECT_EQ(values[100], 0);
    EXPECT_EQ(values, (CheckedVector<int, 100>{}));
}

TEST(CheckedVector, ReadsWhatIsAbsentAsTheGivenValue) {
    CheckedVector<int, 100> values(-1);
    EXPECT_EQ(values[100], -1);
    values.set(2, 7);
    EXPECT_EQ(values[0], -1);
    EXPECT_EQ(values[1], -1);
    EXPECT_EQ(values[2], 7);
    EXPECT_EQ(values[3], -1);
    values.clear();
    EXPECT_EQ(values[2], -1);
}

TEST(CheckedVector, ClearsFromAnIndexOn) {
    CheckedVector<int, 5> values(-1);
    for (int i = 0; i <= 5; ++i)
        values.set(i, i);
    values.clearFrom(6);
    EXPECT_EQ(values[5], 5);
    values.clearFrom(3);
    EXPECT_EQ(values[2], 2);
    EXPECT_EQ(values[3], -1);
    EXPECT_EQ(values[5], -1);
    values.clearFrom(4);
    EXPECT_EQ(values[2], 2);
    EXPECT_EQ(errorOf([&] { values.clearFrom(-1); }), 9);
    EXPECT_EQ(errorOf([&] { values.clearFrom(7); }), 9);
}

TEST(CheckedVector, RefusesAnIndexOutsideItsBounds) {
    CheckedVector<int, 100> values;
    for (const long long index : {-1LL, 101LL, 1LL << 40}) {
        EXPECT_EQ(errorOf([&] { values.set(index, 1); }), 9) << index;
        EXPECT_EQ(errorOf([&] { static_cast<void>(values[index]); }), 9) << index;
    }
}

} // namespace

} // namespace korvel
