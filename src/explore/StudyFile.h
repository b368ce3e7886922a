// Study files: which runs, path, series and view an Explorer shows, saved by hand. JSON with a version; the
// runs' paths are relative to the file, so that both can be moved together. What a later version has written
// and this one does not know is kept.
#pragma once

#include "explore/ExploreState.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel {

struct StudyFileRun {
    std::string file; // host path, absolute
    bool isHidden = false;
    bool operator==(const StudyFileRun&) const = default;
};

struct StudyFile : ShownValues {
    std::vector<StudyFileRun> runs;
    int from = 0; // reach numbers, 0 for none
    int to = 0;
    std::optional<ExploreStretch> visible;
    std::vector<std::string> series;                  // names as the reader gives them
    std::optional<std::vector<std::string>> lowIsBad; // names of determinands
    std::string origin = "{}"; // the JSON that it came from, for what this version does not know of it
    bool operator==(const StudyFile&) const = default;
};

struct ReadStudyFile {
    std::optional<StudyFile> study;
    std::string problem; // why there is none: "line 3: ..."
};

// `folder`: host path of the folder in which the study file lies, with or without a stroke at its end.
ReadStudyFile readStudyFile(const std::string& text, const std::string& folder);
std::string studyFileText(const StudyFile& study, const std::string& folder);

// What is shown as a study file, with the JSON that it came from; and the other way round. Of the latter the
// runs are there already, in the order of those of the file that could be read; names and ways that they
// don't have are left out.
StudyFile studyFileOf(const ExploreState& state, const std::string& origin);
void showAs(ExploreState& state, const StudyFile& study);

// Whether a file that was named is taken for a study: by its extension, .korvel-study in any case.
bool isStudyFile(const std::string& file);

} // namespace korvel
