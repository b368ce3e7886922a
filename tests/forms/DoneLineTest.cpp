// The line that says what was written where: its words, its links and their colour.
#include "toolkit/forms/DoneLine.h"
#include "toolkit/desktop/Theme.h"

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"

namespace korvel {

namespace {

class DoneLineTest : public testing::Test {
  protected:
    DoneLineTest() {
        label.setWordWrap(true);
        label.resize(300, 80);
        label.show();
        passEvents();
    }
    ~DoneLineTest() override { QApplication::setPalette(paletteOf(Theme::light)); }

    int pixelsOf(QColor colour) {
        const QImage image = label.grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == colour ? 1 : 0;
        return count;
    }

    FakePlatform platform;
    QLabel label;
    Handlers handlers{static_cast<Platform&>(platform).windows};
    DoneLine line{label, static_cast<Platform&>(platform).machine, handlers};
};

} // namespace

TEST_F(DoneLineTest, GivesItsLinksTheColourOfTheThemeAlsoWhenItChanges) {
    QApplication::setPalette(paletteOf(Theme::light));
    line.tell("The report", "Z:\\DATA\\RIVER-report.pdf");
    EXPECT_GT(pixelsOf(accentOf(Theme::light)), 20);
    EXPECT_EQ(pixelsOf(accentOf(Theme::dark)), 0);
    QApplication::setPalette(paletteOf(Theme::dark));
    passEvents();
    EXPECT_EQ(pixelsOf(accentOf(Theme::light)), 0);
    EXPECT_GT(pixelsOf(accentOf(Theme::dark)), 20);
    EXPECT_TRUE(label.text().startsWith("The report was written to RIVER-report.pdf"));
}

TEST_F(DoneLineTest, NamesTheFolderWhereThereIsRoomForSeveralLines) {
    const QString folder = "Folder: Z:\\&#8203;DATA &amp; MORE<br>";
    line.tell("The report", "Z:\\DATA & MORE\\RIVER-report.pdf");
    EXPECT_TRUE(label.text().contains(folder)) << label.text().toStdString();
    label.setWordWrap(false);
    line.tell("The report", "Z:\\DATA & MORE\\RIVER-report.pdf");
    EXPECT_FALSE(label.text().contains("Folder"));
    EXPECT_TRUE(label.toolTip().contains("Z:\\DATA &amp; MORE\\RIVER-report.pdf"));
}

TEST_F(DoneLineTest, SaysNothingOnceItIsCleared) {
    line.tell("The report", "Z:\\DATA\\RIVER-report.pdf");
    line.clear();
    EXPECT_EQ(label.text(), "");
    EXPECT_EQ(label.focusPolicy(), Qt::NoFocus);
    QApplication::setPalette(paletteOf(Theme::dark));
    passEvents();
    EXPECT_EQ(label.text(), "");
}

} // namespace korvel
