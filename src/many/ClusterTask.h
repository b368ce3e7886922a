// One task of a submission, on a node of the cluster: its rows one after the other, with a record of its own.
#pragma once

#include "many/RowRun.h"
#include "many/Submission.h"

namespace korvel {

enum class TaskEnd { allDone, notAll };

// Fails with RunTimeError where its record can't be written.
TaskEnd carryOutTask(const Submission& submission, std::size_t task, const RunSetting& setting,
                     EngineRun& engine);

} // namespace korvel
