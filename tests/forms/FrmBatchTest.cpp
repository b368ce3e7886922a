#include "runs/frmBatch.h"

#include "basic/DiskNames.h"
#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "global/GLOBAL.h"
#include "toolkit/forms/WrappedText.h"

#include <QTest>
#include <algorithm>
#include <fstream>

namespace korvel {

namespace {

const std::string leaveQuestion = "box [question] Delete file names: Do you want to delete the marked file "
                                  "names from the list of Base Files? -> ";

class FrmBatch : public testing::Test {
  protected:
    FrmBatch() {
        GLOBAL = {};
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    ~FrmBatch() override { GLOBAL = {}; }

    QPushButton& step() { return control<QPushButton>(form, "cmdBatch_1"); }
    QListWidget& list() { return control<QListWidget>(form, "lstSelectedFiles"); }
    bool sees(const std::string& name) { return control<QWidget>(form, name).isVisible(); }
    void press(QWidget& button) { QTest::mouseClick(&button, Qt::LeftButton); }
    void listFiles(const std::vector<std::string>& files) {
        world.putEngine();
        for (const std::string& file : files)
            world.putFile(file, "");
        world.willChoose(world.pathOf(files.front()));
        press(step());
        world.takeTranscript();
    }
    std::vector<std::string> listed() {
        std::vector<std::string> names;
        for (int i = 0; i < list().count(); ++i)
            names.push_back(list().item(i)->text().toStdString());
        std::sort(names.begin(), names.end());
        return names;
    }
    void select(const std::string& name) {
        list().findItems(QString::fromStdString(name), Qt::MatchExactly).front()->setSelected(true);
    }

    FakePlatform world;
    frmBatch form{world};
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(FrmBatch, StandsAtStepOneWithItsInstructions) {
    EXPECT_EQ(form.caption(), "Batch Run Data");
    EXPECT_EQ(step().text(), "Step 1 - Select files");
    EXPECT_EQ(control<QLabel>(form, "lblBatch_0").text(), "Title of run:");
    EXPECT_EQ(control<QLabel>(form, "lblBatch_3").text().toStdString(), batchInstructions());
    EXPECT_EQ(control<QLabel>(form, "lblProgress").text(), "Wait ... assembling files ...");
    for (const char* hidden :
         {"lblBatch_1", "lblBatch_2", "lblBatch_10", "lstSelectedFiles", "picBox", "frameProgress"})
        EXPECT_FALSE(sees(hidden)) << hidden;
    for (int option = 0; option < 6; ++option)
        EXPECT_FALSE(control<QRadioButton>(form, "optRun_" + std::to_string(option)).isChecked());
}

TEST_F(FrmBatch, NamesItsOptions) {
    const char* const captions[] = {"Run type 0: basic run, no gap filling",
                                    "Use flow and quality gap filling",
                                    "Run type 7: seek to meet river standards",
                                    "Run type 8: seek to meet river standards (with no deterioration)",
                                    "Run type 9: seek to meet river standards (mid-class upstream quality)",
                                    "Set up flow and quality gap filling"};
    for (int option = 0; option < 6; ++option)
        EXPECT_EQ(control<QRadioButton>(form, "optRun_" + std::to_string(option)).text(), captions[option]);
}

TEST_F(FrmBatch, StepOneListsTheFolderAndBecomesStepTwo) {
    listFiles({"a.dat", "b.dat", "notes.txt", "c.dat.bak"});
    EXPECT_EQ(listed(), (Names{"A.DAT", "B.DAT", "C.DAT.BAK"}));
    EXPECT_EQ(step().text(), "Step 2 - Run");
    for (const char* seen : {"lblBatch_1", "lblBatch_2", "lstSelectedFiles", "picBox"})
        EXPECT_TRUE(sees(seen)) << seen;
    EXPECT_TRUE(list().isEnabled());
    EXPECT_EQ(control<QLabel>(form, "lblBatch_2").text().toStdString(), batchRemovalHint());
}

TEST_F(FrmBatch, ACancelStaysAtStepOne) {
    world.willCancel();
    press(step());
    EXPECT_EQ(step().text(), "Step 1 - Select files");
    EXPECT_FALSE(sees("picBox"));
}

TEST_F(FrmBatch, StepTwoRunsWhatIsListedAndSaysSo) {
    listFiles({"test1.dat", "TEST2.DAT"});
    QTest::keyClicks(&control<QLineEdit>(form, "txtBatch"), "Two schemes");
    press(control<QRadioButton>(form, "optRun_3"));
    press(step());
    const std::string folder = world.folder() + "\\";
    const std::string text = world.fileText("RUNDAT.TMP");
    EXPECT_TRUE(text.starts_with("Two schemes\r\n" + folder + "\r\n")) << text;
    EXPECT_TRUE(contains(text, folder + "TEST1.DAT\r\n 8 \r\n"));
    EXPECT_TRUE(contains(text, folder + "TEST2.DAT\r\n 8 \r\n"));
    EXPECT_TRUE(sees("lblBatch_10"));
    EXPECT_EQ(control<QLabel>(form, "lblBatch_10").text(), "Batch run has been completed");
    EXPECT_FALSE(sees("lblBatch_2"));
    EXPECT_FALSE(sees("frameProgress"));
    EXPECT_EQ(step().text(), "Step 2 - Run");
    EXPECT_EQ(world.takeTranscript(), "current folder {app}\nstart engine {app}\\korvelf157.exe \n");
}

TEST_F(FrmBatch, AnOptionHidesTheCompletionLabel) {
    listFiles({"a.dat"});
    press(step());
    ASSERT_TRUE(sees("lblBatch_10"));
    press(control<QRadioButton>(form, "optRun_0"));
    EXPECT_FALSE(sees("lblBatch_10"));
}

TEST_F(FrmBatch, DeleteRemovesSelectedNamesWithoutAQuestion) {
    listFiles({"a.dat", "b.dat", "c.dat"});
    list().setFocus();
    select("A.DAT");
    select("C.DAT");
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(listed(), Names{"B.DAT"});
    EXPECT_EQ(world.takeTranscript(), "");
}

TEST_F(FrmBatch, LeavingTheListWithASelectionAsksFirst) {
    listFiles({"a.dat", "b.dat"});
    list().setFocus();
    select("A.DAT");
    world.willAnswer(Answer::no);
    control<QLineEdit>(form, "txtBatch").setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(world.takeTranscript(), leaveQuestion + "no\n");
    EXPECT_EQ(listed(), (Names{"A.DAT", "B.DAT"}));
    EXPECT_EQ(list().selectedItems().size(), 1);
    list().setFocus();
    world.willAnswer(Answer::yes);
    control<QLineEdit>(form, "txtBatch").setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(listed(), Names{"B.DAT"});
}

TEST_F(FrmBatch, AsksBeforeTheStepWhoseButtonTookTheFocus) {
    listFiles({"a.dat", "b.dat"});
    list().setFocus();
    select("A.DAT");
    QTest::mousePress(&step(), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(world.takeTranscript(), "") << "not while the mouse is down";
    world.willAnswer(Answer::yes);
    QTest::mouseRelease(&step(), Qt::LeftButton);
    EXPECT_EQ(world.takeTranscript(),
              leaveQuestion + "yes\ncurrent folder {app}\nstart engine {app}\\korvelf157.exe \n");
    EXPECT_FALSE(contains(world.fileText("RUNDAT.TMP"), "A.DAT"));
    EXPECT_TRUE(contains(world.fileText("RUNDAT.TMP"), "B.DAT"));
}

TEST_F(FrmBatch, AnotherWindowThatTakesTheFocusAsksNothing) {
    listFiles({"a.dat"});
    list().setFocus();
    select("A.DAT");
    QFocusEvent taken(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(&list(), &taken);
    QCoreApplication::processEvents();
    EXPECT_EQ(world.takeTranscript(), "");
}

TEST_F(FrmBatch, RunsAnEmptyListToo) {
    listFiles({"a.dat"});
    list().selectAll();
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(control<QLabel>(form, "lblNextStep").text(),
              "No data file is listed, so that there is nothing to run.");
    press(step());
    EXPECT_EQ(world.fileText("RUNDAT.TMP"), "-\r\n");
}

TEST_F(FrmBatch, TheThreeHundredAndFirstFileEndsTheProgram) {
    std::vector<std::string> files;
    for (int k = 1; k <= 301; ++k)
        files.push_back("f" + std::to_string(k) + ".dat");
    listFiles(files);
    EXPECT_EQ(list().count(), 301);
    press(step());
    EXPECT_TRUE(contains(world.takeTranscript(), "fail program: Run-time error '9': Subscript out of range"));
    EXPECT_TRUE(world.ended());
}

TEST_F(FrmBatch, AMissingEngineEndsTheProgram) {
    world.putFile("a.dat", "");
    world.willChoose(world.pathOf("a.dat"));
    press(step());
    press(step());
    EXPECT_TRUE(contains(world.takeTranscript(), "fail program: Run-time error '53': File not found"));
}

TEST_F(FrmBatch, StartsAnewWhenItIsClosedAndShownAgain) {
    listFiles({"a.dat"});
    QTest::keyClicks(&control<QLineEdit>(form, "txtBatch"), "A title");
    press(control<QRadioButton>(form, "optRun_5"));
    press(step());
    EXPECT_TRUE(form.close());
    form.show();
    EXPECT_EQ(step().text(), "Step 1 - Select files");
    EXPECT_EQ(list().count(), 0);
    EXPECT_EQ(control<QLineEdit>(form, "txtBatch").text(), "");
    EXPECT_FALSE(control<QRadioButton>(form, "optRun_5").isChecked());
    EXPECT_FALSE(sees("lblBatch_10"));
    EXPECT_EQ(GLOBAL.RunType, 6) << "what the batch set is kept";
}

TEST_F(FrmBatch, NamesItsControlsForThoseWhoCannotSeeThem) {
    EXPECT_EQ(list().accessibleName(), "Base Files");
    EXPECT_EQ(control<QLineEdit>(form, "txtBatch").accessibleName(), "Title of run:");
    EXPECT_EQ(step().accessibleName(), "Step 1 - Select files");
    EXPECT_EQ(control<QLabel>(form, "lblBatch_1").buddy(), &list());
}

TEST_F(FrmBatch, SaysWhichFolderIsListedAlsoAfterAnotherFormHasMovedOn) {
    EXPECT_EQ(control<QLabel>(form, "lblList").text(), "");
    listFiles({"a.dat"});
    const std::string listed = "Files of " + world.folder() + "\\";
    EXPECT_EQ(control<QLabel>(form, "lblList").text().toStdString(), listed);
    GLOBAL.DataFolder = "Z:\\OTHER\\";
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(&form, &activated);
    EXPECT_EQ(control<QLabel>(form, "lblList").text().toStdString(),
              listed + "\nThe folder was changed to Z:\\OTHER\\ since: the files are taken from there.");
}

TEST_F(FrmBatch, SaysWhereACancelledChoiceHasLeftNoFolder) {
    listFiles({"a.dat"});
    GLOBAL.DataFolder.clear();
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(&form, &activated);
    EXPECT_TRUE(control<QLabel>(form, "lblList").text().contains("No folder is chosen any more"));
}

TEST_F(FrmBatch, HasRoomForWhatItSaysOfLongFolders) {
    const struct { int width, height; } desktops[] = {{1366, 768}, {1920, 1080}, {1080, 1920}, {960, 540}};
    const std::string folder = world.pathOf("a folder of some depth\\catchments\\river");
    for (const auto& desktop : desktops) {
        GLOBAL.ScaleX = desktop.width / 640.0;
        GLOBAL.ScaleY = desktop.height / 452.0;
        frmBatch other{world};
        world.putFile(folder + "\\a.dat", "");
        std::ofstream(hostPathOf(folder) + "/A.dat");
        world.willChoose(folder + "\\a.dat");
        control<QPushButton>(other, "cmdBatch_1").click();
        GLOBAL.DataFolder = folder + " since\\";
        showActive(other);
        auto& note = control<QLabel>(other, "lblList");
        EXPECT_TRUE(note.text().contains("The folder was changed to")) << note.text().toStdString();
        EXPECT_TRUE(note.text().contains("Not listed"));
        EXPECT_LE(note.heightForWidth(note.width()), note.height()) << desktop.width;
        EXPECT_TRUE(note.toolTip().contains("Not listed")) << "for what has no room";
    }
    world.takeTranscript();
}

TEST_F(FrmBatch, BreaksAPathOnlyWhereItIsLongerThanTheLine) {
    WrappedText note(nullptr);
    const auto pictureOf = [&](const QString& text) {
        note.tell(text);
        return note.grab().toImage();
    };
    const QString word = "Z:\\CATCHMENTS\\", other = "RIVER\\ALDER";
    note.resize(note.fontMetrics().horizontalAdvance(word + "RIVER"), 100);
    EXPECT_EQ(pictureOf(word + " " + other), pictureOf(word + "\n" + other));
    const int line = note.fontMetrics().height();
    const auto secondLine = [&](const QImage& image) { return image.copy(0, line, image.width(), line); };
    EXPECT_NE(secondLine(pictureOf(QString(60, 'x'))), secondLine(pictureOf("")));
    EXPECT_GE(note.heightForWidth(note.width()), line);
}

TEST_F(FrmBatch, SaysWhichTypeStandsForNoChoice) {
    GLOBAL.RunType = 7;
    listFiles({"a.dat"});
    EXPECT_EQ(control<QLabel>(form, "lblNextStep").text(),
              "Next: choose a run type, then 'Step 2' to run 1 file. Without a choice it is run type 7.");
}

TEST_F(FrmBatch, KeepsThePastedTitleInOneLine) {
    listFiles({"a.dat"});
    control<QLineEdit>(form, "txtBatch").insert("Two\r\nlines\tand\na tab\u2028");
    EXPECT_EQ(control<QLineEdit>(form, "txtBatch").text(), "Two lines and a tab ");
    press(step());
    EXPECT_TRUE(world.fileText("RUNDAT.TMP").starts_with("Two lines and a tab\r\n"));
}

} // namespace korvel
