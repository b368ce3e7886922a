#include "fakes/FakePlatform.h"
#include "fakes/StudySample.h"
#include "results/ResultsReader.h"
#include "study/SeriesValues.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace korvel {

namespace {

std::vector<int> pointsOf(const SharedRun& run, int reach) {
    const auto points = run->reaches.pointsOf(run->reaches.placeOf(reach));
    return {points.begin(), points.end()};
}

ResultsFileBuilder riverOf(int points) {
    return ResultsFileBuilder().determinand(1, "BOD").reach(7, " Mill ").points(points, 7);
}

// Whoever reads waits until the progress was asked for.
class WaitingFiles : public FakePlatform {
  public:
    explicit WaitingFiles(const std::string& text) : m_text(text) {}
    std::promise<void> asked;

  private:
    std::unique_ptr<ByteSource> open(const std::string&) override {
        m_asked.wait_for(std::chrono::minutes(1));
        return std::make_unique<TextSource>(m_text);
    }

    std::string m_text;
    std::shared_future<void> m_asked = asked.get_future().share();
};

} // namespace

TEST(Runs, AreReadEachWithItsReaches) {
    FakePlatform fake;
    fake.putFile("a.sgr", riverOf(20).text());
    const ReadRun read = readRun(fake.platform().files, fake.pathOf("a.sgr"));
    ASSERT_TRUE(read.run);
    EXPECT_FALSE(read.failure);
    EXPECT_EQ(read.run->file, fake.pathOf("a.sgr"));
    EXPECT_EQ(read.run->reachName(7), "Mill");
    EXPECT_EQ(pointsOf(read.run, 7).size(), 20u);
    EXPECT_EQ(read.run->results.values[0].at(ValueField::meanValue, 20, 1),
              ResultsFileBuilder::value(20, ValueField::meanValue, 1));
}

TEST(Runs, ReadSideBySideStandInTheFilesOrder) {
    FakePlatform fake;
    fake.putFile("a.sgr", riverOf(20).text());
    fake.putFile("b.sgr", riverOf(30).text());
    const std::vector<std::string> names = {fake.pathOf("b.sgr"), fake.pathOf("none.sgr"),
                                            fake.pathOf("a.sgr")};
    const std::vector<ReadRun> read = readRuns(fake.platform().files, names);
    ASSERT_EQ(read.size(), 3u);
    ASSERT_TRUE(read[0].run && read[2].run);
    EXPECT_EQ(read[0].run->results.pointCount, 30);
    EXPECT_EQ(read[2].run->results.pointCount, 20);
    EXPECT_FALSE(read[1].run);
    EXPECT_EQ(read[1].failure, unreadableResults());
}

TEST(Runs, TellTheProgressOfAllToWhoeverCalled) {
    WaitingFiles files(riverOf(20).text());
    const std::thread::id caller = std::this_thread::get_id();
    std::vector<double> shares;
    const auto read = readRuns(files.platform().files, {"a", "b", "c"}, [&](double share) {
        EXPECT_EQ(std::this_thread::get_id(), caller);
        if (shares.empty()) files.asked.set_value();
        shares.push_back(share);
    });
    ASSERT_FALSE(shares.empty());
    EXPECT_EQ(shares.front(), 0);
    EXPECT_TRUE(read[2].run);
}

TEST(ReachPoints, GatherThePointsOfAReachWhereverTheyStand) {
    const SharedRun run = runOf(ResultsFileBuilder()
                                    .determinand(1, "BOD")
                                    .reach(4, "A")
                                    .reach(2, "B")
                                    .reach(9, "Empty")
                                    .point(2, 0, "P1")
                                    .point(4, 0, "P2")
                                    .point(7, 0, "P3")
                                    .point(2, 1, "P4"));
    EXPECT_EQ(run->reaches.numbers(), (std::vector<int>{4, 2, 9}));
    EXPECT_EQ(pointsOf(run, 4), (std::vector<int>{2}));
    EXPECT_EQ(pointsOf(run, 2), (std::vector<int>{1, 4}));
    EXPECT_EQ(pointsOf(run, 9), (std::vector<int>{}));
    EXPECT_EQ(run->reaches.placeOf(7), -1);
    EXPECT_EQ(run->reaches.placeOf(0), -1);
    EXPECT_EQ(run->reaches.placeOf(50000), -1);
}

