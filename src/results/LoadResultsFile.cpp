#include "results/LoadResultsFile.h"

#include "basic/ModelName.h"
#include "basic/Text.h"
#include "global/GLOBAL.h"
#include "results/ResultsReader.h"

#include <new>

namespace korvel {

namespace {

std::unique_ptr<ByteSource> openOnReadersChannel(Files& files, const std::string& name) {
    if (GLOBAL.readersChannelOpen) throw RunTimeError(errors::fileAlreadyOpen);
    return files.open(name);
}

void readCurrentFile(Platform& platform, const LoadProgress& progress) {
    const LoadWatch watch{[&](const Message& message) { platform.dialogs.show(message); }, progress};
    const auto file = openOnReadersChannel(platform.files, GLOBAL.fileNames[GLOBAL.currentSlot]);
    if (readResults(*file, RESULTS, GLOBAL.currentSlot, watch) == LoadEnd::loaded) {
        GLOBAL.plotInterpolatedPoints = RESULTS.hasInterpolatedPoints;
        ++GLOBAL.loads;
        return;
    }
    // Kept so: an abandoned file stays open, and the next load fails to open its own.
    GLOBAL.readersChannelOpen = true;
    GLOBAL.loadFailed = true;
}

void endUnreadable(Platform& platform, bool showErrors) {
    if (showErrors) platform.dialogs.show(unreadableResults());
    GLOBAL.readersChannelOpen = false;
    GLOBAL.loadFailed = true;
}

} // namespace

void LoadResultsFile(Platform& platform, bool showErrors, const LoadProgress& progress) {
    GLOBAL.loadFailed = false;
    prepareLoad(RESULTS, GLOBAL.currentSlot);
    const bool ofFirstSlot = GLOBAL.currentSlot == 0;
    if (ofFirstSlot) ++GLOBAL.firstSlotLoads;
    try {
        readCurrentFile(platform, progress);
    } catch (const RunTimeError&) {
        endUnreadable(platform, showErrors);
    } catch (const std::bad_alloc&) { // a field as long as the memory is large
        endUnreadable(platform, showErrors);
    }
    if (ofFirstSlot) GLOBAL.firstSlotLoaded = !GLOBAL.loadFailed;
}

std::string ShortFileName(const std::string& path, int maxLength) {
    const std::string trimmed = trim(path);
    return static_cast<int>(trimmed.size()) <= maxLength ? trimmed : fileOf(trimmed);
}

} // namespace korvel
