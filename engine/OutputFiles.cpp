#include "engine/OutputFiles.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace korvel::engine {

namespace {

[[noreturn]] void fail(const char* what, const std::string& path, int errorCode) {
    throw FileProblem{std::string(what) + ' ' + path + ": " + std::strerror(errorCode)};
}

// A file descriptor that closes itself.
class OpenFile {
  public:
    explicit OpenFile(int descriptor) : m_descriptor(descriptor) {}
    ~OpenFile() {
        if (m_descriptor >= 0) ::close(m_descriptor);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    bool isRegular() const {
        struct stat status {};
        return ::fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode);
    }
    bool setMode(mode_t mode) const { return ::fchmod(m_descriptor, mode) == 0; }

    bool write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t count = ::write(m_descriptor, bytes.data(), bytes.size());
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return ::fsync(m_descriptor) == 0;
    }

    // 0 at the end, below 0 on a failure.
    ssize_t read(char* into, std::size_t capacity) const { return ::read(m_descriptor, into, capacity); }

  private:
    int m_descriptor;
};

mode_t usersMask() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}

} // namespace

std::string readFile(const std::string& hostPath) {
    // Without waiting: nobody may ever write to a pipe.
    const OpenFile file(::open(hostPath.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) fail("can't open", hostPath, errno);
    if (!file.isRegular()) throw FileProblem{"can't open " + hostPath + ": not a file"};
    std::string text;
    char chunk[65536];
    for (;;) {
        const ssize_t count = file.read(chunk, sizeof chunk);
        if (count < 0) fail("can't read", hostPath, errno);
        if (count == 0) return text;
        text.append(chunk, static_cast<std::size_t>(count));
    }
}

bool fileExists(const std::string& hostPath) {
    return ::access(hostPath.c_str(), F_OK) == 0;
}

OutputFiles::~OutputFiles() {
    for (const Pending& pending : m_pending)
        ::unlink(pending.temporary.c_str());
}

void OutputFiles::add(const std::string& hostPath, std::string_view bytes) {
    if (fileExists(hostPath) && ::access(hostPath.c_str(), W_OK) != 0) fail("can't write", hostPath, errno);
    struct stat status {};
    if (::stat(hostPath.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        throw FileProblem{"can't write " + hostPath + ": not a file"};
    std::string temporary = hostPath + ".XXXXXX"; // private until it is whole
    const OpenFile file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.isOpen()) fail("can't write", hostPath, errno);
    m_pending.push_back({temporary, hostPath});
    if (!file.write(bytes) || !file.setMode(0666 & ~usersMask())) fail("can't write", hostPath, errno);
}

void OutputFiles::commit() {
    while (!m_pending.empty()) {
        const Pending& first = m_pending.front();
        if (std::rename(first.temporary.c_str(), first.target.c_str()) != 0)
            fail("can't write", first.target, errno);
        m_pending.erase(m_pending.begin());
    }
}

} // namespace korvel::engine
