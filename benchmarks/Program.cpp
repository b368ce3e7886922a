#include "Program.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

pid_t start(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& each : command)
        arguments.push_back(const_cast<char*>(each.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&files, stream, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    const int failure = posix_spawnp(&process, arguments[0], &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    if (failure != 0) process = 0;
    return process;
}

} // namespace

void warmMemory() {
    constexpr std::size_t size = 400 << 20;
    constexpr std::size_t page = 4096;
    const pid_t process = fork();
    if (process == 0) {
        void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) _exit(1);
        madvise(memory, size, MADV_HUGEPAGE);
        for (std::size_t at = 0; at < size; at += page)
            static_cast<volatile char*>(memory)[at] = 1;
        _exit(0);
    }
    if (process > 0) waitpid(process, nullptr, 0);
}

ProgramCost run(const std::vector<std::string>& command) {
    const auto before = std::chrono::steady_clock::now();
    const pid_t process = start(command);
    int status = 1;
    rusage usage{};
    if (process == 0 || wait4(process, &status, 0, &usage) != process || status != 0) {
        std::fprintf(stderr, "%s failed\n", command.front().c_str());
        std::exit(1);
    }
    const double clock = std::chrono::duration<double>(std::chrono::steady_clock::now() - before).count();
    return {{clock, seconds(usage.ru_utime) + seconds(usage.ru_stime)},
            static_cast<double>(usage.ru_maxrss) * 1024};
}

} // namespace korvel
