#include "panels/NetworkLayout.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace korvel {

namespace {

constexpr int barSteps = 48;
constexpr double chosenOpacity = 0.18;

class NetworkPainting {
  public:
    NetworkPainting(const NetworkLayout& layout, Drawing& drawing)
        : m_layout(layout), m_look(layout.look), m_drawing(drawing) {}

    void paint() {
        if (!m_layout.reaches.empty()) paintAxis();
        for (const DrawnLine& join : m_layout.joins)
            m_drawing.commands.push_back(join);
        for (const NetworkReach& reach : m_layout.reaches)
            paintReach(reach);
        for (const NetworkFeature& feature : m_layout.features)
            paintFeature(feature.at);
        // Those that must be seen take their room first.
        for (const Verdict verdict : {Verdict::fail, Verdict::unsure, Verdict::pass})
            for (const NetworkReach& reach : m_layout.reaches)
                if (reach.verdict == verdict) paintReachSymbol(reach);
        paintKey();
        for (const NetworkName& name : m_layout.names)
            m_drawing.commands.push_back(name.text);
        for (const DrawnText& text : m_layout.texts)
            m_drawing.commands.push_back(text);
    }

  private:
    void line(DrawnPoint from, DrawnPoint to, const Pen& pen) {
        m_drawing.commands.push_back(DrawnLine{from, to, pen});
    }
    Pen hair(Rgb colour) const { return {colour, m_look.hairline, Dash::solid}; }

    void paintAxis() {
        const Scale& scale = m_layout.distance.scale;
        line({scale.to, m_layout.axisY}, {scale.from, m_layout.axisY}, hair(m_look.axis));
        for (const AxisTick& tick : m_layout.distance.ticks) {
            line({tick.place, 0}, {tick.place, m_layout.axisY}, hair(m_look.grid));
            line({tick.place, m_layout.axisY}, {tick.place, m_layout.axisY + 0.6 * m_layout.symbolHalf},
                 hair(m_look.axis));
        }
    }

    void paintReach(const NetworkReach& reach) {
        line({reach.from, reach.y}, {reach.to, reach.y}, reach.pen);
        const double half = 0.8 * m_layout.symbolHalf;
        line({reach.from, reach.y - half}, {reach.from, reach.y + half}, hair(m_look.axis));
    }

    void paintFeature(DrawnPoint at) {
        line({at.x, at.y}, {at.x, at.y + 0.75 * m_layout.symbolHalf}, hair(m_look.quietText));
    }

    // A failing reach has its symbol however short it is, unless that of another one covers it; others where
    // they have room.
    void paintReachSymbol(const NetworkReach& reach) {
        const bool room = reach.to - reach.from > 4 * m_layout.symbolHalf;
        if (!room && reach.verdict != Verdict::fail) return;
        if (!takesRoom({(reach.from + reach.to) / 2, reach.y})) return;
        const NetworkSymbol symbol = reach.verdict == Verdict::pass   ? NetworkSymbol::pass
                                     : reach.verdict == Verdict::fail ? NetworkSymbol::fail
                                                                      : NetworkSymbol::unsure;
        paintSymbol(symbol, {(reach.from + reach.to) / 2, reach.y}, reach.pen.colour);
    }

    // False where another symbol stands there.
    bool takesRoom(DrawnPoint at) {
        const double side = 2.8 * m_layout.symbolHalf;
        const auto column = static_cast<long>(std::floor(at.x / side)), row = std::lround(at.y / side);
        for (long x = column - 1; x <= column + 1; ++x)
            for (long y = row - 1; y <= row + 1; ++y) {
                const auto other = m_symbols.find({x, y});
                if (other == m_symbols.end()) continue;
                const DrawnPoint& there = other->second;
                if (std::abs(there.x - at.x) < side && std::abs(there.y - at.y) < side) return false;
            }
        m_symbols.emplace(std::pair{column, row}, at);
        return true;
    }

