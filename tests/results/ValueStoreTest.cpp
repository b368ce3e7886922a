#include "results/ValueStore.h"

#include "basic/RunTimeError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace korvel {

namespace {

using enum ValueField;

int errorOf(auto&& work) {
    try {
        work();
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

} // namespace

TEST(ValueStore, IsZeroBeforeItIsWritten) {
    const ValueStore store;
    EXPECT_FALSE(store.everWritten());
    EXPECT_EQ(store.at(meanValue, 0, 0), 0);
    EXPECT_EQ(store.at(observedPercentiles, 59999, 20, 2), 0);
}

TEST(ValueStore, ReadsZerosWhereNothingWasWrittenAndRefusesWhatIsOutside) {
    const ValueStore store;
    const auto column = store.column(percentileValues, 20, 2);
    EXPECT_EQ(column.size(), 60000u);
    EXPECT_EQ(std::ranges::count(column, 0.0), 60000);
    EXPECT_EQ(errorOf([&] { store.column(meanValue, 21); }), errors::subscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { store.at(meanValue, 60000, 0); }), errors::subscriptOutOfRange);
}

TEST(ValueStore, KeepsTheColumnsOfASeriesTogether) {
    ValueStore store;
    const double* first = store.column(meanLimit1, 3).data();
    const double* last = store.column(observedPercentiles, 3, 2).data();
    EXPECT_EQ(last - first, 16 * ValueStore::points);
    EXPECT_EQ(store.column(meanLimit1, 4).data() - last, ValueStore::points);
}

TEST(ValueStore, BeginsWithWhatTheFlowLacks) {
    ValueStore store;
    const double* lowest = store.column(meanValue, 0).data();
    for (ValueField field : {observedMean, percentileValues, observedPercentiles})
        EXPECT_GT(store.column(field, 0).data(), lowest);
    for (ValueField field : {meanLimit1, meanLimit2, targetValue})
        EXPECT_LT(store.column(field, 0).data(), lowest);
    for (ValueField field : {percentileLimit1, percentileLimit2})
        EXPECT_LT(store.column(field, 0, 2).data(), lowest);
}

TEST(ValueStore, KeepsEveryColumnApart) {
    ValueStore store;
    std::set<const double*> starts;
    for (ValueField field : {meanValue, meanLimit1, meanLimit2, observedMean, targetValue}) {
        for (int c = 0; c <= 20; ++c)
            starts.insert(store.column(field, c).data());
    }
    for (ValueField field : {percentileValues, percentileLimit1, percentileLimit2, observedPercentiles}) {
        for (int c = 0; c <= 20; ++c) {
            for (int m = 0; m <= 2; ++m)
                starts.insert(store.column(field, c, m).data());
        }
    }
    ASSERT_EQ(starts.size(), 5u * 21 + 4u * 21 * 3);
    const double* previous = nullptr;
    for (const double* start : starts) {
        if (previous) {
            EXPECT_EQ(start - previous, ValueStore::points);
        }
        previous = start;
    }
}

TEST(ValueStore, RefusesWhatIsOutsideItsExtent) {
    ValueStore store;
    EXPECT_EQ(errorOf([&] { store.column(meanValue, 21); }), errors::subscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { store.column(meanValue, -1); }), errors::subscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { store.column(meanValue, 0, 1); }), errors::subscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { store.column(percentileValues, 0, 3); }), errors::subscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { store.at(meanValue, 60000, 0); }), errors::subscriptOutOfRange);
}

TEST(ValueStore, IsZeroAgainAfterReset) {
    ValueStore store;
    store.expectPoints(60000);
    store.column(targetValue, 20)[59999] = 3;
    store.markWritten();
    EXPECT_EQ(store.at(targetValue, 59999, 20), 3);
    store.reset();
    EXPECT_EQ(store.at(targetValue, 59999, 20), 0);
    EXPECT_FALSE(store.everWritten());
}

TEST(ValueStore, MovesWithItsValues) {
    ValueStore store;
    store.column(meanValue, 1)[1] = 5;
    ValueStore taken = std::move(store);
    EXPECT_EQ(taken.at(meanValue, 1, 1), 5);
}

} // namespace korvel
