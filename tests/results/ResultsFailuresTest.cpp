// Results files that are damaged or too large, and what is kept of them.
#include "results/FirstDataSet.h"

#include "ReaderFixture.h"
#include "fakes/Rounds.h"

#include <random>

namespace korvel {

namespace {

using enum ValueField;

class ResultsFailures : public ReaderFixture {};

} // namespace

TEST_F(ResultsFailures, FailsOnElevenDeterminands) {
    ResultsFileBuilder file;
    for (int d = 1; d <= 11; ++d)
        file.determinand(d, "D");
    EXPECT_EQ(load(file.reach(1, "Mill").points(1)), Ending::failed);
}

TEST_F(ResultsFailures, FailsOnNegativeCounts) {
    EXPECT_EQ(load(river().determinandCount("-1")), Ending::failed);
    EXPECT_EQ(load(river().reachCount("-1")), Ending::failed);
}

TEST_F(ResultsFailures, FailsOnAReachNumberOutsideItsExtent) {
    EXPECT_EQ(load(river().reachLine("-999 Name")), Ending::failed);
    EXPECT_EQ(load(river().reachLine("6e4  Name")), Ending::failed);
    EXPECT_EQ(load(river().reachLine("5e4  Name")), Ending::loaded);
    EXPECT_EQ(load(river().reachLine("9e99 Name")), Ending::failed);
}

TEST_F(ResultsFailures, Loads59999PointsAndFailsOnOneMore) {
    ResultsFileBuilder file;
    ASSERT_EQ(load(file.reach(1, "Mill").points(59999)), Ending::loaded);
    EXPECT_EQ(results.pointCount, 59999);
    EXPECT_EQ(results.values[0].at(meanValue, 59999, 0), ResultsFileBuilder::value(59999, meanValue, 0));
    EXPECT_EQ(load(file.point(1, 9, "One too many")), Ending::failed);
    EXPECT_EQ(failure, errors::subscriptOutOfRange);
    EXPECT_EQ(results.pointCount, 59999);
}

TEST_F(ResultsFailures, FailsOnNumbersThatAreNone) {
    for (const char* word : {"****", "nan", "inf", "abc", "1e400"})
        EXPECT_EQ(load(river().set(meanValue, 1, word)), Ending::failed) << word;
    EXPECT_EQ(load(river().set(meanValue, 1, "1e-400")), Ending::loaded);
    EXPECT_EQ(results.values[0].at(meanValue, 3, 1), 0);
    EXPECT_EQ(load(river().set(meanValue, 1, "1.5D+2")), Ending::loaded);
    EXPECT_EQ(results.values[0].at(meanValue, 3, 1), 150);
}

TEST_F(ResultsFailures, FailsOnEveryCutThatTakesAField) {
    const std::string whole = ResultsFileBuilder().determinand(1, "BOD").points(1).text();
    const std::size_t header = whole.find("1,0,\"P");
    for (std::size_t size = 0; size <= whole.rfind(',') + 1; ++size) {
        const bool isHeader = size + 2 >= header && size <= header;
        EXPECT_EQ(load(whole.substr(0, size)), isHeader ? Ending::loaded : Ending::failed) << size;
    }
}

TEST_F(ResultsFailures, KeepsTheValuesReadBeforeAFailure) {
    ASSERT_EQ(load(river()), Ending::loaded);
    ASSERT_EQ(load(river().title("Other").set(meanValue, 2, "x").set(meanLimit2, 1, 4711)), Ending::failed);
    EXPECT_EQ(results.resultsTitle, "Other");
    EXPECT_EQ(results.pointCount, 3);
    const ValueStore& values = results.values[0];
    EXPECT_EQ(values.at(meanValue, 2, 4), ResultsFileBuilder::value(2, meanValue, 4));
    EXPECT_EQ(values.at(meanLimit2, 3, 1), 4711);
    EXPECT_EQ(values.at(meanValue, 3, 2), ResultsFileBuilder::value(3, meanValue, 2)); // of the load before
    EXPECT_EQ(results.seriesCount, 2);
}

TEST_F(ResultsFailures, LoadsOrFailsOnDamagedFilesAndNothingElse) {
    std::mt19937 random(3);
    const auto upTo = [&](std::size_t count) { return random() % count; };
    const std::string whole = river().text();
    const std::string pieces[] = {"\"",          ",",     "\r\n", " ",    "-1",
                                  "99999999999", "1e400", "\x1a", "****", std::string(1, '\0')};
    int loaded = 0;
    int failed = 0;
    const int rounds = roundsOf(4000);
    for (int round = 0; round < rounds; ++round) {
        std::string text = whole;
        for (std::size_t k = upTo(4) + 1; k > 0; --k) {
            const std::size_t at = upTo(text.size());
            const std::size_t kind = upTo(3);
            if (kind == 0) text[at] = static_cast<char>(upTo(256));
            if (kind == 1) text.erase(at, upTo(20) + 1);
            if (kind == 2) text.insert(at, pieces[upTo(std::size(pieces))]);
            if (text.empty()) break;
        }
        const Ending ending = load(text);
        ++(ending == Ending::loaded ? loaded : failed);
        EXPECT_NE(ending, Ending::abandoned);
        load(whole);
        load(text, 1);
    }
    EXPECT_GT(loaded, rounds / 40);
    EXPECT_GT(failed, rounds / 40);
}

} // namespace korvel
