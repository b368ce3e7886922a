#include "many/ClusterTask.h"

#include "basic/ModelName.h"
#include "many/RecordFile.h"
#include "many/Resume.h"

namespace korvel {

namespace {

// The plan was good when the row was handed over; what changed since then makes the run fail.
RunRecord carryOutRow(const RunRecord& row, const RunSetting& setting, RecordFile& taskRecord,
                      EngineRun& engine) {
    PlannedRun run;
    run.name = row.name;
    run.dataFile = row.dataFile;
    run.type = row.type;
    run.title = row.title;
    run.dataPath = pathFromPlan(setting.places.folder, row.dataFile);
    const auto verdict = setting.rules.dataFile(modelNameOfHostPath(run.dataPath));
    RunRecord record = startedRecord(setting, run);
    taskRecord.reserve(2);
    taskRecord.append(record);
    if (const RunFiles* files = std::get_if<RunFiles>(&verdict)) {
        run.files = *files;
        return carryOut(setting, run, record, engine);
    }
    record.state = RunState::failed;
    record.ended = timeNow();
    record.message = std::get<std::string>(verdict);
    return record;
}

} // namespace

TaskEnd carryOutTask(const Submission& submission, std::size_t task, const RunSetting& setting,
                     EngineRun& engine) {
    RecordFile taskRecord(submission.record(task), std::chrono::milliseconds(0));
    TaskEnd end = TaskEnd::allDone;
    for (const RunRecord& row : submission.rows(task)) {
        if (submission.stopAsked() || submission.isGone() || engine.stopAsked()) return TaskEnd::notAll;
        const RunRecord record = carryOutRow(row, setting, taskRecord, engine);
        taskRecord.append(record);
        taskRecord.flush();
        if (record.state != RunState::done) end = TaskEnd::notAll;
        if (record.state == RunState::stopped) return end;
    }
    return end;
}

} // namespace korvel
