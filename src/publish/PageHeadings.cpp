#include "publish/PageTable.h"

#include <algorithm>
#include <array>

namespace korvel {

namespace {

struct NamedHeading {
    std::string_view column;
    PageHeading heading;
};

constexpr auto headings = std::to_array<NamedHeading>({
    {"run", {"Run", ""}},
    {"reach", {"Reach", ""}},
    {"reach_name", {"Name of reach", ""}},
    {"determinand", {"Determinand", ""}},
    {"series", {"Series", ""}},
    {"statistic", {"Statistic", "mean, or the percentile of this number"}},
    {"verdict", {"Verdict", "fails where a point lies beyond its target"}},
    {"confident_verdict", {"With confidence", "sure where both limits lie on one side of the target"}},
    {"failing_length", {"Fails, km", "length on which the values lie beyond the target"}},
    {"judged_length", {"of km", "length with a target"}},
    {"failing_points", {"Fails, points", ""}},
    {"judged_points", {"of points", "points with a target"}},
    {"sure_fails", {"Sure fails", "points whose limits both lie beyond the target"}},
    {"sure_passes", {"Sure passes", "points whose limits both meet the target"}},
    {"unsure", {"Unsure", "points with the target between their limits"}},
    {"worst_value", {"Worst value", "at the point with the largest ratio to its target"}},
    {"worst_target", {"Target", "at that point"}},
    {"worst_distance", {"at km", "of the reach"}},
    {"worst_feature", {"Feature", ""}},
    {"needed", {"Needed, %", "by how much the worst value must get better to meet its target"}},
    {"headroom", {"Room, %", "by how much the worst value may get worse until it fails"}},
    {"change_verdict", {"Against base", "verdict in the base and in this run"}},
    {"change_failing_length", {"Fails, km more", "than in the base"}},
    {"change_deteriorated", {"Worse", "got worse by more than 10 % of the base's value at a judged point"}},
    {"base_mean", {"Base", "mean along the reach, weighted with length"}},
    {"run_mean", {"Run", "mean along the reach, weighted with length"}},
    {"change", {"Change", "run less base"}},
    {"percent", {"Change, %", "of the base's value"}},
    {"largest_rise_value", {"Largest rise", ""}},
    {"largest_rise_distance", {"at km", "of the reach"}},
    {"largest_rise_feature", {"Feature", ""}},
    {"largest_fall_value", {"Largest fall", ""}},
    {"largest_fall_distance", {"at km", "of the reach"}},
    {"largest_fall_feature", {"Feature", ""}},
    {"clear_rises", {"Clear rises", "points where the limits of both runs lie apart"}},
    {"clear_falls", {"Clear falls", "points where the limits of both runs lie apart"}},
    {"points", {"Points", ""}},
    {"kind", {"Kind", ""}},
    {"name", {"Source", ""}},
    {"distance", {"at km", "of the reach"}},
    {"load", {"Comes in", "where it comes in"}},
    {"arrives", {"Arrives", "what of it arrives at the place"}},
    {"share", {"Share, %", "of the load at the place"}},
    {"lost", {"Lost", "where it is lost"}},
    {"n", {"Samples", "points with an observed value"}},
    {"mean_error", {"Mean error", "value less observed"}},
    {"pbias", {"PBIAS, %", "above 0 the model is high"}},
    {"mean_absolute_error", {"Mean size of error", ""}},
    {"rmse", {"RMSE", "root of the mean square error"}},
    {"nse", {"NSE", "1 is perfect, 0 no better than the mean of the samples"}},
    {"r2", {"r\u00b2", "squared correlation"}},
    {"typical_factor", {"Typical factor", "by which the value typically misses, up or down"}},
    {"within_limits", {"Within limits", "samples between the confidence limits"}},
    {"bounded", {"of", "samples where there are limits"}},
    {"feature", {"Feature", ""}},
    {"value", {"Model", ""}},
    {"observed", {"Samples", ""}},
    {"target", {"Target", ""}},
    {"observed_verdict", {"Verdict of samples", ""}},
    {"title", {"Title", ""}},
    {"role", {"Role", ""}},
    {"percentile", {"Level", "the percentile that the file is about"}},
});

const PageHeading* headingNamed(const std::string& name) {
    const auto found = std::ranges::find(headings, name, &NamedHeading::column);
    return found == headings.end() ? nullptr : &found->heading;
}

// A group that has no heading of its own is told before the words of its part: "ALDER2.SGR: Share, %".
const PageHeading* headingOfPart(const Column& column) {
    return column.group.empty() ? nullptr : headingNamed(column.name);
}

} // namespace

std::string headingOf(const Column& column) {
    if (const PageHeading* heading = headingNamed(column.flatName())) return std::string(heading->words);
    if (const PageHeading* heading = headingOfPart(column))
        return column.group + ": " + std::string(heading->words);
    std::string words = column.flatName();
    std::ranges::replace(words, '_', ' ');
    return words;
}

std::string_view explanationOf(const Column& column) {
    const PageHeading* heading = headingNamed(column.flatName());
    if (!heading) heading = headingOfPart(column);
    return heading ? heading->explanation : std::string_view();
}

} // namespace korvel
