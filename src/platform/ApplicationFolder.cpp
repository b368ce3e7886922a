#include "platform/ApplicationFolder.h"

#include "basic/LineOutput.h"
#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "basic/Text.h"
#include "platform/DiskFiles.h"
#include "platform/StartTurn.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace korvel {

namespace fs = std::filesystem;

namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string absolute(const std::string& path) {
    std::error_code withoutFolder; // the current one is gone; the path then names nothing
    const fs::path whereItStands = fs::absolute(path, withoutFolder);
    std::string whole = (withoutFolder ? fs::path(path) : whereItStands).lexically_normal().string();
    while (whole.size() > 1 && whole.back() == '/')
        whole.pop_back();
    return whole;
}

bool isAbsolute(const std::string& path) {
    return path.starts_with('/');
}

// "" where the user has none. A relative one counts for none: it would lie wherever the program was called.
std::string userFolder(const ApplicationFolderSources& sources) {
    if (isAbsolute(sources.dataHome)) return absolute(sources.dataHome + "/korvel");
    return isAbsolute(sources.home) ? absolute(sources.home + "/.local/share/korvel") : "";
}

bool isHelpPage(const std::string& file) {
    return beginsWith(file, "KORDAT") && last(file, 4) == ".TXT";
}

// Beside its place first, so that a full disk leaves no half of it there.
void copyWhole(const fs::path& from, const fs::path& to) {
    std::error_code problem, ignored;
    if (fs::exists(to, ignored)) return;
    const fs::path beside = to.string() + ".new";
    if (fs::copy_file(from, beside, fs::copy_options::overwrite_existing, problem))
        fs::rename(beside, to, problem);
    if (problem) fs::remove(beside, ignored);
}

void copyInstalled(const fs::path& from, const fs::path& to) {
    std::error_code ignored;
    for (fs::directory_iterator entry(from, ignored), end; entry != end; entry.increment(ignored)) {
        const std::string file = entry->path().filename().string();
        if (file == EngineFileName || isHelpPage(file)) copyWhole(entry->path(), to / file);
    }
}

void writeFirstSettings(const fs::path& file, const std::string& home) {
    std::error_code ignored;
    if (fs::exists(file, ignored)) return;
    LineOutput lines;
    lines.line(modelNameOfHostPath(home));
    lines.line("");
    lines.line("False");
    try {
        DiskFiles().writeWhole(modelNameOfHostPath(file.string()), lines.text());
    } catch (const RunTimeError&) {
        // The start that misses the file tells it.
    }
}

} // namespace

ApplicationFolderSources applicationFolderSources(std::optional<std::string> option) {
    std::error_code ignored;
    return {std::move(option), environment("KORVEL_HOME"),
            fs::read_symlink("/proc/self/exe", ignored).parent_path().string(), environment("XDG_DATA_HOME"),
            environment("HOME")};
}

std::string applicationFolder(const ApplicationFolderSources& sources) {
    if (sources.option) return absolute(*sources.option);
    if (isAbsolute(sources.korvelHome)) return absolute(sources.korvelHome);
    if (access(sources.executableFolder.c_str(), W_OK) == 0) return absolute(sources.executableFolder);
    if (const std::string own = userFolder(sources); !own.empty()) return own;
    throw RunTimeError(errors::pathNotFound,
                       "There is no folder for the program's files. Set HOME, or name a "
                       "folder by --application-folder or KORVEL_HOME");
}

void fillApplicationFolder(const std::string& folder, const ApplicationFolderSources& sources) {
    if (folder != userFolder(sources)) return;
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    copyInstalled(sources.executableFolder, folder);
    writeFirstSettings(fs::path(folder) / "MISC.TXT", sources.home);
}

} // namespace korvel
