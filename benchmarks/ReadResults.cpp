// `korvel info` on the largest results file, the whole process, against counting the file's lines and against
// a reader with a general number parser. Arguments: a folder for the files, the number of rounds.
#include "LargeResultsFile.h"
#include "Program.h"
#include "Rows.h"

#include <cstdlib>

namespace korvel {

namespace {

constexpr double mebibyte = 1024 * 1024;

std::string madeFile(const std::string& folder, const char* name, ResultsForm form) {
    std::string path = folder + "/" + name;
    writeLargeResultsFile(path, form);
    return path;
}

ProgramCost runWarm(const std::vector<std::string>& command) {
    warmMemory();
    return run(command);
}

void measureFixedWidth(const std::string& path, int rounds) {
    double peak = 0;
    const auto ours = [&] {
        const ProgramCost cost = runWarm({KORVEL_PROGRAM, "info", path});
        peak = std::max(peak, cost.peakBytes);
        return cost.cost;
    };
    const Contest contest(rounds, {ours,
                                   [&] {
                                       return runWarm({"wc", "-l", path}).cost;
                                   },
                                   [&] {
                                       return runWarm({FROM_CHARS_PROGRAM, path}).cost;
                                   }});
    const std::string job = "korvel info, 59999 points x 10 determinands";
    printTimes(job, "wc -l", contest, 1, 5);
    printTimes(job, "reader with from_chars", contest, 2, 0.35);
    const double arrays = 8.0 * largeValuesPerPoint * (largePoints + 1);
    printBound("its peak memory", peak, "one slot's arrays + 64 MiB", arrays + 64 * mebibyte);
}

void measureBlanks(const std::string& path, int rounds) {
    const Contest contest(rounds, {[&] {
                                       return runWarm({KORVEL_PROGRAM, "info", path}).cost;
                                   },
                                   [&] {
                                       return runWarm({FROM_CHARS_PROGRAM, path}).cost;
                                   }});
    printTimes("the same between blanks, other captions and lines", "reader with from_chars", contest, 1,
               0.75);
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string folder = argv[1];
    const int rounds = std::atoi(argv[2]);
    measureFixedWidth(madeFile(folder, "fixed.sgr", ResultsForm::fixedWidth), rounds);
    measureBlanks(madeFile(folder, "blanks.sgr", ResultsForm::blanks), rounds);
}
