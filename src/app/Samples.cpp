#include "app/Samples.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "basic/Text.h"

namespace korvel {

namespace {

constexpr const char* folderName = "korvel-samples";
constexpr const char* firstSample = "ALDER.DAT";
constexpr const char* dataEnding = ".DAT";

} // namespace

Message samplesQuestion(const std::string& folder) {
    return {"The sample catchment is made for the demonstration engine. Shall it be copied to " +
                shownUtf8(hostPathOf(folder)) +
                ", and the model be run on it?\nWhat is there already stays as it is.",
            "Samples", Icon::question, Buttons::yesNo};
}

Message samplesRefusal(const RunTimeError& error) {
    return {"The samples can't be copied: " + error.description + ".", "Samples", Icon::exclamation,
            Buttons::ok};
}

std::string copiedSamplesFolder(Machine& machine) {
    return inFolder(machine.homeFolder(), folderName);
}

std::string copySamples(Platform& platform) {
    const std::string from = platform.machine.samplesFolder();
    const std::string to = copiedSamplesFolder(platform.machine);
    platform.machine.makeFolder(to);
    for (const std::string& name : platform.files.filesIn(from)) {
        const std::string copy = inFolder(to, name);
        if (name.ends_with(dataEnding) && !platform.files.exists(copy))
            platform.files.writeWhole(copy, platform.files.readAll(inFolder(from, name)));
    }
    return inFolder(to, firstSample);
}

} // namespace korvel
