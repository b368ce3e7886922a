// When a file that changes on disk is read again: once it was unchanged for two seconds, so that a run that
// is still writing is left alone.
#pragma once

#include <optional>

namespace korvel {

struct FileStamp {
    long long size = 0;
    long long modified = 0; // of any clock
    bool operator==(const FileStamp&) const = default;
};

class SettledFile {
  public:
    enum class News {
        nothing,
        unsettled, // it has changed; look again soon
        readNow,
        vanished, // told once
        cameBack, // unchanged; told once
    };

    // As it was read; nothing for a file that was gone by then.
    explicit SettledFile(std::optional<FileStamp> read) : m_read(read), m_seen(read), m_isGone(!read) {}

    // `seen`: nothing where there is no file; `milliseconds` of any steady clock.
    News look(const std::optional<FileStamp>& seen, long long milliseconds);

    // It was read, or could not be, as it was seen last: it is let alone until it changes again.
    void wasRead() { m_read = m_seen; }

  private:
    std::optional<FileStamp> m_read;
    std::optional<FileStamp> m_seen;
    long long m_since = 0; // when it was first seen so
    bool m_isGone = false;
};

} // namespace korvel
