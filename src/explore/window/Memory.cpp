#include "explore/window/Memory.h"

#include <QFile>
#include <QStringList>

namespace korvel {

ExploreMemory::ExploreMemory()
    : m_settings(QSettings::IniFormat, QSettings::UserScope, "korvel", "explorer") {}

ExploreMemory::ExploreMemory(const QString& file) : m_settings(file, QSettings::IniFormat) {}

std::vector<std::string> ExploreMemory::list(const QString& key) const {
    std::vector<std::string> texts;
    for (const QString& text : m_settings.value(key).toStringList())
        texts.push_back(QFile::encodeName(text).toStdString());
    return texts;
}

void ExploreMemory::setList(const QString& key, const std::vector<std::string>& texts) {
    QStringList list;
    for (const std::string& text : texts)
        list << QFile::decodeName(text.c_str());
    m_settings.setValue(key, list);
}

std::vector<std::string> ExploreMemory::recentFiles() const {
    return list("recent/files");
}

void ExploreMemory::noteFile(const std::string& file) {
    setList("recent/files", withRecent(recentFiles(), file));
}

std::vector<std::string> ExploreMemory::recentStudies() const {
    return list("recent/studies");
}

void ExploreMemory::noteStudy(const std::string& file) {
    setList("recent/studies", withRecent(recentStudies(), file));
}

std::optional<std::vector<std::string>> ExploreMemory::lowIsBad() const {
    if (!m_settings.contains("judging/lowIsBad")) return {};
    return list("judging/lowIsBad");
}

void ExploreMemory::setLowIsBad(const std::vector<std::string>& names) {
    setList("judging/lowIsBad", names);
}

QByteArray ExploreMemory::place(const QString& ofWhat) const {
    return m_settings.value("places/" + ofWhat).toByteArray();
}

void ExploreMemory::setPlace(const QString& ofWhat, const QByteArray& place) {
    m_settings.setValue("places/" + ofWhat, place);
}

} // namespace korvel
