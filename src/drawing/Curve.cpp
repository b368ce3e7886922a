#include "drawing/Curve.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel {

namespace {

// Linear scales are by far the most, and their points are many: a multiplication each.
template <typename Use>
auto withPlaces(const Scale& scale, Use use) {
    if (scale.kind != ScaleKind::linear)
        return use([&scale](double value) {
            return scale.place(value > 0 ? std::max(value, scale.bottom) : value);
        });
    return use([from = scale.from, bottom = scale.bottom, perUnit = scale.perUnit()](double value) {
        return from + (std::max(value, bottom) - bottom) * perUnit;
    });
}

class CurveTracer {
  public:
    CurveTracer(std::span<const double> distances, const CurvePlace& place)
        : m_distances(distances), m_place(place), m_upward(place.area.top >= place.area.bottom) {}

    TracedCurve traced;

    void joined(const CurveValues& values) {
        Points run = points(values);
        if (run.anyAbove)
            cutRuns(run.at);
        else
            add(std::move(run.at));
    }

    void runsOfEqualValue(const CurveValues& values) {
        values.visit([&](auto value) {
            for (std::size_t begin = 0; begin < m_distances.size();) {
                const double level = value(begin);
                std::size_t end = begin + 1;
                while (end < m_distances.size() && value(end) == level)
                    ++end;
                const DrawnPoint from = point(begin, level);
                if (level != 0 && !above(from)) addHorizontal(from, point(end - 1, level).x);
                begin = end;
            }
        });
    }

    void crosses(const CurveValues& values) {
        values.visit([&](auto value) {
            for (std::size_t j = 0; j < m_distances.size(); ++j) {
                if (value(j) == 0) continue;
                const DrawnPoint centre = point(j, value(j));
                if (!above(centre)) traced.marks.push_back(centre);
            }
        });
    }

    struct Points {
        std::vector<DrawnPoint> at;
        bool anyAbove = false;
    };
    // In one pass: there are many.
    Points points(const CurveValues& values) const {
        Points found{std::vector<DrawnPoint>(m_distances.size())};
        values.visit([&](auto value) {
            withPlaces(m_place.value, [&](auto y) {
                const Scale& distance = m_place.distance;
                const double left = distance.from, lowest = distance.bottom, perKm = distance.perUnit();
                bool anyAbove = false;
                for (std::size_t j = 0; j < m_distances.size(); ++j) {
                    found.at[j] = {left + (m_distances[j] - lowest) * perKm, y(value(j))};
                    anyAbove |= above(found.at[j]);
                }
                found.anyAbove = anyAbove;
            });
        });
        return found;
    }

    DrawnPoint point(std::size_t j, double value) const {
        return {m_place.distance.place(m_distances[j]),
                withPlaces(m_place.value, [&](auto y) { return y(value); })};
    }
    bool above(DrawnPoint point) const {
        return m_upward ? point.y > m_place.area.top : point.y < m_place.area.top;
    }

  private:
    void add(std::vector<DrawnPoint> run) {
        if (run.size() == 1)
            addHorizontal(run[0], run[0].x);
        else if (!run.empty())
            traced.runs.push_back(std::move(run));
    }

    // One without length becomes a short stroke, so that it is seen.
    void addHorizontal(DrawnPoint from, double toX) {
        if (toX > from.x)
            traced.strokes.push_back({from, {toX, from.y}});
        else
            traced.strokes.push_back({{std::max(from.x - m_place.mark, m_place.area.left), from.y},
                                      {std::min(from.x + m_place.mark, m_place.area.right), from.y}});
    }

    // Where the line from one point to the next passes the top.
    DrawnPoint crossing(DrawnPoint from, DrawnPoint to) const {
        const double share = (m_place.area.top - from.y) / (to.y - from.y);
        return {from.x + (to.x - from.x) * share, m_place.area.top};
    }

    void cutRuns(const std::vector<DrawnPoint>& points) {
        std::vector<DrawnPoint> run;
        for (std::size_t j = 0; j < points.size(); ++j) {
            const bool passes = j > 0 && above(points[j - 1]) != above(points[j]);
            if (passes) run.push_back(crossing(points[j - 1], points[j]));
            if (!above(points[j]))
                run.push_back(points[j]);
            else
                add(std::exchange(run, {}));
        }
        add(std::move(run));
    }

    std::span<const double> m_distances;
    const CurvePlace& m_place;
    bool m_upward;
};

} // namespace

std::size_t CurveValues::size() const {
    if (const auto* seen = std::get_if<Seen>(&m_source)) return seen->entries.size();
    if (const auto* made = std::get_if<Made>(&m_source)) return made->count;
    return std::get<std::vector<double>>(m_source).size();
}

double CurveValues::operator[](std::size_t j) const {
    return visit([j](auto value) { return value(j); });
}

TracedCurve traceCurve(const Curve& curve, std::span<const double> distances, const CurvePlace& place) {
    CurveTracer tracer(distances, place);
    switch (curve.kind) {
    case CurveKind::joined: tracer.joined(curve.values); break;
    case CurveKind::runsOfEqualValue: tracer.runsOfEqualValue(curve.values); break;
    case CurveKind::crosses: tracer.crosses(curve.values); break;
    }
    return std::move(tracer.traced);
}

std::vector<DrawnPoint> curveEdge(const CurveValues& values, std::span<const double> distances,
                                  const CurvePlace& place) {
    const CurveTracer tracer(distances, place);
    std::vector<DrawnPoint> edge = tracer.points(values).at;
    for (DrawnPoint& point : edge)
        if (tracer.above(point)) point.y = place.area.top;
    return edge;
}

DrawnPoint placeOf(const Curve& curve, std::size_t j, double distance, const CurvePlace& place) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const CurveTracer tracer(std::span(&distance, 1), place);
    const double value = curve.values[j];
    const bool missing = curve.kind != CurveKind::joined && value == 0;
    const DrawnPoint at = tracer.point(0, value);
    return missing || tracer.above(at) ? DrawnPoint{at.x, nan} : at;
}

} // namespace korvel
