// What the Explorer remembers from one time to the next, in the user's configuration folder.
#pragma once

#include "explore/RecentFiles.h"

#include <QByteArray>
#include <QSettings>
#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace korvel {

class ExploreMemory {
  public:
    // Of this user; or in a file of one's own (host path).
    ExploreMemory();
    explicit ExploreMemory(const QString& file);

    // Host paths, the last first.
    std::vector<std::string> recentFiles() const;
    void noteFile(const std::string& file);
    std::vector<std::string> recentStudies() const;
    void noteStudy(const std::string& file);

    // Names of determinands whose bad side is low; nothing before the user said so.
    std::optional<std::vector<std::string>> lowIsBad() const;
    void setLowIsBad(const std::vector<std::string>& names);

    // Places and states of windows and their parts, as Qt tells them.
    QByteArray place(const QString& ofWhat) const;
    void setPlace(const QString& ofWhat, const QByteArray& place);

  private:
    std::vector<std::string> list(const QString& key) const;
    void setList(const QString& key, const std::vector<std::string>& texts);

    QSettings m_settings;
};

} // namespace korvel
