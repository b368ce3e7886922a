#include "study/RunNames.h"

#include <algorithm>
#include <unordered_map>

namespace korvel {

namespace {

// The last `parts` components; the whole path where it has no more.
std::string trailingPart(const std::string& path, int parts) {
    std::size_t start = path.size();
    for (int k = 0; k < parts && start != std::string::npos; ++k)
        start = start == 0 ? std::string::npos : path.rfind('\\', start - 1);
    return start == std::string::npos ? path : path.substr(start + 1);
}

using Parts = std::unordered_map<std::string, std::string>; // by file

// Of each file the shortest trailing part that no other one ends with. Those that share a part are told apart
// by a longer one, so that thousands of files take little time.
Parts shortestOwnParts(std::vector<std::string> files) {
    Parts ownParts;
    for (int parts = 1; !files.empty(); ++parts) {
        std::unordered_map<std::string, std::vector<std::string>> byPart;
        for (std::string& file : files)
            byPart[trailingPart(file, parts)].push_back(std::move(file));
        files.clear();
        for (auto& [part, sharing] : byPart) {
            for (std::string& file : sharing) {
                if (sharing.size() == 1 || part == file)
                    ownParts.emplace(file, part);
                else
                    files.push_back(std::move(file));
            }
        }
    }
    return ownParts;
}

std::string inHostForm(std::string part) {
    std::ranges::replace(part, '\\', '/');
    return part.starts_with("Z:/") ? part.substr(2) : part;
}

} // namespace

std::vector<std::string> runNames(const std::vector<std::string>& files) {
    std::unordered_map<std::string, int> times;
    std::vector<std::string> distinct, names;
    for (const std::string& file : files)
        if (times.try_emplace(file).second) distinct.push_back(file);
    const Parts ownParts = shortestOwnParts(std::move(distinct));
    for (const std::string& file : files) {
        const int time = ++times[file];
        names.push_back(inHostForm(ownParts.at(file)) + (time > 1 ? " (" + std::to_string(time) + ")" : ""));
    }
    return names;
}

} // namespace korvel
