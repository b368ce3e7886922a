// Runs that are started at once on one application folder: each reads its own run-control file.
#include "endtoend/Installation.h"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <sstream>

namespace korvel {

namespace {

using namespace std::chrono_literals;

// $1 times: $2 runs at once; what went to another run is told. Then the program and its options.
const char* const roundsOfRuns =
    "rounds=$1 runs=$2 data=$3; shift 3\n"
    "for round in $(seq $rounds); do\n"
    "  for i in $(seq $runs); do \"$@\" run \"$data/F$i.DAT\" --wait > \"$data/out$i\" & done\n"
    "  wait\n"
    "  for i in $(seq $runs); do\n"
    "    grep -q \"F$i.DAT\" \"$data/out$i\" || echo \"$round: $i $(cat \"$data/out$i\")\"\n"
    "  done\n"
    "done\n";

class RunTurns : public testing::Test {
  protected:
    RunTurns() {
        for (int k = 1; k <= mostRuns; ++k)
            write(korvel.data("F" + std::to_string(k) + ".DAT"), "");
    }
    Outcome atOnce(int rounds, int runs) const {
        std::vector<std::string> arguments = {"sh",
                                              "-c",
                                              roundsOfRuns,
                                              "sh",
                                              std::to_string(rounds),
                                              std::to_string(runs),
                                              korvel.dataFolder()};
        for (const std::string& word : korvel.korvel())
            arguments.push_back(word);
        return runProgram(arguments, {}, std::chrono::minutes(5));
    }
    std::vector<double> starts() const {
        std::istringstream text(contentOf(korvel.application("starts")));
        std::vector<double> times;
        for (double time = 0; text >> time;)
            times.push_back(time);
        std::ranges::sort(times);
        return times;
    }

    static constexpr int mostRuns = 4;
    const Installation korvel;
};

} // namespace

TEST_F(RunTurns, FourAtOnceNeverReadAnothersRun) {
    korvel.putEngine("sleep 0.0$(($$ % 3))\nsed -n 3p RUNDAT.TMP\n");
    const Outcome outcome = atOnce(50, 4);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(RunTurns, AnEngineThatOpensNothingHoldsOthersUpForThreeSeconds) {
    korvel.putEngine("date +%s.%N >> starts\nsleep 3.5\n");
    atOnce(1, 3);
    const std::vector<double> times = starts();
    ASSERT_EQ(times.size(), 3U);
    for (std::size_t k = 1; k < times.size(); ++k) {
        EXPECT_GE(times[k] - times[k - 1], 2.9);
        EXPECT_LT(times[k] - times[k - 1], 10);
    }
}

TEST_F(RunTurns, AnEngineThatEndsHoldsNobodyUp) {
    korvel.putEngine("date +%s.%N >> starts\n");
    atOnce(1, 4);
    const std::vector<double> times = starts();
    ASSERT_EQ(times.size(), 4U);
    EXPECT_LT(times.back() - times.front(), 3);
}

TEST_F(RunTurns, AStartThatIsNotWaitedForEndsAtOnce) {
    korvel.putEngine("sleep 3\n");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(korvel.runKorvel({"run", korvel.data("F1.DAT")}).status, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
}

} // namespace korvel
