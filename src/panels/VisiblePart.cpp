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

// Where the line between two points passes a distance. On a logarithmic scale it is straight there.
double valueBetween(KmValue from, KmValue to, double km, ScaleKind kind) {
    const double share = (km - from.km) / (to.km - from.km);
    if (kind == ScaleKind::linear) return from.value + (to.value - from.value) * share;
    return from.value * std::pow(to.value / from.value, share);
}

void add(VisiblePiece& piece, double km, double value) {
    piece.km.push_back(km);
    piece.values.push_back(value);
}

// One joined run of points, whose distances may go back.
class PieceCutting {
  public:
    PieceCutting(std::span<const double> km, std::span<const double> values, const VisibleWay& way)
        : m_km(km), m_values(values), m_way(way) {}

    void cutAscending(const PathValues& of, std::size_t offset, std::vector<VisiblePiece>& pieces) {
        const double from = m_way.distance.bottom, to = m_way.distance.top;
        const auto first = static_cast<std::size_t>(std::ranges::lower_bound(m_km, from) - m_km.begin());
        const auto end = static_cast<std::size_t>(std::ranges::upper_bound(m_km, to) - m_km.begin());
        VisiblePiece piece;
        if (first > 0 && first < m_km.size() && m_km[first] > from) addCrossing(piece, first, from);
        if (end > first) addInner(of, offset, first, end, piece);
        if (end > 0 && end < m_km.size() && m_km[end - 1] < to) addCrossing(piece, end, to);
        if (!piece.km.empty()) pieces.push_back(std::move(piece));
    }

    void cutEachLine(std::vector<VisiblePiece>& pieces) {
        const double from = m_way.distance.bottom, to = m_way.distance.top;
        VisiblePiece piece;
        for (std::size_t j = 0; j < m_km.size(); ++j) {
            if (j > 0 && m_km[j - 1] != m_km[j]) {
                const bool down = m_km[j] > m_km[j - 1];
                for (const double edge : {down ? from : to, down ? to : from})
                    if ((m_km[j - 1] < edge && edge < m_km[j]) || (m_km[j] < edge && edge < m_km[j - 1])) {
                        addCrossing(piece, j, edge);
                        if (piece.km.size() > 1 && edge == (down ? to : from)) finish(piece, pieces);
                    }
            }
            if (m_km[j] >= from && m_km[j] <= to)
                add(piece, m_km[j], m_values[j]);
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
        const KmValue from{m_km[after - 1], m_values[after - 1]}, to{m_km[after], m_values[after]};
        add(piece, km, valueBetween(from, to, km, m_way.values));
    }

    void addInner(const PathValues& of, std::size_t offset, std::size_t first, std::size_t end,
                  VisiblePiece& piece) {
        const double columns = std::abs(m_way.distance.to - m_way.distance.from) / m_way.pixel + 1;
        if (static_cast<double>(end - first) <= pointsPerColumn * columns) {
            piece.km.insert(piece.km.end(), m_km.begin() + at(first), m_km.begin() + at(end));
            piece.values.insert(piece.values.end(), m_values.begin() + at(first), m_values.begin() + at(end));
            return;
        }
        piece.thinned = true;
        PixelColumnsOfKm own;
        const auto& beginnings = (m_way.columns != nullptr ? *m_way.columns : own).beginnings(*of.km, m_way);
        auto next = std::ranges::upper_bound(beginnings, offset + first);
        piece.km.reserve(4 * static_cast<std::size_t>(beginnings.end() - next + 2));
        piece.values.reserve(piece.km.capacity());
        for (std::size_t begin = first; begin < end;) {
            const bool goesOn = next != beginnings.end() && *next < offset + end;
            const std::size_t last = goesOn ? *next++ - offset : end;
            addColumn(of, offset, begin, last, piece);
            begin = last;
        }
    }

    void addColumn(const PathValues& of, std::size_t offset, std::size_t begin, std::size_t end,
                   VisiblePiece& piece) const {
        add(piece, m_km[begin], m_values[begin]);
        if (end - begin > 2) {
            const NumberRange range = of.pyramid.range(of.values, offset + begin, offset + end);
            add(piece, m_km[begin], range.lowest);
            add(piece, m_km[begin], range.highest);
        }
        if (end - begin > 1) add(piece, m_km[end - 1], m_values[end - 1]);
    }

    static std::ptrdiff_t at(std::size_t j) { return static_cast<std::ptrdiff_t>(j); }

    std::span<const double> m_km;
    std::span<const double> m_values;
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
    const auto km = std::span(*values.km).subspan(begin, end - begin);
    const double from = way.distance.bottom, to = way.distance.top;
    const std::size_t first =
        begin + static_cast<std::size_t>(std::ranges::lower_bound(km, from) - km.begin());
    const std::size_t last = begin + static_cast<std::size_t>(std::ranges::upper_bound(km, to) - km.begin());
    if (last > first) take(all, values.pyramid.range(values.values, first, last));
    const auto takeCrossing = [&](std::size_t after, double at) {
        const double value = valueBetween({(*values.km)[after - 1], values.values[after - 1]},
                                          {(*values.km)[after], values.values[after]}, at, way.values);
        take(all, {value, value});
    };
    if (first > begin && first < end && (*values.km)[first] > from) takeCrossing(first, from);
    if (last > begin && last < end && (*values.km)[last - 1] < to) takeCrossing(last, to);
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
    forPieces(values, [&](std::size_t begin, std::size_t end) {
        PieceCutting cutting(std::span(*values.km).subspan(begin, end - begin),
                             std::span(values.values).subspan(begin, end - begin), way);
        if (values.ascending)
            cutting.cutAscending(values, begin, pieces);
        else
            cutting.cutEachLine(pieces);
    });
    return pieces;
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

VisiblePiece partOf(const VisiblePiece& piece, double from, double to, ScaleKind values) {
    const auto index = [&](auto found) { return static_cast<std::size_t>(found - piece.km.begin()); };
    const std::size_t first = index(std::ranges::lower_bound(piece.km, from));
    const std::size_t end = std::max(first, index(std::ranges::upper_bound(piece.km, to)));
    const auto crossing = [&](std::size_t after, double km) {
        return valueBetween({piece.km[after - 1], piece.values[after - 1]},
                            {piece.km[after], piece.values[after]}, km, values);
    };
    VisiblePiece part;
    part.thinned = piece.thinned;
    if (first > 0 && first < piece.km.size() && piece.km[first] > from)
        add(part, from, crossing(first, from));
    for (std::size_t j = first; j < end; ++j)
        add(part, piece.km[j], piece.values[j]);
    if (end > 0 && end < piece.km.size() && piece.km[end - 1] < to) add(part, to, crossing(end, to));
    return part;
}

} // namespace korvel
