#include "many/PrivateFolder.h"

#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "basic/Text.h"
#include "platform/DiskFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace korvel {

namespace fs = std::filesystem;

namespace {

bool isOurs(const std::string& file, const EngineRules& rules) {
    const std::string name = upperCase(file);
    const bool isHelpPage = beginsWith(name, "KORDAT") && last(name, 4) == ".TXT";
    return file == "korvel" || name == "MISC.TXT" || name == upperCase(rules.runControlFile) || isHelpPage ||
           beginsWith(file, ".korvel-");
}

[[noreturn]] void fail(const std::error_code& problem) {
    throw runTimeErrorOfErrno(problem.value());
}

void linkFile(const std::string& file, const fs::path& folder) {
    std::error_code problem;
    fs::create_symlink(file, folder / fs::path(file).filename(), problem);
    if (problem) fail(problem);
}

// Nobody else reads it while it is made, so that it needs no other name first.
void writeFile(const fs::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) throw runTimeErrorOfErrno(errno);
    file << text << std::flush;
    if (!file) throw RunTimeError(errors::diskFull);
}

} // namespace

std::vector<std::string> filesOfEngine(const std::string& applicationFolder, const EngineRules& rules) {
    std::vector<std::string> files;
    bool hasEngine = false;
    for (const std::string& name : DiskFiles().filesIn(modelNameOfHostPath(applicationFolder))) {
        if (isOurs(name, rules)) continue;
        hasEngine = hasEngine || name == rules.engineFile;
        files.push_back((fs::path(applicationFolder) / name).string());
    }
    if (!hasEngine) throw RunTimeError(errors::fileNotFound, "File not found: " + rules.engineFile);
    std::ranges::sort(files);
    return files;
}

void makePrivateFolder(const std::string& path, const std::vector<std::string>& linkedFiles,
                       const std::string& runControlFile, const std::string& runControlText) {
    removePrivateFolder(path);
    std::error_code problem;
    fs::create_directories(path, problem);
    if (problem) fail(problem);
    for (const std::string& file : linkedFiles)
        linkFile(file, path);
    writeFile(fs::path(path) / runControlFile, runControlText);
}

void removePrivateFolder(const std::string& path) {
    std::error_code ignored;
    fs::remove_all(path, ignored);
}

} // namespace korvel
