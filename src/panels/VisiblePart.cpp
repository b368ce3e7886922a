#include "panels/VisiblePart.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace korvel {

namespace {

constexpr std::size_t pointsPerColumn = 2; // with more, columns are worth the trouble

struct KmValue {
    double km, value;
};

// Where the line between two points passes a distance.
double valueBetween(KmValue from, KmValue to, double km) {
    return from.value + (to.value - from.value) * (km - from.km) / (to.km - from.km);
}
double valueAt(const PathValues& of, std::size_t after, double km) {
    return valueBetween({(*of.km)[after - 1], of.values[after - 1]}, {(*of.km)[after], of.values[after]}, km);
}

void add(VisiblePiece& piece, double km, double value) {
    piece.km.push_back(km);
    piece.values.push_back(value);
}
void add(VisibleBand& band, double km, double above, double below) {
    band.km.push_back(km);
    band.above.push_back(above);
    band.below.push_back(below);
}

// What of an ascending piece, from `begin` to before `end`, lies in view; places in the whole series.
struct InView {
    std::size_t first = 0, end = 0;           // points
    bool cutBefore = false, cutAfter = false; // where the line goes on out of the view
};

InView pointsInView(const std::vector<double>& km, std::size_t begin, std::size_t end,
                    const VisibleWay& way) {
    const auto piece = std::span(km).subspan(begin, end - begin);
    const double from = way.distance.bottom, to = way.distance.top;
    InView seen;
    seen.first = begin + static_cast<std::size_t>(std::ranges::lower_bound(piece, from) - piece.begin());
    seen.end = begin + static_cast<std::size_t>(std::ranges::upper_bound(piece, to) - piece.begin());
    seen.cutBefore = seen.first > begin && seen.first < end && km[seen.first] > from;
    seen.cutAfter = seen.end > begin && seen.end < end && km[seen.end - 1] < to;
    return seen;
}

// The columns of pixels among the points in view.
class Columns {
  public:
    Columns(const std::vector<double>& km, const InView& seen, const VisibleWay& way)
        : m_km(km), m_seen(seen), m_way(way) {}

    // With fewer points there is nothing to be won.
    bool areDense() const {
        const double columns = std::abs(m_way.distance.to - m_way.distance.from) / m_way.pixel + 1;
        return m_seen.end > m_seen.first &&
               static_cast<double>(m_seen.end - m_seen.first) > pointsPerColumn * columns;
    }

    // Calls `use` with the ends of each.
    template <typename Use>
    void forEach(Use use) const {
        PixelColumnsOfKm own;
        const auto& beginnings = (m_way.columns != nullptr ? *m_way.columns : own).beginnings(m_km, m_way);
        auto next = std::ranges::upper_bound(beginnings, m_seen.first);
        for (std::size_t begin = m_seen.first; begin < m_seen.end;) {
            const bool goesOn = next != beginnings.end() && *next < m_seen.end;
            const std::size_t end = goesOn ? *next++ : m_seen.end;
            use(begin, end);
            begin = end;
        }
    }
    std::size_t most() const {
        return static_cast<std::size_t>(std::abs(m_way.distance.to - m_way.distance.from) / m_way.pixel) + 3;
    }

  private:
    const std::vector<double>& m_km;
    const InView& m_seen;
    const VisibleWay& m_way;
};

// One joined run of points.
class PieceCutting {
  public:
    PieceCutting(const PathValues& of, const VisibleWay& way) : m_of(of), m_km(*of.km), m_way(way) {}

    void cutAscending(std::size_t begin, std::size_t end, std::vector<VisiblePiece>& pieces) const {
        const InView seen = pointsInView(m_km, begin, end, m_way);
        VisiblePiece piece;
        if (seen.cutBefore) addCrossing(piece, seen.first, m_way.distance.bottom);
        addInner(seen, piece);
        if (seen.cutAfter) addCrossing(piece, seen.end, m_way.distance.top);
        if (!piece.km.empty()) pieces.push_back(std::move(piece));
    }

    // One whose distances may go back.
    void cutEachLine(std::size_t begin, std::size_t end, std::vector<VisiblePiece>& pieces) const {
        const double from = m_way.distance.bottom, to = m_way.distance.top;
        VisiblePiece piece;
        for (std::size_t j = begin; j < end; ++j) {
            if (j > begin && m_km[j - 1] != m_km[j]) {
                const bool down = m_km[j] > m_km[j - 1];
                for (const double edge : {down ? from : to, down ? to : from})
                    if ((m_km[j - 1] < edge && edge < m_km[j]) || (m_km[j] < edge && edge < m_km[j - 1])) {
                        addCrossing(piece, j, edge);
                        if (piece.km.size() > 1 && edge == (down ? to : from)) finish(piece, pieces);
                    }
            }
            if (m_km[j] >= from && m_km[j] <= to)
                add(piece, m_km[j], m_of.values[j]);
            else
                finish(piece, pieces);
        }
        finish(piece, pieces);
    }

