#include "panels/NetworkLayout.h"

#include "basic/ShownText.h"
#include "basic/Text.h"
#include "panels/NetworkLanes.h"
#include "panels/PanelMeasures.h"
#include "panels/TextFitting.h"
#include "panels/ValueAxis.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr double large = 0.4, middling = 0.1; // of the largest mean flow: where lines become wider
constexpr std::size_t mostFeatures = 5000;
constexpr double leastKeyed = 7;     // lines: lower pictures have no key
constexpr double overLine = 0.7;     // of a lane
constexpr double widestOfLane = 0.6; // of a lane, where lanes are narrow

std::size_t at(int place) {
    return static_cast<std::size_t>(place);
}

// Mean flows at the reaches' ends.
std::vector<double> flowsOf(const RunFile& run) {
    const SeriesValues flow = seriesValues(run.results, 0, Statistic::mean);
    std::vector<double> flows;
    for (int place = 0; place < run.reaches.count(); ++place) {
        const auto points = run.reaches.pointsOf(place);
        flows.push_back(points.empty() ? 0 : flow.value[SeriesValues::at(points.back())]);
    }
    return flows;
}

bool touch(const PlotArea& a, const PlotArea& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

class NetworkMaking {
  public:
    NetworkMaking(const RunFile& run, const Network& network, const NetworkView& view, const PanelLook& look,
                  const TextMetrics& metrics, NetworkLayout& layout)
        : m_run(run),
          m_network(network),
          m_view(view),
          m_look(look),
          m_metrics(metrics),
          m_measures(look, metrics),
          m_layout(layout) {}

    void make() {
        m_layout.symbolHalf = 0.32 * m_measures.line;
        if (const auto circles = circlesIn(m_network, m_run)) return tell(*circles + ": no picture of it.");
        if (m_network.next.empty()) return tell("No reaches.");
        if (isKeyed()) addKey();
        setDistance();
        placeRivers();
        placeReaches();
        placeJoins();
        if (isKeyed() && hasWiderLines()) addWidthNote();
        placeFeatures();
        placeNames();
    }

  private:
    double lengthOf(int place) const {
        return std::max(0.0, m_run.results.reachLengths[m_run.reaches.number(place)]);
    }
    double xOf(double toMouth) const { return m_layout.distance.scale.place(toMouth); }
    // A low picture is for the rivers alone.
    bool isKeyed() const {
        return m_view.colours != NetworkColours::plain && m_layout.height >= leastKeyed * m_measures.line;
    }
    bool isByValue() const { return m_view.colours == NetworkColours::byValue; }
    double bottomRow() const { return (isByValue() ? 2.1 : 1.5) * m_measures.line; }

    void tell(const std::string& text) {
        m_layout.texts.push_back(
            textAt({m_measures.pad, m_measures.pad}, TextAlign::left,
                   fittedText(text, m_layout.width - 2 * m_measures.pad, m_look.font, m_metrics), m_look.font,
                   m_look.quietText, m_metrics));
    }

    void addText(DrawnPoint corner, TextAlign align, const std::string& text) {
        m_layout.texts.push_back(textAt(corner, align, text, m_look.font, m_look.quietText, m_metrics));
    }

    // --- the key under the picture

    void addKey() {
        const double middle = keyMiddle();
        if (m_view.colours == NetworkColours::byVerdict) addVerdictKey(middle);
        if (isByValue()) addColourBar(middle);
    }

    double keyMiddle() const { return m_layout.height - (isByValue() ? 1.4 : 0.8) * m_measures.line; }

    // In narrow lanes all are as thin as can be.
    bool hasWiderLines() const {
        if (m_layout.reaches.size() == 1) return true;
        const auto widthOf = [](const NetworkReach& reach) { return reach.pen.width; };
        const auto [thinnest, widest] = std::ranges::minmax_element(m_layout.reaches, {}, widthOf);
        return widthOf(*thinnest) < widthOf(*widest);
    }

    // Where there is room beside the key.
    void addWidthNote() {
        const double middle = keyMiddle();
        const double right = m_layout.width - m_measures.pad, top = middle - m_measures.line / 2;
        const DrawnText note = textAt({right, top}, TextAlign::right, "wider lines: more flow", m_look.font,
                                      m_look.quietText, m_metrics);
        double used = m_layout.bar.area.right;
        for (const NetworkKeyEntry& entry : m_layout.key)
            used = std::max(used, entry.text.corner.x + entry.text.width);
        if (used + 4 * m_measures.letter < note.corner.x) m_layout.texts.push_back(note);
    }

    void addVerdictKey(double middle) {
        double x = m_measures.pad;
        const auto add = [&](Verdict verdict, const std::string& text) {
            NetworkKeyEntry entry{verdictPen(verdict, 2 * m_look.hairline),
                                  symbolOf(verdict),
                                  {x, middle},
                                  2.4 * m_measures.line,
                                  {}};
            const double left = x + entry.width + 0.4 * m_measures.line;
            entry.text = textAt({left, middle - m_measures.line / 2}, TextAlign::left, text, m_look.font,
                                m_look.text, m_metrics);
            x = left + entry.text.width + 1.4 * m_measures.line;
            if (x < m_layout.width) m_layout.key.push_back(std::move(entry));
        };
        add(Verdict::pass, "pass");
        add(Verdict::unsure, "unsure");
        add(Verdict::fail, "fail");
        add(Verdict::none, "not judged");
    }

    void addColourBar(double middle) {
        std::optional<NumberRange> range;
        for (const auto& value : m_view.values) {
            if (!value || !std::isfinite(*value)) continue;
            if (!range) range = {*value, *value};
            range = {std::min(range->lowest, *value), std::max(range->highest, *value)};
        }
        const std::string name = fittedText(m_view.valueName, m_layout.width / 3, m_look.font, m_metrics);
        const double top = middle - m_measures.line / 2;
        addText({m_measures.pad, top}, TextAlign::left, name);
        const double left = m_measures.pad + m_layout.texts.back().width + 3 * m_measures.letter;
        const double right = std::max(left + m_measures.line, std::min(left + 22 * m_measures.line,
                                                                       m_layout.width - 4 * m_measures.pad));
        m_layout.bar.area = {left, right, middle + 0.1 * m_measures.line, middle - 0.4 * m_measures.line};
        m_layout.bar.values =
            valueAxis(range, ScaleKind::linear, AxisBegin::atZero, {left, right, m_measures.kmRoom()});
        double free = 0;
        for (const AxisTick& tick : m_layout.bar.values.ticks) {
            const DrawnText text = textAt({tick.place, middle + 0.2 * m_measures.line}, TextAlign::centre,
                                          tick.text, m_look.font, m_look.quietText, m_metrics);
            if (text.corner.x < free || text.corner.x + text.width > m_layout.width) continue;
            m_layout.texts.push_back(text);
            free = text.corner.x + text.width + m_measures.letter;
        }
    }

    // --- where everything stands

    void setDistance() {
        double farthest = 0;
        for (std::size_t place = 0; place < m_network.toMouth.size(); ++place)
            farthest = std::max(farthest, m_network.toMouth[place] + lengthOf(static_cast<int>(place)));
        if (!(farthest > 0)) farthest = 1;
        const double left = 1.5 * m_measures.pad;
        const double right = m_layout.width - 2 * m_measures.pad;
        m_layout.axisY =
            m_layout.height - 1.7 * m_measures.line - (isKeyed() ? bottomRow() + 0.3 * m_measures.line : 0);
        m_layout.distance = kmAxis(0, farthest, {right, left, m_measures.kmRoom()});
        double free = m_layout.width;
        for (const AxisTick& tick : m_layout.distance.ticks) {
            const std::string text = tick.value == 0 ? tick.text + " km to the mouth" : tick.text;
            const double width = m_metrics.measure(text, m_look.font).width;
            const double x = std::min(tick.place, m_layout.width - width / 2 - 0.5 * m_measures.line);
            if (x + width / 2 > free || x - width / 2 < 0) continue;
            addText({x, m_layout.axisY + 0.3 * m_measures.line}, TextAlign::centre, text);
            free = x - width / 2 - m_measures.letter;
        }
    }

    void placeRivers() {
        std::vector<RiverExtent> extents;
        for (const River& river : m_network.rivers) {
            const int head = river.reaches.front(), last = river.reaches.back();
            extents.push_back(
                {xOf(m_network.toMouth[at(head)] + lengthOf(head)), xOf(m_network.toMouth[at(last)])});
        }
        const std::vector<int> lanes = riverLanes(m_network, extents, 1.5 * m_measures.line);
        const int count = lanes.empty() ? 1 : *std::ranges::max_element(lanes) + 1;
        const double bottom = m_layout.axisY - 0.5 * m_measures.line;
        double top = 0.3 * m_measures.pad;
        // Room for a name over the highest one.
        top += std::max(0.0, 1.4 * m_measures.line - overLine * (bottom - top) / count);
        const double spacing = std::min((bottom - top) / count, 8 * m_measures.line);
        m_widest = std::max(m_look.hairline, widestOfLane * spacing / m_look.pixel);
        const double spare = bottom - top - spacing * count;
        for (const int lane : lanes)
            m_riverY.push_back(top + spare / 2 + spacing * (lane + overLine));
    }

    double yOf(int place) const { return m_riverY[at(m_network.riverOf[at(place)])]; }

    void placeReaches() {
        const std::vector<double> flows = flowsOf(m_run);
        const double largest = flows.empty() ? 0 : *std::ranges::max_element(flows);
        for (int place = 0; place < m_run.reaches.count(); ++place) {
            NetworkReach reach;
            reach.place = place;
            reach.length = lengthOf(place);
            reach.from = xOf(m_network.toMouth[at(place)] + reach.length);
            reach.to = xOf(m_network.toMouth[at(place)]);
            reach.y = yOf(place);
            const double share = largest > 0 ? flows[at(place)] / largest : 0;
            const double width = (share >= large ? 6 : share >= middling ? 4 : 2) * m_look.hairline;
            reach.pen = penOf(place, std::min(width, m_widest));
            if (m_view.colours == NetworkColours::byVerdict) reach.verdict = verdictOf(place);
            m_layout.reaches.push_back(reach);
        }
    }

    Verdict verdictOf(int place) const {
        return at(place) < m_view.verdicts.size() ? m_view.verdicts[at(place)] : Verdict::none;
    }

    Pen penOf(int place, double width) const {
        if (m_view.colours == NetworkColours::byVerdict) return verdictPen(verdictOf(place), width);
        if (m_view.colours == NetworkColours::plain) return {m_look.accent, width, Dash::solid};
        const auto value = at(place) < m_view.values.size() ? m_view.values[at(place)] : std::nullopt;
        const Scale& scale = m_layout.bar.values.scale;
        if (!value || !std::isfinite(*value)) return {m_look.axis, width, Dash::dot};
        return {valueColour((*value - scale.bottom) / (scale.top - scale.bottom), m_look.theme), width,
                Dash::solid};
    }

    Pen verdictPen(Verdict verdict, double width) const {
        switch (verdict) {
        case Verdict::pass: return {m_look.pass, width, Dash::solid};
        case Verdict::unsure: return {m_look.unsure, width, Dash::dashDot};
        case Verdict::fail: return {m_look.fail, width, Dash::dash};
        case Verdict::none: break;
        }
        return {m_look.axis, width, Dash::dot};
    }
    static NetworkSymbol symbolOf(Verdict verdict) {
        switch (verdict) {
        case Verdict::pass: return NetworkSymbol::pass;
        case Verdict::unsure: return NetworkSymbol::unsure;
        case Verdict::fail: return NetworkSymbol::fail;
        case Verdict::none: break;
        }
        return NetworkSymbol::none;
    }

    void placeJoins() {
        for (const River& river : m_network.rivers) {
            if (river.joins < 0) continue;
            const NetworkReach& last = m_layout.reaches[at(river.reaches.back())];
            const double y = yOf(river.joins);
            m_layout.joins.push_back(
                {{last.to, last.y}, {last.to, y}, {m_look.axis, m_look.hairline, Dash::solid}});
        }
    }

    void placeFeatures() {
        const ResultsDataSet& results = m_run.results;
        for (int place = 0; place < m_run.reaches.count() && m_layout.features.size() < mostFeatures;
             ++place) {
            double last = -1;
            for (const int point : m_run.reaches.pointsOf(place)) {
                const int type = results.pointFeatureType[point];
                if (type == 0 || type == 10 || type == InterpolatedPointType ||
                    results.pointLabel[point].empty())
                    continue;
                const double distance = results.pointDistance[point];
                if (distance == last) continue; // both sides of a feature
                last = distance;
                const auto where = placeOf(m_layout, {place, distance});
                if (where) m_layout.features.push_back({place, point, *where});
            }
        }
    }

    // --- names: above their river, from its head or before it joins, as far as nothing is in the way

    void placeNames() {
        std::vector<PlotArea> taken;
        for (const DrawnLine& join : m_layout.joins)
            taken.push_back({join.from.x - 20, join.from.x + 20, std::max(join.from.y, join.to.y),
                             std::min(join.from.y, join.to.y)});
        for (const NetworkReach& reach : m_layout.reaches)
            taken.push_back(
                {reach.from, reach.to, reach.y + 0.15 * m_measures.line, reach.y - 0.15 * m_measures.line});
        for (const std::size_t river : longestFirst())
            placeName(river, taken);
    }

    std::vector<std::size_t> longestFirst() const {
        std::vector<std::size_t> order;
        for (std::size_t k = 0; k < m_network.rivers.size(); ++k)
            order.push_back(k);
        std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) {
            return m_network.rivers[a].length > m_network.rivers[b].length;
        });
        return order;
    }

    void placeName(std::size_t river, std::vector<PlotArea>& taken) {
        const River& of = m_network.rivers[river];
        const std::string name = shownLine(of.name);
        const double from = m_layout.reaches[at(of.reaches.front())].from,
                     to = m_layout.reaches[at(of.reaches.back())].to;
        const double y = m_riverY[river];
        const double most = std::max(to - from, 14 * m_measures.letter);
        const DrawnText text = textAt({0, 0}, TextAlign::left, fittedText(name, most, m_look.font, m_metrics),
                                      m_look.font, m_look.text, m_metrics);
        if (text.text.empty()) return;
        const double above = y - text.height - 0.3 * m_measures.line, below = y + 0.3 * m_measures.line;
        const double middle = (from + to - text.width) / 2;
        for (const DrawnPoint corner :
             {DrawnPoint{from, above}, DrawnPoint{middle, above}, DrawnPoint{to - text.width, above},
              DrawnPoint{from, below}, DrawnPoint{middle, below}, DrawnPoint{to - text.width, below}}) {
            const PlotArea box{corner.x, corner.x + text.width, corner.y + 0.9 * text.height,
                               corner.y + 0.1 * text.height};
            const bool inside =
                box.left >= 0 && box.right <= m_layout.width && box.top >= 0 && box.bottom <= m_layout.axisY;
            if (!inside ||
                std::ranges::any_of(taken, [&](const PlotArea& other) { return touch(box, other); }))
                continue;
            DrawnText placed = text;
            placed.corner = corner;
            m_layout.names.push_back({river, placed});
            taken.push_back(box);
            return;
        }
    }

    const RunFile& m_run;
    const Network& m_network;
    const NetworkView& m_view;
    const PanelLook& m_look;
    const TextMetrics& m_metrics;
    PanelMeasures m_measures;
    NetworkLayout& m_layout;
    std::vector<double> m_riverY;
    double m_widest = 0; // line
};

} // namespace

NetworkLayout layOutNetwork(const RunFile& run, const Network& network, const NetworkView& view,
                            const PanelLook& look, double width, double height, const TextMetrics& metrics) {
    NetworkLayout layout;
    layout.width = width;
    layout.height = height;
    layout.look = look;
    NetworkMaking(run, network, view, look, metrics, layout).make();
    return layout;
}

} // namespace korvel
