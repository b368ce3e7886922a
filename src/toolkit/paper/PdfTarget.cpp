#include "toolkit/paper/PdfTarget.h"

#include "basic/Interrupted.h"
#include "basic/RunTimeError.h"

#include <cerrno>
#include <filesystem>
#include <unistd.h>
#include <utility>

namespace korvel {

namespace {

[[noreturn]] void failWithErrno() {
    throw runTimeErrorOfErrno(errno);
}

std::string temporaryFolder() {
    std::error_code unknown;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(unknown);
    return unknown ? "/tmp" : folder.string();
}

} // namespace

QueueTarget::QueueTarget(QueueJob job) : m_job(std::move(job)) {
    requireReady(m_job.queue);
    m_file.emplace(temporaryFolder());
}

void QueueTarget::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count =
            untilNotInterrupted([&] { return ::write(m_file->descriptor(), bytes.data(), bytes.size()); });
        if (count < 0) failWithErrno();
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void QueueTarget::finish() {
    requireReady(m_job.queue);
    printFile(m_job, m_file->path());
}

} // namespace korvel
