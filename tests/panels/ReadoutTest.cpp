#include "panels/Readout.h"

#include "analysis/RiverSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class ReadoutText : public testing::Test {
  protected:
    Study study = studyOf({oneReach({{2, 5.42, 4, 4.9, 6, 3, 5.1, "D/S Holcombe STW"}, {6, 1}}),
                           oneReach({{2, 3.51, 4, 3, 4, 3, 5.1, "D/S Holcombe STW"}, {7, 2}})});
    StudyPath path = studyPath(study, {0});
    ProfileView view;

    ReadoutText() { view.series = {1}; }
    std::string at(std::size_t place) const {
        return readoutText(readoutAt(study, path, view, place), view.kind);
    }
};

} // namespace

TEST_F(ReadoutText, TellsPlaceAndValues) {
    EXPECT_EQ(at(0),
              "2.00 km \u00b7 Holcombe STW, D/S \u00b7 Reach 1 \u00b7 BOD (Conc) mean 5.42 (4.9 to 6), "
              "b.sgr 3.51 (3 to 4) (-35 %, clear), target 4, observed 5.1");
    EXPECT_EQ(at(1), "6.00 km \u00b7 P \u00b7 Reach 1 \u00b7 BOD (Conc) mean 1, b.sgr no point here");
    EXPECT_EQ(at(2), "7.00 km \u00b7 P \u00b7 Reach 1 \u00b7 BOD (Conc) mean no point here, b.sgr 2");
}

TEST_F(ReadoutText, TellsChangesAndRatiosInTheirViews) {
    view.kind = ProfileKind::change;
    EXPECT_EQ(
        at(0),
        "2.00 km \u00b7 Holcombe STW, D/S \u00b7 Reach 1 \u00b7 BOD (Conc) mean b.sgr -1.91 (-35 %) clear");
    view.kind = ProfileKind::ratio;
    EXPECT_EQ(at(0), "2.00 km \u00b7 Holcombe STW, D/S \u00b7 Reach 1 \u00b7 BOD (Conc) mean 1.355 (5.42, "
                     "target 4), b.sgr 0.8775 (3.51, target 4)");
    EXPECT_EQ(at(1),
              "6.00 km \u00b7 P \u00b7 Reach 1 \u00b7 BOD (Conc) mean no target here, b.sgr no point here");
}

TEST_F(ReadoutText, HasShortNamesWhereItIsAskedTo) {
    Readout readout = readoutAt(study, path, view, 0);
    readout.panels[0].runs[1].name = "A run with a long name 2.sgr";
    const auto textWith = [&](std::size_t letters) {
        return panelText(withShortNames(readout, letters).panels[0], view.kind);
    };
    EXPECT_NE(textWith(28).find(", A run with a long name 2.sgr 3.51"), std::string::npos);
    EXPECT_NE(textWith(12).find(", A run \u2026"
                                "2.sgr 3.51"),
              std::string::npos)
        << textWith(12);
}

TEST_F(ReadoutText, LeavesHiddenRunsOut) {
    view.hidden = {0};
    const Readout readout = readoutAt(study, path, view, 0);
    ASSERT_EQ(readout.panels[0].runs.size(), 1U);
    EXPECT_EQ(readout.panels[0].runs[0].name, "b.sgr");
    EXPECT_EQ(readout.panels[0].runs[0].ratio, 3.51 / 4);
    EXPECT_EQ(readout.panels[0].runs[0].change->clear, ClearChange::fall);
    EXPECT_EQ(panelText(readout.panels[0], view.kind),
              "BOD (Conc) mean b.sgr 3.51 (3 to 4) (-35 %, clear), target 4, observed 5.1");
}

} // namespace korvel
