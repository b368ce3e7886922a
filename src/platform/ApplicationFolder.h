// Where the program keeps what belongs to it: the engine, the help pages, MISC.TXT and RUNDAT.TMP.
#pragma once

#include <optional>
#include <string>

namespace korvel {

struct ApplicationFolderSources {      // host paths; "" where there is none
    std::optional<std::string> option; // --application-folder
    std::string korvelHome;            // $KORVEL_HOME
    std::string executableFolder;
    std::string dataHome; // $XDG_DATA_HOME
    std::string home;     // $HOME
};

// The sources of this process.
ApplicationFolderSources applicationFolderSources(std::optional<std::string> option);

// The option, else $KORVEL_HOME, else the executable's folder where it can be written, else "korvel" in the
// user's data folder; relative folders of the environment count for none. Absolute, without a slash at the
// end. A RunTimeError where there is none of them.
std::string applicationFolder(const ApplicationFolderSources& sources);

// The user's own application folder is filled on first use from what is installed beside the executable: the
// engine, the help pages, and a MISC.TXT that offers the home folder. What is there is left alone.
void fillApplicationFolder(const std::string& folder, const ApplicationFolderSources& sources);

} // namespace korvel
