#include "tables/ZipParts.h"

#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace korvel {

namespace {

// Where the fields of a directory and of its end lie.
constexpr std::size_t endSize = 22, directorySizeAt = 12, directoryStartAt = 16;
constexpr std::size_t entrySize = 46, sizeAt = 24, nameLengthAt = 28, extraLengthAt = 30,
                      commentLengthAt = 32;

using Bytes = std::vector<unsigned char>;

std::uint32_t number(const Bytes& bytes, std::size_t at, int count) {
    std::uint32_t value = 0;
    for (int k = count; k-- > 0;)
        value = value << 8U | bytes[at + static_cast<std::size_t>(k)];
    return value;
}

Bytes bytesAt(int descriptor, off_t at, std::size_t count) {
    Bytes bytes(count);
    const ssize_t read = at < 0 ? -1 : pread(descriptor, bytes.data(), count, at);
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(read, 0)));
    return bytes;
}

Bytes directoryOf(int descriptor) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0) return {};
    const Bytes end = bytesAt(descriptor, status.st_size - static_cast<off_t>(endSize), endSize);
    if (end.size() < endSize || end[0] != 'P' || end[1] != 'K' || end[2] != 5 || end[3] != 6) return {};
    return bytesAt(descriptor, number(end, directoryStartAt, 4), number(end, directorySizeAt, 4));
}

} // namespace

std::map<std::string, std::uint64_t> zipPartSizes(int descriptor) {
    std::map<std::string, std::uint64_t> sizes;
    const Bytes directory = directoryOf(descriptor);
    for (std::size_t at = 0; at + entrySize <= directory.size();) {
        const std::size_t nameLength = number(directory, at + nameLengthAt, 2);
        if (at + entrySize + nameLength > directory.size()) break;
        const auto* const name = reinterpret_cast<const char*>(&directory[at]) + entrySize;
        sizes[{name, nameLength}] = number(directory, at + sizeAt, 4);
        at += entrySize + nameLength + number(directory, at + extraLengthAt, 2) +
              number(directory, at + commentLengthAt, 2);
    }
    return sizes;
}

} // namespace korvel
