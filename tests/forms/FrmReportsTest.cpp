// The report form: its lists, boxes, menus and messages.
#include "forms/ReportsForm.h"

#include <QTest>

namespace korvel {

namespace {

class FrmReports : public ReportsForm {
  protected:
    std::vector<int> tickedBoxes() {
        std::vector<int> ticked;
        for (int index = 0; index <= 9; ++index)
            if (box(index).isChecked()) ticked.push_back(index);
        return ticked;
    }
    // The first `count` lines, with the mouse.
    void chooseDeterminands(int count) {
        clickLine(determinands(), 0);
        clickLine(determinands(), count - 1, Qt::ShiftModifier);
    }
};

} // namespace

TEST_F(FrmReports, HasItsCaptions) {
    EXPECT_EQ(form.windowTitle(), "Korvel Reports");
    EXPECT_EQ(menuListing(*form.menuBar()), "mnuOpen|&Open\n"
                                            "mnuPrint|&Print tabular output\n"
                                            "mnuSpreadsheet|&Spreadsheet file\n"
                                            "mnuViewOutputFile|&View/print Korvel output file\n"
                                            "mnuExit|Exit\n");
    const Lines captions = {"Select all determinands", "Print means",
                            "Print 90 percentiles",    "Print 95 percentiles",
                            "Print 99 percentiles",    "Print quality targets ",
                            "Print observed values ",  "Print confidence limits",
                            "Select all reaches",      "Print upstream values"};
    for (int index = 0; index <= 9; ++index)
        EXPECT_EQ(box(index).text().toStdString(), captions.at(static_cast<std::size_t>(index)));
    EXPECT_EQ(control<QPushButton>(form, "cmdView_0").text(), "Select and view file");
    EXPECT_EQ(control<QPushButton>(form, "cmdView_1").text(), "Select and print file");
}

TEST_F(FrmReports, HasItsHeadingsAndHints) {
    Lines texts;
    for (const int index : {0, 1, 2, 3, 4, 5, 6, 9})
        texts.push_back(label(index).text().toStdString());
    EXPECT_EQ(texts,
              (Lines{"REACHES", "Select all reaches, or as many reaches as are required",
                     "(Use control key for multiple selections.)", "DETERMINANDS",
                     "Select all determinands, or as many determinands as are required.",
                     "(Use control key for multiple selections.)", "OPTIONS", "SELECT REPORT FORMAT"}));
}

TEST_F(FrmReports, IsEmptyBeforeResultsAreLoaded) {
    EXPECT_EQ(reaches().count(), 0);
    EXPECT_EQ(determinands().count(), 0);
    EXPECT_EQ(greyedItems(*form.menuBar()), (Lines{"mnuPrint", "mnuSpreadsheet"}));
    EXPECT_TRUE(frame("frameProgress").isHidden());
    EXPECT_TRUE(frame("frameExplain").isHidden());
    for (int index = 0; index <= 9; ++index) {
        click(box(index));
        EXPECT_EQ(greyedItems(*form.menuBar()), (Lines{"mnuPrint", "mnuSpreadsheet"})) << index;
    }
}

TEST_F(FrmReports, GivesTheHeightOfATallScreenToItsLists) {
    GLOBAL.ScaleX = 1080 / 640.0;
    GLOBAL.ScaleY = 1920 / 452.0;
    frmReports tall{platform};
    const int line = tall.fontMetrics().height();
    EXPECT_GT(control<QListWidget>(tall, "lstReaches").height(), 1300);
    EXPECT_EQ(control<QListWidget>(tall, "lstDets").height(),
              control<QListWidget>(tall, "lstReaches").height());
    EXPECT_LT(control<QWidget>(tall, "Check_2").y() - control<QWidget>(tall, "Check_1").y(), 3 * line);
    EXPECT_LT(control<QWidget>(tall, "Label_8").height(), 4 * line);
    const QRect fit = control<QWidget>(tall, "lblFit").geometry();
    EXPECT_GT(fit.bottom(), 1600);
    EXPECT_LT(fit.bottom(), 1920 - 60) << "title and menu bars";
}

TEST_F(FrmReports, SetsTheBoxesAsTheResultsSuggest) {
    const std::vector<std::tuple<int, std::vector<int>, std::string>> modes = {
        {0, {0, 1, 3, 8}, "95%-ile"}, {1, {0, 1, 3, 8}, "Mean"},    {-2, {0, 1, 3, 8}, "Mean"},
        {2, {0, 1, 2, 8}, "90%-ile"}, {3, {0, 1, 4, 8}, "99%-ile"}, {4, {0, 1, 8}, "99%-ile"}};
    for (const auto& [mode, ticked, caption] : modes) {
        for (int index = 1; index <= 7; ++index)
            box(index).setChecked(true);
        openRiver(wideRiver(mode));
        EXPECT_EQ(tickedBoxes(), ticked) << mode;
        EXPECT_EQ(box(5).text().toStdString(), "Print quality targets (" + caption + ")") << mode;
        EXPECT_EQ(box(5).accessibleName(), box(5).text());
    }
}

TEST_F(FrmReports, LeavesTheUpstreamBoxToTheUser) {
    click(box(9));
    open();
    EXPECT_TRUE(box(9).isChecked());
    click(box(9));
    open();
    EXPECT_FALSE(box(9).isChecked());
}

TEST_F(FrmReports, SelectAllSelectsEveryLineAndUntickingChangesNothing) {
    open();
    const std::vector<std::pair<int, QListWidget*>> lists = {{0, &determinands()}, {8, &reaches()}};
    for (const auto& [index, list] : lists) {
        const Lines all = selectedLines(*list);
        clickLine(*list, 1);
        EXPECT_EQ(selectedLines(*list), Lines{all[1]});
        EXPECT_FALSE(box(index).isChecked()) << "a click in the list unticks it";
        click(box(index));
        EXPECT_EQ(selectedLines(*list), all);
        click(box(index));
        EXPECT_FALSE(box(index).isChecked());
        EXPECT_EQ(selectedLines(*list), all);
    }
}

TEST_F(FrmReports, EachListUnticksItsOwnBoxOnly) {
    open();
    clickLine(determinands(), 0, Qt::ControlModifier);
    EXPECT_EQ(tickedBoxes(), (std::vector<int>{1, 2, 8}));
    open();
    clickLine(reaches(), 0, Qt::ControlModifier);
    EXPECT_EQ(tickedBoxes(), (std::vector<int>{0, 1, 2}));
}

TEST_F(FrmReports, AClickUnticksSelectAllEvenWhereItSelectsWhatIsSelected) {
    openRiver(wideRiver());
    clickLine(reaches(), 0);
    EXPECT_FALSE(box(8).isChecked());
    EXPECT_EQ(selectedLines(reaches()), Lines{"7 Only reach      "});
}

TEST_F(FrmReports, KeysInAListCountAsClicks) {
    open();
    determinands().setFocus();
    determinands().setCurrentRow(0, QItemSelectionModel::NoUpdate);
    QTest::keyClick(&determinands(), Qt::Key_Down);
    EXPECT_EQ(selectedLines(determinands()), Lines{"Ammonia (Conc)"});
    EXPECT_FALSE(box(0).isChecked());
    expectVerdict(2, "Print orientation: Portrait", lightGreen);
}

TEST_F(FrmReports, CountsColumnsAfterEveryClick) {
    open();
    expectVerdict(8, "Print orientation: Portrait", lightGreen);
    const std::vector<std::pair<int, int>> clicks = {{1, 4},  {5, 8},  {6, 12}, {7, 20}, {3, 36}, {4, 52},
                                                     {2, 36}, {7, 20}, {5, 16}, {9, 16}, {8, 16}};
    for (const auto& [index, columns] : clicks) {
        click(box(index));
        EXPECT_EQ(label(7).text().toStdString(),
                  "Number of columns selected for printing =  " + std::to_string(columns))
            << "box " << index;
    }
    clickLine(determinands(), 2);
    EXPECT_EQ(label(7).text(), "Number of columns selected for printing =  4");
    clickLine(reaches(), 1);
    EXPECT_EQ(label(7).text(), "Number of columns selected for printing =  4");
}

TEST_F(FrmReports, TellsWhichPageTheTableFits) {
    openRiver(wideRiver());
    click(box(3));
    const std::vector<std::tuple<int, std::string, QColor, bool>> verdicts = {
        {1, "Print orientation: Portrait", lightGreen, true},
        {10, "Print orientation: Portrait", lightGreen, true},
        {11, "Print orientation: Landscape", lightYellow, true},
        {18, "Print orientation: Landscape", lightYellow, true},
        {19, "Too wide to print", lightRed, false},
        {20, "Too wide to print", lightRed, false}};
    for (const auto& [columns, fit, colour, printable] : verdicts) {
        chooseDeterminands(columns);
        expectVerdict(columns, fit, colour);
        EXPECT_EQ(enabled("mnuPrint"), printable) << columns;
        EXPECT_TRUE(enabled("mnuSpreadsheet")) << columns;
    }
    click(box(1));
    expectVerdict(0, "Print orientation: Portrait", lightGreen);
    EXPECT_TRUE(enabled("mnuPrint"));
}

TEST_F(FrmReports, KeepsItsSelectionsWhileHidden) {
    open();
    clickLine(determinands(), 1);
    click(box(6));
    const std::vector<int> ticked = tickedBoxes();
    form.hide();
    showActive(form);
    activate();
    EXPECT_EQ(selectedLines(determinands()), Lines{"Ammonia (Conc)"});
    EXPECT_EQ(tickedBoxes(), ticked);
}

TEST_F(FrmReports, ExitCloses) {
    choose(form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), "close frmReports\n");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmReports, PicksLinesFromTheMenusOfItsLists) {
    open();
    const auto pick = [](QListWidget& list, const char* caption) {
        for (QAction* item : list.actions())
            if (item->text() == caption) return item->trigger();
        FAIL() << caption;
    };
    EXPECT_EQ(reaches().actions().size(), 5); // with a line, and one that saves a workbook
    clickLine(reaches(), 0);
    pick(reaches(), "&Invert");
    EXPECT_EQ(selectedLines(reaches()), Lines{"12 Lower Mill      "});
    pick(reaches(), "&None");
    EXPECT_TRUE(selectedLines(reaches()).empty());
    EXPECT_FALSE(box(8).isChecked());
    pick(reaches(), "&All");
    EXPECT_EQ(selectedLines(reaches()).size(), 2U);
    EXPECT_TRUE(box(8).isChecked());
    pick(determinands(), "&Loads only");
    EXPECT_EQ(selectedLines(determinands()), (Lines{"BOD (Load)", "Ammonia (Load)"}));
    pick(determinands(), "&Concentrations only");
    EXPECT_EQ(selectedLines(determinands()), (Lines{"BOD (Conc)", "Ammonia (Conc)"}));
    expectVerdict(4, "Print orientation: Portrait", lightGreen);
    EXPECT_FALSE(box(0).isChecked());
}

TEST_F(FrmReports, SaysHowManyDeterminandsFit) {
    const auto hint = [&] { return control<QLabel>(form, "lblFit").text().toStdString(); };
    openRiver(wideRiver());
    EXPECT_EQ(hint(), "With these options at most 9 determinands fit.") << "two columns each";
    for (const int index : {2, 4, 6, 7})
        click(box(index));
    EXPECT_EQ(hint(), "With these options at most 1 determinand fits.") << "16 columns";
    chooseDeterminands(1);
    EXPECT_EQ(hint(), "");
}

} // namespace korvel
