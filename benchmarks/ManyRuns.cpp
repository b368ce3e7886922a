// Plans of many runs of a small catchment: two at a time against one after the other, what a run costs beyond
// its engine, and how long the checking of a long plan takes. Arguments: a folder, the number of rounds.
#include "Program.h"
#include "Rows.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

using namespace korvel;

namespace {

namespace fs = std::filesystem;

constexpr int runCount = 300;
constexpr int longPlanRows = 100000;

// Takes the engine some milliseconds.
const char* const catchment = "DEMONSTRATION RIVER DATA\n"
                              "[RUN]\ntitle = Small River\nshots = 500\nspacing = 0\n"
                              "[DETERMINANDS]\n1, BOD, mg/l, 2, 3, 0.25, 4, 30\n"
                              "[REACHES]\n1, Upper River, 8.5, 2, 7.5, 0.35, 1, 1, 0, 0, 0\n"
                              "2, Lower River, 5.0, 0, 7.5, 0.35, 0, 0, 0, 0, 0\n"
                              "[FEATURES]\n1, 1, 2.4, sewage, Holme STW, 2, 1\n"
                              "[FLOWS]\n1, 22, 3.4, 0.95\n2, 12, 1.6, 0.95\n"
                              "[QUALITIES]\n1, 1, 1.5, 0.7\n";

// The same engine on the same files, by a shell.
const char* const plainLoop =
    "cd \"$1\" && for file in runs/*.DAT; do\n"
    "  name=${file#runs/}\n"
    "  printf 'SINGLE\\r\\n%s\\r\\n%s%s\\r\\n 0 \\r\\n' \"$2\" \"$2\" \"$name\" >RUNDAT.TMP\n"
    "  \"$3\" >/dev/null || exit 1\n"
    "done\n";

std::string modelFolder(const std::string& folder) {
    std::string name = "Z:" + folder + "/";
    std::ranges::replace(name, '/', '\\');
    return name;
}

void makeRuns(const std::string& folder) {
    fs::create_directories(folder + "/runs");
    std::ofstream plan(folder + "/runs/plan.csv");
    plan << "name,data_file,type\n";
    for (int k = 1000; k < 1000 + runCount; ++k) {
        std::ofstream(folder + "/runs/R" + std::to_string(k) + ".DAT") << catchment;
        plan << "r" << k << ",R" << k << ".DAT,0\n";
    }
}

// Its last row is refused, so that nothing starts.
void makeLongPlan(const std::string& folder) {
    fs::create_directories(folder + "/long");
    std::ofstream plan(folder + "/long/plan.csv");
    plan << "name,data_file,type,title\n";
    for (int k = 0; k < longPlanRows; ++k) {
        const int number = 1000000 + k;
        std::ofstream(folder + "/long/R" + std::to_string(number) + ".DAT") << catchment;
        plan << "run " << k << ",R" << number << ".DAT,0,Holme STW at " << k << " per mille\n";
    }
    plan << "last,NONE.DAT,0,\n";
}

Cost runsWith(const std::string& folder, const char* jobs) {
    return run({KORVEL_PROGRAM, "runs", folder + "/runs/plan.csv", "--jobs", jobs}).cost;
}

Cost shellRuns(const std::string& folder) {
    return run({"/bin/sh", "-c", plainLoop, "sh", folder,
                modelFolder(fs::canonical(folder + "/runs").string()), ENGINE_PROGRAM})
        .cost;
}

Cost check(const std::string& folder) {
    return run({"/bin/sh", "-c", "\"$1\" runs \"$2\" 2>/dev/null; [ $? = 1 ]", "sh", KORVEL_PROGRAM,
                folder + "/long/plan.csv"})
        .cost;
}

void measureRuns(const std::string& folder, int rounds) {
    makeRuns(folder);
    const Contest contest(rounds, {[&] { return runsWith(folder, "2"); },
                                   [&] { return runsWith(folder, "1"); }, [&] { return shellRuns(folder); }});
    const Cost one = contest.medianOf(1);
    const Cost shell = contest.medianOf(2);
    const double ratio = contest.ratio(0, 1).clock;
    constexpr double target = 1 / 1.7;
    print({"korvel runs, 300 small runs, 2 at a time, clock", milliseconds(contest.medianOf(0).clock),
           "one after the other", milliseconds(one.clock), "", twoDecimals(ratio), "<= 0.59",
           ratio > target && std::thread::hardware_concurrency() >= 2});
    printTimeBound("our own part of a run, clock", (one.clock - shell.clock) / runCount, "the bound", 0.015);
    printTimeBound("our own part of a run, processor", (one.processor - shell.processor) / runCount,
                   "the bound", 0.015);
}

void measureChecking(const std::string& folder, int rounds) {
    makeLongPlan(folder);
    const Contest contest(rounds, {[&] { return check(folder); }});
    printTimeBound("checking a plan of 100000 rows", contest.medianOf(0).clock, "the bound", 2);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const int rounds = std::max(1, std::atoi(argv[2]) / 3);
    measureRuns(argv[1], rounds);
    measureChecking(argv[1], rounds);
}
