#include "basic/ModelName.h"

#include <algorithm>

namespace korvel {

std::string modelNameOfHostPath(std::string_view hostPath) {
    std::string name("Z:");
    name.append(hostPath);
    std::replace(name.begin(), name.end(), '/', '\\');
    return name;
}

std::string folderOf(std::string_view modelName) {
    const auto backslash = modelName.rfind('\\');
    return std::string(modelName.substr(0, backslash == std::string_view::npos ? 0 : backslash + 1));
}

std::string fileOf(std::string_view modelName) {
    const auto backslash = modelName.rfind('\\');
    return std::string(modelName.substr(backslash == std::string_view::npos ? 0 : backslash + 1));
}

std::string inFolder(std::string_view folder, std::string_view file) {
    if (folder.empty()) return std::string(file);
    while (folder.ends_with('\\'))
        folder.remove_suffix(1);
    return std::string(folder).append("\\").append(file);
}

} // namespace korvel
