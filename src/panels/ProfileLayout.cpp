#include "panels/ProfileLayout.h"

#include "basic/ShownText.h"
#include "basic/Text.h"
#include "panels/PanelDrawing.h"
#include "panels/PanelMeasures.h"
#include "panels/ProfileFeatures.h"
#include "panels/ProfileKey.h"
#include "panels/SeriesMaking.h"
#include "panels/TextFitting.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr double leastPlot = 2.4; // lines: lower panels can be scrolled to, but not be read
constexpr int mostFeatureRows = 5;
constexpr double leastKm = 1e-6;

class ProfileMaking {
  public:
    ProfileMaking(const ProfileData& data, const ProfileView& view, const PanelLook& look,
                  const TextMetrics& metrics, ProfileLayout& layout, ProfileCommon& common)
        : m_data(data),
          m_view(view),
          m_look(look),
          m_metrics(metrics),
          m_measures(look, metrics),
          m_layout(layout),
          m_common(common) {}

    void make() {
        setKm();
        const LaidOutKey key = layOutKey(m_data, m_look, keyArea(), m_metrics);
        m_layout.key = key.entries;
        m_top = key.bottom + 0.2 * m_measures.line;
        findRanges();
        setDistance();
        placeBelow();
        placePanels();
        addBoundaries();
    }

  private:
    std::size_t count() const { return m_data.panels.size(); }
    const StudyPath& path() const { return *m_data.path; }
    PlotArea keyArea() const {
        return {m_measures.pad, m_layout.width - m_measures.pad, 0, 0.4 * m_measures.pad};
    }

    void setKm() {
        double from = 0, to = path().length();
        if (!path().places.empty()) {
            from = std::min(from, path().places.front().km);
            to = std::max(to, path().places.back().km);
        }
        if (m_view.toKm > m_view.fromKm) {
            from = m_view.fromKm;
            to = m_view.toKm;
        }
        if (!(to - from > leastKm)) to = from + 1;
        m_layout.distance.scale = {from, to, 0, m_layout.width};
    }

    PanelContext context(PixelColumnsOfKm& columns) const {
        return {m_data, m_view, m_look, m_measures, m_layout.distance.scale, columns};
    }

    void findRanges() {
        PixelColumnsOfKm columns; // those of the whole width: the panels' place isn't known yet
        for (const PanelData& panel : m_data.panels)
            m_ranges.push_back(valuesInView(context(columns), panel));
    }

    Axis axisOf(std::size_t k, const PlotArea& area) const {
        const AxisBegin begin = m_view.fromZero ? AxisBegin::atZero : AxisBegin::atLowest;
        return valueAxis(m_ranges[k], m_data.view.scale, begin,
                         {area.bottom, area.top, m_measures.tickRoom()});
    }

    double underPanels(int featureRows) const {
        const double features = featureRows > 0
                                    ? m_measures.featureGap() + featureRows * m_measures.featureRow()
                                    : 0.4 * m_measures.line;
        return m_measures.kmNumbers() + m_measures.reachNames() + features;
    }
    double plotHeight(int featureRows) const {
        const auto panels = static_cast<double>(std::max<std::size_t>(1, count()));
        const double all = m_layout.height - m_top - underPanels(featureRows);
        return std::max(all / panels - m_measures.title() - m_measures.gap(), 0.3 * m_measures.line);
    }

    // The numbers of the value axes need most room where panels are as high as they may become.
    void setDistance() {
        double numbers = std::max(m_common.numbers, 3 * m_measures.letter);
        const PlotArea highest{0, 0, plotHeight(0), 0};
        for (std::size_t k = 0; k < count(); ++k)
            for (const AxisTick& tick : axisOf(k, highest).ticks)
                numbers = std::max(numbers, m_metrics.measure(tick.text, m_look.font).width);
        m_common.numbers = numbers;
        const double left = m_measures.pad + numbers + 0.5 * m_measures.line;
        const double right = std::max(m_layout.width - 1.4 * m_measures.pad, left + m_measures.line);
        const Scale& scale = m_layout.distance.scale;
        m_layout.distance = kmAxis(scale.bottom, scale.top, {left, right, m_measures.kmRoom()});
    }

    // Panels that are high enough leave room for names of features.
    int featureRowsAllowed() const {
        const auto panels = static_cast<double>(std::max<std::size_t>(1, count()));
        const double spare = m_layout.height - m_top - underPanels(1) -
                             panels * (m_measures.title() + m_measures.gap() + 1.7 * m_measures.leastPlot());
        return std::clamp(1 + static_cast<int>(std::floor(spare / m_measures.featureRow())), 0,
                          mostFeatureRows);
    }

