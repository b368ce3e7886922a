// The viewer of the engine's text files.
#include "reports/frmListing.h"

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"

#include <QTest>
#include <QTextBlock>
#include <QWheelEvent>

namespace korvel {

namespace {

class FrmListing : public testing::Test {
  protected:
    FrmListing() { platform.closesForm = closeWindow; }

    // Views the file; what the user does meanwhile is `act`.
    void view(const std::string& text, const std::function<void()>& act) {
        platform.putFile("RIVER.OUT", text);
        platform.willActOn("frmListing", [this, act](ShownForm&) {
            showActive(form);
            act();
        });
        form.view(platform.pathOf("RIVER.OUT"));
        platform.takeTranscript();
        form.hide();
    }
    QPlainTextEdit& text() { return control<QPlainTextEdit>(form, "txtListing"); }
    QLineEdit& sought() { return control<QLineEdit>(form, "txtFind"); }
    std::string found() { return control<QLabel>(form, "lblFound").text().toStdString(); }
    void press(const std::string& name) { click(control<QPushButton>(form, name)); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&form, key, modifiers);
        passEvents();
    }
    // Where the found words begin, counted in characters; -1 where none are marked.
    int foundAt() {
        const QTextCursor cursor = text().textCursor();
        return cursor.hasSelection() ? cursor.selectionStart() : -1;
    }

    FakePlatform platform;
    frmListing form{platform};
};

const std::string river = "Alder at mill\nBourne\nalder at weir\n"; // "alder" at 0 and 21

} // namespace

TEST_F(FrmListing, ShowsTheFileModallyInItsOwnCharacters) {
    view("\xDA\xC4\xC2\xBF\r\n\xB3 1\xB3 2\xBA caf\x82\r\nend", [&] {
        EXPECT_EQ(text().toPlainText(), QString::fromUtf8("┌─┬┐\n│ 1│ 2║ café\nend\n"));
        EXPECT_EQ(form.windowTitle(), "RIVER.OUT");
    });
}

TEST_F(FrmListing, OpensTheGuideWithF1) {
    view(river, [&] {
        key(Qt::Key_F1);
        EXPECT_NE(platform.takeTranscript().find("guide /share/guide.html"), std::string::npos);
    });
}

TEST_F(FrmListing, ZoomsItsButtonsWithItsText) {
    view(river, [&] {
        for (int k = 0; k < 10; ++k)
            key(Qt::Key_Plus, Qt::ControlModifier);
        EXPECT_EQ(text().font().pointSize(), 20);
        for (const char* name : {"lblFind", "txtFind", "cmdNext", "cmdPrevious", "cmdPrint", "cmdClose"}) {
            const auto& each = control<QWidget>(form, name);
            EXPECT_EQ(each.font().pointSize(), 20) << name;
            EXPECT_GE(each.width(), each.minimumSizeHint().width()) << name;
            EXPECT_GE(each.height(), each.minimumSizeHint().height()) << name;
            EXPECT_TRUE(form.centralWidget()->rect().contains(each.geometry())) << name;
        }
        EXPECT_LE(form.minimumSizeHint().width(), 1366);
    });
    view(river, [&] { EXPECT_EQ(text().font().pointSize(), 20) << "kept for the next file"; });
}

