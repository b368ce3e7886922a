#include "ShownTables.h"
#include "tables/Csv.h"

#include <QClipboard>
#include <QScrollBar>
#include <QSignalSpy>

namespace korvel {

namespace {

QString captionOf(const QWidget& tables, const QWidget& choice) {
    for (const QLabel* label : tables.findChildren<QLabel*>())
        if (label->buddy() == &choice) return label->text();
    return "";
}

} // namespace

TEST(ExploreTables, ShowTheValuesOfThePathFirst) {
    Tables tables(stateOf({sampleFile(), sampleFile(3)}));
    EXPECT_EQ(tables.column("tblValues", featureColumn), (Texts{"Weir", "Mill", "Works", "Works"}));
    EXPECT_EQ(tables.column("tblValues", bodColumn + 1), (Texts{"5.000", "12.25", "0.1250", "3.000"}));
    EXPECT_EQ(tables.widget.nameInFront(), "Values");
}

TEST(ExploreTables, SortByAHeadingAndTheThirdClickIsFileOrder) {
    Tables tables(stateOf({sampleFile()}));
    tables.clickHeading("tblValues", bodColumn);
    EXPECT_EQ(tables.column("tblValues", bodColumn), (Texts{"0.1250", "2.000", "5.000", "12.25"}));
    tables.clickHeading("tblValues", bodColumn);
    EXPECT_EQ(tables.column("tblValues", bodColumn), (Texts{"12.25", "5.000", "2.000", "0.1250"}));
    tables.clickHeading("tblValues", bodColumn);
    EXPECT_EQ(tables.column("tblValues", bodColumn), (Texts{"5.000", "12.25", "0.1250", "2.000"}));
}

TEST(ExploreTables, SortByAKeyToo) {
    Tables tables(stateOf({sampleFile()}));
    RowsView& view = tables.view("tblValues");
    view.setFocus();
    view.setCurrentIndex(view.rows().index(0, bodColumn));
    for (const Texts& expected :
         {Texts{"0.1250", "2.000", "5.000", "12.25"}, Texts{"12.25", "5.000", "2.000", "0.1250"},
          Texts{"5.000", "12.25", "0.1250", "2.000"}}) {
        QTest::keyClick(&view, Qt::Key_F8);
        EXPECT_EQ(tables.column("tblValues", bodColumn), expected);
        EXPECT_EQ(view.currentIndex().data().toString(), "5.000"); // what is current stays so
    }
}

TEST(ExploreTables, ShowTheWorstVerdictFirst) {
    Tables tables(stateOf({sampleFile()}));
    tables.open(complianceTab);
    tables.clickHeading("tblCompliance", 3);
    EXPECT_EQ(tables.column("tblCompliance", 3), (Texts{"\u2717 fail", "\u2713 pass"}));
    EXPECT_EQ(tables.view("tblCompliance").rows().index(0, 3).data(Qt::AccessibleTextRole), "fail");
}

TEST(ExploreTables, StaySortedWhenTheRunsChange) {
    Tables tables(stateOf({sampleFile()}));
    tables.clickHeading("tblValues", bodColumn);
    tables.widget.show(stateOf({sampleFile(7)}));
    EXPECT_EQ(tables.column("tblValues", bodColumn), (Texts{"0.1250", "5.000", "7.000", "12.25"}));
}

TEST(ExploreTables, FilterTheTableInFront) {
    Tables tables(stateOf({sampleFile()}));
    auto& filter = control<QLineEdit>(tables.widget, "txtFilter");
    filter.setFocus();
    QTest::keyClicks(&filter, "work");
    EXPECT_EQ(tables.column("tblValues", featureColumn), (Texts{"Works", "Works"}));
    QTest::keyClicks(&filter, "x");
    EXPECT_EQ(tables.column("tblValues", featureColumn), Texts());
    filter.setText("reach 5");
    tables.open(complianceTab); // the words hold for the next table, too
    EXPECT_EQ(tables.column("tblCompliance", 1), Texts{"Reach 5"});
}

TEST(ExploreTables, CopyTheSelectionWithHeadings) {
    Tables tables(stateOf({sampleFile()}));
    RowsView& view = tables.view("tblValues");
    view.setFocus();
    tables.clickCell("tblValues", 1, featureColumn);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    for (int column = featureColumn; column < bodColumn; ++column)
        QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
              "Feature\tSide\tType\tBOD (Conc) a.sgr\nMill\t\t10\t12.25\nWorks\tU/S\t3\t0.125\n");
}

TEST(ExploreTables, TellThePlaceOfARowThatIsChosen) {
    Tables tables(stateOf({sampleFile()}));
    const QSignalSpy chosen(&tables.widget, &ExploreTables::placeChosen);
    tables.clickCell("tblValues", 3, featureColumn);
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen[0], (QVariantList{5, 0.5, QString("D/S")}));
    QTest::keyClick(&tables.view("tblValues"), Qt::Key_Up);
    ASSERT_EQ(chosen.size(), 2);
    EXPECT_EQ(chosen[1], (QVariantList{5, 0.5, QString("U/S")}));
}

