#include "toolkit/process/OwnProcesses.h"

#include "basic/Text.h"

#include <charconv>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <unistd.h>

namespace korvel {

namespace fs = std::filesystem;

namespace {

std::optional<pid_t> processOf(const fs::path& folder) {
    const std::string name = folder.filename();
    pid_t number = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
    if (read.ec != std::errc() || read.ptr != name.data() + name.size()) return std::nullopt;
    return number;
}

// "" where another user's process keeps it to itself.
std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool hasSetting(const fs::path& process, const std::string& setting) {
    const std::string nothing(1, '\0');
    return contains(nothing + contentOf(process / "environ"), nothing + setting + nothing);
}

bool isWinesOwn(const fs::path& process) {
    std::error_code ignored;
    const std::string arguments = contentOf(process / "cmdline");
    return korvel::isWinesOwn(arguments.substr(0, arguments.find('\0')),
                              fs::read_symlink(process / "exe", ignored).filename());
}

} // namespace

OwnProcesses::OwnProcesses()
    : m_value(std::to_string(getpid()) + '-' +
              std::to_string(std::chrono::steady_clock::now().time_since_epoch().count())) {}

std::vector<pid_t> OwnProcesses::running() const {
    std::vector<pid_t> own;
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc", ignored)) {
        const auto process = processOf(entry.path());
        if (process && hasSetting(entry.path(), m_name + '=' + m_value) && !isWinesOwn(entry.path()))
            own.push_back(*process);
    }
    return own;
}

void OwnProcesses::signal(int number) const {
    for (const pid_t process : running())
        ::kill(process, number);
}

bool isWinesOwn(const std::string& firstArgument, const std::string& program) {
    return beginsWith(upperCase(firstArgument), "C:\\WINDOWS\\") || beginsWith(program, "wineserver");
}

} // namespace korvel
