#include "basic/ScratchFile.h"

#include "basic/Interrupted.h"
#include "basic/RunTimeError.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/types.h>
#include <vector>

namespace korvel {

namespace {

// Where the file system makes no files without names, one that has lost its own.
Descriptor madeByName(const std::string& folder) {
    std::string name = folder + "/korvel-XXXXXX";
    Descriptor file(::mkostemp(name.data(), O_CLOEXEC));
    if (file.isOpen()) ::unlink(name.c_str());
    return file;
}

} // namespace

std::string scratchFolder() {
    const char* const given = std::getenv("TMPDIR");
    return given && *given ? given : "/var/tmp";
}

ScratchFile::ScratchFile(const std::string& folder)
    : m_file(::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600)) {
    if (!m_file.isOpen()) m_file = madeByName(folder);
    if (!m_file.isOpen()) throw runTimeErrorOfErrno(errno);
}

std::string ScratchFile::path() const {
    return "/proc/self/fd/" + std::to_string(m_file.number());
}

void ScratchFile::reserve(std::size_t bytes) const {
    const int error = posix_fallocate(m_file.number(), 0, static_cast<off_t>(bytes));
    if (error != 0) throw runTimeErrorOfErrno(error);
}

void ScratchFile::read(const std::function<void(std::string_view)>& take) const {
    std::vector<char> part(std::size_t{256} * 1024);
    for (off_t at = 0;;) {
        const ssize_t count =
            untilNotInterrupted([&] { return ::pread(m_file.number(), part.data(), part.size(), at); });
        if (count < 0) throw RunTimeError(errors::deviceIoError);
        if (count == 0) return;
        take({part.data(), static_cast<std::size_t>(count)});
        at += count;
    }
}

} // namespace korvel
