#include "many/Resume.h"

#include "many/Sums.h"
#include "platform/TemporaryFolder.h"

#include <functional>
#include <gtest/gtest.h>

namespace korvel {

namespace {

struct DoneRun : testing::Test {
    DoneRun() {
        folder.put("A.DAT", "data");
        folder.put("A.SGR", "results");
        run.name = "a";
        run.dataFile = "A.DAT";
        run.type = 3;
        run.dataPath = folder.path("A.DAT");
        record.name = "a";
        record.dataFile = "A.DAT";
        record.type = 3;
        record.state = RunState::done;
        record.engineSum = "e";
        record.dataSum = sha256Of("data");
        record.results = "A.SGR";
        record.resultsSum = sha256Of("results");
    }
    bool holds() const { return stillHolds(run, record, "e", folder.path()); }

    TemporaryFolder folder;
    PlannedRun run;
    RunRecord record;
};

TEST_F(DoneRun, StillHoldsWhereNothingChanged) {
    EXPECT_TRUE(holds());
    run.title = "another title";
    EXPECT_TRUE(holds());
}

TEST_F(DoneRun, HoldsWhereTheDataFileIsNamedByItsWholePath) {
    run.dataFile = record.dataFile = folder.path("A.DAT");
    record.results = folder.path("A.SGR");
    EXPECT_TRUE(holds());
}

TEST_F(DoneRun, IsRunAgainWhereAnythingChanged) {
    struct Change {
        const char* what;
        std::function<void(DoneRun&)> make;
    };
    const Change changes[] = {
        {"not done", [](DoneRun& it) { it.record.state = RunState::started; }},
        {"failed", [](DoneRun& it) { it.record.state = RunState::failed; }},
        {"run type", [](DoneRun& it) { it.run.type = 4; }},
        {"data file of the plan", [](DoneRun& it) { it.run.dataFile = "./A.DAT"; }},
        {"engine", [](DoneRun& it) { it.record.engineSum = "f"; }},
        {"no results told", [](DoneRun& it) { it.record.results.clear(); }},
        {"no sums told", [](DoneRun& it) { it.record.resultsSum.clear(); }},
        {"data file", [](DoneRun& it) { it.folder.put("A.DAT", "other data"); }},
        {"results", [](DoneRun& it) { it.folder.put("A.SGR", "other results"); }},
        {"results gone", [](DoneRun& it) { std::filesystem::remove(it.folder.path("A.SGR")); }},
    };
    for (const Change& change : changes) {
        folder.put("A.DAT", "data");
        folder.put("A.SGR", "results");
        const PlannedRun runBefore = run;
        const RunRecord recordBefore = record;
        EXPECT_TRUE(holds()) << change.what;
        change.make(*this);
        EXPECT_FALSE(holds()) << change.what;
        run = runBefore;
        record = recordBefore;
    }
}

} // namespace

} // namespace korvel
