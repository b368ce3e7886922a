#include "explore/window/OpenRuns.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "explore/RunList.h"

#include <QTime>

namespace korvel {

namespace {

std::string timeNow() {
    return QTime::currentTime().toString("HH:mm").toStdString();
}

} // namespace

OpenRuns::OpenRuns(ExploreState& state, Files& files, Handlers& handlers)
    : m_state(state), m_loading(files, handlers), m_watch(handlers) {
    m_loading.onProgress = [this](double share) { onProgress(share); };
    m_watch.onNews = [this](const std::string& file, SettledFile::News news) { hear(file, news); };
}

void OpenRuns::open(const std::vector<std::string>& files) {
    if (files.empty()) return;
    for (const std::string& file : files)
        m_watch.watch(file); // what changes while it is read is read again
    onProgress(0);
    m_loading.load(files, [this](const std::vector<std::string>& names, const std::vector<ReadRun>& runs) {
        ended(take(names, runs));
    });
}

void OpenRuns::openInstead(const std::vector<std::string>& files, std::function<void()> then) {
    for (const std::string& file : files)
        m_watch.watch(file);
    onProgress(0);
    m_loading.load(files, [this, then = std::move(then)](const std::vector<std::string>& names,
                                                         const std::vector<ReadRun>& runs) {
        m_state = {};
        const std::vector<std::string> problems = take(names, runs);
        then();
        onChanged({});
        ended(problems);
    });
}

std::vector<std::string> OpenRuns::take(const std::vector<std::string>& files,
                                        const std::vector<ReadRun>& runs) {
    std::vector<std::string> added, problems;
    for (std::size_t k = 0; k < runs.size(); ++k) {
        if (runs[k].failure) problems.push_back(fileOf(files[k]) + ": " + runs[k].failure->text);
        if (!runs[k].run) continue;
        if (const auto refusal = addRun(m_state, runs[k].run))
            problems.push_back(*refusal);
        else
            added.push_back(files[k]);
    }
    forgetOthers();
    if (!added.empty()) onChanged(added);
    return problems;
}

// What went wrong is told when all else is shown as it is to be.
void OpenRuns::ended(const std::vector<std::string>& problems) const {
    if (!isLoading()) onLoaded();
    if (!problems.empty()) onRefused(problems);
}

void OpenRuns::cancel() {
    m_loading.cancel();
    forgetOthers();
    onLoaded();
}

void OpenRuns::forgetOthers() {
    std::vector<std::string> files;
    if (!m_state.isEmpty())
        for (const StudyRun& run : m_state.study->runs())
            files.push_back(run.file->file);
    if (!isLoading()) m_watch.watchOnly(files);
}

void OpenRuns::hear(const std::string& file, SettledFile::News news) {
    if (news == SettledFile::News::vanished) note(file, "gone; its values are kept");
    if (news == SettledFile::News::cameBack) note(file, "");
    if (news == SettledFile::News::readNow) readAgain(file);
}

void OpenRuns::readAgain(const std::string& file) {
    m_watch.wasRead(file);
    m_loading.load({file}, [this](const std::vector<std::string>& names, const std::vector<ReadRun>& runs) {
        takeAgain(names.front(), runs.front());
        ended();
    });
}

void OpenRuns::takeAgain(const std::string& file, const ReadRun& read) {
    if (!read.run) return note(file, "changed at " + timeNow() + ", but can't be read");
    bool isThere = false;
    for (std::size_t run = 0; !m_state.isEmpty() && run < m_state.study->runs().size(); ++run) {
        if (m_state.study->runs()[run].file->file != file) continue;
        if (const auto refusal = replaceRun(m_state, run, read.run))
            return note(file, "changed at " + timeNow() + ", but does not fit: " + *refusal);
        isThere = true;
    }
    if (!isThere) return;
    note(file, "read again at " + timeNow());
    onChanged({});
}

void OpenRuns::note(const std::string& file, const std::string& text) {
    m_notes[file] = text;
    onNotes();
}

std::string OpenRuns::noteOf(const std::string& file) const {
    const auto found = m_notes.find(file);
    return found == m_notes.end() ? "" : found->second;
}

} // namespace korvel
