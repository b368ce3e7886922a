#include "basic/DiskNames.h"

#include "basic/Text.h"

#include <dirent.h>
#include <functional>
#include <memory>
#include <sys/stat.h>
#include <vector>

namespace korvel {

namespace {

std::vector<std::string> componentsOf(std::string_view path, char separator) {
    std::vector<std::string> components;
    while (!path.empty()) {
        const auto end = std::min(path.find(separator), path.size());
        if (end > 0) components.emplace_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return components;
}

// The folder is "" for the root, or ends without a slash.
std::string pathIn(const std::string& folder, const std::string& component) {
    return folder + '/' + component;
}

bool isThere(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

void forEachName(const std::string& folder, const std::function<void(const std::string&)>& take) {
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(pathIn(folder, ".").c_str()), closedir);
    if (!listing) return;
    while (const dirent* entry = readdir(listing.get()))
        take(entry->d_name);
}

// The first name in byte order that differs from the component in case only; the component itself without
// one.
std::string firstTwin(const std::string& folder, const std::string& component) {
    const std::string wanted = upperCase(component);
    std::string found;
    forEachName(folder, [&](const std::string& name) {
        if (upperCase(name) == wanted && (found.empty() || name < found)) found = name;
    });
    return found.empty() ? component : found;
}

// Of a data file: blanks around its name and before its extension are lost on the way to the engine.
bool losesBlanks(const std::string& file) {
    const std::string base = file.substr(0, file.rfind('.'));
    return trim(file) != file || trim(base) != base;
}

bool isOnZ(std::string_view name) {
    return name.size() >= 2 && (name[0] == 'Z' || name[0] == 'z') && name[1] == ':' &&
           (name.size() == 2 || name[2] == '\\');
}

using Spelling = std::function<std::string(const std::string& folder, const std::string& component)>;

std::optional<std::string> whyNotFoundAgain(std::string_view hostPath, NameUse use,
                                            const Spelling& spelling) {
    std::string folder;
    for (const std::string& component : componentsOf(hostPath, '/')) {
        const std::string found =
            spelling(folder, use == NameUse::inUpperCase ? upperCase(component) : component);
        if (found != component) {
            if (isThere(pathIn(folder, found)))
                return "Another file or folder has the same name but for upper and lower case. Rename one of "
                       "them.";
            if (isThere(pathIn(folder, component)))
                return "The folder of this file can't be listed, so that the file would not be found again. "
                       "Choose a file "
                       "in another folder.";
            return std::nullopt; // a new name, made as it is spelt
        }
        folder = pathIn(folder, component);
    }
    if (use == NameUse::inUpperCase && isThere(folder) && losesBlanks(folder.substr(folder.rfind('/') + 1)))
        return "The name begins or ends with a blank, so that the model would not find the file. Rename it.";
    return std::nullopt;
}

std::optional<std::string> whyNotAModelName(std::string_view hostPath, NameUse use,
                                            const Spelling& spelling) {
    if (contains(hostPath, "\\"))
        return "The name holds a backslash, which a model name can't hold. Rename the file or folder.";
    // The files that name files hold one a line.
    if (hostPath.find_first_of("\r\n") != std::string_view::npos)
        return "The name holds a line end, which a model name can't hold. Rename the file or folder.";
    return whyNotFoundAgain(hostPath, use, spelling);
}

} // namespace

std::string spellingOnDisk(const std::string& folder, const std::string& component) {
    return isThere(pathIn(folder, component)) ? component : firstTwin(folder, component);
}

const std::string& KnownFolders::spellingOnDisk(const std::string& folder, const std::string& component) {
    const auto [place, isNew] = m_spellings.try_emplace(pathIn(folder, component), component);
    if (isNew && !isThere(place->first)) {
        const Twins& twins = twinsIn(folder);
        const auto twin = twins.find(upperCase(component));
        if (twin != twins.end()) place->second = twin->second;
    }
    return place->second;
}

const KnownFolders::Twins& KnownFolders::twinsIn(const std::string& folder) {
    const auto [place, isNew] = m_twins.try_emplace(folder);
    Twins& twins = place->second;
    if (!isNew) return twins;
    forEachName(folder, [&twins](const std::string& name) {
        const auto [twin, isFirst] = twins.try_emplace(upperCase(name), name);
        if (!isFirst && name < twin->second) twin->second = name;
    });
    return twins;
}

std::string hostPathOf(std::string_view modelName) {
    if (!isOnZ(modelName)) return std::string(modelName);
    std::string path;
    for (const std::string& component : componentsOf(modelName.substr(2), '\\'))
        path = pathIn(path, spellingOnDisk(path, component));
    return path.empty() ? "/" : path;
}

std::optional<std::string> whyNotAModelName(std::string_view hostPath, NameUse use) {
    return whyNotAModelName(hostPath, use, [](const std::string& folder, const std::string& component) {
        return spellingOnDisk(folder, component);
    });
}

std::optional<std::string> whyNotAModelName(std::string_view hostPath, NameUse use, KnownFolders& known) {
    return whyNotAModelName(hostPath, use, [&](const std::string& folder, const std::string& component) {
        return known.spellingOnDisk(folder, component);
    });
}

} // namespace korvel
