// The graph set-up form: real clicks and real focus, from loading results to the graph.
#include "graphs/setup/frmGraphData.h"

#include "basic/Palette.h"
#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"
#include "graphs/DrawnThings.h"

#include <QHelpEvent>
#include <QTest>

namespace korvel {

namespace {

using Lines = std::vector<std::string>;

const std::string readError = "box [exclamation] Error: There is an error in reading the data for plotting. "
                              "The file either does not exist, is incomplete, or is in the wrong format.  Or "
                              "it may hold more plotting points than the set maximum of 59999. -> ok\n";
const std::string levelRefusal =
    "box [question] Percentile level: Percentile level must be 90, 95 or 99. -> ok\n";

class FrmGraphData : public CleanGlobals {
  protected:
    FrmGraphData() {
        platform.putFile("A.SGR", longRiver());
        platform.putFile("B.SGR", longRiver(8, "Second run"));
        platform.putFile("CUT.SGR", longRiver().substr(0, 900));
        platform.putFile("SHORT.SGR", longRiver(3));
        platform.setBottomForm(form);
        platform.closesForm = closeWindow;
    }
    ~FrmGraphData() override { EXPECT_EQ(platform.takeTranscript(), ""); }

    void activate() { static_cast<ShownForm&>(form).activate(); }
    void load(const std::string& item, const std::string& file) {
        platform.willChoose(platform.pathOf(file));
        choose(form, item);
        platform.takeTranscript();
    }
    // Shown, with a first data set.
    void showLoaded(const std::string& file = "A.SGR") {
        load("mnuDataFile1", file);
        showActive(form);
    }
    void afterARun(const std::string& file) {
        GLOBAL.fileNames[0] = platform.pathOf(file);
        GLOBAL.graphResultsPending = true;
    }
    void expectRefusal(const std::string& text) {
        platform.willAnswer(Answer::ok);
        choose(form, "mnuPlot");
        EXPECT_EQ(platform.takeTranscript(), "box [exclamation] Missing data: " + text + " -> ok\n");
    }
    // What can be plotted in mode 1: reaches 1 to 3, one series.
    void chooseMode1() {
        combo(1).setCurrentIndex(0);
        combo(2).setCurrentIndex(2);
        clickLine(dets, 1);
    }

