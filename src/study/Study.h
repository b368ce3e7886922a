// Runs side by side: an ordered list of them, the first of which is the base that the others are held
// against.
#pragma once

#include "study/RunFile.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel {

inline constexpr std::size_t MaxRuns = 12;

struct StudyRun {
    std::string name; // as messages and tables name it
    SharedRun file;

    const ResultsDataSet& results() const { return file->results; }
    const ReachPoints& reaches() const { return file->reaches; }
};

// Where the second can't stand in one study with the first, the first thing in which they differ ("the length
// of reach 3"); nothing where it can. The names are those of the two runs.
std::optional<std::string> differenceOf(const StudyRun& base, const StudyRun& later);

class Study {
  public:
    Study() = default;
    explicit Study(std::vector<StudyRun> runs) : m_runs(std::move(runs)) {}

    // Why the run can't join, in words for the user; the study then stays as it was.
    std::optional<std::string> add(SharedRun run);

    const std::vector<StudyRun>& runs() const { return m_runs; }
    const StudyRun& base() const { return m_runs.front(); }

  private:
    std::vector<StudyRun> m_runs;
};

struct LoadedStudy {
    Study study;
    std::optional<Message> refusal; // names the file; the study is then of no use
};

// Reads the files and puts them together.
LoadedStudy loadStudy(Files& files, const std::vector<std::string>& names, const RunProgress& progress = {});

} // namespace korvel