    void placeBelow() {
        placeCommonFeatures();
        m_layout.features = m_common.features;
        m_plot = plotHeight(m_common.usedRows);
        const auto panels = static_cast<double>(count());
        m_layout.axisY = m_top + panels * (m_measures.title() + m_plot + m_measures.gap()) - m_measures.gap();
        if (count() == 0) m_layout.axisY = m_top + m_measures.title() + m_plot;
        addKmNumbers();
        const double names = m_layout.axisY + m_measures.kmNumbers();
        addReachNames(names);
        m_layout.featureY = names + m_measures.reachNames();
        m_layout.markHalf = m_measures.cross();
        moveDown(m_layout.features, m_layout.featureY);
    }

    void placeCommonFeatures() {
        const Scale& distance = m_layout.distance.scale;
        const FeatureStrip strip{0.3 * m_measures.pad, m_layout.width - 0.3 * m_measures.pad,
                                 featureRowsAllowed()};
        if (m_common.rows == strip.rows && m_common.distance == distance) return;
        PlacedFeatures features = placeFeatures(m_data, m_look, distance, strip, m_metrics);
        m_common.features = std::move(features.marks);
        m_common.usedRows = features.rows;
        m_common.rows = strip.rows;
        m_common.distance = distance;
    }

    void addText(DrawnPoint at, TextAlign align, const std::string& text, Rgb colour) {
        m_layout.texts.push_back(textAt(at, align, text, m_look.font, colour, m_metrics));
    }

    void addKmNumbers() {
        const double top = m_layout.axisY + 0.3 * m_measures.line;
        for (const AxisTick& tick : m_layout.distance.ticks) {
            const double half = m_metrics.measure(tick.text, m_look.font).width / 2;
            const double x = std::min(tick.place, m_layout.width - half - 0.1 * m_measures.line);
            addText({x, top}, TextAlign::centre, tick.text, m_look.quietText);
        }
        addText({m_layout.distance.scale.from - 2.2 * m_measures.letter, top}, TextAlign::right, "km",
                m_look.quietText);
    }

    // Where reaches on both sides are too short to be told apart a line between them says nothing.
    bool isBoundaryTold(std::size_t reach) const {
        const auto width = [this](const PathReach& of) {
            return of.length * m_layout.distance.scale.perUnit();
        };
        const double told = 1.2 * m_measures.line;
        return width(path().reaches[reach]) >= told ||
               (reach > 0 && width(path().reaches[reach - 1]) >= told);
    }

    void addReachNames(double top) {
        const Scale& distance = m_layout.distance.scale;
        const Pen pen{m_look.axis, m_look.hairline, Dash::solid};
        for (std::size_t k = 0; k < path().reaches.size(); ++k) {
            const PathReach& reach = path().reaches[k];
            const double from = std::max(distance.place(reach.from), distance.from);
            const double to = std::min(distance.place(reach.to()), distance.to);
            if (to <= from) continue;
            if (reach.from > distance.bottom && isBoundaryTold(k))
                m_layout.lines.push_back({{from, top}, {from, top + m_measures.line}, pen});
            const std::string name =
                reach.name.empty() ? std::to_string(reach.number) : shownLine(reach.name);
            const std::string fitted =
                fittedText(name, to - from - 0.6 * m_measures.line, m_look.font, m_metrics);
            if (!fitted.empty()) addText({(from + to) / 2, top}, TextAlign::centre, fitted, m_look.text);
        }
    }

    void placePanels() {
        double top = m_top;
        PixelColumnsOfKm columns;
        for (std::size_t k = 0; k < count(); ++k) {
            ProfilePanel panel;
            panel.series = m_data.panels[k].series;
            const Scale& distance = m_layout.distance.scale;
            panel.area = {distance.from, distance.to, top + m_measures.title() + m_plot,
                          top + m_measures.title()};
            panel.values = axisOf(k, panel.area);
            fillPanel(context(columns), m_data.panels[k], panel);
            addTitle(m_data.panels[k], top, panel);
            addNumbers(panel);
            m_layout.panels.push_back(std::move(panel));
            top += m_measures.title() + m_plot + m_measures.gap();
        }
    }

    void addTitle(const PanelData& data, double top, ProfilePanel& panel) const {
        const double y = top + 0.15 * m_measures.line, left = panel.area.left, right = panel.area.right;
        const std::string title = fittedText(data.title, right - left, m_look.titleFont, m_metrics);
        panel.texts.push_back(
            textAt({left, y}, TextAlign::left, title, m_look.titleFont, m_look.text, m_metrics));
        const double end = left + panel.texts.back().width + m_measures.line;
        const std::string note = fittedText(noteOf(data, panel), right - end, m_look.font, m_metrics);
        if (!note.empty())
            panel.texts.push_back(
                textAt({end, y}, TextAlign::left, note, m_look.font, m_look.quietText, m_metrics));
    }

