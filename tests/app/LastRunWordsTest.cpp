#include "app/LastRunWords.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

const LastRun judged{"Z:\\DATA\\ALDER.DAT",
                     "Z:\\DATA\\ALDER.SGR",
                     0,
                     "Finished",
                     1000,
                     "9 of 14 reaches miss a target",
                     "9 of 14 reaches miss at least one target; 5 pass for sure.",
                     990};

LastRun failed() {
    LastRun run = judged;
    run.state = "Failed (status 3)";
    run.verdict = run.verdictInFull = "";
    return run;
}

LastRun unread() {
    LastRun run = judged;
    run.verdict = run.verdictInFull = "";
    return run;
}

} // namespace

TEST(LastRunWords, NameTheDataFileAndTheRunType) {
    EXPECT_EQ(nameOf(judged), "ALDER.DAT");
    EXPECT_EQ(runTypeWords(0), "run type 0, basic run");
    EXPECT_EQ(runTypeWords(9), "run type 9, as 8 assuming mid-class upstream quality standards");
}

TEST(LastRunWords, TellTheVerdictOrWhyThereIsNone) {
    const RunToday all{}, gone{.hasResults = false}, others{.resultsAreOthers = true};
    const struct {
        LastRun run;
        RunToday today;
        const char* brief;
        const char* full;
    } cases[] = {
        {judged, all, "9 of 14 reaches miss a target",
         "9 of 14 reaches miss at least one target; 5 pass for sure."},
        {judged, gone, "The results file is gone", "The results file is gone."},
        {judged, others, "The results file has changed since this run",
         "The results file has changed since this run."},
        {judged,
         {.hasData = false},
         "9 of 14 reaches miss a target",
         "9 of 14 reaches miss at least one target; 5 pass for sure. The data file is gone."},
        {judged,
         {.hasData = false, .hasResults = false},
         "The results file is gone",
         "The results file is gone. The data file is gone."},
        {unread(), all, "Finished", ""},
        {failed(), all, "Failed (status 3)", "Failed (status 3)."},
        {failed(), gone, "Failed (status 3)", "Failed (status 3). The results file is gone."},
    };
    for (const auto& [run, today, brief, full] : cases) {
        EXPECT_EQ(briefVerdict(run, today), brief);
        EXPECT_EQ(fullVerdict(run, today), full);
    }
}

} // namespace korvel
