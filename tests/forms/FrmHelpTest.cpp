#include "help/frmHelp.h"

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "global/GLOBAL.h"

#include <QScrollBar>
#include <QTest>

namespace korvel {

namespace {

class FrmHelp : public testing::Test {
  protected:
    FrmHelp() { GLOBAL = {}; }
    ~FrmHelp() override { GLOBAL = {}; }

    void putPage(const std::string& page, int lines) {
        std::string text;
        for (int k = 1; k <= lines; ++k)
            text += "page " + page + ", line " + std::to_string(k) + "\r\n";
        world.putFile("KORDAT" + page + ".TXT", text);
    }
    void load(const std::string& page) {
        GLOBAL.helpPage = page;
        form.load();
        form.show();
    }
    QTableWidget& grid() { return control<QTableWidget>(form, "grdHelp"); }
    std::string row(int number) { return grid().item(number, 0)->text().toStdString(); }

    FakePlatform world;
    frmHelp form{world};
};

} // namespace

TEST_F(FrmHelp, ShowsAPageInOneColumnWithoutFixedOnes) {
    putPage("5", 16);
    load("5");
    EXPECT_EQ(form.caption(), "Help");
    EXPECT_EQ(grid().columnCount(), 1);
    EXPECT_EQ(grid().rowCount(), 9);
    EXPECT_EQ(row(0), "page 5, line 7");
    EXPECT_EQ(row(8), "page 5, line 15");
    EXPECT_EQ(grid().columnWidth(0), grid().width() - 20); // 300 twips
    EXPECT_EQ(grid().accessibleName(), "Help page");
}

TEST_F(FrmHelp, ShowsEveryLineOfAPageWithoutALayout) {
    putPage("12", 3);
    load("12");
    EXPECT_EQ(grid().rowCount(), 3);
}

TEST_F(FrmHelp, ShowsNoRowsOfAPageThatIsOnlyItsHeader) {
    putPage("4", 4);
    load("4");
    EXPECT_EQ(grid().rowCount(), 0);
    putPage("4", 3);
    load("4");
    EXPECT_EQ(grid().rowCount(), 0);
}

TEST_F(FrmHelp, KeepsTheColumnWhenItIsResized) {
    putPage("12", 3);
    load("12");
    form.resize(900, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid().columnWidth(0), grid().width() - 20);
}

TEST_F(FrmHelp, TurnsThePagesThatAreThere) {
    for (const char* page : {"4", "6", "10"})
        putPage(page, 8);
    load("4");
    QTest::keyClick(&grid(), Qt::Key_PageDown);
    EXPECT_EQ(row(0), "page 6, line 5");
    QTest::keyClick(&grid(), Qt::Key_PageDown);
    QTest::keyClick(&grid(), Qt::Key_PageDown);
    EXPECT_EQ(GLOBAL.helpPage, "10");
    QTest::keyClick(&grid(), Qt::Key_PageUp);
    QTest::keyClick(&grid(), Qt::Key_PageUp);
    QTest::keyClick(&grid(), Qt::Key_PageUp);
    EXPECT_EQ(row(0), "page 4, line 4");
}

TEST_F(FrmHelp, ScrollsBeforeItTurns) {
    putPage("4", 200);
    putPage("5", 200);
    load("4");
    passEvents();
    QScrollBar& bar = *grid().verticalScrollBar();
    ASSERT_GT(bar.maximum(), bar.pageStep());
    QTest::keyClick(&grid(), Qt::Key_PageDown);
    EXPECT_EQ(bar.value(), bar.pageStep());
    EXPECT_EQ(GLOBAL.helpPage, "4");
    while (bar.value() < bar.maximum())
        QTest::keyClick(&grid(), Qt::Key_PageDown);
    EXPECT_EQ(GLOBAL.helpPage, "4");
    QTest::keyClick(&grid(), Qt::Key_PageDown);
    EXPECT_EQ(GLOBAL.helpPage, "5");
    EXPECT_EQ(bar.value(), 0);
    QTest::keyClick(&grid(), Qt::Key_PageUp);
    EXPECT_EQ(GLOBAL.helpPage, "4");
    EXPECT_EQ(bar.value(), bar.maximum()) << "back to where the page was left";
    QTest::keyClick(&grid(), Qt::Key_PageUp);
    EXPECT_EQ(GLOBAL.helpPage, "4");
    EXPECT_LT(bar.value(), bar.maximum());
}

TEST_F(FrmHelp, ClosesOnEscape) {
    putPage("4", 8);
    load("4");
    QTest::keyClick(&grid(), Qt::Key_Escape);
    EXPECT_EQ(world.takeTranscript(), "close frmHelp\n");
}

TEST_F(FrmHelp, FailsOnAMissingPageAndOnOneThatIsTooShort) {
    putPage("4", 2);
    const struct {
        const char* page;
        int error;
    } cases[] = {{"4", errors::inputPastEndOfFile}, {"7", errors::fileNotFound}};
    for (const auto& [page, wanted] : cases) {
        try {
            load(page);
            FAIL() << page;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number, wanted);
        }
    }
}

TEST_F(FrmHelp, EndsTheProgramWhereAPageThatIsTurnedToIsTooShort) {
    putPage("4", 8);
    putPage("5", 5);
    load("4");
    QTest::keyClick(&grid(), Qt::Key_PageDown);
    EXPECT_EQ(world.takeTranscript(), "fail program: Run-time error '62': Input past end of file\n");
}

} // namespace korvel
