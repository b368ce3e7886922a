// Whether the words of the Explorer and of its dialogs can be read: in both themes, and with large letters.
#include "explore/window/PictureDialog.h"
#include "explore_forms/ExploreWindow.h"
#include "forms/Contrast.h"
#include "toolkit/desktop/StartQt.h"

#include <QApplication>
#include <QTabWidget>
#include <QTimer>

#include <functional>

namespace korvel {

namespace {

class ExploreLooks : public FrmExploreWindow, public testing::WithParamInterface<const char*> {
  protected:
    ExploreLooks() { qputenv("KORVEL_THEME", GetParam()); }
    ~ExploreLooks() override {
        form.reset();
        qunsetenv("KORVEL_THEME");
        QApplication::setPalette(paletteOf(Theme::light));
    }

    // While the dialog is open.
    void withPictureDialog(const std::function<void(QWidget&)>& look) {
        bool looked = false;
        QTimer::singleShot(0, &*form, [&] {
            QWidget* const dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            passEvents();
            look(*dialog);
            looked = true;
            dialog->close();
        });
        askForPicture({}, *form);
        EXPECT_TRUE(looked);
    }
};

INSTANTIATE_TEST_SUITE_P(Themes, ExploreLooks, testing::Values("light", "dark"),
                         [](const auto& theme) { return theme.param; });

// Twice the letters of the desktop.
struct LargeLetters {
    LargeLetters() : before(QApplication::font()) {
        QFont large = before;
        large.setPointSizeF(2 * before.pointSizeF());
        QApplication::setFont(large);
    }
    ~LargeLetters() { QApplication::setFont(before); }
    LargeLetters(const LargeLetters&) = delete;
    LargeLetters& operator=(const LargeLetters&) = delete;
    const QFont before;
};

} // namespace

TEST_P(ExploreLooks, ItsWordsStandOutWithEveryTable) {
    show({"a.sgr", "b.sgr"});
    auto& tables = control<QTabWidget>(*form, "tabTables");
    for (int tab = 0; tab < tables.count(); ++tab) {
        tables.setCurrentIndex(tab);
        passEvents();
        expectWordsStandOut(*form);
    }
}

TEST_P(ExploreLooks, ItsWordsStandOutWithNothingOpened) {
    showRuns({}, 0);
    expectWordsStandOut(*form);
}

TEST_P(ExploreLooks, ThePictureDialogsWordsStandOut) {
    show({"a.sgr"});
    withPictureDialog(expectWordsStandOut);
}

TEST_P(ExploreLooks, ThePictureDialogHasRoomForLargeLetters) {
    show({"a.sgr"});
    const LargeLetters letters;
    withPictureDialog([](QWidget& dialog) {
        expectWordsFit(dialog);
        EXPECT_LE(dialog.width(), 1366);
        EXPECT_LE(dialog.height(), 768);
    });
}

} // namespace korvel
