#include "fakes/StudySample.h"

#include "results/ResultsReader.h"

#include <stdexcept>

namespace korvel {

SharedRun runOf(const ResultsFileBuilder& file, const std::string& name) {
    const auto run = std::make_shared<RunFile>();
    run->file = name;
    TextSource source(file.text());
    prepareLoad(run->results, 0);
    readResults(source, run->results, 0, {[](const Message&) {}, {}});
    run->reaches = ReachPoints(run->results);
    return run;
}

Study studyOf(const std::vector<ResultsFileBuilder>& files) {
    Study study;
    char letter = 'a';
    for (const ResultsFileBuilder& file : files)
        if (const auto refusal = study.add(runOf(file, std::string("Z:\\") + letter++ + ".sgr")))
            throw std::invalid_argument(*refusal);
    return study;
}

} // namespace korvel
