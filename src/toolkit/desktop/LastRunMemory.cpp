#include "toolkit/desktop/LastRunMemory.h"

#include "drawing/paint/Shown.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace korvel {

namespace {

constexpr int highestRunType = 9;

// Paths are bytes.
QString pathText(const std::string& path) {
    return QFile::decodeName(path.c_str());
}

std::string pathOf(const QVariant& value) {
    return QFile::encodeName(value.toString()).toStdString();
}

// Names of files hold what names of groups can't.
QString groupOf(const LastRun& run) {
    const QByteArray name = QByteArray::fromStdString(run.dataFile);
    return QCryptographicHash::hash(name, QCryptographicHash::Sha256).toHex();
}

bool isWhole(const LastRun& run) {
    return !run.dataFile.empty() && !run.state.empty() && run.runType >= 0 && run.runType <= highestRunType;
}

} // namespace

LastRunMemory::LastRunMemory()
    : m_settings(QSettings::IniFormat, QSettings::UserScope, "korvel", "last-runs") {
    m_settings.setFallbacksEnabled(false);
}

LastRunMemory::LastRunMemory(const QString& file) : m_settings(file, QSettings::IniFormat) {}

QString LastRunMemory::folder() const {
    return QFileInfo(m_settings.fileName()).path();
}

LastRun LastRunMemory::read(const QString& group) {
    m_settings.beginGroup(group);
    LastRun run;
    run.dataFile = pathOf(m_settings.value("dataFile"));
    run.resultsFile = pathOf(m_settings.value("resultsFile"));
    run.runType = m_settings.value("runType", -1).toInt();
    run.state = m_settings.value("state").toString().toStdString();
    run.ended = m_settings.value("ended").toLongLong();
    run.verdict = m_settings.value("verdict").toString().toStdString();
    run.verdictInFull = m_settings.value("verdictInFull").toString().toStdString();
    run.resultsStamp = m_settings.value("resultsStamp").toLongLong();
    m_settings.endGroup();
    return run;
}

std::vector<LastRun> LastRunMemory::runs() {
    std::vector<LastRun> runs;
    for (const QString& group : m_settings.childGroups())
        if (LastRun run = read(group); isWhole(run)) runs.push_back(std::move(run));
    std::ranges::stable_sort(runs, std::ranges::greater(), &LastRun::ended);
    if (runs.size() > MostLastRuns) runs.resize(MostLastRuns);
    return runs;
}

void LastRunMemory::note(const LastRun& run) {
    m_settings.beginGroup(groupOf(run));
    m_settings.setValue("dataFile", pathText(run.dataFile));
    m_settings.setValue("resultsFile", pathText(run.resultsFile));
    m_settings.setValue("runType", run.runType);
    m_settings.setValue("state", shown(run.state));
    m_settings.setValue("ended", run.ended);
    m_settings.setValue("verdict", shown(run.verdict));
    m_settings.setValue("verdictInFull", shown(run.verdictInFull));
    m_settings.setValue("resultsStamp", run.resultsStamp);
    m_settings.endGroup();
    m_settings.sync(); // takes in what others have written meanwhile
    forgetOldest();
    m_settings.sync();
}

void LastRunMemory::forgetOldest() {
    const std::vector<LastRun> kept = runs();
    if (kept.size() < MostLastRuns) return;
    for (const QString& group : m_settings.childGroups())
        if (std::ranges::find(kept, group, groupOf) == kept.end()) m_settings.remove(group);
}

} // namespace korvel