    // On a ground of its own, so that the line does not run through it.
    void paintSymbol(NetworkSymbol symbol, DrawnPoint at, Rgb colour) {
        if (symbol == NetworkSymbol::none) return;
        const double half = m_layout.symbolHalf;
        paintBox(at, 1.35 * half);
        const Pen pen{colour, m_look.curveWidth, Dash::solid};
        const auto run = [&](std::vector<DrawnPoint> points) {
            for (DrawnPoint& point : points)
                point = {at.x + point.x * half, at.y + point.y * half};
            m_drawing.commands.push_back(DrawnRun{std::move(points), pen});
        };
        switch (symbol) {
        case NetworkSymbol::pass: run({{-0.8, 0}, {-0.2, 0.7}, {0.9, -0.8}}); break;
        case NetworkSymbol::unsure:
            run({{-0.6, -0.5}, {-0.3, -0.9}, {0.3, -0.9}, {0.6, -0.5}, {0.5, -0.1}, {0, 0.2}, {0, 0.4}});
            run({{0, 0.8}, {0, 1}});
            break;
        default: run({{-0.8, -0.8}, {0.8, 0.8}}); run({{-0.8, 0.8}, {0.8, -0.8}});
        }
    }
    void paintBox(DrawnPoint at, double half) {
        m_drawing.commands.push_back(DrawnBand{{{at.x - half, at.y - half}, {at.x + half, at.y - half}},
                                               {{at.x - half, at.y + half}, {at.x + half, at.y + half}},
                                               m_look.background});
    }

    void paintKey() {
        for (const NetworkKeyEntry& entry : m_layout.key) {
            line(entry.at, {entry.at.x + entry.width, entry.at.y}, entry.pen);
            paintSymbol(entry.symbol, {entry.at.x + entry.width / 2, entry.at.y}, entry.pen.colour);
            m_drawing.commands.push_back(entry.text);
        }
        const PlotArea& bar = m_layout.bar.area;
        for (int step = 0; step < barSteps && bar.right > bar.left; ++step) {
            const double width = (bar.right - bar.left) / barSteps, left = bar.left + step * width;
            m_drawing.commands.push_back(DrawnBand{{{left, bar.top}, {left + width, bar.top}},
                                                   {{left, bar.bottom}, {left + width, bar.bottom}},
                                                   valueColour((step + 0.5) / barSteps, m_look.theme)});
        }
    }

    const NetworkLayout& m_layout;
    const PanelLook& m_look;
    Drawing& m_drawing;
    std::map<std::pair<long, long>, DrawnPoint> m_symbols; // on a grid of their size
};

} // namespace

void paint(const NetworkLayout& layout, Drawing& drawing) {
    drawing.width = std::max(drawing.width, layout.width);
    drawing.height = std::max(drawing.height, layout.height);
    NetworkPainting(layout, drawing).paint();
}

void paintChosen(const NetworkLayout& layout, const std::vector<int>& places, Drawing& drawing) {
    const double half = 1.6 * layout.symbolHalf;
    for (const int place : places) {
        if (place < 0 || static_cast<std::size_t>(place) >= layout.reaches.size()) continue;
        const NetworkReach& reach = layout.reaches[static_cast<std::size_t>(place)];
        drawing.commands.push_back(DrawnBand{{{reach.from, reach.y - half}, {reach.to, reach.y - half}},
                                             {{reach.from, reach.y + half}, {reach.to, reach.y + half}},
                                             layout.look.accent,
                                             chosenOpacity});
    }
}

void paintSpot(const NetworkLayout& layout, const NetworkSpot& spot, Drawing& drawing) {
    const auto at = placeOf(layout, spot);
    if (!at) return;
    for (const auto& [half, colour] : {std::pair{1.5 * layout.symbolHalf, layout.look.background},
                                       std::pair{layout.symbolHalf, layout.look.accent}})
        drawing.commands.push_back(
            DrawnBand{{{at->x - half, at->y}, {at->x, at->y - half}, {at->x + half, at->y}},
                      {{at->x - half, at->y}, {at->x, at->y + half}, {at->x + half, at->y}},
                      colour});
}

} // namespace korvel
