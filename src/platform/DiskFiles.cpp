#include "platform/DiskFiles.h"

#include "basic/Descriptor.h"
#include "basic/DiskNames.h"
#include "basic/Interrupted.h"
#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "basic/UnfinishedFile.h"

#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace korvel {

namespace {

[[noreturn]] void fail(int number) {
    throw RunTimeError(number);
}

[[noreturn]] void failWithErrno() {
    throw runTimeErrorOfErrno(errno);
}

std::string hostFolderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool isThere(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

// Where nothing has the name, a missing folder is told from a missing file.
[[noreturn]] void failOn(const std::string& path) {
    const int code = errno;
    struct stat status;
    if (code == ENOENT && stat(hostFolderOf(path).c_str(), &status) != 0) fail(errors::pathNotFound);
    throw runTimeErrorOfErrno(code);
}

[[noreturn]] void failOnFolder() {
    if (errno == ENOENT) fail(errors::pathNotFound);
    failWithErrno();
}

// A name without a place on this machine (another drive) is a path that isn't found.
std::string hostPathOrFail(const std::string& name) {
    if (name.empty()) fail(errors::pathFileAccessError);
    if (name.find('\0') != std::string::npos) fail(errors::badFileNameOrNumber);
    std::string path = hostPathOf(name);
    if (!path.starts_with('/')) fail(errors::pathNotFound);
    return path;
}

class DiskSource : public ByteSource {
  public:
    DiskSource(Descriptor file, std::size_t size) : m_file(std::move(file)), m_size(size) {}
    std::size_t read(char* into, std::size_t capacity) override {
        const auto count = untilNotInterrupted([&] { return ::read(m_file.number(), into, capacity); });
        if (count < 0) fail(errors::deviceIoError);
        return static_cast<std::size_t>(count);
    }
    std::size_t size() const override { return m_size; }

  private:
    Descriptor m_file;
    std::size_t m_size;
};

// What a new file replaces: the file's own path, links followed, and its status where it is there.
struct Target {
    std::string path;
    std::optional<struct stat> status;
};

Target targetAt(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) {
        if (errno != ENOENT) failOn(path);
        return {path, std::nullopt};
    }
    if (!S_ISREG(status.st_mode)) fail(errors::pathFileAccessError);
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr), std::free);
    return {resolved ? resolved.get() : path, status};
}

bool isHeldBySpreadsheet(const std::string& path) {
    const auto nameAt = path.rfind('/') + 1;
    return isThere(path.substr(0, nameAt) + ".~lock." + path.substr(nameAt) + '#');
}

void refuseIfUnwritable(const Target& target) {
    if (isHeldBySpreadsheet(target.path)) fail(errors::permissionDenied);
    if (target.status && !Descriptor(::open(target.path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC)).isOpen())
        fail(errors::permissionDenied);
}

class DiskNewFile : public NewFile {
  public:
    explicit DiskNewFile(const Target& target) : m_file(target.path) {
        if (!m_file.isOpen()) failToCreate(target);
    }
    void write(std::string_view bytes) override {
        m_pending.append(bytes);
        if (m_pending.size() >= bufferSize) flush();
    }
    void commit() override {
        flush();
        if (!m_file.finish() || !m_file.takeName()) failWithErrno();
        m_file.settleName();
    }

    std::string hostPath() override {
        flush();
        if (!m_file.takePrivateName()) failWithErrno();
        return m_file.privateName();
    }

  private:
    static constexpr std::size_t bufferSize = std::size_t{256} * 1024;

    [[noreturn]] static void failToCreate(const Target& target) {
        const bool closedFolder = errno == EACCES || errno == EPERM || errno == EROFS;
        if (closedFolder) fail(target.status ? errors::permissionDenied : errors::pathFileAccessError);
        failOn(target.path);
    }
    void flush() {
        if (!m_file.write(m_pending)) failWithErrno();
        m_pending.clear();
    }

    UnfinishedFile m_file;
    std::string m_pending;
};

bool isFileIn(const std::string& folder, const dirent& entry) {
    struct stat status;
    return stat((folder + '/' + entry.d_name).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

// Opened without waiting, so that a pipe without a writer is refused and doesn't hang the program.
std::unique_ptr<ByteSource> DiskFiles::open(const std::string& name) {
    const std::string path = hostPathOrFail(name);
    Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status;
    if (!file.isOpen()) failOn(path);
    if (fstat(file.number(), &status) != 0) failWithErrno();
    if (!S_ISREG(status.st_mode)) fail(errors::pathFileAccessError);
    return std::make_unique<DiskSource>(std::move(file), static_cast<std::size_t>(status.st_size));
}

std::unique_ptr<NewFile> DiskFiles::create(const std::string& name) {
    const Target target = targetAt(hostPathOrFail(name));
    refuseIfUnwritable(target);
    return std::make_unique<DiskNewFile>(target);
}

bool DiskFiles::exists(const std::string& name) {
    struct stat status;
    return stat(hostPathOf(name).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool DiskFiles::areOne(const std::string& name, const std::string& other) {
    struct stat one, two;
    return stat(hostPathOf(name).c_str(), &one) == 0 && stat(hostPathOf(other).c_str(), &two) == 0 &&
           one.st_dev == two.st_dev && one.st_ino == two.st_ino;
}

void DiskFiles::remove(const std::string& name) {
    const std::string path = hostPathOrFail(name);
    if (::unlink(path.c_str()) != 0) failOn(path);
}

std::vector<std::string> DiskFiles::filesIn(const std::string& folder) {
    const std::string path = hostPathOrFail(folder);
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(path.c_str()), closedir);
    if (!listing) failOnFolder();
    std::vector<std::string> names;
    while (const dirent* entry = readdir(listing.get()))
        if (isFileIn(path, *entry)) names.emplace_back(entry->d_name);
    return names;
}

std::string DiskFiles::currentFolder() {
    const std::unique_ptr<char, void (*)(void*)> path(getcwd(nullptr, 0), std::free);
    if (!path) failOnFolder();
    return modelNameOfHostPath(path.get());
}

void DiskFiles::setCurrentFolder(const std::string& folder) {
    if (chdir(hostPathOrFail(folder).c_str()) != 0) failOnFolder();
}

} // namespace korvel
