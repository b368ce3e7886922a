#include "reports/ReportChoices.h"

#include "basic/RunTimeError.h"
#include "reports/ReportData.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

std::vector<std::string> textsOf(const std::vector<ListEntry>& list) {
    std::vector<std::string> texts;
    for (const ListEntry& entry : list)
        texts.push_back(entry.text);
    return texts;
}

std::vector<bool> selectedOf(const std::vector<ListEntry>& list) {
    std::vector<bool> selected;
    for (const ListEntry& entry : list)
        selected.push_back(entry.selected);
    return selected;
}

std::vector<int> tickedBoxes(const ReportChoices& choices) {
    std::vector<int> ticked;
    for (int k = 0; k < 10; ++k)
        if (choices.ticked(static_cast<ReportBox>(k))) ticked.push_back(k);
    return ticked;
}

} // namespace

TEST(ReportChoices, ListEverySeriesOfDeterminandsTrimmed) {
    const LoadedRiver river;
    const std::vector<std::string> expected{"BOD (Conc)", "Ammonia (Conc)", "BOD (Load)", "Ammonia (Load)"};
    EXPECT_EQ(textsOf(river.choices.determinands()), expected);
    EXPECT_EQ(selectedOf(river.choices.determinands()), std::vector<bool>(4, true));
}

TEST(ReportChoices, ListReachesByNumberAndNameInFileOrder) {
    const LoadedRiver river(smallRiver().reach(0, "Zero", 1, 0));
    const std::vector<std::string> expected{"1 Upper Mill      ", "12 Lower Mill      ", " Zero            "};
    EXPECT_EQ(textsOf(river.choices.reaches()), expected);
    EXPECT_EQ(selectedOf(river.choices.reaches()), std::vector<bool>(3, true));
}

struct BoxesOfMode {
    int mode;
    std::vector<int> boxes;
    friend void PrintTo(const BoxesOfMode& row, std::ostream* out) { *out << "mode " << row.mode; }
};
class ReportBoxesAfterLoad : public testing::TestWithParam<BoxesOfMode> {};

TEST_P(ReportBoxesAfterLoad, FollowTheKindOfTarget) {
    LoadedRiver river(smallRiver().mode(GetParam().mode));
    EXPECT_EQ(tickedBoxes(river.choices), GetParam().boxes);
}

INSTANTIATE_TEST_SUITE_P(Modes, ReportBoxesAfterLoad,
                         testing::Values(BoxesOfMode{-1, {0, 1, 3, 8}}, BoxesOfMode{0, {0, 1, 3, 8}},
                                         BoxesOfMode{1, {0, 1, 3, 8}}, BoxesOfMode{2, {0, 1, 2, 8}},
                                         BoxesOfMode{3, {0, 1, 4, 8}}, BoxesOfMode{4, {0, 1, 8}}));

TEST(ReportChoices, LoadLeavesOnlyUpstreamValuesUnchanged) {
    LoadedRiver river;
    for (int k = 0; k < 10; ++k)
        river.choices.tick(static_cast<ReportBox>(k), true);
    FillReportLists(river.choices, river.results);
    EXPECT_EQ(tickedBoxes(river.choices), (std::vector<int>{0, 1, 2, 8, 9}));
}

TEST(ReportChoices, NameTheKindOfTargetInItsCaption) {
    EXPECT_EQ(ReportChoices().targetsCaption(), "Print quality targets ");
    EXPECT_EQ(LoadedRiver(smallRiver().mode(0)).choices.targetsCaption(), "Print quality targets (95%-ile)");
    EXPECT_EQ(LoadedRiver(smallRiver().mode(1)).choices.targetsCaption(), "Print quality targets (Mean)");
    EXPECT_EQ(LoadedRiver(smallRiver().mode(2)).choices.targetsCaption(), "Print quality targets (90%-ile)");
    EXPECT_EQ(LoadedRiver(smallRiver().mode(3)).choices.targetsCaption(), "Print quality targets (99%-ile)");
}

