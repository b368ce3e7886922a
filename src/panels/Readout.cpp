#include "panels/Readout.h"

#include "analysis/Judging.h"
#include "basic/ShownText.h"
#include "basic/Text.h"
#include "panels/ProfileData.h"
#include "panels/TextFitting.h"
#include "tables/PeopleNumbers.h"

namespace korvel {

namespace {

class Reading {
  public:
    Reading(const Study& study, const StudyPath& path, const ProfileView& view, std::size_t place)
        : m_study(study), m_path(path), m_view(view), m_place(place) {}

    PanelReadout panel(int series) const {
        PanelReadout panel;
        panel.series = series;
        panel.name = shownName(trim(m_study.base().results().seriesNames[series]));
        panel.statistic = statisticOf(m_study.base().results(), series);
        for (std::size_t run = 0; run < m_study.runs().size(); ++run)
            if (m_view.shows(run)) panel.runs.push_back(runIn(series, run));
        return panel;
    }

  private:
    bool isJudged(const ResultsDataSet& results, int series) const {
        return results.kindOf(series) == SeriesKind::concentration &&
               results.determinandTypes[series] != UnjudgedDeterminandType;
    }
    Statistic statisticOf(const ResultsDataSet& results, int series) const {
        const bool judged = m_view.kind == ProfileKind::ratio && isJudged(results, series);
        return judged ? judgedStatistic(results, series) : m_view.statistic;
    }

    RunReadout runIn(int series, std::size_t run) const {
        const StudyRun& of = m_study.runs()[run];
        RunReadout read;
        read.run = run;
        read.name = shownName(of.name);
        const auto point = pointAt(m_path, run, m_place);
        if (!point) return read;
        const Statistic statistic = statisticOf(of.results(), series);
        const SeriesValues values = seriesValues(of.results(), series, statistic);
        read.value = values.value[SeriesValues::at(*point)];
        addLimits(values, *point, read);
        if (values.isObserved(*point)) read.observed = values.observed[SeriesValues::at(*point)];
        if (values.hasTarget(*point)) {
            read.target = values.target[SeriesValues::at(*point)];
            const bool low = m_view.lowIsBad.contains(of.results().determinandOf(series));
            read.ratio = judgePoint(values, *point, low ? BadSide::low : BadSide::high).ratio;
        }
        addChange(series, statistic, values, *point, read);
        return read;
    }

    static void addLimits(const SeriesValues& values, int point, RunReadout& read) {
        read.hasLimits = values.hasLimits() && values.low(point) < values.high(point);
        if (!read.hasLimits) return;
        read.low = values.low(point);
        read.high = values.high(point);
    }
    void addChange(int series, Statistic statistic, const SeriesValues& values, int point,
                   RunReadout& read) const {
        const auto ofBase = pointAt(m_path, 0, m_place);
        if (read.run == 0 || !ofBase) return;
        read.change =
            changeAt(seriesValues(m_study.base().results(), series, statistic), *ofBase, values, point);
    }

    const Study& m_study;
    const StudyPath& m_path;
    const ProfileView& m_view;
    std::size_t m_place;
};

// In a sentence digits that say nothing are left out.
std::string readable(double value) {
    std::string text = shownFigures(value);
    if (text.find('.') == std::string::npos || text.find('E') != std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

// "-35 %", "+0.4 %"; small ones with a decimal.
std::string percentText(double percent) {
    const std::string digits = shownDecimals(percent, percent > -10 && percent < 10 ? 1 : 0);
    return (percent > 0 ? "+" : "") + digits + " %";
}

std::string signedNumber(double value) {
    return (value > 0 ? "+" : "") + readable(value);
}

std::string valueText(const RunReadout& run) {
    if (!run.value) return "no point here";
    std::string text = readable(*run.value);
    if (run.hasLimits) text += " (" + readable(run.low) + " to " + readable(run.high) + ")";
    if (run.change && run.change->percent) {
        text += " (" + percentText(*run.change->percent);
        if (run.change->clear && *run.change->clear != ClearChange::unclear) text += ", clear";
        text += ")";
    }
    return text;
}

std::string changeText(const RunReadout& run) {
    if (!run.change) return "no point to compare here";
    std::string text = signedNumber(run.change->change);
    if (run.change->percent) text += " (" + percentText(*run.change->percent) + ")";
    if (run.change->clear) text += *run.change->clear == ClearChange::unclear ? " unclear" : " clear";
    return text;
}

std::string ratioText(const RunReadout& run) {
    if (!run.value) return "no point here";
    if (!run.target) return "no target here";
    const std::string ratio = run.ratio ? readable(*run.ratio) : "-";
    return ratio + " (" + readable(*run.value) + ", target " + readable(*run.target) + ")";
}

std::string runText(const RunReadout& run, ProfileKind kind) {
    if (kind == ProfileKind::change) return changeText(run);
    return kind == ProfileKind::ratio ? ratioText(run) : valueText(run);
}

} // namespace

Readout readoutAt(const Study& study, const StudyPath& path, const ProfileView& view, std::size_t place) {
    const PathPlace& at = path.places[place];
    const PathReach& reach = path.reaches[at.reach];
    Readout readout;
    readout.km = at.km;
    readout.distance = study.runs()[at.run].results().pointDistance[at.point];
    readout.feature = shownName(featureAt(study, at));
    readout.side = sideAt(study, at);
    readout.reach = reach.number;
    readout.reachName = reach.name.empty() ? "Reach " + std::to_string(reach.number) : shownName(reach.name);
    const Reading reading(study, path, view, place);
    for (const int series : view.series)
        readout.panels.push_back(reading.panel(series));
    return readout;
}

Readout withShortNames(Readout readout, std::size_t letters) {
    for (PanelReadout& panel : readout.panels)
        for (RunReadout& run : panel.runs)
            run.name = shortenedTo(run.name, letters, Shorten::middle);
    return readout;
}

std::string placeText(const Readout& readout) {
    std::string text = shownDecimals(readout.km, 2) + " km";
    if (!readout.feature.empty()) {
        text += " \u00b7 " + readout.feature;
        if (!readout.side.empty()) text += ", " + readout.side;
    }
    return text + " \u00b7 " + readout.reachName;
}

std::string panelText(const PanelReadout& panel, ProfileKind kind) {
    std::string text = panel.name + " " + wordsOf(panel.statistic);
    bool first = true;
    for (const RunReadout& run : panel.runs) {
        if (kind == ProfileKind::change && run.run == 0) continue;
        text += first ? " " : ", ";
        if (run.run > 0 || !first) text += run.name + " ";
        text += runText(run, kind);
        first = false;
    }
    // Targets and samples are of the river: told once.
    if (kind == ProfileKind::values && !panel.runs.empty()) {
        if (panel.runs.front().target) text += ", target " + readable(*panel.runs.front().target);
        if (panel.runs.front().observed) text += ", observed " + readable(*panel.runs.front().observed);
    }
    return text;
}

std::string readoutText(const Readout& readout, ProfileKind kind) {
    std::string text = placeText(readout);
    for (const PanelReadout& panel : readout.panels)
        text += " \u00b7 " + panelText(panel, kind);
    return text;
}

} // namespace korvel
