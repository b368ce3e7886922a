#include "results/ValueStore.h"

#include "basic/CheckedArray.h"
#include "results/Statistics.h"

#include <array>
#include <cstdint>
#include <new>
#include <utility>

#include <sys/mman.h>

namespace korvel {

namespace {

constexpr int seriesExtent = 21;
using statistics::levels;

// Where a field's columns begin among those of its series: first what the flow lacks, so that in the flow's
// own place, the first one, the gap lies at the beginning of the mapping, where no page of it is touched.
struct FieldPlace {
    int first;
    int levels;
};

constexpr FieldPlace placeOf(ValueField field) {
    switch (field) {
    case ValueField::meanLimit1: return {0, 1};
    case ValueField::meanLimit2: return {1, 1};
    case ValueField::targetValue: return {2, 1};
    case ValueField::percentileLimit1: return {3, levels};
    case ValueField::percentileLimit2: return {3 + levels, levels};
    case ValueField::meanValue: return {3 + 2 * levels, 1};
    case ValueField::observedMean: return {4 + 2 * levels, 1};
    case ValueField::percentileValues: return {5 + 2 * levels, levels};
    case ValueField::observedPercentiles: return {5 + 3 * levels, levels};
    }
    return {};
}

constexpr int columnsOfSeries = 5 + 4 * levels;
constexpr std::size_t columns = std::size_t{seriesExtent} * columnsOfSeries;
constexpr std::size_t valueBytes = columns * ValueStore::points * sizeof(double);
constexpr std::size_t largePage = std::size_t(2) << 20;
constexpr std::size_t mappingBytes = valueBytes + largePage;
// With large pages whole columns take memory, however few of their points are written.
constexpr std::size_t manyPoints = ValueStore::points / 2;

// The column of a store that nothing was written to.
std::array<double, ValueStore::points> zeros;

} // namespace

void ValueStore::map() {
    void* mapping = mmap(nullptr, mappingBytes, PROT_READ | PROT_WRITE,
                         MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (mapping == MAP_FAILED) throw std::bad_alloc();
    // Some machines give large pages unasked.
    madvise(mapping, mappingBytes, MADV_NOHUGEPAGE);
    const std::size_t beyond = reinterpret_cast<std::uintptr_t>(mapping) % largePage;
    m_mapping = mapping;
    m_values = static_cast<double*>(mapping) + (largePage - beyond) / sizeof(double);
}

ValueStore::~ValueStore() {
    if (m_mapping) munmap(m_mapping, mappingBytes);
}

ValueStore::ValueStore(ValueStore&& other) noexcept
    : m_mapping(std::exchange(other.m_mapping, nullptr)),
      m_values(std::exchange(other.m_values, nullptr)),
      m_everWritten(std::exchange(other.m_everWritten, false)) {}

ValueStore& ValueStore::operator=(ValueStore&& other) noexcept {
    std::swap(m_mapping, other.m_mapping);
    std::swap(m_values, other.m_values);
    std::swap(m_everWritten, other.m_everWritten);
    return *this;
}

std::span<double> ValueStore::column(ValueField field, int series, int level) {
    if (!m_mapping) map();
    return {m_values + offsetOf(field, series, level), points};
}

std::span<const double> ValueStore::column(ValueField field, int series, int level) const {
    const std::size_t offset = offsetOf(field, series, level);
    if (!m_mapping) return zeros;
    return {m_values + offset, points};
}

double ValueStore::at(ValueField field, int point, int series, int level) const {
    return column(field, series, level)[checkedOffset(point, 0, points - 1)];
}

bool ValueStore::everWritten() const {
    return m_everWritten;
}

void ValueStore::markWritten() {
    m_everWritten = true;
}

void ValueStore::expectPoints(std::size_t count) {
    if (m_mapping && count >= manyPoints) madvise(m_values, valueBytes, MADV_HUGEPAGE);
}

void ValueStore::reset() {
    *this = ValueStore();
}

std::size_t ValueStore::offsetOf(ValueField field, int series, int level) {
    const FieldPlace place = placeOf(field);
    const std::size_t column =
        static_cast<std::size_t>(place.first) + checkedOffset(level, 0, place.levels - 1);
    return (checkedOffset(series, 0, seriesExtent - 1) * columnsOfSeries + column) * points;
}

} // namespace korvel