  private:
    static void finish(VisiblePiece& piece, std::vector<VisiblePiece>& pieces) {
        if (!piece.km.empty()) pieces.push_back(std::exchange(piece, {}));
    }
    void addCrossing(VisiblePiece& piece, std::size_t after, double km) const {
        add(piece, km, valueAt(m_of, after, km));
    }

    void addInner(const InView& seen, VisiblePiece& piece) const {
        const Columns columns(m_km, seen, m_way);
        if (!columns.areDense()) {
            piece.km.insert(piece.km.end(), m_km.begin() + at(seen.first), m_km.begin() + at(seen.end));
            piece.values.insert(piece.values.end(), m_of.values.begin() + at(seen.first),
                                m_of.values.begin() + at(seen.end));
            return;
        }
        piece.thinned = true;
        piece.km.reserve(4 * columns.most());
        piece.values.reserve(piece.km.capacity());
        columns.forEach([&](std::size_t begin, std::size_t end) { addColumn(begin, end, piece); });
    }

    void addColumn(std::size_t begin, std::size_t end, VisiblePiece& piece) const {
        add(piece, m_km[begin], m_of.values[begin]);
        if (end - begin > 2) {
            const NumberRange range = m_of.pyramid.range(m_of.values, begin, end);
            add(piece, m_km[begin], range.lowest);
            add(piece, m_km[begin], range.highest);
        }
        if (end - begin > 1) add(piece, m_km[end - 1], m_of.values[end - 1]);
    }

    static std::ptrdiff_t at(std::size_t j) { return static_cast<std::ptrdiff_t>(j); }

    const PathValues& m_of;
    const std::vector<double>& m_km;
    const VisibleWay& m_way;
};

// Two edges at once, of which each column of pixels needs one place.
class BandCutting {
  public:
    BandCutting(const PathValues& above, const PathValues& below, const VisibleWay& way)
        : m_above(above), m_below(below), m_km(*above.km), m_way(way) {}

    void cut(std::size_t begin, std::size_t end, std::vector<VisibleBand>& bands) const {
        const InView seen = pointsInView(m_km, begin, end, m_way);
        const Columns columns(m_km, seen, m_way);
        VisibleBand band;
        for (std::vector<double>* numbers : {&band.km, &band.above, &band.below})
            numbers->reserve(columns.areDense() ? columns.most() : seen.end - seen.first + 2);
        if (seen.cutBefore) addCrossing(band, seen.first, m_way.distance.bottom);
        if (columns.areDense()) {
            band.thinned = true;
            columns.forEach([&](std::size_t from, std::size_t to) { addColumn(from, to, band); });
        } else {
            for (std::size_t j = seen.first; j < seen.end; ++j)
                addPoint(band, j);
        }
        if (seen.cutAfter) addCrossing(band, seen.end, m_way.distance.top);
        if (!band.km.empty()) bands.push_back(std::move(band));
    }

  private:
    void addPoint(VisibleBand& band, std::size_t j) const {
        add(band, m_km[j], m_above.values[j], m_below.values[j]);
    }
    void addCrossing(VisibleBand& band, std::size_t after, double km) const {
        add(band, km, valueAt(m_above, after, km), valueAt(m_below, after, km));
    }

    // Over columns without points the edges go from the last of one to the first of the next.
    void addColumn(std::size_t begin, std::size_t end, VisibleBand& band) const {
        if (!band.km.empty() && (m_km[begin] - band.km.back()) * m_way.distance.perUnit() > 2 * m_way.pixel) {
            if (begin > 0 && m_km[begin - 1] >= band.km.back()) addPoint(band, begin - 1);
            addPoint(band, begin);
        }
        add(band, m_km[begin], m_above.pyramid.range(m_above.values, begin, end).highest,
            m_below.pyramid.range(m_below.values, begin, end).lowest);
    }

    const PathValues& m_above;
    const PathValues& m_below;
    const std::vector<double>& m_km;
    const VisibleWay& m_way;
};

// Pixels as the painter rounds to them.
class ColumnFinding {
  public:
    ColumnFinding(const std::vector<double>& km, const VisibleWay& way) : m_km(km), m_way(way) {}