TEST_F(FrmListing, ZoomsWithKeysAndTheWheel) {
    view(river, [&] {
        const auto size = [&] { return text().font().pointSize(); };
        const int design = size();
        key(Qt::Key_Plus, Qt::ControlModifier);
        key(Qt::Key_Equal, Qt::ControlModifier);
        EXPECT_EQ(size(), design + 2);
        key(Qt::Key_Minus, Qt::ControlModifier);
        EXPECT_EQ(size(), design + 1);
        QWheelEvent turn({20, 20}, text().mapToGlobal(QPointF(20, 20)), {}, {0, 120}, Qt::NoButton,
                         Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(text().viewport(), &turn);
        EXPECT_EQ(size(), design + 2);
        key(Qt::Key_0, Qt::ControlModifier);
        EXPECT_EQ(size(), design);
    });
}

TEST_F(FrmListing, SaysWhatWasPrinted) {
    view(river, [&] {
        press("cmdPrint");
        EXPECT_EQ(found(), "The listing was handed to the printer.");
    });
}

TEST_F(FrmListing, TellsWhatItDoes) {
    platform.putFile("RIVER.OUT", river);
    platform.willActOn("frmListing", {});
    form.view(platform.pathOf("RIVER.OUT"));
    EXPECT_EQ(platform.takeTranscript(), "show modal frmListing\nclosed frmListing\n");
}

TEST_F(FrmListing, ShowsLinesUnwrappedInAFixedPitchAndReadOnly) {
    view(std::string(5000, 'x') + "\n", [&] {
        EXPECT_EQ(text().document()->blockCount(), 2);
        EXPECT_EQ(text().document()->firstBlock().lineCount(), 1);
        EXPECT_TRUE(text().isReadOnly());
        const QFontMetricsF metrics(text().font());
        EXPECT_EQ(metrics.horizontalAdvance("iiii"), metrics.horizontalAdvance("MMMM"));
        EXPECT_EQ(metrics.horizontalAdvance(QString::fromUtf8("─│┌╔")), metrics.horizontalAdvance("MMMM"))
            << "boxes join";
    });
}

TEST_F(FrmListing, LeavesAFormFeedOut) {
    view("a\fb\n\fc\n", [&] { EXPECT_EQ(text().toPlainText(), "ab\nc\n"); });
}

TEST_F(FrmListing, ShowsAnEmptyFile) {
    view("", [&] { EXPECT_EQ(text().toPlainText(), ""); });
}

TEST_F(FrmListing, FindsForwardAndRound) {
    view(river, [&] {
        sought().setText("alder");
        for (const int at : {0, 21, 0}) {
            press("cmdNext");
            EXPECT_EQ(foundAt(), at);
            EXPECT_EQ(found(), "");
        }
    });
}

TEST_F(FrmListing, FindsBackwardAndRound) {
    view(river, [&] {
        sought().setText("ALDER");
        for (const int at : {21, 0, 21}) {
            press("cmdPrevious");
            EXPECT_EQ(foundAt(), at);
        }
    });
}

TEST_F(FrmListing, SaysThatNothingWasFound) {
    view(river, [&] {
        sought().setText("Severnside");
        press("cmdNext");
        EXPECT_EQ(found(), "Not found.");
        EXPECT_EQ(foundAt(), -1);
        press("cmdPrevious");
        EXPECT_EQ(found(), "Not found.");
        sought().setText("bourne");
        press("cmdNext");
        EXPECT_EQ(found(), "");
        EXPECT_EQ(foundAt(), 14);
        sought().clear();
        press("cmdNext");
        EXPECT_EQ(found(), "");
    });
}

TEST_F(FrmListing, FindsByKeys) {
    view(river, [&] {
        text().setFocus();
        key(Qt::Key_F, Qt::ControlModifier);
        EXPECT_TRUE(sought().hasFocus());
        QTest::keyClicks(&sought(), "alder");
        QTest::keyClick(&sought(), Qt::Key_Return);
        EXPECT_EQ(foundAt(), 0);
        key(Qt::Key_F3);
        EXPECT_EQ(foundAt(), 21);
        key(Qt::Key_F3, Qt::ShiftModifier);
        EXPECT_EQ(foundAt(), 0);
        key(Qt::Key_F, Qt::ControlModifier);
        EXPECT_EQ(sought().selectedText(), "alder") << "the next word replaces it";
    });
}

TEST_F(FrmListing, FindsBoxCharacters) {
    view("ab\xC9\xCD\n", [&] {
        sought().setText(QString::fromUtf8("╔═"));
        press("cmdNext");
        EXPECT_EQ(foundAt(), 2);
    });
}

TEST_F(FrmListing, PrintsTheFileThatItShows) {
    std::string transcript;
    view(river, [&] {
        platform.takeTranscript();
        press("cmdPrint");
        transcript = platform.takeTranscript();
    });
    EXPECT_EQ(transcript, "print portrait \"RIVER.OUT\"\npage\nfinish\n");
    EXPECT_EQ(platform.printed().at(0).request.fallbackFile, platform.pathOf("RIVER.OUT.pdf"));
}

TEST_F(FrmListing, ClosesByItsButton) {
    std::string transcript;
    view(river, [&] {
        platform.takeTranscript();
        press("cmdClose");
        transcript = platform.takeTranscript();
        EXPECT_FALSE(form.isVisible());
    });
    EXPECT_EQ(transcript, "close frmListing\n");
}

TEST_F(FrmListing, TellsThatAFileCannotBeReadAndStaysClosed) {
    platform.willAnswer(Answer::ok);
    form.view(platform.pathOf("NONE.OUT"));
    EXPECT_EQ(platform.takeTranscript(),
              "box [critical] KORVEL Error: Error number 53: File not found -> ok\n");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmListing, BeginsAnewWithEachFile) {
    view(river, [&] {
        sought().setText("nowhere");
        press("cmdNext");
    });
    view("other\n", [&] {
        EXPECT_EQ(text().toPlainText(), "other\n");
        EXPECT_EQ(found(), "");
        EXPECT_EQ(text().textCursor().position(), 0);
    });
}

TEST_F(FrmListing, TabsFromTheSearchToTheButtonsToTheText) {
    view(river, [&] {
        sought().setFocus();
        const std::vector<std::string> order = {"cmdNext", "cmdPrevious", "cmdPrint", "cmdClose",
                                                "txtListing"};
        for (const std::string& name : order) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), name);
        }
    });
}

} // namespace korvel
