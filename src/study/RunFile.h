// One results file, read into a data set of its own, as slot 0.
#pragma once

#include "platform/Files.h"
#include "platform/Message.h"
#include "results/DataSetReading.h"
#include "study/ReachPoints.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

struct RunFile {
    std::string file; // model name
    ResultsDataSet results;
    ReachPoints reaches;

    std::string reachName(int number) const; // without the blanks around it
};

using SharedRun = std::shared_ptr<const RunFile>;

struct ReadRun {
    SharedRun run;                  // none where the file can't be read
    std::optional<Message> failure; // why, in the reader's words
};

// The share read so far, 0 to 1.
using RunProgress = std::function<void(double)>;

ReadRun readRun(Files& files, const std::string& file, const RunProgress& progress = {});

// Reads them side by side, as many at a time as there are processors; the results stand in the files' order.
// `progress` is told the share of all of them now and then, on the calling thread.
std::vector<ReadRun> readRuns(Files& files, const std::vector<std::string>& names,
                              const RunProgress& progress = {});

// The same for whoever has other things to do meanwhile, a window with its events. `files` must live until it
// ends; an end before all are read cancels the rest.
class RunReading {
  public:
    RunReading(Files& files, std::vector<std::string> names);

    const std::vector<std::string>& names() const { return m_names; }
    double share() const { return m_reading.share(); } // of all files, 0 to 1
    bool isDone() const { return m_reading.isDone(); }
    // Returns early where all is done; tells whether it is.
    bool waitFor(std::chrono::milliseconds time) { return m_reading.waitFor(time); }
    void cancel() { m_reading.cancel(); }
    // Waits for the end; once. A file that was cancelled has neither a run nor a failure.
    std::vector<ReadRun> take();

  private:
    std::vector<std::string> m_names;
    DataSetReading m_reading;
};

} // namespace korvel
