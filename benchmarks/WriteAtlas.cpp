// What an atlas takes beside painting: the same pictures, ready made, through the same painter into a
// document of their own. Reading counts on neither side. Arguments: a folder for the files, the number of
// rounds.
#include "LargeResultsFile.h"
#include "Program.h"
#include "Rows.h"
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"
#include "publish/Atlas.h"
#include "toolkit/desktop/StartQt.h"
#include "toolkit/paper/PdfPaper.h"

#include <QGuiApplication>

#include <cstdlib>
#include <filesystem>
#include <numeric>

namespace korvel {

namespace {

constexpr double target = 1.1;

Study studyOf(const std::vector<std::string>& paths) {
    DiskFiles files;
    std::vector<StudyRun> runs;
    for (const std::string& path : paths) {
        const SharedRun file = readRun(files, modelNameOfHostPath(path)).run;
        if (!file) std::exit(1);
        runs.push_back({std::filesystem::path(path).filename().string(), file});
    }
    return Study(std::move(runs));
}

AtlasRequest everySeries(const Study& study) {
    AtlasRequest request;
    request.series.resize(static_cast<std::size_t>(2 * study.base().results().determinandCount + 1));
    std::iota(request.series.begin(), request.series.end(), 0);
    return request;
}

PrintRequest requestOf(const Atlas& atlas) {
    return {atlas.title(), Orientation::landscape, "", atlas.outline()};
}

void measure(const std::string& job, const Study& study, const std::string& folder, int rounds) {
    DiskFiles files;
    const QtTextMetrics metrics;
    const Atlas made(study, everySeries(study), metrics);
    std::vector<Drawing> pictures;
    for (std::size_t page = 0; page < made.pageCount(); ++page)
        pictures.push_back(made.page(page));
    const auto write = [&] {
        PdfFilePaper ours(files, modelNameOfHostPath(folder + "/atlas.pdf"));
        const Atlas atlas(study, everySeries(study), ours.metrics());
        const auto document = ours.begin(requestOf(atlas));
        Drawing drawing;
        for (std::size_t page = 0; page < atlas.pageCount(); ++page) {
            drawing = atlas.page(page, std::move(drawing));
            document->page(drawing);
        }
        document->finish();
    };
    const auto paint = [&] {
        PdfFilePaper theirs(files, modelNameOfHostPath(folder + "/pictures.pdf"));
        const auto document = theirs.begin(requestOf(made));
        for (const Drawing& picture : pictures)
            document->page(picture);
        document->finish();
    };
    const Contest contest(rounds, {[&] { return costOf(write); }, [&] { return costOf(paint); }});
    printTimes(job + ", " + std::to_string(pictures.size()) + " pages", "painting the same pictures", contest,
               1, target);
}

// Made here by the engine, beside copies of the data files.
Study samples(const std::filesystem::path& folder) {
    std::vector<std::string> paths;
    for (const char* name : {"ALDER", "ALDER2"}) {
        const std::filesystem::path data = folder / (std::string(name) + ".DAT");
        std::filesystem::copy_file(std::filesystem::path(SAMPLES_FOLDER) / data.filename(), data,
                                   std::filesystem::copy_options::overwrite_existing);
        run({KORVEL_PROGRAM, "run", data.string(), "--wait"});
        paths.push_back((folder / (std::string(name) + ".SGR")).string());
    }
    return studyOf(paths);
}

Study large(const std::filesystem::path& folder) {
    const std::filesystem::path path = folder / "fixed.sgr";
    if (!std::filesystem::exists(path)) writeLargeResultsFile(path, ResultsForm::fixedWidth);
    return studyOf({path.string()});
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    settleForNoDisplay();
    const QGuiApplication application(argc, argv);
    const std::string folder = argv[1];
    const int rounds = std::atoi(argv[2]);
    measure("atlas of the samples' two runs", samples(folder), folder, rounds);
    measure("atlas of 59999 points x 10", large(folder), folder, std::max(1, rounds / 3));
}
