#include "many/ResultsCheck.h"

#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "platform/DiskFiles.h"
#include "results/ResultsReader.h"

#include <memory>
#include <sys/stat.h>
#include <unordered_set>

namespace korvel {

namespace {

constexpr std::int64_t nanosecondsPerSecond = 1000000000;

std::int64_t nanoseconds(const timespec& time) {
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

std::optional<std::string> reachWithoutPoint(const ResultsDataSet& results) {
    std::unordered_set<int> withPoint;
    for (int point = 1; point <= results.pointCount; ++point)
        withPoint.insert(results.pointReach[point]);
    for (const int reach : results.reachOrder)
        if (!withPoint.contains(reach))
            return "The results have no point in reach " + std::to_string(reach) + ".";
    return std::nullopt;
}

} // namespace

FileStamp stampOf(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return {};
    return {true,
            status.st_dev,
            status.st_ino,
            status.st_size,
            nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

std::optional<std::string> whyNotWhole(const std::string& path) {
    constexpr int slot = 0;
    try {
        const auto results = std::make_unique<ResultsDataSet>();
        const auto file = DiskFiles().open(modelNameOfHostPath(path));
        std::string said;
        const LoadWatch watch{[&](const Message& message) { said = message.text; }, {}};
        prepareLoad(*results, slot);
        if (readResults(*file, *results, slot, watch) != LoadEnd::loaded)
            return "The results can't be read: " + said;
        return reachWithoutPoint(*results);
    } catch (const RunTimeError& error) {
        return "The results can't be read: " + error.description + ".";
    }
}

} // namespace korvel
