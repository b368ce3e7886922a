#include "endtoend/Process.h"

#include "endtoend/TestFolder.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace korvel {

namespace {

constexpr std::chrono::milliseconds betweenQuestions{20};
constexpr int signalBase = 128;

bool isHandedOn(std::string_view setting) {
    constexpr std::array<std::string_view, 8> own = {
        "DISPLAY=", "WAYLAND_DISPLAY=", "KORVEL_", "LC_", "LANG", "QT_", "XDG_", "ASAN_"};
    for (const std::string_view name : own) {
        if (setting.starts_with(name)) return false;
    }
    return true;
}

std::vector<std::string> environmentWith(const std::vector<std::string>& settings) {
    std::vector<std::string> all = settings;
    for (char** setting = environ; *setting != nullptr; ++setting) {
        if (isHandedOn(*setting)) all.emplace_back(*setting);
    }
    return all;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> all;
    for (std::string& text : texts)
        all.push_back(text.data());
    all.push_back(nullptr);
    return all;
}

void redirect(const std::string& file, int channel) {
    const int opened = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(opened, channel);
    close(opened);
}

pid_t start(std::vector<std::string> arguments, const Surroundings& surroundings, const std::string& out,
            const std::string& err) {
    std::vector<std::string> environment = environmentWith(surroundings.settings);
    const std::vector<char*> argumentPointers = pointers(arguments), settingPointers = pointers(environment);
    const pid_t id = fork();
    if (id < 0) throw std::runtime_error("no further process can be started");
    if (id > 0) return id;
    redirect(out, STDOUT_FILENO);
    redirect(err, STDERR_FILENO);
    if (!surroundings.folder.empty() && chdir(surroundings.folder.c_str()) != 0) _exit(126);
    execvpe(argumentPointers[0], argumentPointers.data(), settingPointers.data());
    _exit(127);
}

int exitStatusOf(int waited) {
    return WIFSIGNALED(waited) ? signalBase + WTERMSIG(waited) : WEXITSTATUS(waited);
}

// The status once the program has ended.
bool hasEnded(pid_t id, int& status) {
    int waited = 0;
    if (waitpid(id, &waited, WNOHANG) != id) return false;
    status = exitStatusOf(waited);
    return true;
}

std::vector<pid_t> children(pid_t parent) {
    const std::string name = std::to_string(parent);
    std::ifstream list("/proc/" + name + "/task/" + name + "/children");
    std::vector<pid_t> ids;
    for (pid_t id = 0; list >> id;)
        ids.push_back(id);
    return ids;
}

} // namespace

bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(betweenQuestions);
    }
    return true;
}

Outcome runProgram(const std::vector<std::string>& arguments, const Surroundings& surroundings,
                   std::chrono::milliseconds limit) {
    const TestFolder folder;
    const std::string out = folder.path("out"), err = folder.path("err");
    const pid_t id = start(arguments, surroundings, out, err);
    Outcome outcome;
    if (!waitFor([&] { return hasEnded(id, outcome.status); }, limit)) {
        kill(id, SIGKILL);
        waitpid(id, nullptr, 0);
    }
    outcome.out = contentOf(out);
    outcome.err = contentOf(err);
    return outcome;
}

BackgroundProgram::BackgroundProgram(const std::vector<std::string>& arguments,
                                     const Surroundings& surroundings)
    : m_id(start(arguments, surroundings, "/dev/null", "/dev/null")) {}

BackgroundProgram::~BackgroundProgram() {
    if (!running()) return;
    kill(m_id, SIGTERM);
    if (waitFor([this] { return !running(); }, std::chrono::seconds(5))) return;
    kill(m_id, SIGKILL);
    waitpid(m_id, nullptr, 0);
}

bool BackgroundProgram::running() {
    if (m_id == 0) return false;
    if (hasEnded(m_id, m_status)) m_id = 0;
    return m_id != 0;
}

int BackgroundProgram::waitForEnd() {
    waitFor([this] { return !running(); });
    return m_status;
}

LeftPrograms::LeftPrograms() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

LeftPrograms::~LeftPrograms() {
    const auto noneLeft = [] {
        for (const pid_t id : children(getpid()))
            kill(id, SIGKILL);
        while (waitpid(-1, nullptr, WNOHANG) > 0) {
        }
        return children(getpid()).empty();
    };
    waitFor(noneLeft);
}

} // namespace korvel
