#include "panels/ProfileKey.h"

#include "basic/ShownText.h"
#include "basic/Text.h"
#include "panels/TextFitting.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr std::size_t longestName = 400; // letters; what is longer is cut before it is measured

bool anyRun(const ProfileData& data, bool (*has)(const RunInPanel&)) {
    return std::ranges::any_of(data.panels,
                               [&](const PanelData& panel) { return std::ranges::any_of(panel.runs, has); });
}

struct WantedEntry {
    KeySampleKind kind = KeySampleKind::line;
    std::optional<std::size_t> run;
    Pen pen;
    std::string text;
};

std::vector<WantedEntry> wantedEntries(const ProfileData& data, const PanelLook& look) {
    std::vector<WantedEntry> wanted;
    const std::vector<StudyRun>& runs = data.study.runs();
    for (std::size_t run = 0; run < runs.size(); ++run) {
        if (!data.view.shows(run) || (data.view.kind == ProfileKind::change && run == 0)) continue;
        wanted.push_back({KeySampleKind::line, run, curvePen(run, look),
                          firstShown(shownLine(runs[run].name), longestName)});
    }
    const auto add = [&](KeySampleKind kind, const Pen& pen, const char* text,
                         bool (*has)(const RunInPanel&)) {
        if (anyRun(data, has)) wanted.push_back({kind, {}, pen, text});
    };
    add(KeySampleKind::band, {runStyle(0, look.theme).colour, 1, Dash::solid}, "confidence limits",
        [](const RunInPanel& run) { return run.series.limits.above.size() > 0; });
    add(KeySampleKind::target, targetPen(0, look), "target",
        [](const RunInPanel& run) { return !run.targets.empty(); });
    add(KeySampleKind::cross, observedPen(0, look), "observed",
        [](const RunInPanel& run) { return !run.observed.empty(); });
    return wanted;
}

class KeyPlacing {
  public:
    KeyPlacing(const PanelLook& look, const PlotArea& area, const TextMetrics& metrics)
        : m_look(look), m_area(area), m_metrics(metrics), m_measures(look, metrics) {}

    // Names are cut where they would take more than a share of the row.
    LaidOutKey place(const std::vector<WantedEntry>& wanted, int shares) const {
        LaidOutKey key;
        const double most = (m_area.right - m_area.left) / shares - besideText() - gap();
        double x = m_area.left, middle = m_area.top + m_measures.keyRow() / 2;
        for (const WantedEntry& entry : wanted) {
            const std::string text = fittedText(entry.text, most, m_look.font, m_metrics, Shorten::middle);
            const double width = besideText() + m_metrics.measure(text, m_look.font).width;
            if (x > m_area.left && x + width > m_area.right) {
                x = m_area.left;
                middle += m_measures.keyRow();
            }
            const DrawnPoint corner{x + besideText(), middle - m_measures.line / 2};
            key.entries.push_back(
                {entry.kind,
                 entry.run,
                 entry.pen,
                 {x, middle},
                 m_measures.sample(),
                 textAt(corner, TextAlign::left, text, m_look.font, m_look.text, m_metrics)});
            x += width + gap();
        }
        key.bottom = wanted.empty() ? m_area.top : middle + m_measures.keyRow() / 2;
        return key;
    }

    int rows(const LaidOutKey& key) const {
        return static_cast<int>((key.bottom - m_area.top) / m_measures.keyRow() + 0.5);
    }

  private:
    double besideText() const { return m_measures.sample() + 0.45 * m_measures.line; }
    double gap() const { return 1.3 * m_measures.line; }

    const PanelLook& m_look;
    const PlotArea& m_area;
    const TextMetrics& m_metrics;
    PanelMeasures m_measures;
};

} // namespace

LaidOutKey layOutKey(const ProfileData& data, const PanelLook& look, const PlotArea& area,
                     const TextMetrics& metrics) {
    const std::vector<WantedEntry> wanted = wantedEntries(data, look);
    const KeyPlacing placing(look, area, metrics);
    LaidOutKey key = placing.place(wanted, 1);
    for (const int shares : {3, 4, 6})
        if (placing.rows(key) > 3) key = placing.place(wanted, shares);
    return key;
}

Pen curvePen(std::size_t run, const PanelLook& look) {
    const RunStyle style = runStyle(run, look.theme);
    return {style.colour, look.curveWidth, style.dash};
}

Pen targetPen(std::size_t run, const PanelLook& look) {
    const Rgb colour = run == 0 ? look.target : runStyle(run, look.theme).colour;
    return {colour, look.curveWidth, Dash::dot};
}

Pen observedPen(std::size_t run, const PanelLook& look) {
    const Rgb colour = run == 0 ? look.text : runStyle(run, look.theme).colour;
    return {colour, look.curveWidth, Dash::solid};
}

} // namespace korvel
