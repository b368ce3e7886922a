// Loading a second results file, which is checked against the first, against loading the first. Arguments:
// the folder with the file, the number of rounds.
#include "LargeResultsFile.h"
#include "Rows.h"
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"
#include "results/ResultsReader.h"

#include <cstdlib>
#include <memory>

namespace korvel {

namespace {

void load(const std::string& name, ResultsDataSet& results, int slot) {
    const auto file = DiskFiles().open(name);
    prepareLoad(results, slot);
    const LoadEnd end = readResults(*file, results, slot, {[](const Message&) {}, [](double) {}});
    if (end != LoadEnd::loaded || results.pointCount != largePoints) std::exit(1);
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string path = argv[1] + std::string("/fixed.sgr");
    if (!std::filesystem::exists(path)) writeLargeResultsFile(path, ResultsForm::fixedWidth);
    const std::string name = modelNameOfHostPath(path);
    // The arrays of both slots are untouched before each round.
    auto results = std::make_unique<ResultsDataSet>();
    load(name, *results, 0);
    const Contest contest(std::atoi(argv[2]), {[&] { return costOf([&] { load(name, *results, 1); }); },
                                               [&] {
                                                   results = std::make_unique<ResultsDataSet>();
                                                   return costOf([&] { load(name, *results, 0); });
                                               }});
    printTimes("loading a second file, checked against the first", "loading the first", contest, 1, 1.2);
}
