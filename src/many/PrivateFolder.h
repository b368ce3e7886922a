// The folder of one run: a link to the engine and to every file that lies beside it, and a run-control file
// of its own.
#pragma once

#include "many/EngineRules.h"

#include <string>
#include <vector>

namespace korvel {

// Host paths of the files in the application folder that a run may need: the engine and whatever else its
// owners put there, without what belongs to the front end. Fails with RunTimeError where there is no engine
// (53).
std::vector<std::string> filesOfEngine(const std::string& applicationFolder, const EngineRules& rules);

// Made anew where it is there already. Fails with RunTimeError.
void makePrivateFolder(const std::string& path, const std::vector<std::string>& linkedFiles,
                       const std::string& runControlFile, const std::string& runControlText);

// What can't be removed stays.
void removePrivateFolder(const std::string& path);

} // namespace korvel
