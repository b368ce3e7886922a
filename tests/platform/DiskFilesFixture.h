// Files of a folder of the test's own, and what goes wrong with them under another user or with little room.
#pragma once

#include "basic/RunTimeError.h"
#include "platform/DiskFiles.h"
#include "platform/TemporaryFolder.h"

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

inline int errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

constexpr int didNotRun = 255;

// The error of an action in a process of its own, after `prepare` has run there.
inline int errorApart(const std::function<void()>& prepare, const std::function<void()>& action) {
    const pid_t child = fork();
    if (child == 0) {
        prepare();
        _exit(errorOf(action));
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return didNotRun;
    return WEXITSTATUS(status);
}

// Root may do everything, so that permissions are tried as nobody.
inline int errorAsNobody(const std::function<void()>& action) {
    return errorApart(
        [] {
            constexpr unsigned nobody = 65534;
            if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(didNotRun);
        },
        action);
}

inline int errorWithFilesUpTo(rlim_t bytes, const std::function<void()>& action) {
    return errorApart(
        [bytes] {
            const rlimit limit{bytes, bytes};
            std::signal(SIGXFSZ, SIG_IGN);
            if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(didNotRun);
        },
        action);
}

inline mode_t modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

class DiskFilesTest : public testing::Test {
  protected:
    std::string read(const std::string& name) { return files.readAll(folder.model(name)); }
    void write(const std::string& name, const std::string& text) {
        files.writeWhole(folder.model(name), text);
    }
    int readError(const std::string& name) {
        return errorOf([&] { read(name); });
    }
    int writeError(const std::string& name) {
        return errorOf([&] { write(name, "new"); });
    }

    DiskFiles files;
    TemporaryFolder folder;
};

} // namespace korvel
