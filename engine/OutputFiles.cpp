#include "engine/OutputFiles.h"

#include "basic/UnfinishedFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace korvel::engine {

namespace {

[[noreturn]] void fail(const char* what, const std::string& path, int errorCode) {
    throw FileProblem{std::string(what) + ' ' + path + ": " + std::strerror(errorCode)};
}

} // namespace

std::string readFile(const std::string& hostPath) {
    // Without waiting: nobody may ever write to a pipe.
    const Descriptor file(::open(hostPath.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0) fail("can't open", hostPath, errno);
    if (!S_ISREG(status.st_mode)) throw FileProblem{"can't open " + hostPath + ": not a file"};
    std::string text;
    char chunk[65536];
    for (;;) {
        const ssize_t count = ::read(file.number(), chunk, sizeof chunk);
        if (count < 0) fail("can't read", hostPath, errno);
        if (count == 0) return text;
        text.append(chunk, static_cast<std::size_t>(count));
    }
}

bool fileExists(const std::string& hostPath) {
    return ::access(hostPath.c_str(), F_OK) == 0;
}

struct OutputFiles::Pending : UnfinishedFile {
    using UnfinishedFile::UnfinishedFile;
};

OutputFiles::OutputFiles() = default;
OutputFiles::~OutputFiles() = default;

void OutputFiles::add(const std::string& hostPath, std::string_view bytes) {
    if (fileExists(hostPath) && ::access(hostPath.c_str(), W_OK) != 0) fail("can't write", hostPath, errno);
    struct stat status {};
    if (::stat(hostPath.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        throw FileProblem{"can't write " + hostPath + ": not a file"};
    Pending file(hostPath);
    if (!file.isOpen() || !file.write(bytes)) fail("can't write", hostPath, errno);
    file.start();
    m_pending.push_back(std::move(file));
}

void OutputFiles::commit() {
    for (Pending& file : m_pending)
        if (!file.finish()) fail("can't write", file.target(), errno);
    for (Pending& file : m_pending)
        if (!file.takeName()) fail("can't write", file.target(), errno);
    if (!m_pending.empty()) m_pending.back().settleName();
    m_pending.clear();
}

} // namespace korvel::engine
