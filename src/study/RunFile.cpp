#include "study/RunFile.h"

#include "basic/Text.h"
#include "results/LoadResultsFile.h"
#include "results/ResultsReader.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <new>
#include <thread>

namespace korvel {

namespace {

const char* const readErrorText =
    "There is an error in reading the data for plotting. The file either does not exist, is incomplete, or "
    "is in the wrong format.  Or it may hold more plotting points than the set maximum of 59999.";

// The shares of several files as one.
class CommonProgress {
  public:
    CommonProgress(std::size_t files, const RunProgress& tell) : m_shares(files), m_tell(tell) {}

    RunProgress ofFile(std::size_t k) {
        if (!m_tell) return {};
        return [this, k](double share) { set(k, share); };
    }

  private:
    void set(std::size_t k, double share) {
        const std::lock_guard lock(m_mutex);
        m_sum += share - m_shares[k];
        m_shares[k] = share;
        m_tell(m_sum / static_cast<double>(m_shares.size()));
    }

    std::mutex m_mutex;
    std::vector<double> m_shares;
    double m_sum = 0;
    const RunProgress& m_tell;
};

} // namespace

std::string RunFile::reachName(int number) const {
    return trim(results.reachNames[number]);
}

ReadRun readRun(Files& files, const std::string& file, const RunProgress& progress) {
    const auto run = std::make_shared<RunFile>();
    run->file = file;
    try {
        const auto source = files.open(file);
        prepareLoad(run->results, 0);
        readResults(*source, run->results, 0, {[](const Message&) {}, progress});
        run->reaches = ReachPoints(run->results);
        return {run, {}};
    } catch (const RunTimeError&) {
    } catch (const std::bad_alloc&) { // a field as long as the memory is large
    }
    return {{}, Message{readErrorText, "Error", Icon::exclamation, Buttons::ok}};
}

std::vector<ReadRun> readRuns(Files& files, const std::vector<std::string>& names,
                              const RunProgress& progress) {
    std::vector<ReadRun> runs(names.size());
    CommonProgress common(names.size(), progress);
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t k; (k = next++) < names.size();)
            runs[k] = readRun(files, names[k], common.ofFile(k));
    };
    std::vector<std::jthread> others;
    const std::size_t workers = std::min<std::size_t>(std::thread::hardware_concurrency(), names.size());
    for (std::size_t k = 1; k < workers; ++k)
        others.emplace_back(work);
    work();
    others.clear(); // joins
    return runs;
}

} // namespace korvel
