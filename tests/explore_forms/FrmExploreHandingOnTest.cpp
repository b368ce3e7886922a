// Pictures that are saved and copied, by the real controls.
#include "explore/window/HandingOn.h"
#include "explore_forms/ExploreWindow.h"

#include <QClipboard>
#include <QDialog>
#include <QImage>
#include <QLabel>
#include <QProgressDialog>
#include <QScopeGuard>
#include <QSpinBox>
#include <QTimer>

namespace korvel {

namespace {

class FrmExploreHandingOn : public FrmExploreWindow {
  protected:
    // Saves the picture; what is done in the dialog before it is accepted.
    void save(const std::string& name, const std::function<void(QDialog&)>& deed) {
        QTimer::singleShot(100, [deed] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            deed(*dialog);
            control<QPushButton>(*dialog, "cmdSave").click();
        });
        platform.willChoose(platform.pathOf(name));
        control<QAction>(*form, "actSavePicture").trigger();
    }
    static void setSize(QDialog& dialog, QSize size, int dotsPerInch) {
        control<QSpinBox>(dialog, "txtWidth").setValue(size.width());
        control<QSpinBox>(dialog, "txtHeight").setValue(size.height());
        control<QSpinBox>(dialog, "txtResolution").setValue(dotsPerInch);
    }
    static int colours(const QImage& image) {
        std::set<QRgb> found;
        for (int y = 0; y < image.height(); y += 3)
            for (int x = 0; x < image.width(); x += 3)
                found.insert(image.pixel(x, y));
        return static_cast<int>(found.size());
    }
};

// Which take their time to be handed on.
std::string wideCatchment() {
    ResultsFileBuilder file;
    for (int d = 1; d <= 6; ++d)
        file.determinand(d, "Determinand " + std::to_string(d));
    for (int reach = 1; reach <= 150; ++reach)
        file.reach(reach, "Reach " + std::to_string(reach), 10, reach / 2);
    for (int reach = 1; reach <= 150; ++reach)
        file.points(60, reach);
    return file.text();
}

} // namespace

TEST_F(FrmExploreHandingOn, SaysWhatWasWrittenWhereWithLinks) {
    show({"a.sgr"});
    auto& done = control<QLabel>(*form, "lblDone");
    const auto write = [&](const char* action, const std::string& name) {
        platform.willChoose(platform.pathOf(name));
        control<QAction>(*form, action).trigger();
        return done.text().section('.', 0, 1).toStdString();
    };
    EXPECT_EQ(done.text(), "");
    EXPECT_EQ(write("actSaveTable", "t.csv"), "The table was written to t.csv");
    platform.takeTranscript();
    emit done.linkActivated("open");
    emit done.linkActivated("folder");
    EXPECT_EQ(platform.takeTranscript(), "open {app}\\t.csv\nshow folder {app}\\\n");
    EXPECT_EQ(done.focusPolicy(), Qt::StrongFocus) << "for those who go there by Tab";
    EXPECT_EQ(write("actSavePage", "p.html"), "The page was written to p.html");
    EXPECT_EQ(write("actSaveAtlas", "p.pdf"), "The atlas was written to p.pdf");
    EXPECT_EQ(write("actSaveStudy", "s.korvel-study"), "The study was written to s.korvel-study");
    save("p.png", [](QDialog&) {});
    EXPECT_TRUE(done.text().startsWith("The picture was written to p.png.")) << done.text().toStdString();
    control<QAction>(*form, "actCopyPicture").trigger();
    EXPECT_EQ(done.text(), "The picture was copied.");
    platform.willCancel();
    control<QAction>(*form, "actSaveTable").trigger();
    EXPECT_EQ(done.text(), "") << "nothing was written";
    EXPECT_EQ(write("actSaveTable", "t.csv"), "The table was written to t.csv");
    press(Qt::Key_Escape);
    EXPECT_EQ(done.text(), "");
    platform.expectDone();
}

TEST_F(FrmExploreHandingOn, SaysThatThePictureWasPrinted) {
    show({"a.sgr"});
    const auto print = [&] {
        QTimer::singleShot(200, [] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->accept();
        });
        control<QAction>(*form, "actPrint").trigger();
        return control<QLabel>(*form, "lblDone").text().toStdString();
    };
    EXPECT_EQ(print(), "The picture was handed to the printer.");
    platform.printedTo = platform.pathOf("a-profile.pdf");
    platform.willAnswer(Answer::ok);
    EXPECT_TRUE(print().starts_with("The picture was written to a-profile.pdf."));
    platform.willFailPrinting(PrintStep::begin);
    platform.willAnswer(Answer::ok);
    EXPECT_EQ(print(), "") << "nothing was printed";
    platform.expectDone();
}