    std::string labelText(int k) { return text("Label_" + std::to_string(k)); }
    std::string text(const std::string& name) { return control<QLabel>(form, name).text().toStdString(); }
    QComboBox& combo(int k) { return control<QComboBox>(form, "Combo_" + std::to_string(k)); }
    QCheckBox& check(int k) { return control<QCheckBox>(form, "Check_" + std::to_string(k)); }
    QRadioButton& option(int k) { return control<QRadioButton>(form, "optPlotType_" + std::to_string(k)); }
    QLineEdit& box(int k) { return control<QLineEdit>(form, "txtTitle_" + std::to_string(k)); }
    Lines itemsOf(const QComboBox& list) {
        Lines items;
        for (int i = 0; i < list.count(); ++i)
            items.push_back(list.itemText(i).toStdString());
        return items;
    }
    Lines itemsOf(const QListWidget& list) {
        Lines items;
        for (int i = 0; i < list.count(); ++i)
            items.push_back(list.item(i)->text().toStdString());
        return items;
    }
    QColor colourOf(const std::string& frame) {
        return control<QFrame>(form, frame).palette().color(QPalette::Window);
    }
    // Which frame is highlighted; 0 where not exactly one is.
    int highlightedMode() {
        const Rgb highlight = paletteColour(colours::yellow);
        const QColor yellow(highlight.red, highlight.green, highlight.blue);
        const bool first = colourOf("frameMode_1") == yellow, second = colourOf("frameMode_2") == yellow;
        return first == second ? 0 : (first ? 1 : 2);
    }
    // As the pointer makes it.
    std::string tipOf(QWidget& control) {
        QHelpEvent ask(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
        QApplication::sendEvent(&control, &ask);
        return control.toolTip().toStdString();
    }
    Lines ticked() {
        Lines captions;
        for (int k = 0; k <= 5; ++k)
            if (check(k).isChecked()) captions.push_back(check(k).text().toStdString());
        for (int k = 0; k <= 5; ++k)
            if (option(k).isChecked()) captions.push_back(option(k).text().toStdString());
        return captions;
    }

    // The main series that the graph draws of BOD when the plot type is chosen: as the key names them, and no
    // more than there are lines of.
    Lines meansOf(QRadioButton& plotType) {
        chooseMode1();
        click(plotType);
        Lines named;
        platform.willActOn("frmSimgraph", [&](ShownForm&) {
            for (const std::string& text : textsOf(graph.drawing()))
                if (text.starts_with("Mean values")) named.push_back(text);
            const std::size_t lines = runsOfColour(graph.drawing(), colours::lightBlue).size() +
                                      runsOfColour(graph.drawing(), colours::lightGreen).size();
            EXPECT_EQ(lines, named.size());
        });
        choose(form, "mnuPlot");
        platform.takeTranscript();
        return named;
    }
    Lines comparison() { return meansOf(option(2)); }

    FakePlatform platform;
    frmSimgraph graph{platform};
    frmGraphData form{platform, graph};
    QListWidget& dets = control<QListWidget>(form, "lstDets");
    QListWidget& sites = control<QListWidget>(form, "lstSites");
    QListWidget& features = control<QListWidget>(form, "lstFeatures");
};

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

TEST_F(FrmGraphData, LoadsTheFirstFileFromItsItem) {
    platform.willChoose(platform.pathOf("A.SGR"));
    choose(form, "mnuDataFile1");
    EXPECT_EQ(platform.takeTranscript(),
              "open dialog \"Select Data File 1\" filter \"Korvel graph files (*.SGR)|*.SGR\" folder \"\" "
              "overwritePrompt no -> {app}\\A.SGR\ncurrent folder {app}\n");
    EXPECT_EQ(text("lblFileName_0"), "A.SGR");
    EXPECT_EQ(itemsOf(combo(1)).front(), "1 Reach number 1  ");
    EXPECT_EQ(itemsOf(combo(1)), itemsOf(sites));
    EXPECT_EQ(itemsOf(combo(1)).size(), 8U);
    EXPECT_EQ(itemsOf(dets),
              (Lines{"Flow", "BOD (Conc)", "Ammonia (Conc)", "Nitrate (Conc)", "Phosphate (Conc)",
                     "BOD (Load)", "Ammonia (Load)", "Nitrate (Load)", "Phosphate (Load)"}));
    EXPECT_EQ(itemsOf(combo(3)), itemsOf(dets));
    EXPECT_EQ(box(1).text(), "Long river");
    EXPECT_EQ(combo(1).currentIndex(), -1);
    EXPECT_TRUE(check(5).isChecked()) << "the file has interpolated points";
    EXPECT_TRUE(control<QLabel>(form, "Label_2").isHidden());
}

TEST_F(FrmGraphData, ClearsTheNameBeforeTheFileIsChosen) {
    load("mnuDataFile1", "A.SGR");
    platform.willCancel();
    choose(form, "mnuDataFile1");
    platform.takeTranscript();
    EXPECT_EQ(text("lblFileName_0"), "");
}

TEST_F(FrmGraphData, RefusesTheSecondFileBeforeTheFirst) {
    platform.willAnswer(Answer::ok);
    choose(form, "mnuDataFile2");
    EXPECT_EQ(platform.takeTranscript(),
              "box [exclamation] Select data file: You must select Data File 1 before Data File 2. -> ok\n");
}

TEST_F(FrmGraphData, LoadsTheSecondFileAndKeepsTheSelections) {
    showLoaded();
    chooseMode1();
    load("mnuDataFile2", "B.SGR");
    EXPECT_EQ(text("lblFileName_1"), "B.SGR");
    EXPECT_EQ(box(1).text(), "Long river");
    EXPECT_EQ(combo(2).currentIndex(), 2);
    EXPECT_EQ(selectedLines(dets), (Lines{"BOD (Conc)"}));
}

TEST_F(FrmGraphData, FallsBackToTheFirstDataSetWhereTheSecondFails) {
    showLoaded();
    load("mnuDataFile2", "B.SGR");
    click(option(2));
    platform.willChoose(platform.pathOf("CUT.SGR"));
    platform.willAnswer(Answer::ok);
    choose(form, "mnuDataFile2");
    EXPECT_TRUE(platform.takeTranscript().ends_with(readError));
    EXPECT_EQ(text("lblFileName_1"), "");
    EXPECT_EQ(text("lblFileName_0"), "A.SGR");
    EXPECT_TRUE(option(0).isChecked());
    EXPECT_TRUE(control<QAction>(form, "mnuPlot").isEnabled());
}

TEST_F(FrmGraphData, AnotherFirstFileClearsTheSecond) {
    showLoaded();
    load("mnuDataFile2", "B.SGR");
    click(option(1));
    load("mnuDataFile1", "B.SGR");
    EXPECT_EQ(text("lblFileName_0"), "B.SGR");
    EXPECT_EQ(text("lblFileName_1"), "");
    EXPECT_TRUE(option(0).isChecked());
    EXPECT_EQ(box(1).text(), "Second run");
}

TEST_F(FrmGraphData, LoadsTheResultsOfARunWhenItIsActivated) {
    afterARun("A.SGR");
    activate();
    EXPECT_EQ(text("lblFileName_0"), "A.SGR");
    EXPECT_EQ(combo(1).count(), 8);
    EXPECT_FALSE(GLOBAL.graphResultsPending);
    EXPECT_TRUE(control<QAction>(form, "mnuPlot").isEnabled());
    EXPECT_EQ(platform.takeTranscript(), "");
}

TEST_F(FrmGraphData, KeepsTheResultsOfARunPendingWhereTheyCannotBeRead) {
    afterARun("CUT.SGR");
    platform.willAnswer(Answer::ok);
    activate();
    EXPECT_EQ(platform.takeTranscript(), readError);
    EXPECT_TRUE(GLOBAL.graphResultsPending);
    EXPECT_TRUE(control<QLabel>(form, "Label_2").isHidden());
}

TEST_F(FrmGraphData, ShowsNoProgressWhileAMessageEndsTheLoad) {
    int messages = 0;
    platform.onMessage = [&] {
        ++messages;
        EXPECT_TRUE(control<QLabel>(form, "Label_2").isHidden());
        EXPECT_TRUE(control<QProgressBar>(form, "Progress").isHidden());
    };
    const auto loadWithMessage = [&](const char* item, const char* file) {
        platform.willChoose(platform.pathOf(file));
        platform.willAnswer(Answer::ok);
        choose(form, item);
        platform.takeTranscript();
    };
    loadWithMessage("mnuDataFile1", "CUT.SGR");
    load("mnuDataFile1", "A.SGR");
    loadWithMessage("mnuDataFile2", "CUT.SGR");
    EXPECT_EQ(messages, 2);
}

TEST_F(FrmGraphData, KeepsItsStateAfterAGraph) {
    showLoaded();
    chooseMode1();
    afterARun("B.SGR");
    GLOBAL.returnedFromGraph = true;
    activate();
    EXPECT_FALSE(GLOBAL.returnedFromGraph);
    EXPECT_TRUE(GLOBAL.graphResultsPending);
    EXPECT_EQ(text("lblFileName_0"), "A.SGR");
    EXPECT_EQ(combo(2).currentIndex(), 2);
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

TEST_F(FrmGraphData, TellsThatResultsAreIncomplete) {
    showLoaded("SHORT.SGR");
    combo(1).setCurrentIndex(1);
    combo(2).setCurrentIndex(2); // reaches 2 to 4; the points end in reach 3
    clickLine(dets, 0);
    platform.willAnswer(Answer::ok);
    choose(form, "mnuPlot");
    EXPECT_EQ(platform.takeTranscript(),
              "box [question] Incomplete Results: The selected graph cannot be plotted as the Korvel results "
              "are incomplete.  This may be due to the Korvel run having been stopped by an error before all "
              "reaches were processed. -> ok\n");
}

TEST_F(FrmGraphData, ExitClosesIt) {
    showLoaded();
    choose(form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), "close frmGraphData\n");
    EXPECT_FALSE(form.isVisible());
}

} // namespace korvel
