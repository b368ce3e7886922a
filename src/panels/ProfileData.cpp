#include "panels/ProfileData.h"

#include "analysis/Judging.h"
#include "basic/ShownText.h"
#include "basic/Text.h"
#include "panels/ScaledValues.h"
#include "panels/SeriesMaking.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>
#include <utility>

namespace korvel {

namespace {

// What a determinand's values are judged by; nothing where it has no targets to be judged by.
std::optional<Statistic> judgedBy(const ResultsDataSet& results, int series) {
    const int determinand = results.determinandOf(series);
    if (results.kindOf(series) != SeriesKind::concentration) return std::nullopt;
    if (results.determinandTypes[determinand] == UnjudgedDeterminandType) return std::nullopt;
    return judgedStatistic(results, determinand);
}

// A target holds from its point to the next one.
std::vector<TargetRun> targetsAlong(const StudyRun& run, const PathRun& points, int series) {
    const SeriesValues values = seriesValues(run.results(), series, Statistic::mean);
    std::vector<TargetRun> runs;
    bool goesOn = false;
    for (std::size_t j = 0; j < points.points.size() && !values.target.empty(); ++j) {
        const int point = points.points[j];
        const double km = points.km[j];
        if (goesOn) runs.back().to = std::max(runs.back().to, km);
        const bool has = values.hasTarget(point) && std::isfinite(values.target[SeriesValues::at(point)]);
        if (has && !(goesOn && runs.back().target == values.target[SeriesValues::at(point)]))
            runs.push_back({km, km, values.target[SeriesValues::at(point)]});
        goesOn = has;
    }
    return runs;
}

// As the panel shows it; nothing where it has no place there.
std::optional<double> observedValue(const SeriesValues& values, int point, const ProfileView& view,
                                    BadSide side) {
    double value = values.observed[SeriesValues::at(point)];
    if (view.kind == ProfileKind::ratio) {
        if (!values.hasTarget(point)) return std::nullopt;
        const double target = values.target[SeriesValues::at(point)];
        value = side == BadSide::high ? value / target : target / value;
    }
    const bool hasPlace = std::abs(value) < 1e300 && (view.scale == ScaleKind::linear || value > 0);
    return hasPlace ? std::optional(value) : std::nullopt;
}

std::vector<ObservedMark> observedAlong(const StudyRun& run, const PathRun& points,
                                        const SeriesValues& values, const ProfileView& view, BadSide side) {
    std::vector<ObservedMark> marks;
    marks.reserve(static_cast<std::size_t>(
        std::ranges::count_if(points.points, [&](int point) { return values.isObserved(point); })));
    for (std::size_t j = 0; j < points.points.size(); ++j) {
        const int point = points.points[j];
        if (!values.isObserved(point)) continue;
        const bool interpolated = run.results().pointFeatureType[point] == InterpolatedPointType;
        if (interpolated && !view.interpolated) continue;
        if (const auto value = observedValue(values, point, view, side))
            marks.push_back({points.km[j], *value});
    }
    if (!std::ranges::is_sorted(marks, {}, &ObservedMark::km))
        std::ranges::stable_sort(marks, {}, &ObservedMark::km);
    return marks;
}

PlacedValues byPlace(const std::vector<TargetRun>& targets, ScaleKind scale) {
    std::vector<PlacedValue> values;
    values.reserve(targets.size());
    for (const TargetRun& target : targets)
        values.push_back({target.from, target.to, scaled(scale, target.target)});
    return PlacedValues(std::move(values));
}
PlacedValues byPlace(const std::vector<ObservedMark>& marks, ScaleKind scale) {
    std::vector<PlacedValue> values;
    values.reserve(marks.size());
    for (const ObservedMark& mark : marks)
        values.push_back({mark.km, mark.km, scaled(scale, mark.value)});
    return PlacedValues(std::move(values));
}

// Both go down the way, so what is looked for lies further on in the base's, too.
void leaveTwins(std::vector<ObservedMark>& marks, const std::vector<ObservedMark>& ofBase) {
    auto from = ofBase.begin();
    double last = 0;
    std::erase_if(marks, [&](const ObservedMark& mark) {
        // Distances of a file may go back.
        if (mark.km < last) from = std::ranges::lower_bound(ofBase, mark.km, {}, &ObservedMark::km);
        last = mark.km;
        while (from != ofBase.end() && from->km < mark.km)
            ++from;
        for (auto twin = from; twin != ofBase.end() && twin->km == mark.km; ++twin)
            if (*twin == mark) return true;
        return false;
    });
}

class DataMaking {
  public:
    DataMaking(const Study& study, const std::shared_ptr<const StudyPath>& path, const ProfileView& view)
        : m_study(study), m_sharedPath(path), m_path(*path), m_view(view) {
        for (const PathRun& run : m_path.runs)
            m_hasBasesPoints.push_back(run.points == m_path.runs.front().points &&
                                       run.km == m_path.runs.front().km);
    }

