// The place of every number among the values of a plotting point, as the last point had it.
//
//     "Mean flow",     1.250,     0.410,     0.300      the point that was learnt
//     ############......#...#......#...#......#...      what must be the same again: #
//     "Mean flow",    17.034,     2.881,     1.006      the next point
//
// An engine writes its points in columns mostly, so that captions, separators and decimal points stand at the
// same bytes from point to point. read() proves that by comparing all of them at once, and then takes each
// number from where it is known to be (ColumnNumbers), so that none waits for the end of the one before. Any
// doubt leaves the point to the general reader, which gives the same values and from which learn() learns
// anew; after points that differ one from another it looks ever more rarely. Files in columns are read about
// twice as fast by it.
#pragma once

#include "results/ColumnNumbers.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

class PointLayout {
  public:
    // Reads the values of the next point, at the beginning of `text`, and returns how many bytes they take; 0
    // where they are not laid out as those learnt last, or go on behind the text. Seven bytes behind the text
    // must be readable.
    std::size_t read(std::string_view text, std::span<double> into);

    // Learns from a point's values that the general reader has read: their bytes from the first caption past
    // the last separator. Where points differ one from another, they are looked at ever more rarely.
    void learn(std::string_view text, std::span<const int> numbersByCaption);

  private:
    bool hasFrame(const char* text) const;
    bool build(std::string_view text, std::span<const int> numbersByCaption);
    std::size_t addNumber(std::string_view text, std::size_t lowest, std::size_t first);

    std::string m_frame;         // the bytes of the learnt point
    std::vector<char> m_isFrame; // all bits set where the byte is the same in every point, else 0
    std::vector<ColumnNumber> m_numbers;
    int m_pointsToPass = 0;
    int m_patience = 1;
};

} // namespace korvel