TEST_F(FrmExploreHandingOn, LeavesNothingWhereThePageOrTheAtlasIsCancelled) {
    const auto asBefore = qScopeGuard([patience = HandingOn::patience] { HandingOn::patience = patience; });
    HandingOn::patience = 0;
    platform.putFile("wide.sgr", wideCatchment());
    show({"wide.sgr"});
    const auto cancelled = [&](const char* action, const std::string& name) {
        QTimer eachMoment;
        bool wasShown = false;
        QString words;
        QObject::connect(&eachMoment, &QTimer::timeout, form.get(), [&] {
            auto* dialog = form->findChild<QProgressDialog*>("dlgWriting");
            if (wasShown || dialog == nullptr || !dialog->isVisible()) return;
            wasShown = true;
            words = dialog->labelText();
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        eachMoment.start(0);
        platform.willChoose(platform.pathOf(name));
        control<QAction>(*form, action).trigger();
        EXPECT_TRUE(wasShown) << "no way to cancel it";
        EXPECT_FALSE(platform.hasFile(name));
        EXPECT_EQ(control<QLabel>(*form, "lblDone").text(), "");
        return words.toStdString();
    };
    EXPECT_EQ(cancelled("actSavePage", "wide.html"), "Writing the page");
    EXPECT_EQ(cancelled("actSaveAtlas", "wide.pdf"), "Writing the atlas");
    platform.expectDone();
}

TEST_F(FrmExploreHandingOn, SavesPngOfTheSizeAndResolutionThatIsAskedFor) {
    show({"a.sgr"});
    struct Wish {
        QSize size;
        int dotsPerInch;
        const char* onPaper;
    };
    const Wish wishes[] = {{{1600, 900}, 96, "42.3 x 23.8 cm"},
                           {{1601, 903}, 150, "27.1 x 15.3 cm"},
                           {{2400, 1400}, 300, "20.3 x 11.9 cm"}};
    for (const Wish& wish : wishes) {
        save("p.png", [&](QDialog& dialog) {
            setSize(dialog, wish.size, wish.dotsPerInch);
            EXPECT_EQ(control<QLabel>(dialog, "lblSize").text(), wish.onPaper);
        });
        const std::string bytes = platform.fileText("p.png");
        const QImage image = QImage::fromData(QByteArray::fromStdString(bytes), "PNG");
        EXPECT_EQ(image.size(), wish.size);
        EXPECT_NEAR(image.dotsPerMeterX() * 0.0254, wish.dotsPerInch, 0.02);
        EXPECT_GT(colours(image), 5) << "curves, limits and texts";
    }
    platform.expectDone();
}

TEST_F(FrmExploreHandingOn, KeepsTheKindAndSizeForTheNextPicture) {
    show({"a.sgr"});
    save("p.svg", [&](QDialog& dialog) {
        setSize(dialog, {800, 500}, 96);
        auto& kind = control<QComboBox>(dialog, "cboKind");
        kind.setCurrentIndex(kind.findText("SVG"));
        EXPECT_FALSE(control<QSpinBox>(dialog, "txtResolution").isEnabled()) << "lines have no dots";
    });
    EXPECT_NE(platform.fileText("p.svg").find("<svg"), std::string::npos);
    save("q.svg", [&](QDialog& dialog) {
        EXPECT_EQ(control<QComboBox>(dialog, "cboKind").currentText(), "SVG");
        EXPECT_EQ(control<QSpinBox>(dialog, "txtWidth").value(), 800);
    });
    platform.expectDone();
}

TEST_F(FrmExploreHandingOn, CopiesThePictureToTheClipboard) {
    show({"a.sgr"});
    QApplication::clipboard()->clear();
    control<QAction>(*form, "actCopyPicture").trigger();
    const QImage image = QApplication::clipboard()->image();
    EXPECT_EQ(image.size(), form->size());
    EXPECT_GT(colours(image), 5);
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white)) << "as on paper, whatever the theme";
}

} // namespace korvel
