// The graph set-up form: what it shows, its two modes and its boxes.
#include "forms/GraphDataForm.h"

namespace korvel {

namespace {

const std::string levelRefusal =
    "box [question] Percentile level: Percentile level must be 90, 95 or 99. -> ok\n";

} // namespace

TEST_F(FrmGraphData, HasItsMenusInOrder) {
    EXPECT_EQ(menuListing(*form.menuBar()), "mnuOpen|&Open\n"
                                            "  mnuDataFile1|Data File 1\n"
                                            "  mnuDataFile2|Data file 2\n"
                                            "mnuPlot|&Plot\n"
                                            "mnuExit|&Exit\n");
    EXPECT_EQ(form.windowTitle(), "Korvel Graphical Results");
}

TEST_F(FrmGraphData, HasItsCaptions) {
    const Lines captions = {
        "Data file 1",
        "Data file 2",
        "PLEASE WAIT - DATA FILE LOADING",
        "Display Mode 1: Display a number of determinands for a group of contiguous reaches.",
        "Display Mode 2: Display a single determinand for a number of individual reaches.",
        "Select upstream reach",
        "Select downstream reach",
        "Select 1 to 5 determinands to be plotted.",
        "Select determinand to be plotted",
        "Select up to six reaches.",
        "(Use control key for multiple selections.)",
        "(Use control key for multiple selections.)",
        "Title and sub-title (max 60 characters each)",
        "OPTIONS",
        "Select feature types to be labelled on graphs.",
        "Level"};
    for (std::size_t k = 0; k < captions.size(); ++k)
        EXPECT_EQ(labelText(static_cast<int>(k)), captions[k]);
    const Lines checks = {"Plot means",           "Plot percentiles",     "Plot confidence limits",
                          "Plot quality targets", "Plot observed values", "Plot auto-interpolated points"};
    const Lines options = {
        "Plot 1st data set", "Plot 2nd data set", "Compare two data sets", "90", "95", "99"};
    for (int k = 0; k <= 5; ++k) {
        EXPECT_EQ(check(k).text().toStdString(), checks[static_cast<std::size_t>(k)]);
        EXPECT_EQ(option(k).text().toStdString(), options[static_cast<std::size_t>(k)]);
    }
    EXPECT_EQ(itemsOf(features), (Lines{"0  Reach boundary", "1  Monitoring station",
                                        "2  Stream or tributary", "3  Sewage discharge",
                                        "4  River flow gauge", "5  Industrial effluent", "7  Abstraction"}));
}

TEST_F(FrmGraphData, StartsWithItsDefaults) {
    EXPECT_EQ(ticked(), (Lines{"Plot means", "Plot quality targets", "Plot observed values",
                               "Plot 1st data set", "95"}));
    EXPECT_EQ(selectedLines(features).size(), 7U);
    EXPECT_TRUE(control<QAction>(form, "mnuPlot").isEnabled());
    EXPECT_EQ(text("lblFileName_0"), "");
    EXPECT_EQ(text("lblFileName_1"), "");
    EXPECT_TRUE(control<QLabel>(form, "Label_2").isHidden());
    for (int k = 0; k <= 2; ++k)
        EXPECT_EQ(box(k).text(), "");
}

TEST_F(FrmGraphData, SaysWhatEachOptionDoes) {
    load("mnuDataFile1", "A.SGR");
    const std::vector<std::pair<QWidget*, std::string>> tips = {
        {&check(0), "'Plot means': The mean flow and quality values will be plotted."},
        {&check(1), "'Plot percentiles': The 95 percentile flow and quality values will be plotted."},
        {&check(2), "'Plot confidence limits': Enables 95 percentile confidence limits to be displayed on "
                    "graphs."},
        {&check(3), "'Plot quality targets': Enables the river quality targets to be displayed on the graph "
                    "(in red)."},
        {&check(4), "'Plot observed values': Enables the observed flow and quality values to be displayed on "
                    "the graph (as crosses)."},
        {&check(5), "'Plot auto-interpolated points': Enables auto-interpolated points to be displayed on "
                    "the graph (if option was selected in input data)."},
        {&features, "'Feature types': To avoid overcrowding on graphs, select subset of features to be "
                    "labelled on graphs."},
        {&option(0), "'Plot 1st data set': Only the results from Data File 1 are shown when 'Graph Preview' "
                     "is selected."},
        {&option(1), "'Plot 2nd data set': Only the results from Data File 2 are shown when 'Graph Preview' "
                     "is selected."},
        {&option(2), "'Compare two data sets': Results are shown for both Data File 1 and Data File 2 - for "
                     "means or percentiles, but not both."}};
    for (const auto& [control, tip] : tips)
        EXPECT_EQ(tipOf(*control), tip);
}

TEST_F(FrmGraphData, TipsFollowTheLevel) {
    showLoaded();
    click(option(3));
    EXPECT_EQ(tipOf(check(1)),
              "'Plot percentiles': The 90 percentile flow and quality values will be plotted.");
    click(option(5));
    EXPECT_EQ(tipOf(check(2)), "'Plot confidence limits': Enables 99 percentile confidence limits to be "
                               "displayed on graphs.");
}

TEST_F(FrmGraphData, LetsTheModeFollowTheFocus) {
    showLoaded();
    const std::vector<std::pair<QWidget*, int>> modes = {{&combo(3), 2}, {&combo(1), 1}, {&sites, 2},
                                                         {&combo(2), 1}, {&sites, 2},    {&dets, 1}};
    for (const auto& [control, mode] : modes) {
        control->setFocus();
        passEvents();
        ASSERT_EQ(QApplication::focusWidget(), control) << control->objectName().toStdString();
        EXPECT_EQ(highlightedMode(), mode) << control->objectName().toStdString();
    }
    box(1).setFocus();
    passEvents();
    EXPECT_EQ(highlightedMode(), 1) << "the other controls leave the mode";
}

TEST_F(FrmGraphData, ClearsTheSelectionsOfTheModeThatIsLeft) {
    showLoaded();
    chooseMode1();
    sites.setFocus();
    passEvents();
    EXPECT_EQ(combo(1).currentIndex(), -1);
    EXPECT_EQ(combo(1).currentText(), "");
    EXPECT_EQ(combo(2).currentText(), "");
    EXPECT_EQ(selectedLines(dets), Lines());
    clickLine(sites, 2);
    combo(3).setCurrentIndex(1);
    EXPECT_EQ(highlightedMode(), 2);
    dets.setFocus();
    passEvents();
    EXPECT_EQ(combo(3).currentText(), "");
    EXPECT_EQ(selectedLines(sites), Lines());
}

TEST_F(FrmGraphData, EntersTheModeByAClickOnAListAndTakesTheClick) {
    showLoaded();
    clickLine(sites, 1);
    EXPECT_EQ(highlightedMode(), 2);
    EXPECT_EQ(selectedLines(sites), (Lines{"2 Reach number 2  "}));
    clickLine(dets, 3);
    EXPECT_EQ(highlightedMode(), 1);
    EXPECT_EQ(selectedLines(dets), (Lines{"Nitrate (Conc)"}));
    EXPECT_EQ(selectedLines(sites), Lines());
}

TEST_F(FrmGraphData, HoldsFiveSeriesCountedFromTheTop) {
    showLoaded();
    for (int line : {2, 3, 4, 5, 6})
        clickLine(dets, line, Qt::ControlModifier);
    EXPECT_EQ(selectedLines(dets).size(), 5U);
    clickLine(dets, 8, Qt::ControlModifier);
    EXPECT_EQ(selectedLines(dets), (Lines{"Ammonia (Conc)", "Nitrate (Conc)", "Phosphate (Conc)",
                                          "BOD (Load)", "Ammonia (Load)"}));
    clickLine(dets, 0, Qt::ControlModifier);
    EXPECT_EQ(selectedLines(dets),
              (Lines{"Flow", "Ammonia (Conc)", "Nitrate (Conc)", "Phosphate (Conc)", "BOD (Load)"}))
        << "the one that is then the sixth from the top goes";
    clickLine(dets, 3, Qt::ControlModifier);
    EXPECT_EQ(selectedLines(dets).size(), 4U);
}

TEST_F(FrmGraphData, HoldsSixReachesCountedFromTheTop) {
    showLoaded();
    clickLine(sites, 0);
    clickLine(sites, 7, Qt::ShiftModifier);
    const Lines selected = selectedLines(sites);
    ASSERT_EQ(selected.size(), 6U);
    EXPECT_EQ(selected.back(), "6 Reach number 6  ");
}

TEST_F(FrmGraphData, OffersTheChainBelowTheUpstreamReach) {
    showLoaded();
    combo(1).setCurrentIndex(5);
    EXPECT_EQ(itemsOf(combo(2)), (Lines{"6 Reach number 6  ", "7 Reach number 7  "}));
    EXPECT_EQ(combo(2).currentIndex(), 0) << "the upstream reach is the default";
    combo(1).setCurrentIndex(7);
    EXPECT_EQ(itemsOf(combo(2)), (Lines{"8 Reach number 8  ", "7 Reach number 7  "}));
    EXPECT_EQ(highlightedMode(), 1);
}

TEST_F(FrmGraphData, ChoosesTheUpstreamReachWithTheKeyboard) {
    showLoaded();
    combo(1).setFocus();
    QTest::keyClick(&combo(1), Qt::Key_Down);
    QTest::keyClick(&combo(1), Qt::Key_Down);
    passEvents();
    EXPECT_EQ(combo(1).currentIndex(), 1);
    EXPECT_EQ(combo(2).count(), 6);
}

TEST_F(FrmGraphData, RefusesToCompareWithoutTheFirstFilesName) {
    showActive(form);
    click(option(2));
    EXPECT_TRUE(option(0).isChecked());
    load("mnuDataFile1", "A.SGR");
    click(option(2));
    EXPECT_TRUE(option(2).isChecked()) << "the second data set is not asked for";
}

TEST_F(FrmGraphData, ComparesMeansOrPercentiles) {
    showLoaded();
    click(check(1));
    EXPECT_TRUE(check(0).isChecked() && check(1).isChecked()) << "both, while one data set is plotted";
    click(option(2));
    EXPECT_TRUE(check(0).isChecked());
    EXPECT_FALSE(check(1).isChecked());
    click(check(1));
    EXPECT_FALSE(check(0).isChecked());
    EXPECT_TRUE(check(1).isChecked());
    click(check(0));
    EXPECT_TRUE(check(0).isChecked());
    EXPECT_FALSE(check(1).isChecked());
}

TEST_F(FrmGraphData, RefusesALevelAndReturnsTheFocusToItsBox) {
    showLoaded();
    click(box(0));
    QTest::keyClicks(&box(0), "92");
    platform.willAnswer(Answer::ok);
    click(box(1));
    EXPECT_EQ(platform.takeTranscript(), levelRefusal);
    EXPECT_EQ(QApplication::focusWidget(), &box(0));
    EXPECT_EQ(RESULTS.reachCount, 92) << "whatever was typed is kept";
}

TEST_F(FrmGraphData, TakesTheThreeLevelsAndAnEmptyBox) {
    showLoaded();
    for (const char* level : {"90", "95", "99", ""}) {
        click(box(0));
        box(0).setText(level);
        click(box(1));
        EXPECT_EQ(QApplication::focusWidget(), &box(1)) << level;
    }
    EXPECT_EQ(RESULTS.reachCount, 99) << "an empty box changes nothing";
}

TEST_F(FrmGraphData, CountsALevelThatIsNoNumberAsZero) {
    showLoaded();
    click(box(0));
    QTest::keyClicks(&box(0), "abc");
    platform.willAnswer(Answer::ok);
    click(box(2));
    EXPECT_EQ(platform.takeTranscript(), levelRefusal);
    EXPECT_EQ(RESULTS.reachCount, 0);
}

TEST_F(FrmGraphData, CutsATitleToSixtyCharactersAsShown) {
    showLoaded();
    const QString wide = QString::fromUtf8("\u00e9").repeated(60);
    for (int k : {1, 2}) {
        click(box(k));
        box(k).setText(wide + "xy");
        EXPECT_EQ(box(k).text(), wide + "xy") << "while it is typed";
        click(box(k == 1 ? 2 : 1));
        EXPECT_EQ(box(k).text(), wide);
    }
    click(box(1));
    box(1).setText(wide);
    click(box(2));
    EXPECT_EQ(box(1).text(), wide) << "60 are not too many";
}

TEST_F(FrmGraphData, ExitClosesIt) {
    showLoaded();
    choose(form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), "close frmGraphData\n");
    EXPECT_FALSE(form.isVisible());
}

} // namespace korvel
