// Our own windows with text of twice the size, as a desktop can be set to: nothing of it is cut.
#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "reports/frmListing.h"
#include "runs/frmEngine.h"

#include <QLabel>
#include <QPushButton>

namespace korvel {

namespace {

void doubleText(QWidget& window) {
    for (QWidget* each : window.findChildren<QWidget*>()) {
        QFont font = each->font();
        font.setPointSizeF(2 * font.pointSizeF());
        each->setFont(font);
    }
}

bool hasRoom(const QLabel& label) {
    if (label.wordWrap()) return label.height() >= label.heightForWidth(label.width());
    return label.width() >= label.sizeHint().width() && label.height() >= label.sizeHint().height();
}

void expectWholeText(QWidget& window) {
    for (const QLabel* label : window.findChildren<QLabel*>())
        if (label->isVisible()) {
            EXPECT_TRUE(hasRoom(*label)) << label->text().toStdString();
        }
    for (const QPushButton* button : window.findChildren<QPushButton*>())
        if (button->isVisible()) {
            const QSize wanted = button->sizeHint();
            EXPECT_GE(button->width(), wanted.width()) << button->text().toStdString();
            EXPECT_GE(button->height(), wanted.height()) << button->text().toStdString();
            EXPECT_TRUE(window.rect().contains(QRect(button->mapTo(&window, QPoint(0, 0)), button->size())))
                << button->text().toStdString();
        }
    EXPECT_LE(window.minimumSizeHint().width(), window.width());
}

constexpr QSize desktop(1366, 720);

} // namespace

TEST(TextOfTwiceTheSize, FitsIntoTheEnginesWindow) {
    FakePlatform platform;
    platform.putEngine();
    frmEngine window(platform, {7, {platform.pathOf("A_NAME_OF_30_CHARACTERS_IN_ALL.DAT")}});
    doubleText(window);
    window.resize(desktop);
    showActive(window);
    static_cast<ShownForm&>(window).activate();
    ASSERT_TRUE(waitFor([&] { return control<QLabel>(window, "lblState").text() != "Running"; }));
    passEvents();
    EXPECT_EQ(window.width(), desktop.width());
    expectWholeText(window);
}

TEST(TextOfTwiceTheSize, FitsIntoTheViewerOfListings) {
    FakePlatform platform;
    platform.putFile("A.OUT", "line 1\r\nline 2\r\n");
    frmListing window(platform);
    platform.willActOn("frmListing", [&](ShownForm&) {
        doubleText(window);
        window.resize(desktop);
        showActive(window);
        passEvents();
        expectWholeText(window);
    });
    window.view(platform.pathOf("A.OUT"));
    platform.expectDone();
}

} // namespace korvel
