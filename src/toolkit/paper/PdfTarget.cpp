#include "toolkit/paper/PdfTarget.h"

#include "basic/RunTimeError.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>
#include <utility>

namespace korvel {

namespace {

[[noreturn]] void failWithErrno() {
    throw runTimeErrorOfErrno(errno);
}

int openNamelessFile() {
    std::error_code unknown;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(unknown);
    std::string path = (unknown ? "/tmp" : folder) / "korvel-XXXXXX";
    const int file = mkostemp(path.data(), O_CLOEXEC);
    if (file < 0) failWithErrno();
    ::unlink(path.c_str());
    return file;
}

} // namespace

QueueTarget::QueueTarget(QueueJob job) : m_job(std::move(job)) {
    requireReady(m_job.queue);
    m_file = openNamelessFile();
}

QueueTarget::~QueueTarget() {
    if (m_file >= 0) ::close(m_file);
}

void QueueTarget::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = ::write(m_file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) failWithErrno();
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void QueueTarget::finish() {
    requireReady(m_job.queue);
    printFile(m_job, "/proc/self/fd/" + std::to_string(m_file));
}

} // namespace korvel
