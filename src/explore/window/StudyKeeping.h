// The study file that an Explorer shows: saved by hand, asked about on closing only where it has a name and
// was changed.
#pragma once

#include "explore/StudyFile.h"
#include "explore/window/Memory.h"
#include "platform/Platform.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel {

class StudyKeeping {
  public:
    StudyKeeping(Platform& services, ExploreMemory& memory, const ExploreState& state);

    // The study in this file (model name); nothing where it can't be read, and the user has been told.
    std::optional<StudyFile> read(const std::string& file);
    // It is shown now.
    void wasOpened(const std::string& file, const StudyFile& study);
    // False where it was not saved: the user gave it up, or has been told why.
    bool save();
    bool saveAs();
    // Nothing is shown any more.
    void forget();

    bool isChanged() const;
    const std::string& file() const { return m_file; } // "" where it has no name
    // False where the user wants to stay, or to save and can't.
    bool mayClose();

  private:
    struct MissingRun {
        std::size_t place;
        StudyFileRun run;
    };

    bool write(const std::string& file);
    void putBackMissing(std::vector<StudyFileRun>& runs) const;

    Platform& m_services;
    ExploreMemory& m_memory;
    const ExploreState& m_state;
    FileDialogSettings m_dialog;
    std::string m_file;
    StudyFile m_saved;
    std::vector<MissingRun> m_missing; // could not be read; they stay in the file where they stood
};

} // namespace korvel
