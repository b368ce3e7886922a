#include "many/RecordFile.h"

#include "basic/Interrupted.h"
#include "basic/RunTimeError.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace korvel {

namespace {

constexpr std::size_t roomForALine = 4096; // bytes, more than a line has
constexpr std::chrono::milliseconds betweenTries(50);

std::string nameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::size_t hashOf(std::string_view line) {
    return std::hash<std::string_view>()(line);
}

[[noreturn]] void failWithErrno() {
    throw runTimeErrorOfErrno(errno);
}

} // namespace

RecordText readRecord(std::string_view text) {
    RecordText read;
    std::size_t number = 0;
    bool lastIsBroken = false;
    for (std::size_t start = 0; start < text.size();) {
        const auto lineEnd = text.find('\n', start);
        const std::size_t end = std::min(lineEnd, text.size());
        if (lastIsBroken && read.brokenLine == 0) read.brokenLine = number;
        ++number;
        const std::string_view line = text.substr(start, end - start);
        std::optional<RunRecord> record = recordOfLine(line);
        lastIsBroken = !record;
        start = std::min(end + 1, text.size());
        if (!record) continue;
        read.hashes.push_back(hashOf(line));
        read.wholeSize = start;
        read.lacksLineEnd = lineEnd == std::string_view::npos;
        std::string name = record->name;
        read.last.insert_or_assign(std::move(name), std::move(*record));
    }
    return read;
}

RecordFile::RecordFile(const std::string& path, std::chrono::milliseconds patience)
    : m_file(::open(path.c_str(), O_RDWR | O_CREAT | O_APPEND | O_NONBLOCK | O_CLOEXEC, 0666)) {
    if (!m_file.isOpen()) failWithErrno();
    lock(patience);
    takeUp(path);
}

void RecordFile::lock(std::chrono::milliseconds patience) const {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (untilNotInterrupted([&] { return ::flock(m_file.number(), LOCK_EX | LOCK_NB); }) != 0) {
        if (errno != EWOULDBLOCK)
            throw RunTimeError(
                errors::pathFileAccessError,
                "The file system of the record takes no locks, so that two calls at once could "
                "not be told apart");
        if (std::chrono::steady_clock::now() >= end)
            throw RunTimeError(errors::fileAlreadyOpen, "Another call is carrying out this plan");
        std::this_thread::sleep_for(betweenTries);
    }
}

void RecordFile::takeUp(const std::string& path) {
    RecordText read = readRecord(readAll());
    if (read.brokenLine != 0)
        throw RunTimeError(errors::typeMismatch, nameOf(path) + ", line " + std::to_string(read.brokenLine) +
                                                     " is none of a record");
    if (::ftruncate(m_file.number(), static_cast<off_t>(read.wholeSize)) != 0) failWithErrno();
    m_size = read.wholeSize;
    m_last = std::move(read.last);
    m_lines = {read.hashes.begin(), read.hashes.end()};
    if (read.lacksLineEnd) write("\n");
}

std::string RecordFile::readAll() const {
    std::string text;
    std::array<char, 65536> chunk{};
    for (;;) {
        const auto count = untilNotInterrupted([&] {
            return ::pread(m_file.number(), chunk.data(), chunk.size(), static_cast<off_t>(text.size()));
        });
        if (count < 0) failWithErrno();
        if (count == 0) return text;
        text.append(chunk.data(), static_cast<std::size_t>(count));
    }
}

const RunRecord* RecordFile::lastOf(const std::string& name) const {
    const auto found = m_last.find(name);
    return found == m_last.end() ? nullptr : &found->second;
}

bool RecordFile::holds(const RunRecord& record) const {
    return m_lines.contains(hashOf(recordLine(record)));
}

void RecordFile::append(const RunRecord& record) {
    const std::string line = recordLine(record);
    write(line + '\n');
    m_lines.insert(hashOf(line));
    m_last.insert_or_assign(record.name, record);
}

void RecordFile::write(std::string_view bytes) {
    const std::size_t before = m_size;
    while (!bytes.empty()) {
        const auto count =
            untilNotInterrupted([&] { return ::write(m_file.number(), bytes.data(), bytes.size()); });
        if (count < 0) {
            const int code = errno;
            m_size = before;
            // Where even that fails, the next call drops the broken line.
            if (::ftruncate(m_file.number(), static_cast<off_t>(before)) != 0) errno = code;
            throw runTimeErrorOfErrno(code);
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
        m_size += static_cast<std::size_t>(count);
    }
}

void RecordFile::reserve(std::size_t lines) const {
    const auto room = static_cast<off_t>(lines * roomForALine);
    const int result = ::fallocate(m_file.number(), FALLOC_FL_KEEP_SIZE, static_cast<off_t>(m_size), room);
    if (result != 0 && (errno == ENOSPC || errno == EDQUOT || errno == EFBIG)) failWithErrno();
    // A file system that reserves nothing is no reason to stop.
}

void RecordFile::flush() const {
    if (untilNotInterrupted([&] { return ::fdatasync(m_file.number()); }) != 0 && errno != EINVAL)
        failWithErrno();
}

} // namespace korvel
