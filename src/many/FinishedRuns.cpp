#include "many/FinishedRuns.h"

#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "many/Plan.h"
#include "many/PlanPlaces.h"
#include "many/RecordFile.h"
#include "many/Resume.h"
#include "platform/DiskFiles.h"

namespace korvel {

namespace {

std::string nameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::string textAt(const std::string& path) {
    return DiskFiles().readAll(modelNameOfHostPath(path));
}

// A record that is not there has nothing finished.
std::string recordText(const std::string& path) {
    try {
        return textAt(path);
    } catch (const RunTimeError& error) {
        if (error.number == errors::fileNotFound) return "";
        throw;
    }
}

void takeFinished(const Plan& plan, const PlanPlaces& places, FinishedRuns& finished) {
    const RecordText record = readRecord(recordText(places.record));
    if (record.brokenLine != 0)
        finished.problems.push_back(nameOf(places.record) + ", line " + std::to_string(record.brokenLine) +
                                    " is none of a record.");
    for (const PlannedRun& run : plan.runs) {
        const auto found = record.last.find(run.name);
        if (found == record.last.end()) continue;
        const RunRecord& last = found->second;
        if (last.state == RunState::done && last.dataFile == run.dataFile && last.type == run.type)
            finished.runs.push_back({run.name, run.title, pathFromPlan(places.folder, last.results)});
    }
}

} // namespace

FinishedRuns finishedRuns(const std::string& plan) {
    const PlanPlaces places = placesOfPlan(plan);
    FinishedRuns finished;
    try {
        const Plan read = readFinishedPlan(textAt(places.plan), places.folder);
        finished.planned = read.runs.size();
        finished.problems = problemLines(read, nameOf(places.plan));
        if (finished.problems.empty()) takeFinished(read, places, finished);
    } catch (const RunTimeError& error) {
        finished.problems.push_back(nameOf(places.plan) + " can't be read: " + error.description + ".");
    }
    return finished;
}

} // namespace korvel