TEST(ExploreTables, FollowTheCursorWithoutTellingIt) {
    Tables tables(stateOf({sampleFile()}));
    const QSignalSpy chosen(&tables.widget, &ExploreTables::placeChosen);
    tables.widget.followCursor(ExplorePlace{3, 6.5, ""});
    EXPECT_EQ(tables.view("tblValues").currentIndex().row(), 1);
    tables.clickHeading("tblValues", bodColumn); // sorted, the row is the same one
    EXPECT_EQ(tables.view("tblValues").currentIndex().siblingAtColumn(featureColumn).data(), "Mill");
    tables.widget.followCursor(ExplorePlace{5, 0.5, "U/S"});
    EXPECT_EQ(tables.view("tblValues").currentIndex().row(), 0);
    tables.widget.followCursor(ExplorePlace{9, 0.5, ""}); // nowhere: what is current stays
    tables.widget.followCursor(std::nullopt);
    EXPECT_EQ(tables.view("tblValues").currentIndex().row(), 0);
    EXPECT_EQ(chosen.size(), 0);
}

TEST(ExploreTables, FollowTheCursorInTheOneThatComesToTheFront) {
    Tables tables(stateOf({sampleFile()}));
    tables.widget.followCursor(ExplorePlace{5, 0.5, ""});
    tables.open(complianceTab);
    EXPECT_EQ(tables.view("tblCompliance").currentIndex().row(), 1);
}

TEST(ExploreTables, ScrollToTheCursorUnlessTheyAreInTheUsersHands) {
    ResultsFileBuilder file = riverOf({{1, 100}});
    std::vector<PointSample> points;
    for (int k = 0; k < 500; ++k)
        points.push_back({k * 0.125, 1.0 * k});
    addPoints(file, 1, points);
    Tables tables(stateOf({file}));
    QScrollBar& bar = *tables.view("tblValues").verticalScrollBar();
    tables.widget.followCursor(ExplorePlace{1, 400 * 0.125, ""});
    EXPECT_GT(bar.value(), 300);
    const int scrolled = bar.value();
    bar.setSliderDown(true);
    tables.widget.followCursor(ExplorePlace{1, 0, ""});
    EXPECT_EQ(tables.view("tblValues").currentIndex().row(), 0);
    EXPECT_EQ(bar.value(), scrolled);
    bar.setSliderDown(false);
    tables.widget.followCursor(ExplorePlace{1, 0.125, ""});
    EXPECT_LT(bar.value(), 2);
}

TEST(ExploreTables, TakeACellOfTheGridByADoubleClickOrEnter) {
    Tables tables(stateOf({sampleFile(), sampleFile(9)}));
    tables.open(complianceTab);
    const QSignalSpy series(&tables.widget, &ExploreTables::seriesChosen);
    RowsView& view = tables.view("tblCompliance");
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                       view.visualRect(view.rows().index(1, 5)).center());
    ASSERT_EQ(series.size(), 1);
    EXPECT_EQ(series[0][0], 1);
    const QSignalSpy place(&tables.widget, &ExploreTables::placeChosen);
    view.setCurrentIndex(view.rows().index(1, 5));
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(series.size(), 2);
    ASSERT_GE(place.size(), 1);
    EXPECT_EQ(place.back(), (QVariantList{5, 0.5, QString("D/S")})); // the worst point of that run
}

TEST(ExploreTables, SayWhyATableIsEmpty) {
    Tables tables(stateOf({oneReach({{0, 1}})}));
    tables.open(changesTab);
    EXPECT_EQ(tables.view("tblChanges").rows().source()->whyEmpty(), "Open a second run to see changes.");
    EXPECT_EQ(tables.view("tblChanges").emptyText(), "Open a second run to see changes.");
    tables.open(valuesTab);
    EXPECT_EQ(tables.view("tblValues").emptyText(), "");
    control<QLineEdit>(tables.widget, "txtFilter").setText("nowhere");
    EXPECT_EQ(tables.view("tblValues").emptyText(), "No row holds these words.");
}

TEST(ExploreTables, AreEmptyWithoutAStudy) {
    Tables tables((ExploreState()));
    for (const int tab : {valuesTab, changesTab, complianceTab, fitTab, sourcesTab}) {
        tables.open(tab);
        EXPECT_EQ(tables.widget.tableInFront(), std::nullopt);
    }
    tables.widget.followCursor(ExplorePlace{1, 0, ""});
    tables.widget.show(stateOf({sampleFile()}));
    EXPECT_NE(tables.widget.tableInFront(), std::nullopt);
    tables.widget.show(ExploreState());
    EXPECT_EQ(tables.widget.tableInFront(), std::nullopt);
}

