// Arrays whose every access is checked: an index outside the bounds is run-time error 9.
#pragma once

#include "basic/RunTimeError.h"

#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace korvel {

inline std::size_t checkedOffset(long long index, long long low, long long high) {
    if (index < low || index > high) throw RunTimeError(errors::subscriptOutOfRange);
    return static_cast<std::size_t>(index - low);
}

// A fixed array over the indices Low to High, both included.
template <typename T, int Low, int High>
class CheckedArray {
  public:
    static constexpr int low = Low;
    static constexpr int high = High;

    T& operator[](long long index) { return m_items[checkedOffset(index, Low, High)]; }
    const T& operator[](long long index) const { return m_items[checkedOffset(index, Low, High)]; }
    void fill(const T& value) { m_items.fill(value); }
    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }
    bool operator==(const CheckedArray&) const = default;

  private:
    std::array<T, static_cast<std::size_t>(High - Low + 1)> m_items{};
};

// The same over the indices 0 to High, held on the heap and touched only as far as it has been written: an
// entry that was never written reads as the value given for absent ones.
template <typename T, int High>
class CheckedVector {
  public:
    static constexpr int high = High;

    CheckedVector() = default;
    explicit CheckedVector(T absent) : m_absent(std::move(absent)) {}

    // A text is read in place; the next set() moves it.
    using Entry = std::conditional_t<std::is_trivially_copyable_v<T>, T, const T&>;

    Entry operator[](long long index) const {
        const std::size_t offset = checkedOffset(index, 0, High);
        return offset < m_items.size() ? m_items[offset] : m_absent;
    }
    void set(long long index, T value) {
        const std::size_t offset = checkedOffset(index, 0, High);
        if (offset >= m_items.size()) m_items.resize(offset + 1, m_absent);
        m_items[offset] = value;
    }
    void clear() { m_items.clear(); }
    // The entries from `index` on are absent again.
    void clearFrom(long long index) {
        const std::size_t offset = checkedOffset(index, 0, High + 1LL);
        if (offset < m_items.size()) m_items.resize(offset);
    }
    bool operator==(const CheckedVector&) const = default;

  private:
    std::vector<T> m_items;
    T m_absent{};
};

} // namespace korvel
