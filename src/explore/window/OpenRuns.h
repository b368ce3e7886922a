// Opens runs for the Explorer: reads their files beside the window's own life, takes them into what is shown,
// and reads again those that change on disk.
#pragma once

#include "explore/ExploreState.h"
#include "explore/window/FileWatch.h"
#include "explore/window/RunLoading.h"
#include "platform/Files.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace korvel {

class OpenRuns {
  public:
    OpenRuns(ExploreState& state, Files& files, Handlers& handlers);

    // The runs that are shown have changed; `added`: files that were taken in. Model names, as all here.
    std::function<void(const std::vector<std::string>& added)> onChanged;
    // Only what is told of the files has.
    std::function<void()> onNotes;
    std::function<void(const std::vector<std::string>& problems)> onRefused;
    std::function<void(double share)> onProgress;
    std::function<void()> onLoaded; // nothing more is being read

    // Each is taken in where it can be.
    void open(const std::vector<std::string>& files);
    // In place of those that are shown; `then` is called when they are there, before anything is shown.
    void openInstead(const std::vector<std::string>& files, std::function<void()> then);
    bool isLoading() const { return m_loading.isLoading(); }
    void cancel();

    // What is told of a file beside its run's name, "" for nothing.
    std::string noteOf(const std::string& file) const;
    // After runs were taken away.
    void forgetOthers();

  private:
    // Why some were not taken in.
    std::vector<std::string> take(const std::vector<std::string>& files, const std::vector<ReadRun>& runs);
    void takeAgain(const std::string& file, const ReadRun& read);
    void hear(const std::string& file, SettledFile::News news);
    void readAgain(const std::string& file);
    void note(const std::string& file, const std::string& text);
    void ended(const std::vector<std::string>& problems = {}) const;

    ExploreState& m_state;
    RunLoading m_loading;
    FileWatch m_watch;
    std::map<std::string, std::string> m_notes;
};

} // namespace korvel
