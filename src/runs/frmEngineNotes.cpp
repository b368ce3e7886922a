#include "runs/frmEngineNotes.h"

#include "analysis/ReachTally.h"
#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "basic/Text.h"
#include "runs/DataFileName.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <utility>

namespace korvel {

namespace {

constexpr int betweenLooks = 20;                      // milliseconds
constexpr long long clocksDiffer = 2000;              // of a file system and of this machine, likewise
constexpr std::chrono::milliseconds whileClosing{50}; // between two looks at a file's end

// When the file was changed; 0 where there is none.
long long stampOf(const std::string& file) {
    const QFileInfo info(QFile::decodeName(hostPathOf(file).c_str()));
    return info.isFile() ? info.lastModified().toMSecsSinceEpoch() : 0;
}

} // namespace

EngineNotes::EngineNotes(Platform& services, Handlers& handlers) : m_services(services) {
    m_tick.setInterval(betweenLooks);
    QObject::connect(&m_tick, &QTimer::timeout, handlers.guarded([this] { look(); }));
}

void EngineNotes::begin() {
    m_begun = QDateTime::currentMSecsSinceEpoch();
}

// Those of a batch one after the other, and no more than are listed.
void EngineNotes::note(const StartedRun& run, const std::string& state, RunEnd end) {
    const std::size_t count = run.dataFiles.size();
    long long now = QDateTime::currentMSecsSinceEpoch();
    for (std::size_t k = count - std::min(count, MostLastRuns); k < count; ++k) {
        LastRun last;
        last.dataFile = run.dataFiles[k];
        last.resultsFile = resultsFileName(folderOf(last.dataFile), withoutLast(fileOf(last.dataFile), 4));
        last.runType = run.runType;
        last.state = state;
        last.ended = now++;
        m_services.machine.noteRun(last);
        if (end == RunEnd::withResults) m_queue.push_back(std::move(last));
    }
    readNext();
}

void EngineNotes::readNext() {
    while (!m_queue.empty()) {
        LastRun& run = m_queue.front();
        run.resultsStamp = stampOf(run.resultsFile);
        if (run.resultsStamp + clocksDiffer >= m_begun) {
            m_reading = std::make_unique<RunReading>(m_services.files, std::vector{run.resultsFile});
            m_tick.start();
            return;
        }
        m_queue.pop_front();
    }
    m_tick.stop();
}

void EngineNotes::look() {
    if (!m_reading || !m_reading->isDone()) return;
    takeVerdict();
    readNext();
}

void EngineNotes::takeVerdict() {
    const std::vector<ReadRun> read = std::exchange(m_reading, nullptr)->take();
    LastRun run = std::move(m_queue.front());
    m_queue.pop_front();
    if (!read.front().run) return;
    const RunVerdict verdict = verdictOf(read.front().run);
    run.verdict = verdict.brief;
    run.verdictInFull = verdict.words;
    m_services.machine.noteRun(run);
}

void EngineNotes::finish() {
    while (m_reading)
        if (m_reading->waitFor(whileClosing)) look();
}

} // namespace korvel