    std::vector<std::size_t> beginnings() const {
        std::vector<std::size_t> found;
        const auto index = [this](auto at) { return static_cast<std::size_t>(at - m_km.begin()); };
        const std::size_t end = index(std::ranges::upper_bound(m_km, m_way.distance.top));
        for (std::size_t begin = index(std::ranges::lower_bound(m_km, m_way.distance.bottom)); begin < end;) {
            begin = endOfColumn(begin, end);
            if (begin < end) found.push_back(begin);
        }
        return found;
    }

  private:
    double columnOf(std::size_t j) const {
        return std::floor(m_way.distance.place(m_km[j]) / m_way.pixel + 0.5);
    }
    // In growing steps, then by halves: the points of a column are few.
    std::size_t endOfColumn(std::size_t begin, std::size_t end) const {
        const double column = columnOf(begin);
        std::size_t inside = begin, step = 1;
        while (inside + step < end && columnOf(inside + step) == column) {
            inside += step;
            step *= 2;
        }
        std::size_t outside = std::min(inside + step, end);
        while (outside - inside > 1) {
            const std::size_t middle = inside + (outside - inside) / 2;
            (columnOf(middle) == column ? inside : outside) = middle;
        }
        return outside;
    }

    const std::vector<double>& m_km;
    const VisibleWay& m_way;
};

void take(std::optional<NumberRange>& all, const NumberRange& range) {
    if (!all) all = range;
    all->lowest = std::min(all->lowest, range.lowest);
    all->highest = std::max(all->highest, range.highest);
}

// Of an ascending piece from `begin` to before `end`.
void takePiece(const PathValues& values, std::size_t begin, std::size_t end, const VisibleWay& way,
               std::optional<NumberRange>& all) {
    const InView seen = pointsInView(*values.km, begin, end, way);
    if (seen.end > seen.first) take(all, values.pyramid.range(values.values, seen.first, seen.end));
    const auto takeCrossing = [&](std::size_t after, double km) {
        const double value = valueAt(values, after, km);
        take(all, {value, value});
    };
    if (seen.cutBefore) takeCrossing(seen.first, way.distance.bottom);
    if (seen.cutAfter) takeCrossing(seen.end, way.distance.top);
}

// Calls `use` with the ends of each piece.
template <typename Use>
void forPieces(const PathValues& values, Use use) {
    for (std::size_t k = 0; k < values.breaks.size(); ++k)
        use(values.breaks[k], k + 1 < values.breaks.size() ? values.breaks[k + 1] : values.size());
}

} // namespace

const std::vector<std::size_t>& PixelColumnsOfKm::beginnings(const std::vector<double>& km,
                                                             const VisibleWay& way) {
    const auto known = std::ranges::find(m_known, &km, &Known::km);
    if (known != m_known.end()) return known->beginnings;
    return m_known.emplace_back(Known{&km, ColumnFinding(km, way).beginnings()}).beginnings;
}

std::vector<VisiblePiece> visiblePieces(const PathValues& values, const VisibleWay& way) {
    std::vector<VisiblePiece> pieces;
    if (values.size() == 0) return pieces;
    const PieceCutting cutting(values, way);
    forPieces(values, [&](std::size_t begin, std::size_t end) {
        values.ascending ? cutting.cutAscending(begin, end, pieces) : cutting.cutEachLine(begin, end, pieces);
    });
    return pieces;
}

std::vector<VisibleBand> visibleBands(const PathValues& above, const PathValues& below,
                                      const VisibleWay& way) {
    std::vector<VisibleBand> bands;
    if (above.size() == 0) return bands;
    if (above.ascending) {
        const BandCutting cutting(above, below, way);
        forPieces(above, [&](std::size_t begin, std::size_t end) { cutting.cut(begin, end, bands); });
        return bands;
    }
    const std::vector<VisiblePiece> belows = visiblePieces(below, way);
    for (VisiblePiece& piece : visiblePieces(above, way))
        bands.push_back({std::move(piece.km), std::move(piece.values), belows[bands.size()].values});
    return bands;
}

std::optional<NumberRange> rangeInView(const PathValues& values, const VisibleWay& way) {
    std::optional<NumberRange> all;
    if (values.ascending) {
        forPieces(values,
                  [&](std::size_t begin, std::size_t end) { takePiece(values, begin, end, way, all); });
        return all;
    }
    for (const VisiblePiece& piece : visiblePieces(values, way))
        for (const double value : piece.values)
            take(all, {value, value});
    return all;
}

} // namespace korvel
