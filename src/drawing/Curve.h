// A curve: values along a distance, and what they become in a panel.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/Scale.h"

#include <cstddef>
#include <functional>
#include <span>
#include <utility>
#include <variant>
#include <vector>

namespace korvel {

// The values of a curve, one a point: seen in a longer list, its own, or made when they are asked for, as
// the difference of two runs is.
class CurveValues {
  public:
    CurveValues() = default;
    // The value of the j-th point is values[entries[j]]. Both lists must outlive the curve.
    CurveValues(std::span<const double> values, std::span<const int> entries)
        : m_source(Seen{values, entries}) {}
    explicit CurveValues(std::vector<double> values) : m_source(std::move(values)) {}
    CurveValues(std::size_t count, std::function<double(std::size_t)> make)
        : m_source(Made{count, std::move(make)}) {}

    std::size_t size() const;
    double operator[](std::size_t j) const;

    // Calls `use` with a function of j, so that a long list is gone through without asking what it is at each
    // point.
    template <typename Use>
    decltype(auto) visit(Use use) const {
        return std::visit([&](const auto& source) { return use(getterOf(source)); }, m_source);
    }

  private:
    struct Seen {
        std::span<const double> values;
        std::span<const int> entries;
    };
    struct Made {
        std::size_t count = 0;
        std::function<double(std::size_t)> make;
    };

    static auto getterOf(const Seen& seen) {
        return [seen](std::size_t j) { return seen.values[static_cast<std::size_t>(seen.entries[j])]; };
    }
    static auto getterOf(const std::vector<double>& own) {
        return [&own](std::size_t j) { return own[j]; };
    }
    static auto getterOf(const Made& made) {
        return [&made](std::size_t j) { return made.make(j); };
    }

    std::variant<std::vector<double>, Seen, Made> m_source;
};

enum class CurveKind { joined, runsOfEqualValue, crosses };

struct Curve {
    CurveKind kind = CurveKind::joined;
    CurveValues values;
};

struct PlotArea {
    double left = 0;
    double right = 0;
    double bottom = 0; // the place of the value scale's bottom: above or below the top, as the drawing runs
    double top = 0;
    double height() const { return top - bottom; }
    bool operator==(const PlotArea&) const = default;
};

// Where a curve is put.
struct CurvePlace {
    PlotArea area;
    const Scale& distance;
    const Scale& value;
    double mark = 0; // half the stroke that shows a single point, and half a cross
};

struct CurveStroke {
    DrawnPoint from;
    DrawnPoint to;
    bool operator==(const CurveStroke&) const = default;
};

// What is to be drawn of a curve.
struct TracedCurve {
    std::vector<std::vector<DrawnPoint>> runs;
    std::vector<CurveStroke> strokes;
    std::vector<DrawnPoint> marks;
};

// `distances`: one a value. What passes the top is cut off there; values below the bottom lie on it. Runs of
// equal value and crosses leave out 0, which stands for no value.
TracedCurve traceCurve(const Curve& curve, std::span<const double> distances, const CurvePlace& place);

// The points of a curve, cut off at top and bottom by being laid on them: the edge of a band.
std::vector<DrawnPoint> curveEdge(const CurveValues& values, std::span<const double> distances,
                                  const CurvePlace& place);

// The place of one value, NaN where it has none or is cut off.
DrawnPoint placeOf(const Curve& curve, std::size_t j, double distance, const CurvePlace& place);

} // namespace korvel
