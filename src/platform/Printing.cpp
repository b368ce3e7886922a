#include "platform/Printing.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"

namespace korvel {

Message printerRefused() {
    return {"Your printer is offline or out of paper.", "Printer", Icon::information, Buttons::ok};
}

void finishPrinting(Platform& platform, PrintJob& job) {
    const std::string file = job.finish();
    if (file.empty()) return;
    platform.dialogs.show({"There is no printer, so the pages were written to " + hostPathOf(file) + ".",
                           "Printer", Icon::information, Buttons::ok});
}

std::string besideResults(const std::string& resultsFile, const std::string& ending) {
    const std::string file = fileOf(resultsFile);
    return folderOf(resultsFile) + file.substr(0, file.rfind('.')) + ending;
}

} // namespace korvel
