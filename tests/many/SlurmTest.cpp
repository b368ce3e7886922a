#include "many/Slurm.h"

#include "basic/Text.h"
#include "many/FakeTools.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

using Words = std::vector<std::string>;

TEST(Slurm, TakesTheLimitsOfTheCluster) {
    struct Case {
        const char* configuration;
        std::size_t tasks;
    };
    for (const Case& one : {Case{"MaxArraySize            = 1001\nMaxJobCount             = 10000\n", 1000},
                            {"MaxArraySize = 5\nMaxJobCount = 10000\n", 4},
                            {"MaxArraySize = 1000001\nMaxJobCount = 10000\n", 5000},
                            {"Other = 1\n", 1000},
                            {"MaxArraySize = x\nMaxJobCount = 1\n", 1}}) {
        FakeTools tools;
        tools.answers["scontrol show config"] = {0, one.configuration, ""};
        EXPECT_EQ(Slurm(tools).mostTasks(), one.tasks) << one.configuration;
    }
}

TEST(Slurm, IsRefusedWithoutArrays) {
    FakeTools tools;
    tools.answers["scontrol show config"] = {0, "MaxArraySize = 1\n", ""};
    EXPECT_THROW(Slurm(tools).mostTasks(), SlurmError);
}

TEST(Slurm, SubmitsAnArrayWithTheUsersOptionsFirst) {
    FakeTools tools;
    tools.answers["sbatch"] = {0, "123;cluster\n", ""};
    EXPECT_EQ(Slurm(tools).submit({"korvel-x", 3, {"--time=5", "--array=9"}, "/plans", "/o/%a.out", "/t.sh"}),
              "123");
    EXPECT_EQ(tools.calls,
              (Words{"sbatch --time=5 --array=9 --parsable --no-requeue --job-name=korvel-x --array=0-2 "
                     "--chdir=/plans --output=/o/%a.out /t.sh"}));
}

TEST(Slurm, TellsWhatSlurmRefuses) {
    FakeTools tools;
    tools.answers["sbatch"] = {1, "", "sbatch: error: invalid partition\nsbatch: error: more\n"};
    try {
        Slurm(tools).submit({"n", 1, {}, "/", "/o", "/t"});
        FAIL();
    } catch (const SlurmError& error) {
        EXPECT_STREQ(error.what(), "sbatch: error: invalid partition");
    }
    tools.absent.insert("squeue");
    try {
        Slurm(tools).states("n");
        FAIL();
    } catch (const SlurmError& error) {
        EXPECT_STREQ(error.what(), "There is no squeue on this machine.");
    }
}

TEST(Slurm, KnowsTheStatesOfTheTasks) {
    FakeTools tools;
    tools.answers["squeue"] = {0, "0 RUNNING\n12 NODE_FAIL\nN/A PENDING\n\n", ""};
    EXPECT_EQ(Slurm(tools).states("korvel-x"),
              (std::map<std::size_t, std::string>{{0, "RUNNING"}, {12, "NODE_FAIL"}}));
    EXPECT_TRUE(contains(tools.calls.at(0), "--name=korvel-x"));
}

TEST(Slurm, AsksTheAccountingOnlyWhereThereIsOne) {
    FakeTools without;
    without.answers["scontrol show config"] = {0, "AccountingStorageType = accounting_storage/none\n", ""};
    EXPECT_EQ(Slurm(without).accountedState("7", 3), "");
    EXPECT_EQ(without.calls.size(), 1U);

    FakeTools with;
    with.answers["scontrol show config"] = {0, "AccountingStorageType = accounting_storage/slurmdbd\n", ""};
    with.answers["sacct"] = {0, "CANCELLED by 1000\n", ""};
    EXPECT_EQ(Slurm(with).accountedState("7", 3), "CANCELLED");
    EXPECT_TRUE(contains(with.calls.at(1), "--jobs=7_3"));
    with.answers["sacct"] = {1, "", "down"};
    EXPECT_EQ(Slurm(with).accountedState("7", 3), "");
}

TEST(Slurm, CancelsAllOrWhatHasNotBegun) {
    FakeTools tools;
    tools.answers["scancel"] = {0, "", ""};
    Slurm(tools).cancel("korvel-x", Slurm::Which::all);
    Slurm(tools).cancel("korvel-x", Slurm::Which::pending);
    EXPECT_EQ(tools.calls, (Words{"scancel --name=korvel-x", "scancel --name=korvel-x --state=PENDING"}));
}

TEST(Slurm, KnowsWhichStatesAreTheEnd) {
    for (const char* state : {"COMPLETED", "FAILED", "CANCELLED", "TIMEOUT", "NODE_FAIL", "OUT_OF_MEMORY"})
        EXPECT_TRUE(isOver(state)) << state;
    for (const char* state : {"PENDING", "RUNNING", "COMPLETING", "SUSPENDED", "CONFIGURING", "ANYTHING"})
        EXPECT_FALSE(isOver(state)) << state;
}

TEST(Slurm, PartsOptionsAsAShellDoes) {
    EXPECT_EQ(wordsOf(""), Words{});
    EXPECT_EQ(wordsOf("  --time=5\t-p  long "), (Words{"--time=5", "-p", "long"}));
    EXPECT_EQ(wordsOf("--comment='a \"b' \"c 'd\" e\\ f ''"), (Words{"--comment=a \"b", "c 'd", "e f", ""}));
    EXPECT_EQ(wordsOf("'a"), std::nullopt);
    EXPECT_EQ(wordsOf("\"a"), std::nullopt);
}

} // namespace

} // namespace korvel
