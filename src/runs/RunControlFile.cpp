#include "runs/RunControlFile.h"

#include "basic/LineOutput.h"
#include "basic/Numbers.h"
#include "basic/Text.h"

namespace korvel {

namespace {

void addRun(LineOutput& output, const ControlledRun& run) {
    output.line(trim(run.folder));
    output.line(dataFileOf(run));
    output.line(freePrint(run.runType));
}

} // namespace

std::string dataFileOf(const ControlledRun& run) {
    return run.folder + trim(run.base) + ".DAT";
}

std::string singleRunText(std::string_view runMode, const ControlledRun& run) {
    LineOutput output;
    output.line(runMode);
    addRun(output, run);
    return output.text();
}

std::string batchRunText(std::string_view title, const std::vector<ControlledRun>& runs) {
    LineOutput output;
    const std::string trimmed = trim(title);
    output.line(trimmed.empty() ? "-" : trimmed);
    for (const ControlledRun& run : runs)
        if (!trim(run.base).empty()) addRun(output, run);
    return output.text();
}

} // namespace korvel
