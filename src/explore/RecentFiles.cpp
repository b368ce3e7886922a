#include "explore/RecentFiles.h"

namespace korvel {

std::vector<std::string> withRecent(const std::vector<std::string>& files, const std::string& opened) {
    std::vector<std::string> recent{opened};
    for (const std::string& file : files)
        if (file != opened && recent.size() < MostRecentFiles) recent.push_back(file);
    return recent;
}

} // namespace korvel