TEST(ExploreTables, MakeOnlyTheOneInFront) {
    Tables tables(stateOf({sampleFile(), sampleFile()}));
    EXPECT_EQ(tables.view("tblChanges").rows().source(), nullptr);
    tables.open(changesTab);
    const auto* made = tables.view("tblChanges").rows().source();
    ASSERT_NE(made, nullptr);
    tables.open(valuesTab);
    tables.open(changesTab);
    EXPECT_EQ(tables.view("tblChanges").rows().source(), made); // nothing has changed
}

TEST(ExploreTables, AreMadeAnewOnlyForWhatTheyDependOn) {
    ExploreState state = stateOf({sampleFile(), sampleFile(3)});
    Tables tables(state);
    tables.open(complianceTab);
    const auto* made = tables.view("tblCompliance").rows().source();
    state.statistic = Statistic::p95;
    state.series = {0, 1};
    state.from = 5;
    tables.widget.show(state);
    EXPECT_EQ(tables.view("tblCompliance").rows().source(), made);
    state.lowIsBad = std::set<int>{1};
    tables.widget.show(state);
    EXPECT_EQ(tables.column("tblCompliance", 3), (Texts{"\u2713 pass", "\u2717 fail"}));
    tables.open(valuesTab);
    EXPECT_EQ(tables.view("tblValues").rows().rowCount(), 2);
    EXPECT_EQ(tables.view("tblValues").rows().columnCount(), 7 + 4);
}

TEST(ExploreTables, HandTheTableInFrontOverAsItIsShown) {
    Tables tables(stateOf({sampleFile()}));
    tables.clickHeading("tblValues", bodColumn);
    control<QLineEdit>(tables.widget, "txtFilter").setText("works");
    std::string csv;
    OutputBytes bytes([&](std::string_view part) { csv += part; });
    writeCsv(*tables.widget.tableInFront(), bytes);
    bytes.flush();
    EXPECT_EQ(csv, "reach,reach_name,path,distance,feature,side,type,BOD (Conc)_a.sgr\r\n"
                   "5,Reach 5,10.5,0.5,Works,U/S,3,0.125\r\n5,Reach 5,10.5,0.5,Works,D/S,3,2\r\n");
}

TEST(ExploreTables, ShortenLongNamesOfRunsInTheirHeadings) {
    ExploreState state = stateOf({sampleFile()});
    std::vector<StudyRun> runs = state.study->runs();
    runs[0].name = "A study with a name of forty letters.sgr";
    state.study = std::make_shared<Study>(std::move(runs));
    Tables tables(state);
    RowsModel& rows = tables.view("tblValues").rows();
    const int last = rows.columnCount() - 1;
    const auto heading = [&](int role) { return rows.headerData(last, Qt::Horizontal, role).toString(); };
    EXPECT_EQ(heading(Qt::DisplayRole), "BOD (Conc)\nA study with \u2026 letters.sgr");
    EXPECT_EQ(heading(Qt::ToolTipRole), "BOD (Conc)\nA study with a name of forty letters.sgr");
    EXPECT_EQ(heading(Qt::AccessibleTextRole), "BOD (Conc) A study with a name of forty letters.sgr");
    EXPECT_EQ(rows.headerData(0, Qt::Horizontal, Qt::ToolTipRole), QVariant()) << "Reach is told whole";
}

TEST(ExploreTables, LineNumbersUpByTheirPoints) {
    Tables tables(stateOf({sampleFile()}));
    const RowsModel& rows = tables.view("tblValues").rows();
    EXPECT_EQ(rows.index(0, bodColumn).data(RowsModel::columnDecimalsRole), 4); // of 0.1250
    EXPECT_EQ(rows.index(0, bodColumn).data(RowsModel::decimalsRole), 3);       // of 5.000
    EXPECT_EQ(rows.index(0, featureColumn).data(RowsModel::decimalsRole), -1);
}

TEST(ExploreTables, AreReachedByKeysAndNamedForScreenReaders) {
    Tables tables(stateOf({sampleFile()}));
    auto& tabs = control<QTabWidget>(tables.widget, "tabTables");
    EXPECT_EQ(tabs.accessibleName(), "Tables");
    RowsView& view = tables.view("tblValues");
    EXPECT_EQ(view.accessibleName(), "Values");
    view.setFocus();
    view.setCurrentIndex(view.rows().index(0, 0));
    QTest::keyClick(&view, Qt::Key_Tab);
    EXPECT_FALSE(view.hasFocus()); // Tab leaves the table
    EXPECT_EQ(view.currentIndex(), view.rows().index(0, 0));
    EXPECT_EQ(view.rows().headerData(bodColumn, Qt::Horizontal, Qt::AccessibleTextRole), "BOD (Conc) a.sgr");
    EXPECT_EQ(view.rows().index(0, bodColumn).data(Qt::AccessibleDescriptionRole),
              "BOD (Conc), mean, a.sgr: 5.000 (4.500 to 6.000), target 4, observed 4.000");
    tables.open(sourcesTab);
    EXPECT_EQ(captionOf(tables.widget, control<QComboBox>(tables.widget, "cboSourcesOf")), "Sources of");
}

} // namespace korvel
