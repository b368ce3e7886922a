#include "explore/SettledFile.h"

namespace korvel {

namespace {

constexpr long long settlingTime = 2000; // milliseconds

} // namespace

SettledFile::News SettledFile::look(const std::optional<FileStamp>& seen, long long milliseconds) {
    const bool wasGone = m_isGone;
    if (seen != m_seen) {
        m_seen = seen;
        m_since = milliseconds;
    }
    m_isGone = !seen;
    if (m_isGone) return wasGone ? News::nothing : News::vanished;
    if (seen == m_read) return wasGone ? News::cameBack : News::nothing;
    return milliseconds - m_since >= settlingTime ? News::readNow : News::unsettled;
}

} // namespace korvel
