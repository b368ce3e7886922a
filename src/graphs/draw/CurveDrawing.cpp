#include "graphs/draw/CurveDrawing.h"

#include <algorithm>
#include <utility>

namespace {

class CurvePen {
  public:
    CurvePen(const GraphSheet& sheet, const PanelCurve& curve, const CurvePlace& place)
        : m_sheet(sheet), m_curve(curve), m_place(place), m_perUnit(place.area.height() / place.largest) {}

    DrawnPoint at(double x, double value) const {
        return {x, m_place.area.bottom + std::max(value, 0.0) * m_perUnit};
    }
    bool above(DrawnPoint point) const { return point.y > m_place.area.top; }

    void joined(const std::vector<int>& points, const std::vector<double>& x) const {
        std::vector<DrawnPoint> run = m_sheet.takePoints();
        run.resize(points.size());
        bool anyAbove = false;
        for (std::size_t j = 0; j < points.size(); ++j) {
            run[j] = at(x[j], value(points[j]));
            anyAbove |= above(run[j]);
        }
        if (anyAbove)
            cutRuns(run);
        else
            draw(std::move(run));
    }

    void runsOfEqualValue(const std::vector<int>& points, const std::vector<double>& x) const {
        for (std::size_t begin = 0; begin < points.size();) {
            std::size_t end = begin + 1;
            while (end < points.size() && value(points[end]) == value(points[begin]))
                ++end;
            const DrawnPoint from = at(x[begin], value(points[begin]));
            if (value(points[begin]) != 0 && !above(from)) drawLevel(from, x[end - 1]);
            begin = end;
        }
    }

    void crosses(const std::vector<int>& points, const std::vector<double>& x) const {
        for (std::size_t j = 0; j < points.size(); ++j) {
            const DrawnPoint centre = at(x[j], value(points[j]));
            if (value(points[j]) != 0 && !above(centre)) m_sheet.cross(m_curve.look, centre, m_place.mark);
        }
    }

  private:
    double value(int point) const { return m_curve.values[static_cast<std::size_t>(point)]; }

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
    const CurvePlace& m_place;
    double m_perUnit;
};

} // namespace

void drawCurve(const GraphSheet& sheet, const PanelCurve& curve, const std::vector<int>& points,
               const std::vector<double>& x, const CurvePlace& place) {
    const CurvePen pen(sheet, curve, place);
    switch (curve.kind) {
    case CurveKind::joined: pen.joined(points, x); break;
    case CurveKind::runsOfEqualValue: pen.runsOfEqualValue(points, x); break;
    case CurveKind::crosses: pen.crosses(points, x); break;
    }
}
