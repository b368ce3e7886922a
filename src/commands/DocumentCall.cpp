#include "commands/DocumentCall.h"

#include "basic/ModelName.h"
#include "commands/StudyCall.h"
#include "commands/StudyLists.h"
#include "platform/Printing.h"

namespace korvel {

DocumentCall documentCall(CommandCall& call, const std::string& ending) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--title", Kind::withValue},
                                            {"--series", Kind::withValue},
                                            {"--low-is-bad", Kind::withValue},
                                            {"--output", Kind::withValue}});
    const std::vector<std::string> files = studyFiles(line, {});
    DocumentCall document;
    const auto typed = line.value("--output");
    document.output = typed ? modelNameOfTyped(*typed) : besideResults(files.front(), ending);
    refuseOwnInput(call.platform.files, document.output, files);
    document.study = takeStudy(call, files);
    const ResultsDataSet& base = document.study.base().results();
    document.title = line.value("--title").value_or("");
    document.series = seriesChosen(line.value("--series"), base);
    document.lowIsBad = lowIsBadChosen(line.value("--low-is-bad"), base);
    return document;
}

} // namespace korvel
