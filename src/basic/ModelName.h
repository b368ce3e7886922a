// Model names: the paths that the program and the engine exchange, with drive and backslashes
// ("Z:\HOME\ANN\TEST.DAT"). Drive Z: is the root folder of the machine.
#pragma once

#include <string>
#include <string_view>

namespace korvel {

// "/home/ann/a.sgr" -> "Z:\home\ann\a.sgr". The host path must be absolute.
std::string modelNameOfHostPath(std::string_view hostPath);

// Everything up to and including the last backslash; "" without one.
std::string folderOf(std::string_view modelName);
// What follows the last backslash; the whole name without one.
std::string fileOf(std::string_view modelName);
// A folder with exactly one backslash between it and the file; the file alone where the folder is "".
std::string inFolder(std::string_view folder, std::string_view file);

} // namespace korvel
