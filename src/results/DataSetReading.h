// Results files read into data sets of their own, each as its first slot, with no word to the user and no
// shared state touched: any number at once.
#pragma once

#include "platform/Files.h"
#include "platform/Message.h"
#include "results/ResultsDataSet.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace korvel {

// A file that was read: its data set, or the message that says why there is none. One that was cancelled has
// neither.
struct ReadDataSet {
    std::unique_ptr<ResultsDataSet> data;
    std::optional<Message> refusal;
};

// Called on the thread that reads.
struct ReadingWatch {
    std::function<void(double)> progress = {}; // share read so far, about a hundred times a file
    std::stop_token cancel = {};               // asked before each point
};

// Reads one file on the calling thread, which may be any.
ReadDataSet readDataSet(Files& files, const std::string& modelName, const ReadingWatch& watch = {});

// Reads files on threads of its own, side by side, as many as the machine has processors. `files` must live
// until it ends and open files on any thread.
//   DataSetReading(files, names).take() reads them all and waits.
class DataSetReading {
  public:
    DataSetReading(Files& files, std::vector<std::string> modelNames);
    // Cancels what is still being read, and waits for that.
    ~DataSetReading();
    DataSetReading(const DataSetReading&) = delete;
    DataSetReading& operator=(const DataSetReading&) = delete;

    // Of all files, 0 to 1.
    double share() const;
    bool isDone() const;
    // Returns early where all is done; tells whether it is.
    bool waitFor(std::chrono::milliseconds time);
    void cancel();
    // Waits for the end and hands over what was read, in the order of the names; once.
    std::vector<ReadDataSet> take();

  private:
    void readOn();
    void endFile(std::size_t file);

    Files& m_files;
    std::vector<std::string> m_names;
    std::vector<ReadDataSet> m_read;
    std::vector<std::atomic<double>> m_shares; // by file
    std::atomic<std::size_t> m_next = 0;       // the first file that no thread has taken
    std::atomic<std::size_t> m_ended = 0;      // files
    std::mutex m_ending;
    std::condition_variable m_fileEnded;
    std::stop_source m_cancel;
    std::vector<std::jthread> m_threads;
};

} // namespace korvel
