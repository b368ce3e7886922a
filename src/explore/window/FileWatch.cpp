#include "explore/window/FileWatch.h"

#include "basic/DiskNames.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace korvel {

namespace {

constexpr int betweenLooks = 250; // milliseconds, while a file settles
// Of file systems that tell of no changes that another machine makes.
constexpr int betweenVisits = 5000;

QString pathOf(const std::string& file) {
    return QFile::decodeName(hostPathOf(file).c_str());
}

std::optional<FileStamp> stampOf(const std::string& file) {
    const QFileInfo info(pathOf(file));
    if (!info.isFile()) return {};
    return FileStamp{info.size(), info.lastModified().toMSecsSinceEpoch()};
}

} // namespace

FileWatch::FileWatch(Handlers& handlers) {
    m_clock.start();
    m_soon.setInterval(betweenLooks);
    m_soon.setSingleShot(true);
    m_visits.setInterval(betweenVisits);
    const auto lookNow = handlers.guarded([this] { look(); });
    QObject::connect(&m_soon, &QTimer::timeout, lookNow);
    QObject::connect(&m_visits, &QTimer::timeout, lookNow);
    m_visits.start();
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, lookNow);
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, lookNow);
}

void FileWatch::watchPath(const std::string& file) {
    const QString path = pathOf(file);
    if (!m_watcher.files().contains(path) && QFileInfo::exists(path)) m_watcher.addPath(path);
}

void FileWatch::watch(const std::string& file) {
    m_files.try_emplace(file, stampOf(file));
    watchPath(file);
    m_watcher.addPath(QFileInfo(pathOf(file)).path());
}

void FileWatch::watchOnly(const std::vector<std::string>& files) {
    std::erase_if(
        m_files, [&](const auto& watched) { return std::ranges::find(files, watched.first) == files.end(); });
    for (const std::string& file : files)
        watch(file);
}

void FileWatch::wasRead(const std::string& file) {
    const auto found = m_files.find(file);
    if (found != m_files.end()) found->second.wasRead();
}

void FileWatch::look() {
    bool lookAgain = false;
    std::vector<std::pair<std::string, SettledFile::News>> news;
    for (auto& [file, settled] : m_files) {
        const auto heard = settled.look(stampOf(file), m_clock.elapsed());
        lookAgain = lookAgain || heard == SettledFile::News::unsettled;
        if (heard != SettledFile::News::nothing && heard != SettledFile::News::unsettled)
            news.emplace_back(file, heard);
        watchPath(file); // where it was replaced or came back it is another one
    }
    if (lookAgain) m_soon.start();
    for (const auto& [file, heard] : news)
        if (onNews) onNews(file, heard);
}

} // namespace korvel
