#include "many/Resume.h"

#include "basic/RunTimeError.h"
#include "basic/Sha256.h"

#include <filesystem>

namespace korvel {

namespace {

bool hasSum(const std::string& path, const std::string& sum) {
    try {
        return !sum.empty() && sha256OfFile(path) == sum;
    } catch (const RunTimeError&) {
        return false;
    }
}

} // namespace

bool stillHolds(const PlannedRun& run, const RunRecord& record, const std::string& engineSum,
                const std::string& folder) {
    return record.state == RunState::done && record.dataFile == run.dataFile && record.type == run.type &&
           record.engineSum == engineSum && !record.results.empty() && hasSum(run.dataPath, record.dataSum) &&
           hasSum(pathFromPlan(folder, record.results), record.resultsSum);
}

std::string pathFromPlan(const std::string& folder, const std::string& name) {
    return (std::filesystem::path(folder) / name).lexically_normal().string();
}

} // namespace korvel
