#include "results/DataSetReading.h"

#include "results/ResultsReader.h"

#include <algorithm>
#include <new>
#include <numeric>
#include <system_error>

namespace korvel {

namespace {

// A first data set is refused by no one, and warned of by no one: its load has nothing to show.
ReadDataSet readOpened(ByteSource& file, const ReadingWatch& watch) {
    auto data = std::make_unique<ResultsDataSet>();
    const LoadWatch loadWatch{[](const Message&) {}, watch.progress, watch.cancel};
    if (readResults(file, *data, 0, loadWatch) != LoadEnd::loaded) return {};
    return {std::move(data), std::nullopt};
}

} // namespace

ReadDataSet readDataSet(Files& files, const std::string& modelName, const ReadingWatch& watch) {
    try {
        return readOpened(*files.open(modelName), watch);
    } catch (const RunTimeError&) {
        return {nullptr, unreadableResults()};
    } catch (const std::bad_alloc&) {
        return {nullptr, unreadableResults()};
    }
}

DataSetReading::DataSetReading(Files& files, std::vector<std::string> modelNames)
    : m_files(files), m_names(std::move(modelNames)), m_read(m_names.size()), m_shares(m_names.size()) {
    const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
    m_threads.reserve(processors);
    try {
        while (m_threads.size() < std::min(processors, m_names.size()))
            m_threads.emplace_back([this] { readOn(); });
    } catch (const std::system_error&) { // no more threads: those that there are read all of it
    }
    if (m_threads.empty()) readOn();
}

DataSetReading::~DataSetReading() {
    cancel();
}

void DataSetReading::readOn() {
    for (std::size_t k = m_next++; k < m_names.size(); k = m_next++) {
        const ReadingWatch watch{[this, k](double share) { m_shares[k] = share; }, m_cancel.get_token()};
        if (!m_cancel.stop_requested()) m_read[k] = readDataSet(m_files, m_names[k], watch);
        endFile(k);
    }
}

void DataSetReading::endFile(std::size_t file) {
    m_shares[file] = 1;
    const std::lock_guard lock(m_ending); // nobody begins to wait between the count and the call
    ++m_ended;
    m_fileEnded.notify_all();
}

double DataSetReading::share() const {
    if (m_names.empty()) return 1;
    return std::accumulate(m_shares.begin(), m_shares.end(), 0.0) / static_cast<double>(m_names.size());
}

bool DataSetReading::isDone() const {
    return m_ended == m_names.size();
}

bool DataSetReading::waitFor(std::chrono::milliseconds time) {
    std::unique_lock lock(m_ending);
    return m_fileEnded.wait_for(lock, time, [this] { return isDone(); });
}

void DataSetReading::cancel() {
    m_cancel.request_stop();
}

std::vector<ReadDataSet> DataSetReading::take() {
    m_threads.clear(); // each is waited for
    return std::move(m_read);
}

} // namespace korvel
