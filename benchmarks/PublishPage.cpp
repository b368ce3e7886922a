// What the published page takes: of the samples' two runs, read and written by the program, and of twelve of
// the largest runs once they are read, within the limits of a page. Arguments: a folder for the files, the
// number of rounds.
#include "LargeResultsFile.h"
#include "Program.h"
#include "Rows.h"
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"
#include "publish/Page.h"

#include <cstdlib>
#include <numeric>

namespace korvel {

namespace {

constexpr double mostSecondsOfSamples = 0.3;
constexpr double mostBytesOfSamples = 1.5e6;
constexpr double mostSecondsOfLarge = 4;
constexpr std::size_t largeRuns = 12;

// Made here by the engine, beside copies of the data files.
std::vector<std::string> sampleRuns(const std::filesystem::path& folder) {
    std::vector<std::string> runs;
    for (const char* name : {"ALDER", "ALDER2"}) {
        const std::filesystem::path data = folder / (std::string(name) + ".DAT");
        std::filesystem::copy_file(std::filesystem::path(SAMPLES_FOLDER) / data.filename(), data,
                                   std::filesystem::copy_options::overwrite_existing);
        run({KORVEL_PROGRAM, "run", data.string(), "--wait"});
        runs.push_back((folder / (std::string(name) + ".SGR")).string());
    }
    return runs;
}

void measureSamples(const std::filesystem::path& folder, int rounds) {
    std::vector<std::string> command = {KORVEL_PROGRAM, "publish"};
    for (const std::string& file : sampleRuns(folder))
        command.push_back(file);
    const std::filesystem::path page = folder / "page.html";
    command.insert(command.end(), {"--output", page.string()});
    const Contest contest(rounds, {[&] { return run(command).cost; }});
    printTimeBound("korvel publish, the samples' two runs", contest.medianOf(0).clock, "bound",
                   mostSecondsOfSamples);
    printBound("its size", static_cast<double>(std::filesystem::file_size(page)), "bound",
               mostBytesOfSamples);
}

// One file stands for all: each run is looked at as if it were its own.
Study largeStudy(const std::filesystem::path& path) {
    DiskFiles files;
    const SharedRun file = readRun(files, modelNameOfHostPath(path.string())).run;
    if (!file) std::exit(1);
    std::vector<StudyRun> runs;
    for (std::size_t k = 0; k < largeRuns; ++k)
        runs.push_back({"run" + std::to_string(k) + ".sgr", file});
    return Study(std::move(runs));
}

void measureLarge(const std::filesystem::path& folder) {
    const std::filesystem::path path = folder / "fixed.sgr";
    if (!std::filesystem::exists(path)) writeLargeResultsFile(path, ResultsForm::fixedWidth);
    const Study study = largeStudy(path);
    PageRequest request;
    request.series.resize(2 * largeDeterminands + 1);
    std::iota(request.series.begin(), request.series.end(), 0);
    double bytes = 0;
    const Contest contest(
        1, {[&] {
            return costOf([&] {
                bytes = 0;
                OutputBytes out([&](std::string_view text) { bytes += static_cast<double>(text.size()); });
                writePage(study, request, out);
                out.flush();
            });
        }});
    printTimeBound("a page of 12 x 59999 points x 10, beside reading", contest.medianOf(0).processor, "bound",
                   mostSecondsOfLarge);
    printBound("its size", bytes, "40 MB", 40e6);
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    measureSamples(argv[1], std::atoi(argv[2]));
    measureLarge(argv[1]);
}
