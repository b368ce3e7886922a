#include "panels/ProfileLayout.h"

#include <algorithm>
#include <utility>

namespace korvel {

namespace {

// What is long is taken out of the layout, not copied.
class ProfilePainting {
  public:
    ProfilePainting(ProfileLayout& layout, Drawing& drawing)
        : m_layout(layout), m_look(layout.look), m_drawing(drawing) {}

    void paint() {
        m_drawing.commands.reserve(m_drawing.commands.size() + roughCount());
        for (ProfilePanel& panel : m_layout.panels)
            paintPanel(panel);
        paintBelow();
        for (const ProfileKeyEntry& entry : m_layout.key)
            paintKeyEntry(entry);
    }

  private:
    // Of what can be many.
    std::size_t roughCount() const {
        std::size_t count = 200 + 3 * m_layout.features.size();
        for (const ProfilePanel& panel : m_layout.panels) {
            count += 100 + panel.bands.size() + panel.targets.size() + panel.observed.size();
            for (const ProfileCurve& curve : panel.curves)
                count += curve.traced.runs.size() + curve.traced.strokes.size();
        }
        return count;
    }
    Pen hair(Rgb colour, Dash dash = Dash::solid) const { return {colour, m_look.hairline, dash}; }
    void line(DrawnPoint from, DrawnPoint to, const Pen& pen) {
        m_drawing.commands.push_back(DrawnLine{from, to, pen});
    }
    void text(const DrawnText& text) {
        if (!text.text.empty()) m_drawing.commands.push_back(text);
    }

    void paintPanel(ProfilePanel& panel) {
        paintGround(panel);
        for (ProfileBand& band : std::exchange(panel.bands, {}))
            m_drawing.commands.push_back(std::move(band.drawn));
        if (panel.reference)
            line({panel.area.left, *panel.reference}, {panel.area.right, *panel.reference},
                 hair(m_look.text));
        paintFrame(panel.area);
        for (const ProfileStroke& target : panel.targets)
            line(target.stroke.from, target.stroke.to, target.pen);
        for (ProfileCurve& curve : std::exchange(panel.curves, {}))
            paintCurve(curve);
        for (const ProfileMark& mark : panel.observed)
            m_drawing.commands.push_back(DrawnMarker{mark.centre, m_layout.markHalf, mark.pen});
        for (const DrawnText& each : panel.texts)
            text(each);
    }

    void paintGround(const ProfilePanel& panel) {
        const PlotArea& area = panel.area;
        m_drawing.commands.push_back(DrawnBand{{{area.left, area.top}, {area.right, area.top}},
                                               {{area.left, area.bottom}, {area.right, area.bottom}},
                                               m_look.plot});
        for (const AxisTick& tick : m_layout.distance.ticks)
            if (tick.place > area.left)
                line({tick.place, area.bottom}, {tick.place, area.top}, hair(m_look.grid));
        for (const AxisTick& tick : panel.values.ticks)
            line({area.left, tick.place}, {area.right, tick.place}, hair(m_look.grid));
        for (const double x : m_layout.boundaries)
            line({x, area.bottom}, {x, area.top}, hair(m_look.axis, Dash::dash));
    }

    void paintFrame(const PlotArea& area) {
        line({area.left, area.bottom}, {area.left, area.top}, hair(m_look.axis));
        line({area.left, area.bottom}, {area.right, area.bottom}, hair(m_look.axis));
    }

    void paintCurve(ProfileCurve& curve) {
        for (std::vector<DrawnPoint>& run : curve.traced.runs)
            m_drawing.commands.push_back(DrawnRun{std::move(run), curve.pen});
        for (const CurveStroke& stroke : curve.traced.strokes)
            line(stroke.from, stroke.to, curve.pen);
    }

    void paintBelow() {
        const Scale& distance = m_layout.distance.scale;
        if (m_layout.panels.empty())
            line({distance.from, m_layout.axisY}, {distance.to, m_layout.axisY}, hair(m_look.axis));
        for (const AxisTick& tick : m_layout.distance.ticks)
            line({tick.place, m_layout.axisY}, {tick.place, m_layout.axisY + m_layout.markHalf},
                 hair(m_look.axis));
        for (const DrawnLine& each : m_layout.lines)
            m_drawing.commands.push_back(each);
        for (const FeatureMark& feature : m_layout.features) {
            const double x = distance.place(feature.km);
            line({x, m_layout.featureY}, {x, m_layout.featureY + m_layout.markHalf}, hair(m_look.axis));
            if (feature.leader.size() > 1)
                m_drawing.commands.push_back(DrawnRun{feature.leader, hair(m_look.grid)});
            text(feature.text);
        }
        for (const DrawnText& each : m_layout.texts)
            text(each);
    }

    void paintKeyEntry(const ProfileKeyEntry& entry) {
        const DrawnPoint end{entry.at.x + entry.width, entry.at.y};
        const double half = entry.text.height * 0.35;
        switch (entry.kind) {
        case KeySampleKind::line:
        case KeySampleKind::target: line(entry.at, end, entry.pen); break;
        case KeySampleKind::band:
            m_drawing.commands.push_back(DrawnBand{{{entry.at.x, entry.at.y - half}, {end.x, end.y - half}},
                                                   {{entry.at.x, entry.at.y + half}, {end.x, end.y + half}},
                                                   entry.pen.colour,
                                                   0.18});
            break;
        case KeySampleKind::cross:
            m_drawing.commands.push_back(
                DrawnMarker{{(entry.at.x + end.x) / 2, entry.at.y}, m_layout.markHalf, entry.pen});
            break;
        }
        text(entry.text);
    }

    ProfileLayout& m_layout;
    const PanelLook& m_look;
    Drawing& m_drawing;
};

// A diamond, in the ground's colour where it stands on many lines.
void paintDiamond(DrawnPoint at, double half, Rgb colour, Drawing& drawing) {
    drawing.commands.push_back(DrawnBand{{{at.x - half, at.y}, {at.x, at.y - half}, {at.x + half, at.y}},
                                         {{at.x - half, at.y}, {at.x, at.y + half}, {at.x + half, at.y}},
                                         colour});
}

} // namespace

void paintAway(ProfileLayout& layout, Drawing& drawing) {
    drawing.width = std::max(drawing.width, layout.width);
    drawing.height = std::max(drawing.height, layout.height);
    ProfilePainting(layout, drawing).paint();
}

void paint(const ProfileLayout& layout, Drawing& drawing) {
    ProfileLayout copy = layout;
    paintAway(copy, drawing);
}

void paintCursor(const ProfileLayout& layout, const ProfileData& data, std::size_t place, Drawing& drawing) {
    const double km = data.path->places[place].km;
    if (layout.panels.empty() || km < layout.distance.scale.bottom || km > layout.distance.scale.top) return;
    const double x = xOf(layout, km);
    const Pen pen{layout.look.accent, layout.look.hairline, Dash::solid};
    drawing.commands.push_back(
        DrawnLine{{x, layout.panels.front().area.top}, {x, layout.panels.back().area.bottom}, pen});
    for (std::size_t panel = 0; panel < layout.panels.size(); ++panel)
        for (const RunInPanel& run : data.panels[panel].runs) {
            const auto at = placeOf(layout, data, panel, run.run, place);
            if (!at) continue;
            paintDiamond(*at, 1.5 * layout.markHalf, layout.look.plot, drawing);
            paintDiamond(*at, layout.markHalf, runStyle(run.run, layout.look.theme).colour, drawing);
        }
}

} // namespace korvel