TEST(ReportChoices, AClickInAListUnticksItsSelectAll) {
    LoadedRiver river;
    river.choices.chooseDeterminands({true, false, false, true});
    EXPECT_EQ(tickedBoxes(river.choices), (std::vector<int>{1, 2, 8}));
    EXPECT_EQ(river.choices.selection().determinands, (std::vector<int>{1, 4}));
    river.choices.chooseReaches({false, true});
    EXPECT_EQ(tickedBoxes(river.choices), (std::vector<int>{1, 2}));
    EXPECT_EQ(river.choices.selection().reaches, (std::vector<int>{12}));
}

TEST(ReportChoices, TickingSelectAllSelectsAllAndUntickingChangesNothing) {
    LoadedRiver river;
    river.choices.chooseDeterminands({});
    river.choices.chooseReaches({true});
    river.choices.tick(ReportBox::allDeterminands, false);
    EXPECT_EQ(selectedOf(river.choices.determinands()), std::vector<bool>(4, false));
    river.choices.tick(ReportBox::allDeterminands, true);
    EXPECT_EQ(selectedOf(river.choices.determinands()), std::vector<bool>(4, true));
    EXPECT_EQ(selectedOf(river.choices.reaches()), (std::vector<bool>{true, false}));
    river.choices.tick(ReportBox::allReaches, true);
    EXPECT_EQ(selectedOf(river.choices.reaches()), (std::vector<bool>{true, true}));
    river.choices.tick(ReportBox::allReaches, false);
    EXPECT_EQ(selectedOf(river.choices.reaches()), (std::vector<bool>{true, true}));
}

TEST(ReportChoices, GiveTheSelectionThatTheBoxesSay) {
    LoadedRiver river;
    river.choices.tick(ReportBox::means, false);
    river.choices.tick(ReportBox::percentiles99, true);
    river.choices.tick(ReportBox::observed, true);
    river.choices.tick(ReportBox::upstream, true);
    ReportSelection expected;
    expected.statistics = {Statistic::p90, Statistic::p99};
    expected.observed = expected.upstream = true;
    expected.determinands = {1, 2, 3, 4};
    expected.reaches = {1, 12};
    EXPECT_EQ(river.choices.selection(), expected);
}

TEST(ReportChoices, HoldTwentyDeterminandsAndFailOnMore) {
    std::vector<ListEntry> list(20, {"BOD", true});
    EXPECT_EQ(selectedDeterminands(list).size(), 20U);
    EXPECT_EQ(selectedDeterminands(list).back(), 20);
    list.push_back({"one too many", false});
    EXPECT_EQ(selectedDeterminands(list).size(), 20U);
    list.back().selected = true;
    try {
        selectedDeterminands(list);
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number, errors::subscriptOutOfRange);
    }
}

TEST(ReportChoices, SelectEverySeriesOfTenDeterminands) {
    ResultsFileBuilder ten = smallRiver();
    for (int d = 3; d <= 10; ++d)
        ten.determinand(1, "Substance " + std::to_string(d));
    EXPECT_EQ(LoadedRiver(ten).choices.selection().determinands.size(), 20U);
}

TEST(ListPicks, TakeWhatTheirMenuSays) {
    std::vector<ListEntry> list(4);
    list[0].selected = list[2].selected = true;
    using Lines = std::vector<bool>;
    EXPECT_EQ(picked(list, ListPick::all), (Lines{true, true, true, true}));
    EXPECT_EQ(picked(list, ListPick::none), (Lines{false, false, false, false}));
    EXPECT_EQ(picked(list, ListPick::inverted), (Lines{false, true, false, true}));
    EXPECT_EQ(picked(list, ListPick::concentrations), (Lines{true, true, false, false}));
    EXPECT_EQ(picked(list, ListPick::loads), (Lines{false, false, true, true}));
}

} // namespace korvel
