// The rules of a single run, as they are handed to whoever carries out a plan of many.
#pragma once

#include "many/EngineRules.h"
#include "runs/DataFileName.h"
#include "runs/RunControlFile.h"

namespace korvel {

inline EngineRules rulesOfSingleRuns() {
    return {[](const std::string& modelName) -> std::variant<RunFiles, std::string> {
                const DataFileVerdict verdict = dataFileToOpen(modelName);
                if (const Message* refusal = std::get_if<Message>(&verdict)) return refusal->text;
                const DataFileNames& names = std::get<DataFileNames>(verdict);
                return RunFiles{names.folder, names.base};
            },
            [](const RunFiles& files, int runType) {
                return singleRunText("SINGLE", {files.folder, files.base, runType});
            },
            RunControlFileName, EngineFileName};
}

} // namespace korvel
