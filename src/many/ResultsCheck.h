// Whether a run has left results that can be used.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace korvel {

// What a file's next writing changes; two of them are equal where it was not written.
struct FileStamp {
    bool isThere = false;
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::int64_t size = 0;
    std::int64_t modified = 0; // nanoseconds since 1970
    std::int64_t changed = 0;  // the same; of the file's entry
    bool operator==(const FileStamp&) const = default;
};

FileStamp stampOf(const std::string& path); // host path

// Why a results file (host path) is not whole, for the user, or nothing: it reads without failure and has a
// point in every reach.
std::optional<std::string> whyNotWhole(const std::string& path);

} // namespace korvel