TEST(ReachPoints, KnowReach0WhereItHasALine) {
    const SharedRun run =
        runOf(ResultsFileBuilder().determinand(1, "BOD").reach(3, "A").reach(0, "Zero").point(0, 0, "P1"));
    EXPECT_EQ(run->reaches.placeOf(0), 1);
    EXPECT_EQ(pointsOf(run, 0), (std::vector<int>{1}));
}

TEST(SeriesValues, TakeEachStatisticFromItsPlace) {
    using enum ValueField;
    const auto value = [](ValueField field, int series, int level = 0) {
        return ResultsFileBuilder::value(1, field, series, level);
    };
    const SharedRun run = runOf(ResultsFileBuilder().determinand(1, "BOD").reach(1, "A").point(1, 0, "P"));
    const SeriesValues mean = seriesValues(run->results, 1, Statistic::mean);
    EXPECT_EQ(mean.value[1], value(meanValue, 1));
    EXPECT_EQ(mean.limit1[1], value(meanLimit1, 1));
    EXPECT_EQ(mean.limit2[1], value(meanLimit2, 1));
    EXPECT_EQ(mean.observed[1], value(observedMean, 1));
    const Statistic percentiles[] = {Statistic::p90, Statistic::p95, Statistic::p99};
    for (int level : {0, 1, 2}) {
        const SeriesValues values = seriesValues(run->results, 2, percentiles[level]);
        EXPECT_EQ(values.value[1], value(percentileValues, 2, level));
        EXPECT_EQ(values.limit1[1], value(percentileLimit1, 2, level));
        EXPECT_EQ(values.limit2[1], value(percentileLimit2, 2, level));
        EXPECT_EQ(values.observed[1], value(observedPercentiles, 2, level));
    }
}

TEST(SeriesValues, AreOfFlowConcentrationsAndLoads) {
    const SharedRun run =
        runOf(ResultsFileBuilder().determinand(1, "BOD").determinand(1, "DO").reach(1, "A", 5, 0));
    EXPECT_EQ(allSeries(run->results), (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(run->results.loadOf(2), 4);
    EXPECT_EQ(run->results.loadOf(0), 0);
    EXPECT_TRUE(isLoad(run->results, 3));
    EXPECT_FALSE(isLoad(run->results, 2));
}

TEST(SeriesValues, OfFlowHaveNoLimitsAndNoTarget) {
    const SharedRun run = runOf(ResultsFileBuilder().determinand(1, "BOD").reach(1, "A").point(1, 0, "P"));
    const SeriesValues flow = seriesValues(run->results, 0, Statistic::p95);
    EXPECT_EQ(flow.value[1], ResultsFileBuilder::value(1, ValueField::percentileValues, 0, 1));
    EXPECT_FALSE(flow.hasLimits());
    EXPECT_FALSE(flow.isBounded(1));
    EXPECT_FALSE(flow.hasTarget(1));
}

TEST(SeriesValues, AreBoundedByTwoLimitsInAnyOrder) {
    const struct {
        double limit1, value, limit2;
        bool bounded;
    } cases[] = {{1, 2, 3, true},  {3, 2, 1, true},  {1, 1, 3, true},  {1, 3, 3, true},
                 {2, 2, 2, false}, {0, 0, 0, false}, {1, 4, 3, false}, {1, 0.5, 3, false}};
    for (const auto& [limit1, value, limit2, bounded] : cases) {
        const SharedRun run = runOf(ResultsFileBuilder()
                                        .determinand(1, "BOD")
                                        .reach(1, "A")
                                        .point(1, 0, "P")
                                        .set(ValueField::meanLimit1, 1, limit1)
                                        .set(ValueField::meanValue, 1, value)
                                        .set(ValueField::meanLimit2, 1, limit2));
        const SeriesValues mean = seriesValues(run->results, 1, Statistic::mean);
        EXPECT_EQ(mean.isBounded(1), bounded) << limit1 << ' ' << value << ' ' << limit2;
        EXPECT_EQ(mean.low(1), std::min(limit1, limit2));
        EXPECT_EQ(mean.high(1), std::max(limit1, limit2));
    }
}

} // namespace korvel
