#include "graphs/draw/CurveDrawing.h"

#include <algorithm>
#include <utility>

namespace korvel {

namespace {

class CurvePen {
  public:
    CurvePen(const GraphSheet& sheet, const PanelCurve& curve, const PlottedColumn& column,
             const DistanceScale& scale, const CurvePlace& place)
        : m_sheet(sheet),
          m_curve(curve),
          m_column(column),
          m_scale(scale),
          m_place(place),
          m_perKm(scale.perKm()),
          m_perUnit(place.area.height() / place.largest) {}

    double value(std::size_t j) const { return m_curve.values[static_cast<std::size_t>(m_column.points[j])]; }
    DrawnPoint at(std::size_t j) const {
        return {m_scale.left + (m_column.distances[j] - m_scale.lowest) * m_perKm,
                m_place.area.bottom + std::max(value(j), 0.0) * m_perUnit};
    }
    std::size_t count() const { return m_column.points.size(); }
    bool above(DrawnPoint point) const { return point.y > m_place.area.top; }

    void joined() const {
        std::vector<DrawnPoint> run = m_sheet.takePoints(count());
        bool anyAbove = false;
        for (std::size_t j = 0; j < count(); ++j) {
            run[j] = at(j);
            anyAbove |= above(run[j]);
        }
        if (!anyAbove) return draw(std::move(run));
        cutRuns(run);
        m_sheet.giveBack(std::move(run));
    }

    void runsOfEqualValue() const {
        for (std::size_t begin = 0; begin < count();) {
            std::size_t end = begin + 1;
            while (end < count() && value(end) == value(begin))
                ++end;
            const DrawnPoint from = at(begin);
            if (value(begin) != 0 && !above(from)) drawLevel(from, at(end - 1).x);
            begin = end;
        }
    }

    void crosses() const {
        for (std::size_t j = 0; j < count(); ++j) {
            if (value(j) == 0) continue;
            const DrawnPoint centre = at(j);
            if (!above(centre)) m_sheet.cross(m_curve.look, centre, m_place.mark);
        }
    }

  private:
    void draw(std::vector<DrawnPoint> run) const {
        if (run.size() == 1)
            drawLevel(run[0], run[0].x);
        else if (!run.empty())
            m_sheet.run(m_curve.look, std::move(run));
    }

    // A lying line; one without length becomes a short stroke, so that it is seen.
    void drawLevel(DrawnPoint from, double toX) const {
        if (toX > from.x)
            m_sheet.line(m_curve.look, from, {toX, from.y});
        else
            m_sheet.line(m_curve.look, {std::max(from.x - m_place.mark, m_place.area.left), from.y},
                         {std::min(from.x + m_place.mark, m_place.area.right), from.y});
    }

    // Where the line from one point to the next passes the top.
    DrawnPoint crossing(DrawnPoint from, DrawnPoint to) const {
        const double share = (m_place.area.top - from.y) / (to.y - from.y);
        return {from.x + (to.x - from.x) * share, m_place.area.top};
    }

    void cutRuns(const std::vector<DrawnPoint>& points) const {
        std::vector<DrawnPoint> run;
        for (std::size_t j = 0; j < points.size(); ++j) {
            const bool passes = j > 0 && above(points[j - 1]) != above(points[j]);
            if (passes) run.push_back(crossing(points[j - 1], points[j]));
            if (!above(points[j]))
                run.push_back(points[j]);
            else
                draw(std::exchange(run, {}));
        }
        draw(std::move(run));
    }

    const GraphSheet& m_sheet;
    const PanelCurve& m_curve;
    const PlottedColumn& m_column;
    const DistanceScale& m_scale;
    const CurvePlace& m_place;
    double m_perKm;
    double m_perUnit;
};

} // namespace

void drawCurve(const GraphSheet& sheet, const PanelCurve& curve, const PlottedColumn& column,
               const DistanceScale& scale, const CurvePlace& place) {
    const CurvePen pen(sheet, curve, column, scale, place);
    switch (curve.kind) {
    case CurveKind::joined: pen.joined(); break;
    case CurveKind::runsOfEqualValue: pen.runsOfEqualValue(); break;
    case CurveKind::crosses: pen.crosses(); break;
    }
}

} // namespace korvel