    PanelData panel(int series) const {
        PanelData panel;
        const ResultsDataSet& base = m_study.base().results();
        const auto judged = judgedBy(base, series);
        panel.series = series;
        panel.statistic =
            m_view.kind == ProfileKind::ratio ? judged.value_or(Statistic::mean) : m_view.statistic;
        panel.title = titleOf(panel);
        panel.note = noteOf(panel, judged);
        if (m_view.kind == ProfileKind::ratio && !judged) return panel;
        // The base first, where it is shown: others are held against its targets and samples.
        for (std::size_t run = 0; run < m_study.runs().size(); ++run) {
            const bool isZero = m_view.kind == ProfileKind::change && run == 0;
            if (m_view.shows(run) && !isZero) panel.runs.push_back(runIn(panel, run));
        }
        return panel;
    }

  private:
    std::string titleOf(const PanelData& panel) const {
        std::string title = shownName(trim(m_study.base().results().seriesNames[panel.series]));
        title += ", " + wordsOf(panel.statistic);
        if (m_view.kind == ProfileKind::change) title += ", change from " + shownName(m_study.base().name);
        if (m_view.kind == ProfileKind::ratio)
            title += isLowBad(panel.series) ? ", target by value" : ", value by target";
        return title;
    }

    std::string noteOf(const PanelData& panel, const std::optional<Statistic>& judged) const {
        if (m_view.kind == ProfileKind::ratio)
            return !judged ? "has no targets" : isLowBad(panel.series) ? "low is bad" : "";
        if (m_view.kind != ProfileKind::values) return "";
        if (panel.series == 0 && panel.statistic != Statistic::mean)
            return "as in the file, commonly a low flow";
        const bool other = judged && *judged != panel.statistic && m_view.targets && hasTargets(panel.series);
        return other ? "targets are for the " + wordsOf(*judged) : "";
    }

    bool isLowBad(int series) const {
        return m_view.lowIsBad.contains(m_study.base().results().determinandOf(series));
    }
    bool hasTargets(int series) const {
        return !targetsAlong(m_study.base(), m_path.runs.front(), series).empty();
    }

    RunInPanel runIn(const PanelData& panel, std::size_t run) const {
        RunInPanel made;
        made.run = run;
        Statistic statistic = panel.statistic;
        if (m_view.kind == ProfileKind::ratio)
            statistic = judgedBy(m_study.runs()[run].results(), panel.series).value_or(statistic);
        made.statistic = statistic;
        const WantedSeries wanted{panel.series, statistic, m_view};
        switch (m_view.kind) {
        case ProfileKind::values: made.series = valuesAlong(m_study, m_sharedPath, run, wanted); break;
        case ProfileKind::change: made.series = changesAlong(m_study, m_path, run, wanted); break;
        case ProfileKind::ratio: made.series = ratiosAlong(m_study, m_path, run, wanted); break;
        }
        if (m_view.targets && m_view.kind == ProfileKind::values) addTargets(panel, made);
        if (m_view.observed && m_view.kind != ProfileKind::change) addObserved(panel, made);
        made.targetsByPlace = byPlace(made.targets, m_view.scale);
        made.observedByPlace = byPlace(made.observed, m_view.scale);
        return made;
    }

