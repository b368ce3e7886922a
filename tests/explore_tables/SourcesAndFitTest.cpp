#include "ShownTables.h"

#include <QSignalSpy>

namespace korvel {

TEST(ExploreTables, FindSourcesOfWhatIsChosen) {
    Tables tables(stateOf({sampleFile()}));
    tables.open(sourcesTab);
    auto& of = control<QComboBox>(tables.widget, "cboSourcesOf");
    EXPECT_EQ(of.currentText(), "BOD");
    EXPECT_EQ(tables.column("tblSources", 0), (Texts{"sewage works", "headwater", "diffuse", "loss"}));
    control<QComboBox>(tables.widget, "cboSourcesBy").setCurrentIndex(1);
    EXPECT_EQ(tables.view("tblSources").rows().columnCount(), 4);
    of.setCurrentIndex(0);
    EXPECT_TRUE(control<QLabel>(tables.widget, "lblSources").text().startsWith("Mean flow at reach 5"));
}

TEST(ExploreTables, FindSourcesAtTheCursorOnceItRests) {
    Tables tables(stateOf({sampleFile()}));
    tables.open(sourcesTab);
    tables.widget.followCursor(ExplorePlace{3, 6.5, ""});
    control<QComboBox>(tables.widget, "cboSourcesAt").setCurrentIndex(1);
    auto& heading = control<QLabel>(tables.widget, "lblSources");
    EXPECT_TRUE(heading.text().startsWith("Mean load of BOD at reach 3 Reach 3, 6.5 km"));
    const QSignalSpy chosen(&tables.widget, &ExploreTables::placeChosen);
    tables.widget.followCursor(ExplorePlace{5, 0.5, "D/S"});
    EXPECT_TRUE(
        waitFor([&] { return heading.text().startsWith("Mean load of BOD at reach 5 Reach 5, 0.5"); }));
    tables.clickCell("tblSources", 0, 1); // looking at a source doesn't move the cursor
    EXPECT_EQ(chosen.size(), 0);
}

TEST(ExploreTables, SayWhatRefusesSources) {
    ResultsFileBuilder file = riverOf({{1, 10}});
    file.point(1, 0, "P").setAll(0).set(ValueField::meanValue, 2, -1.0);
    Tables tables(stateOf({file}));
    tables.open(sourcesTab);
    EXPECT_TRUE(tables.view("tblSources").emptyText().startsWith("a.sgr: "));
    EXPECT_EQ(control<QLabel>(tables.widget, "lblSources").text(), "");
}

TEST(ExploreTables, ShowTheFitAsNumbersAndAsAPicture) {
    Tables tables(stateOf({sampleFile(), sampleFile()}));
    tables.open(fitTab);
    auto& picture = control<ScatterPicture>(tables.widget, "picFit");
    EXPECT_EQ(tables.view("tblFit").rows().rowCount(), 2);
    EXPECT_EQ(picture.scatter().title, "BOD (Conc), mean, a.sgr");
    tables.clickCell("tblFit", 1, 1);
    EXPECT_EQ(picture.scatter().title, "BOD (Conc), mean, b.sgr");
    control<QComboBox>(tables.widget, "cboFitBy").setCurrentIndex(2);
    EXPECT_EQ(tables.view("tblFit").rows().rowCount(), 4);
}

TEST(ExploreTables, NameAndChooseAPointOfThePicture) {
    Tables tables(stateOf({sampleFile()}));
    tables.open(fitTab);
    auto& picture = control<ScatterPicture>(tables.widget, "picFit");
    ASSERT_EQ(picture.scatter().points.size(), 2U);
    const DrawnPoint at = picture.scatter().points[0].at;
    const QPoint place = QPointF(at.x / 15, at.y / 15).toPoint();
    const QSignalSpy chosen(&tables.widget, &ExploreTables::placeChosen);
    QTest::mouseMove(&picture, place);
    EXPECT_TRUE(waitFor([&] { return picture.marked() == 0; }));
    EXPECT_EQ(picture.accessibleDescription(),
              "0 km, Weir, reach 3 Reach 3: observed 4.000, simulated 5.000");
    QTest::mouseClick(&picture, Qt::LeftButton, {}, place);
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen[0], (QVariantList{3, 0.0, QString("")}));
    picture.setFocus();
    QTest::keyClick(&picture, Qt::Key_Right);
    QTest::keyClick(&picture, Qt::Key_Return);
    ASSERT_EQ(chosen.size(), 2);
    EXPECT_EQ(chosen[1], (QVariantList{5, 0.5, QString("U/S")}));
}

} // namespace korvel
