#include "study/RunNames.h"

#include <algorithm>

namespace korvel {

namespace {

// The last `parts` components; the whole path where it has no more.
std::string trailingPart(const std::string& path, int parts) {
    std::size_t start = path.size();
    for (int k = 0; k < parts && start != std::string::npos; ++k)
        start = start == 0 ? std::string::npos : path.rfind('\\', start - 1);
    return start == std::string::npos ? path : path.substr(start + 1);
}

bool endsWithPart(const std::string& path, const std::string& part) {
    return path == part || path.ends_with("\\" + part);
}

std::string shortestOwnPart(const std::vector<std::string>& files, const std::string& file) {
    const auto isOwn = [&](const std::string& part) {
        return std::ranges::none_of(
            files, [&](const std::string& other) { return other != file && endsWithPart(other, part); });
    };
    int parts = 1;
    std::string part = trailingPart(file, parts);
    while (part != file && !isOwn(part))
        part = trailingPart(file, ++parts);
    return part;
}

std::string inHostForm(std::string part) {
    std::ranges::replace(part, '\\', '/');
    return part.starts_with("Z:/") ? part.substr(2) : part;
}

} // namespace

std::vector<std::string> runNames(const std::vector<std::string>& files) {
    std::vector<std::string> names;
    for (auto file = files.begin(); file != files.end(); ++file) {
        std::string name = inHostForm(shortestOwnPart(files, *file));
        const auto times = std::count(files.begin(), file, *file) + 1;
        if (times > 1) name += " (" + std::to_string(times) + ")";
        names.push_back(std::move(name));
    }
    return names;
}

} // namespace korvel
