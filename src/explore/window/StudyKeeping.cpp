#include "explore/window/StudyKeeping.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "basic/Text.h"

#include <algorithm>

namespace korvel {

namespace {

const char* const extension = ".korvel-study";

std::string hostFolderOf(const std::string& file) {
    return hostPathOf(withoutLast(folderOf(file), 1));
}

bool holdsFile(const std::vector<StudyFileRun>& runs, const std::string& file) {
    return std::ranges::any_of(runs, [&](const StudyFileRun& run) { return run.file == file; });
}

} // namespace

StudyKeeping::StudyKeeping(Platform& services, ExploreMemory& memory, const ExploreState& state)
    : m_services(services), m_memory(memory), m_state(state) {
    m_dialog.objectName = "cdStudy";
    m_dialog.title = "Save study";
    m_dialog.filter = "Studies (*.korvel-study)|*.korvel-study";
    m_dialog.overwritePrompt = true;
    m_dialog.defaultExtension = "korvel-study";
}

std::optional<StudyFile> StudyKeeping::read(const std::string& file) {
    std::string problem;
    try {
        ReadStudyFile read = readStudyFile(m_services.files.readAll(file), hostFolderOf(file));
        if (read.study) return std::move(read.study);
        problem = read.problem;
    } catch (const RunTimeError& error) {
        problem = error.description;
    }
    m_services.dialogs.show(
        {fileOf(file) + " can't be opened: " + problem + ".", "Open study", Icon::exclamation, Buttons::ok});
    return {};
}

void StudyKeeping::wasOpened(const std::string& file, const StudyFile& study) {
    m_file = file;
    m_saved = studyFileOf(m_state, study.origin);
    m_missing.clear();
    for (std::size_t place = 0; place < study.runs.size(); ++place)
        if (!holdsFile(m_saved.runs, study.runs[place].file)) m_missing.push_back({place, study.runs[place]});
    m_memory.noteStudy(hostPathOf(file));
}

bool StudyKeeping::save() {
    return m_file.empty() ? saveAs() : write(m_file);
}

bool StudyKeeping::saveAs() {
    if (!m_state.isEmpty()) m_dialog.initialFolder = folderOf(m_state.study->base().file->file);
    const auto chosen = m_services.dialogs.chooseFile(FileDialogKind::save, m_dialog);
    if (!chosen) return false;
    if (chosen->refusal) {
        m_services.dialogs.show(refusedName(*chosen));
        return false;
    }
    return write(isStudyFile(chosen->name) ? chosen->name : chosen->name + extension);
}

bool StudyKeeping::write(const std::string& file) {
    StudyFile study = studyFileOf(m_state, m_saved.origin);
    putBackMissing(study.runs);
    try {
        m_services.files.writeWhole(file, studyFileText(study, hostFolderOf(file)));
    } catch (const RunTimeError& error) {
        m_services.dialogs.show({fileOf(file) + " can't be written: " + error.description + ".", "Save study",
                                 Icon::exclamation, Buttons::ok});
        return false;
    }
    wasOpened(file, study);
    return true;
}

void StudyKeeping::putBackMissing(std::vector<StudyFileRun>& runs) const {
    for (const auto& [place, run] : m_missing) {
        if (runs.size() == MaxRuns || holdsFile(runs, run.file)) continue;
        runs.insert(runs.begin() + static_cast<std::ptrdiff_t>(std::min(place, runs.size())), run);
    }
}

void StudyKeeping::forget() {
    m_missing.clear();
    m_file.clear();
    m_saved = {};
}

bool StudyKeeping::isChanged() const {
    return !m_file.empty() && studyFileOf(m_state, m_saved.origin) != m_saved;
}

bool StudyKeeping::mayClose() {
    if (!isChanged()) return true;
    const Message question{"Do you wish to save the changes to " + fileOf(m_file) + "?", "Study",
                           Icon::question, Buttons::saveDiscardCancel};
    const Answer answer = m_services.dialogs.show(question);
    return answer == Answer::discard || (answer == Answer::save && write(m_file));
}

} // namespace korvel
