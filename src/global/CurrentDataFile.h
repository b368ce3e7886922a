// The current input data file and the run being started. Written by DataFiles, RunModel and the batch form;
// read by the main form's title and by the results side.
#pragma once

#include <string>

namespace korvel {

struct CurrentDataFile {
    std::string DataFileName;  // full model name, upper case; "New Data" for a new file; empty when none
    std::string DataFolder;    // ends in a backslash
    std::string DataFileBase;  // without folder and ".DAT"
    std::string LastFolder;    // offered first by the open dialog; kept in MISC.TXT
    bool DataModified = false; // data changed and not saved; only ever cleared in this version
    int RunType = 0;           // 0 to 9
    std::string RunMode;       // "SINGLE"
    bool RunStarting = false;  // a run is choosing its data file: the title stays
};

} // namespace korvel
