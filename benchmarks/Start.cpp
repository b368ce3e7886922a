// From the start of the program to its first painted window, without a display, against a bare window: time,
// and memory then. Arguments: a folder, the number of rounds.
#include "Program.h"
#include "Rows.h"

#include <cstdlib>
#include <fstream>

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string folder = argv[1];
    std::ofstream(folder + "/MISC.TXT") << "Z:\\\r\n\r\nFalse\r\n";
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    double ours = 0, bare = 0, withTexts = 0; // bytes
    const auto cost = [](const std::vector<std::string>& command, double& bytes) {
        const ProgramCost cost = run(command);
        bytes = cost.peakBytes;
        return cost.cost;
    };
    const Contest contest(3 * std::atoi(argv[2]),
                          {[&] {
                               return cost({OUR_PROGRAM, "--application-folder", folder}, ours);
                           },
                           [&] { return cost({BARE_PROGRAM}, bare); },
                           [&] {
                               return cost({BARE_PROGRAM, "texts"}, withTexts);
                           }});
    const std::string job = "start to the first painted main form";
    printTimes(job, "a bare Qt window", contest, 1, 1.3);
    printTimes(job, "the same with two texts", contest, 2, 1.3);
    printBound("memory then", ours, "a bare Qt window + 10 MB", bare + 10e6);
    printBound("memory then", ours, "with two texts + 8 MB", withTexts + 8e6);
}
