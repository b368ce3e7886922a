#include "basic/UnfinishedFile.h"

#include "basic/Interrupted.h"
#include "basic/Text.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>

namespace korvel {

namespace {

constexpr std::string_view beginning = ".korvel-";
constexpr std::size_t randomLetters = 6;
constexpr mode_t usualMode = 0666;

// With the slash at its end.
std::string folderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

mode_t usersMask() {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

std::string randomName() {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    static std::random_device random;
    std::string name(beginning);
    for (std::size_t k = 0; k < randomLetters; ++k)
        name += letters[random() % letters.size()];
    return name;
}

// Whoever makes a file holds a lock on it, until it has its name or is gone.
bool lock(const Descriptor& file) {
    return flock(file.number(), LOCK_EX | LOCK_NB) == 0;
}

bool hasName(const Descriptor& file) {
    struct stat status {};
    return fstat(file.number(), &status) == 0 && status.st_nlink > 0;
}

bool isStray(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    return file.isOpen() && fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) && lock(file);
}

void clearStrays(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(folder.c_str()), closedir);
    if (!listing) return;
    while (const dirent* entry = readdir(listing.get())) {
        const std::string_view name = entry->d_name;
        if (!name.starts_with(beginning) || name.size() != beginning.size() + randomLetters) continue;
        const std::string path = folder + entry->d_name;
        if (isStray(path)) ::unlink(path.c_str());
    }
}

std::string pathOfDescriptor(const Descriptor& file) {
    return "/proc/self/fd/" + std::to_string(file.number());
}

// Nothing where the file system has no files without names.
Descriptor namelessIn(const std::string& folder) {
    Descriptor file(::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
    if (file.isOpen() && access(pathOfDescriptor(file).c_str(), F_OK) != 0) file.close();
    return file;
}

} // namespace

UnfinishedFile::UnfinishedFile(std::string target) : m_target(std::move(target)) {
    const std::string folder = folderOf(m_target);
    clearStrays(folder);
    m_file = namelessIn(folder);
    if (m_file.isOpen())
        lock(m_file);
    else
        createNamed(folder + std::string(beginning) + std::string(randomLetters, 'X'));
}

UnfinishedFile::~UnfinishedFile() {
    if (isOpen() && !m_name.empty()) ::unlink(m_name.c_str());
}

// Private, under a name that nobody can foresee. One that was taken for a stray before it was locked is made
// again.
void UnfinishedFile::createNamed(const std::string& pattern) {
    constexpr int mostTries = 100;
    for (int k = 0; k < mostTries; ++k) {
        m_name = pattern;
        m_file = Descriptor(::mkostemp(m_name.data(), O_CLOEXEC));
        if (!m_file.isOpen()) return;
        if (lock(m_file) ? hasName(m_file) : errno != EWOULDBLOCK) return;
    }
}

bool UnfinishedFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count =
            untilNotInterrupted([&] { return ::write(m_file.number(), bytes.data(), bytes.size()); });
        if (count < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool UnfinishedFile::takeOverOwnerAndMode() const {
    struct stat old {};
    mode_t mode = usualMode & ~usersMask();
    if (stat(m_target.c_str(), &old) == 0) {
        mode = old.st_mode & 07777;
        // Root keeps the old file's owner; for anybody else the file becomes their own.
        if (fchown(m_file.number(), old.st_uid, old.st_gid) != 0) errno = 0;
    }
    return fchmod(m_file.number(), mode) == 0;
}

bool UnfinishedFile::linkBeside() {
    constexpr int mostTries = 100;
    const std::string from = pathOfDescriptor(m_file);
    for (int k = 0; k < mostTries; ++k) {
        const std::string name = folderOf(m_target) + randomName();
        if (linkat(AT_FDCWD, from.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
            m_name = name;
            return true;
        }
        if (errno != EEXIST) return false;
    }
    return false;
}

// A file system that can't do so loses nothing by it.
void UnfinishedFile::start() const {
    [[maybe_unused]] const int result = sync_file_range(m_file.number(), 0, 0, SYNC_FILE_RANGE_WRITE);
}

bool UnfinishedFile::finish() {
    return takeOverOwnerAndMode() && untilNotInterrupted([&] { return fsync(m_file.number()); }) == 0;
}

bool UnfinishedFile::takeName() {
    if (m_name.empty() && !linkBeside()) return false;
    if (std::rename(m_name.c_str(), m_target.c_str()) != 0) return false;
    m_file.close();
    return true;
}

void UnfinishedFile::settleName() const {
    const Descriptor folder(::open(folderOf(m_target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen()) fsync(folder.number());
}

} // namespace korvel
