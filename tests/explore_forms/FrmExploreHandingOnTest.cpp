// Pictures that are saved and copied, by the real controls.
#include "explore_forms/ExploreWindow.h"

#include <QClipboard>
#include <QDialog>
#include <QImage>
#include <QLabel>
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

} // namespace

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
