// The graph set-up form: "Plot", and what the graph gets of the choices.
#include "forms/GraphDataForm.h"

namespace korvel {

TEST_F(FrmGraphData, TellsWhatIsMissingInOrder) {
    expectRefusal("You have not selected a data set");
    showLoaded();
    dets.setFocus();
    passEvents();
    expectRefusal("You must select the Upstream Reach");
    combo(1).setCurrentIndex(0);
    combo(2).setCurrentIndex(-1);
    expectRefusal("You must select the Downstream Reach");
    combo(2).setCurrentIndex(1);
    expectRefusal("You must select one or more determinands.");
    sites.setFocus();
    passEvents();
    expectRefusal("You must select one or more reaches.");
    clickLine(sites, 0);
    expectRefusal("You must select a determinand.");
}

TEST_F(FrmGraphData, PlotsInTheGraphFormAndKeepsItsState) {
    showLoaded();
    chooseMode1();
    GLOBAL.LargeTextMode = 0;
    platform.willActOn("frmSimgraph", [&](ShownForm& shown) {
        EXPECT_EQ(control<QPushButton>(shown, "Cmd_3").text(), "Small text");
        EXPECT_GT(textsOf(graph.drawing()).size(), 5u);
        choose(shown, "mnuExit");
        EXPECT_TRUE(GLOBAL.returnedFromGraph);
    });
    choose(form, "mnuPlot");
    EXPECT_EQ(platform.takeTranscript(), "show modal frmSimgraph\nclose frmSimgraph\nclosed frmSimgraph\n");
    EXPECT_FALSE(GLOBAL.returnedFromGraph) << "cleared as the form is activated again";
    EXPECT_EQ(combo(2).currentIndex(), 2);
    EXPECT_EQ(selectedLines(dets), (Lines{"BOD (Conc)"}));
}

TEST_F(FrmGraphData, ComparesWithTheSecondDataSetOnlyWhileItIsValid) {
    showLoaded();
    load("mnuDataFile2", "B.SGR");
    EXPECT_EQ(comparison(), (Lines{"Mean values for Set 1", "Mean values for Set 2"}));
    load("mnuDataFile1", "A.SGR");
    EXPECT_EQ(comparison(), Lines{"Mean values for Set 1"}) << "the old second run belongs to another river";
    load("mnuDataFile2", "B.SGR");
    EXPECT_EQ(comparison().size(), 2u) << "loaded anew";
}

TEST_F(FrmGraphData, PlotsNothingOfASecondDataSetThatWasInvalidated) {
    showLoaded();
    load("mnuDataFile2", "B.SGR");
    load("mnuDataFile1", "A.SGR");
    EXPECT_EQ(meansOf(option(1)), Lines{});
}

TEST_F(FrmGraphData, ComparesWithNothingOfAnAbandonedSecondDataSet) {
    showLoaded();
    std::string other = longRiver();
    // The last point of another reach: most values are read by then.
    const std::size_t line = other.rfind('\n', other.rfind("Gauge")) + 1;
    other[other.find('8', line)] = '7';
    platform.putFile("OTHER.SGR", other);
    platform.willChoose(platform.pathOf("OTHER.SGR"));
    platform.willAnswer(Answer::ok);
    choose(form, "mnuDataFile2");
    EXPECT_NE(platform.takeTranscript().find("2nd data set has different reach or feature data."),
              std::string::npos);
    EXPECT_EQ(comparison(), Lines{"Mean values for Set 1"});
    EXPECT_EQ(meansOf(option(1)), Lines{});
}

TEST_F(FrmGraphData, HandsItsChoicesToTheGraph) {
    showLoaded();
    chooseMode1();
    click(check(0));
    click(check(1));
    click(check(2));
    click(check(4));
    click(check(5));
    click(option(5));
    box(1).setText("  My title ");
    box(2).setText(" My sub-title");
    clickLine(features, 1);
    platform.willActOn("frmSimgraph", [](ShownForm&) {});
    choose(form, "mnuPlot");
    platform.takeTranscript();
    EXPECT_TRUE(GLOBAL.displayMode1);
    EXPECT_EQ(GLOBAL.graphReaches, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(GLOBAL.selectedDeterminands, (std::vector<int>{1}));
    EXPECT_EQ(GLOBAL.graphTitle, "My title");
    EXPECT_EQ(GLOBAL.graphSubTitle, "My sub-title");
    EXPECT_FALSE(GLOBAL.plotMeans);
    EXPECT_TRUE(GLOBAL.plotPercentiles);
    EXPECT_TRUE(GLOBAL.plotConfidenceLimits);
    EXPECT_FALSE(GLOBAL.plotObservedValues);
    EXPECT_FALSE(GLOBAL.plotInterpolatedPoints);
    EXPECT_EQ(GLOBAL.percentileRow, 2);
    EXPECT_TRUE(GLOBAL.labelFeatureTypes[0] && GLOBAL.labelFeatureTypes[10]);
    EXPECT_FALSE(GLOBAL.labelFeatureTypes[1]);
}

TEST_F(FrmGraphData, HandsTheReachesOfModeTwoToTheGraph) {
    showLoaded();
    for (int line : {6, 0, 3})
        clickLine(sites, line, Qt::ControlModifier);
    combo(3).setCurrentIndex(2);
    platform.willActOn("frmSimgraph", [](ShownForm&) {});
    choose(form, "mnuPlot");
    platform.takeTranscript();
    EXPECT_FALSE(GLOBAL.displayMode1);
    EXPECT_EQ(GLOBAL.graphReaches, (std::vector<int>{1, 4, 7}));
    EXPECT_EQ(GLOBAL.selectedDeterminands, (std::vector<int>{2}));
}

} // namespace korvel
