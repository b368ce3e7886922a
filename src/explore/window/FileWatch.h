// Looks after the files of the runs that are shown: which has changed, settled and is to be read again, which
// has vanished.
#pragma once

#include "explore/SettledFile.h"
#include "toolkit/forms/Handlers.h"

#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QTimer>

#include <functional>
#include <map>
#include <string>

namespace korvel {

class FileWatch {
  public:
    explicit FileWatch(Handlers& handlers);

    // With the file's model name, as it was watched under.
    std::function<void(const std::string& file, SettledFile::News news)> onNews;

    // As the file is now, that is how it was read. Watched already, it stays so.
    void watch(const std::string& file);
    void watchOnly(const std::vector<std::string>& files);
    // It was read again, or could not be.
    void wasRead(const std::string& file);

  private:
    void watchPath(const std::string& file);
    void look();

    QFileSystemWatcher m_watcher; // of files and their folders: a file that is replaced is another one
    QTimer m_soon, m_visits;
    QElapsedTimer m_clock;
    std::map<std::string, SettledFile> m_files;
};

} // namespace korvel
