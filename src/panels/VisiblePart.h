// What of a series along a way is in view, in no more points than its picture needs.
#pragma once

#include "drawing/Scale.h"
#include "panels/PathSeries.h"

#include <deque>
#include <optional>
#include <vector>

namespace korvel {

// Joined points, the ends cut where they leave the view.
struct VisiblePiece {
    std::vector<double> km;
    std::vector<double> values;
    bool thinned = false; // each column of pixels has its first, lowest, highest and last value
};

// Joined points of two edges, one above the other; each column of pixels of a thinned one has its highest and
// its lowest place.
struct VisibleBand {
    std::vector<double> km;
    std::vector<double> above;
    std::vector<double> below;
    bool thinned = false;
};

struct VisibleWay;

// Where the columns of pixels begin among the distances of series, found once for all series that share them.
class PixelColumnsOfKm {
  public:
    // Indices at which columns after the first in view begin.
    const std::vector<std::size_t>& beginnings(const std::vector<double>& km, const VisibleWay& way);

  private:
    struct Known {
        const std::vector<double>* km;
        std::vector<std::size_t> beginnings;
    };
    std::deque<Known> m_known;
};

struct VisibleWay {
    const Scale& distance;               // its ends are those of the view
    double pixel = 15;                   // of the device, in units of the scale's places
    PixelColumnsOfKm* columns = nullptr; // of this way
};

std::vector<VisiblePiece> visiblePieces(const PathValues& values, const VisibleWay& way);

// What lies between two series of the same distances and breaks; between the highest and the lowest of one.
std::vector<VisibleBand> visibleBands(const PathValues& above, const PathValues& below,
                                      const VisibleWay& way);

// Of all that is in view; nothing where nothing is.
std::optional<NumberRange> rangeInView(const PathValues& values, const VisibleWay& way);

} // namespace korvel