    std::string noteOf(const PanelData& data, const ProfilePanel& panel) const {
        std::string note = data.note;
        const auto add = [&note](const std::string& text) {
            note += (note.empty() ? "" : " \u00b7 ") + text;
        };
        if (panel.leftOut == 1) add("1 value not above 0 is left out");
        if (panel.leftOut > 1) add(std::to_string(panel.leftOut) + " values not above 0 are left out");
        if (panel.observedThinned) add("more observed values than fit: zoom in for all");
        if (panel.targetsThinned) add("more targets than fit: zoom in for all");
        const bool nothing =
            panel.curves.empty() || std::ranges::all_of(panel.curves, [](const ProfileCurve& curve) {
                return curve.traced.runs.empty() && curve.traced.strokes.empty();
            });
        if (nothing && data.note.empty()) add("nothing to show here");
        return note;
    }

    void addNumbers(ProfilePanel& panel) const {
        const double right = panel.area.left - 0.4 * m_measures.line;
        double lowest = panel.area.bottom + m_measures.line; // texts of low panels must not touch
        for (const AxisTick& tick : panel.values.ticks) {
            const DrawnPoint corner{right, tick.place - m_measures.line / 2};
            if (corner.y + 0.9 * m_measures.line > lowest) continue;
            panel.texts.push_back(
                textAt(corner, TextAlign::right, tick.text, m_look.font, m_look.quietText, m_metrics));
            lowest = corner.y;
        }
    }

    void addBoundaries() {
        const Scale& distance = m_layout.distance.scale;
        for (std::size_t k = 1; k < path().reaches.size(); ++k) {
            const double km = path().reaches[k].from;
            if (km > distance.bottom && km < distance.top && isBoundaryTold(k))
                m_layout.boundaries.push_back(distance.place(km));
        }
    }

    const ProfileData& m_data;
    const ProfileView& m_view;
    const PanelLook& m_look;
    const TextMetrics& m_metrics;
    PanelMeasures m_measures;
    ProfileLayout& m_layout;
    ProfileCommon& m_common;
    double m_top = 0;
    double m_plot = 0;
    std::vector<std::optional<NumberRange>> m_ranges;
};

} // namespace

ProfileLayout layOutProfile(const ProfileData& data, const ProfileView& view, const PanelLook& look,
                            double width, double height, const TextMetrics& metrics, ProfileCommon* common) {
    ProfileLayout layout;
    ProfileCommon alone;
    layout.width = width;
    layout.height = height;
    layout.look = look;
    layout.interpolated = data.view.interpolated;
    ProfileMaking(data, view, look, metrics, layout, common != nullptr ? *common : alone).make();
    return layout;
}

double leastProfileHeight(std::size_t panels, const PanelLook& look, const TextMetrics& metrics) {
    const PanelMeasures measures(look, metrics);
    const double around =
        1.3 * measures.keyRow() + measures.kmNumbers() + measures.reachNames() + 0.4 * measures.line;
    return around +
           static_cast<double>(panels) * (measures.title() + measures.gap() + leastPlot * measures.line);
}

std::optional<std::size_t> panelAt(const ProfileLayout& layout, DrawnPoint at) {
    for (std::size_t k = 0; k < layout.panels.size(); ++k) {
        const PlotArea& area = layout.panels[k].area;
        if (at.x >= area.left && at.x <= area.right && at.y >= area.top && at.y <= area.bottom) return k;
    }
    return std::nullopt;
}

double xOf(const ProfileLayout& layout, double km) {
    return layout.distance.scale.place(km);
}

double kmAt(const ProfileLayout& layout, double x) {
    return layout.distance.scale.value(x);
}

std::optional<std::size_t> nearestPlace(const ProfileLayout& layout, const StudyPath& path, double x) {
    return nearestPlace(path, kmAt(layout, x),
                        layout.interpolated ? Interpolated::taken : Interpolated::left);
}

std::optional<DrawnPoint> placeOf(const ProfileLayout& layout, const ProfileData& data, std::size_t panel,
                                  std::size_t run, std::size_t place) {
    if (!data.view.shows(run)) return std::nullopt;
    const PanelData& of = data.panels.at(panel);
    const auto shown = std::ranges::find(of.runs, run, &RunInPanel::run);
    if (shown == of.runs.end()) return std::nullopt;
    const auto value =
        shownValueAt(data.study, *data.path, run, place, {of.series, shown->statistic, data.view});
    const Scale& scale = layout.panels.at(panel).values.scale;
    const double km = data.path->places[place].km;
    if (km < layout.distance.scale.bottom || km > layout.distance.scale.top) return std::nullopt;
    if (!value || !(*value >= scale.bottom && *value <= scale.top)) return std::nullopt;
    return DrawnPoint{xOf(layout, km), scale.place(*value)};
}

} // namespace korvel
