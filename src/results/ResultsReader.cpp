#include "results/ResultsReader.h"

#include "basic/ListInput.h"
#include "basic/Numbers.h"
#include "results/FirstDataSet.h"
#include "results/PointLayout.h"
#include "results/PointValues.h"
#include "results/SecondDataSet.h"

#include <algorithm>

namespace korvel {

namespace {

// The characters in columns `first` to `last`, counted from 1; fewer from a short line.
std::string_view columns(std::string_view line, std::size_t first, std::size_t last) {
    return line.size() < first ? std::string_view() : line.substr(first - 1, last - first + 1);
}

ReachLine reachLineOf(std::string_view line) {
    return {roundHalfToEven(leadingNumber(columns(line, 1, 4))), columns(line, 6, 21),
            leadingNumber(columns(line, 23, 32)), roundHalfToEven(leadingNumber(columns(line, 34, 37)))};
}

class Reading {
  public:
    Reading(ByteSource& file, RecordTaker& taker, const LoadWatch& watch)
        : m_size(file.size()), m_input(file), m_taker(taker), m_watch(watch) {}

    Refusal readHeader();
    Refusal readPoints(ValueStore& store);
    int points() const { return m_points; }
    bool isCancelled() const { return m_watch.cancel.stop_requested(); }

  private:
    Refusal readDeterminands();
    Refusal readReaches();
    Refusal readEachPoint(ValueStore& store, PointValues& values);
    Refusal readPointLine(int index);
    void readValues(std::span<double> into);
    void readValuesOneByOne(double* into);
    void expectPoints(ValueStore& values, std::size_t firstPointAt) const;
    void tellProgress();

    std::size_t m_size;
    ListInput m_input;
    RecordTaker& m_taker;
    const LoadWatch& m_watch;
    int m_determinands = 0;
    std::vector<int> m_valuesByCaption;
    PointLayout m_layout;
    std::string m_label;
    int m_points = 0;
    std::size_t m_nextProgress = 0; // bytes
};

Refusal Reading::readHeader() {
    m_taker.title(m_input.line());
    if (const auto warning = m_taker.percentileMode(m_input.integer()))
        m_watch.show({*warning, "", Icon::exclamation, Buttons::ok});
    if (Refusal refusal = readDeterminands()) return refusal;
    return readReaches();
}

Refusal Reading::readDeterminands() {
    m_determinands = m_input.integer();
    if (Refusal refusal = m_taker.determinandCount(m_determinands)) return refusal;
    if (m_determinands < 0) throw RunTimeError(errors::subscriptOutOfRange);
    for (int d = 1; d <= m_determinands; ++d) {
        const int type = m_input.integer();
        const std::string name(m_input.text());
        if (Refusal refusal = m_taker.determinand(d, {type, name, m_input.integer()})) return refusal;
    }
    m_taker.determinandsEnd();
    return {};
}

Refusal Reading::readReaches() {
    const int count = m_input.integer();
    if (Refusal refusal = m_taker.reachCount(count)) return refusal;
    for (int j = 1; j <= count; ++j) {
        if (Refusal refusal = m_taker.reach(reachLineOf(m_input.line()))) return refusal;
    }
    return {};
}

Refusal Reading::readPoints(ValueStore& store) {
    m_taker.pointsBegin();
    m_valuesByCaption = valuesByCaption(m_determinands);
    PointValues values(store, m_determinands);
    const auto keepWhatWasRead = [&] {
        values.write();
        m_taker.pointsEnd();
    };
    try {
        Refusal refusal = readEachPoint(store, values);
        keepWhatWasRead();
        return refusal;
    } catch (...) {
        keepWhatWasRead();
        throw;
    }
}

Refusal Reading::readEachPoint(ValueStore& store, PointValues& values) {
    const std::size_t firstPointAt = m_input.bytesConsumed();
    while (!isCancelled() && !m_input.atEnd()) {
        const int index = m_points + 1;
        if (Refusal refusal = readPointLine(index)) return refusal;
        const std::span<double> row = values.nextPoint(index);
        readValues(row);
        m_taker.pointEnd(index, row);
        m_points = index;
        if (index == 1) expectPoints(store, firstPointAt);
        tellProgress();
    }
    return {};
}

Refusal Reading::readPointLine(int index) {
    PointLine line;
    line.reach = m_input.integer();
    line.distance = m_input.number();
    m_label = m_input.text();
    line.label = m_label;
    m_input.skip();
    line.featureType = m_input.integer();
    return m_taker.point(index, line);
}

void Reading::readValues(std::span<double> into) {
    const std::string_view ahead = m_input.ahead();
    if (const std::size_t length = m_layout.read(ahead, into)) return m_input.advance(length);
    const std::size_t before = m_input.bytesConsumed();
    readValuesOneByOne(into.data());
    const std::size_t length = m_input.bytesConsumed() - before;
    // Where all of it was in hand from the beginning, it is there still.
    if (length < ahead.size()) m_layout.learn(ahead.substr(0, length), m_valuesByCaption);
}

void Reading::readValuesOneByOne(double* into) {
    for (int count : m_valuesByCaption) {
        m_input.text(); // the caption
        m_input.numbers({into, static_cast<std::size_t>(count)});
        into += count;
    }
}

void Reading::expectPoints(ValueStore& values, std::size_t firstPointAt) const {
    values.expectPoints((m_size - std::min(m_size, firstPointAt)) / (m_input.bytesConsumed() - firstPointAt));
}

void Reading::tellProgress() {
    const std::size_t consumed = m_input.bytesConsumed();
    if (!m_watch.progress || m_size == 0 || consumed < m_nextProgress) return;
    m_watch.progress(std::min(1.0, static_cast<double>(consumed) / static_cast<double>(m_size)));
    m_nextProgress = consumed + m_size / 100;
}

} // namespace

Message unreadableResults() {
    return {"There is an error in reading the data for plotting. The file either does not exist, is "
            "incomplete, or "
            "is in the wrong format.  Or it may hold more plotting points than the set maximum of 59999.",
            "Error", Icon::exclamation, Buttons::ok};
}

void prepareLoad(ResultsDataSet& results, int slot) {
    for (int invalid = slot; invalid <= 1; ++invalid)
        results.slotLoaded[invalid] = false;
    if (slot != 0) return;
    results.hasInterpolatedPoints = false;
    results.forgetReaches();
}

LoadEnd readResults(ByteSource& file, ResultsDataSet& results, int slot, const LoadWatch& watch) {
    FirstDataSet first(results);
    SecondDataSet second(results);
    Reading reading(file, slot == 0 ? static_cast<RecordTaker&>(first) : second, watch);
    Refusal refusal = reading.readHeader();
    if (!refusal) refusal = reading.readPoints(results.values[slot]);
    if (refusal) {
        watch.show({*refusal, "", Icon::exclamation, Buttons::ok});
        return LoadEnd::abandoned;
    }
    if (reading.isCancelled()) return LoadEnd::cancelled;
    results.pointCount = reading.points();
    results.pointReach.clearFrom(results.pointCount + 1);
    results.seriesCount = 2 * results.determinandCount;
    results.values[slot].markWritten();
    results.slotLoaded[slot] = true;
    if (slot == 1 && targetsDiffer(results)) {
        watch.show({"2nd set of data has different quality targets. These quality targets have been ignored.",
                    "Warning", Icon::exclamation, Buttons::ok});
    }
    return LoadEnd::loaded;
}

} // namespace korvel
