// Every caption, tool tip and key of the Explorer, as they are told.
#include "explore_forms/ExploreWindow.h"

#include <QLineEdit>
#include <QMenu>
#include <QTabWidget>
#include <QToolButton>

#include <algorithm>

namespace korvel {

namespace {

class FrmExploreWords : public FrmExploreWindow {
  protected:
    static std::string line(const QStringList& parts) { return parts.join(" | ").toStdString(); }

    // "name | caption | tool tip | keys" of what has a name, in the order in which they were made.
    std::vector<std::string> actions() {
        std::vector<std::string> lines;
        for (const QAction* action : form->findChildren<QAction*>())
            if (!action->objectName().startsWith('_') && !action->objectName().isEmpty())
                lines.push_back(line({action->objectName(), action->text(), tipOf(*action),
                                      QKeySequence::listToString(action->shortcuts())}));
        return lines;
    }
    // Qt makes one of the caption where there is no other.
    static QString tipOf(const QAction& action) {
        return action.toolTip() == QAction(action.text()).toolTip() ? QString() : action.toolTip();
    }
    template <typename Control>
    std::vector<std::string> controls() {
        std::vector<std::string> lines;
        for (const Control* each : form->findChildren<Control*>())
            if (!each->objectName().isEmpty() && !each->objectName().startsWith("qt_") &&
                !each->objectName().startsWith("Scroll"))
                lines.push_back(line({each->objectName(), wordsOf(*each), each->toolTip()}));
        std::ranges::sort(lines);
        return lines;
    }
    static QString wordsOf(const QAbstractButton& button) { return button.text(); }
    static QString wordsOf(const QLabel& label) { return label.text(); }
    static QString wordsOf(const QComboBox& box) {
        QStringList choices;
        for (int item = 0; item < box.count(); ++item)
            choices << box.itemText(item);
        return choices.join(", ");
    }
    std::vector<std::string> menuOf(const char* button) {
        QMenu& menu = *control<QToolButton>(*form, button).menu();
        emit menu.aboutToShow();
        std::vector<std::string> lines;
        for (const QAction* action : menu.actions())
            lines.push_back(action->text().toStdString());
        return lines;
    }
    using Lines = std::vector<std::string>;
};

} // namespace

TEST_F(FrmExploreWords, OfActionsAreTheseWithTheirKeys) {
    show({"a.sgr"});
    EXPECT_EQ(
        actions(),
        (Lines{"actSavePicture | Save &picture ... |  | ", "actCopyPicture | &Copy picture |  | Ctrl+Shift+C",
               "actSaveTable | Save &table in front ... |  | ",
               "actSavePage | Save pa&ge for browsers ... |  | ", "actSaveAtlas | Save &atlas ... |  | ",
               "actPrint | P&rint ... |  | Ctrl+P", "actSaveStudy | &Save study |  | Ctrl+S",
               "actSaveStudyAs | Sa&ve study as ... |  | Ctrl+Shift+S",
               "actZoomIn | Nearer | Nearer (Ctrl++ or the wheel) | Ctrl++; Ctrl+=",
               "actZoomOut | Farther | Farther (Ctrl+- or the wheel) | Ctrl+-",
               "actShowAll | 1:1 | The whole way (Ctrl+0 or a double click) | Ctrl+0",
               "actGoBack | Back | What was seen before (Alt+Left) | Alt+Left"}));
}

TEST_F(FrmExploreWords, OfControlsAreThese) {
    show({"a.sgr"});
    EXPECT_EQ(controls<QAbstractButton>(),
              (Lines{"chkFitLogarithmic | Logarithmic | ", "chkFromZero | From 0 | Begin linear scales at 0",
                     "chkInterpolated | &Interpolated | Points that the engine adds between features",
                     "chkLimits | &Limits | How sure a value is, as a band",
                     "chkLogarithmic | Log | A logarithmic scale; it leaves out what is not above 0",
                     "chkObserved | &Observed | What samples gave at stations",
                     "chkTargets | &Targets | What a determinand shall not exceed",
                     "cmdAddRun | Add ... | Add results files to the runs (Ctrl+O)",
                     "cmdArrange | Arrange | Make the chosen run the base, move or remove it",
                     "cmdExport | Export | Hand on the picture, the table in front, a page or an atlas",
                     "cmdLowIsBad | Bad when low: none | Which determinands fail their targets when they are "
                     "low, like "
                     "oxygen; the others fail when they are high",
                     "cmdOpen | Open | Open results files or a study (Ctrl+O)",
                     "cmdOpenFirst | &Open results ... | "}));
    EXPECT_EQ(
        controls<QComboBox>(),
        (Lines{
            "cboColouring | Verdict, Value, Plain | What the colours of the rivers tell, of the run that is "
            "chosen in the list",
            "cboFitBy | Whole file, Rivers, Reaches | ",
            "cboFrom | Upper  (1), Side  (2), Lower  (3) | Upper  (1)",
            "cboSourcesAt | At the mouth, At the cursor | ", "cboSourcesBy | By source, By kind | ",
            "cboSourcesOf | Flow, BOD, Ammonia | ",
            "cboStatistic | mean, 90, 95, 99 | The mean, or a percentile",
            "cboTo | Upper  (1), Lower  (3) | Lower  (3)",
            "cboView | Values, Change, Ratio | Values as they are, each run less the base, or values by "
            "their "
            "targets"}));
    EXPECT_EQ(
        controls<QLabel>(),
        (Lines{"lblCompliance | Judged by the statistic that each target is for, as surely as the limits "
               "allow. A double click shows a reach and determinand above. | ",
               "lblDone |  | ",
               "lblFit | Across places, not over time; stations that the model was calibrated to are no "
               "independent test. | ",
               "lblReadout |  | ", "lblSources |  | "}));
}

TEST_F(FrmExploreWords, OfMenusAreThese) {
    show({"a.sgr"});
    EXPECT_EQ(menuOf("cmdArrange"), (Lines{"Make this the &base\tCtrl+B", "Move &up\tCtrl+Up",
                                           "Move &down\tCtrl+Down", "&Remove\tDel"}));
    EXPECT_EQ(menuOf("cmdExport"), (Lines{"Save &picture ...", "&Copy picture", "Save &table in front ...",
                                          "Save pa&ge for browsers ...", "Save &atlas ...", "P&rint ...", "",
                                          "&Save study", "Sa&ve study as ..."}));
    EXPECT_EQ(menuOf("cmdOpen"), Lines{hostPathOf(platform.pathOf("a.sgr"))});
    form->close();
    ExploreMemory nothing(folder.filePath("other.ini"));
    form = std::make_unique<frmExplore>(platform, nothing);
    EXPECT_EQ(menuOf("cmdOpen"), Lines{"Nothing opened yet"});
    form.reset();
}

TEST_F(FrmExploreWords, OfTheSideAndTheTablesAreThese) {
    show({"a.sgr"});
    Lines tabs;
    const auto& tables = control<QTabWidget>(*form, "tabTables");
    for (int tab = 0; tab < tables.count(); ++tab)
        tabs.push_back(tables.tabText(tab).toStdString());
    EXPECT_EQ(tabs, (Lines{"Values", "Changes", "Compliance", "Fit", "Sources"}));
    EXPECT_EQ(control<QLineEdit>(*form, "txtFilter").placeholderText(), "Filter");
    EXPECT_EQ(control<QListWidget>(*form, "lstSeries").item(1)->toolTip(),
              "BOD (Conc)\nTicked series are drawn; the context menu tells which are bad when they are low");
    Lines words; // captions beside controls
    for (const QLabel* label : form->findChildren<QLabel*>())
        if (label->objectName().isEmpty() && !label->text().isEmpty() && label->isVisible())
            words.push_back(label->text().toStdString());
    std::ranges::sort(words);
    EXPECT_EQ(words, (Lines{"From", "Rivers by", "Runs", "Series", "Show", "View", "of the", "to"}));
    Lines deeds;
    for (const QAction* action : control<QTableView>(*form, "tblValues").actions())
        deeds.push_back((action->text() + " | " + action->shortcut().toString()).toStdString());
    EXPECT_EQ(deeds, (Lines{"Copy | Ctrl+C", "Sort by this column | F8"}));
}

TEST_F(FrmExploreWords, OfKeysDoWhatTheySay) {
    show({"a.sgr"});
    form->activateWindow();
    const auto width = [&] {
        const auto visible = form->state().visible;
        return visible ? visible->to - visible->from : 18;
    };
    press(Qt::Key_Plus, Qt::ControlModifier);
    const double nearer = width();
    EXPECT_LT(nearer, 18);
    press(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_LT(width(), nearer);
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_NEAR(width(), nearer, 1e-9);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(form->state().visible, std::nullopt);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_NEAR(width(), nearer, 1e-9) << "what was seen before";
    platform.willCancel();
    press(Qt::Key_O, Qt::ControlModifier);
    platform.willChoose(platform.pathOf("s.korvel-study"));
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(platform.hasFile("s.korvel-study"));
    platform.willChoose(platform.pathOf("t.korvel-study"));
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(platform.hasFile("t.korvel-study"));
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(control<QLabel>(*form, "lblDone").text(), "The picture was copied.");
    platform.expectDone();
}

} // namespace korvel