    // The base is shown, too, and has the same points.
    bool isBesideBase(std::size_t run) const { return run > 0 && m_view.shows(0) && m_hasBasesPoints[run]; }
    bool isAsInBase(const PanelData& panel, const RunInPanel& made,
                    std::span<const double> SeriesValues::*column) const {
        // Columns have room for the longest river: what is behind the last point is not looked at.
        const auto of = [&](const StudyRun& run) {
            const auto all = seriesValues(run.results(), panel.series, made.statistic).*column;
            return all.first(std::min(all.size(), SeriesValues::at(run.results().pointCount) + 1));
        };
        return std::ranges::equal(of(m_study.base()), of(m_study.runs()[made.run]));
    }

    void addTargets(const PanelData& panel, RunInPanel& made) const {
        if (isBesideBase(made.run) && isAsInBase(panel, made, &SeriesValues::target)) return;
        made.targets = targetsAlong(m_study.runs()[made.run], m_path.runs[made.run], panel.series);
        if (made.run > 0 && m_view.shows(0) && made.targets == panel.runs.front().targets)
            made.targets.clear();
    }
    void addObserved(const PanelData& panel, RunInPanel& made) const {
        // Samples and targets are mostly those of the river: what would all be left is not looked for.
        if (isBesideBase(made.run) && m_view.interpolated &&
            isAsInBase(panel, made, &SeriesValues::observed) &&
            isAsInBase(panel, made, &SeriesValues::target))
            return;
        const auto along = [&](std::size_t run) {
            const StudyRun& of = m_study.runs()[run];
            return observedAlong(of, m_path.runs[run],
                                 seriesValues(of.results(), panel.series, made.statistic), m_view,
                                 isLowBad(panel.series) ? BadSide::low : BadSide::high);
        };
        made.observed = along(made.run);
        if (made.run == 0 || !m_view.shows(0)) return;
        const RunInPanel& base = panel.runs.front();
        if (base.statistic == made.statistic)
            leaveTwins(made.observed, base.observed);
        else
            leaveTwins(made.observed, along(0));
    }

    const Study& m_study;
    const std::shared_ptr<const StudyPath>& m_sharedPath;
    const StudyPath& m_path;
    const ProfileView& m_view;
    std::vector<bool> m_hasBasesPoints; // by run
};

// Series of the same points share their distances, so that what is found among them is found once.
class SharedKm {
  public:
    void share(PathSeries& series) {
        for (PathValues* values : {&series.curve, &series.limits.above, &series.limits.below})
            if (values->km) share(values->km);
    }

  private:
    using Km = std::shared_ptr<const std::vector<double>>;
    void share(Km& km) {
        for (const Km& known : m_known)
            if (known == km || *known == *km) return void(km = known);
        m_known.push_back(km);
    }
    std::vector<Km> m_known;
};

} // namespace

ProfileData profileData(const Study& study, std::shared_ptr<const StudyPath> path, const ProfileView& view) {
    ProfileData data{study, std::move(path), view, {}};
    if (view.kind == ProfileKind::change) data.view.scale = ScaleKind::linear;
    const DataMaking making(study, data.path, data.view);
    for (const int series : view.series)
        data.panels.push_back(making.panel(series));
    SharedKm shared;
    for (PanelData& panel : data.panels)
        for (RunInPanel& run : panel.runs)
            shared.share(run.series);
    return data;
}

bool servesAlso(const ProfileView& made, const ProfileView& wanted) {
    ProfileView same = wanted;
    same.fromKm = made.fromKm;
    same.toKm = made.toKm;
    same.fromZero = made.fromZero;
    if (wanted.kind == ProfileKind::change) same.scale = made.scale;
    return same == made;
}

} // namespace korvel
