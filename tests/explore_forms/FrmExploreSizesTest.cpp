// What fits where there is little room, by the real controls.
#include "explore_forms/ExploreWindow.h"

#include <QScrollArea>
#include <QSplitter>
#include <QTabWidget>

namespace korvel {

namespace {

class FrmExploreSizes : public FrmExploreWindow {
  protected:
    void showTwelveLongNames() {
        std::vector<std::string> files;
        for (char letter = 'a'; letter <= 'l'; ++letter) {
            files.push_back("A study with a name of forty letters, " + std::string(2, letter) + ".sgr");
            platform.putFile(files.back(), river(letter, "Phosphate as orthophosphate P"));
        }
        show(files);
    }
    std::string minimaOf(QWidget& widget, int depth = 0) {
        const QSize least = widget.minimumSizeHint().expandedTo(widget.minimumSize());
        std::string text = std::string(static_cast<std::size_t>(depth) * 2, ' ') +
                           widget.objectName().toStdString() + " " + widget.metaObject()->className() + " " +
                           std::to_string(least.width()) + " x " + std::to_string(least.height()) + "\n";
        if (depth < 6)
            for (auto* child : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
                if (!child->isWindow()) text += minimaOf(*child, depth + 1);
        return text;
    }
};

} // namespace

// A screen of 1366 by 768 with text of twice the usual size is one of 683 by 384; the window's frame and
// title come off that.
TEST_F(FrmExploreSizes, FitsASmallScreenWithTextOfTwiceTheSize) {
    showTwelveLongNames();
    for (int tab = 0; tab < 5; ++tab) {
        control<QTabWidget>(*form, "tabTables").setCurrentIndex(tab);
        passEvents();
        EXPECT_LE(form->minimumSizeHint().width(), 670) << tab << "\n" << minimaOf(*form);
        EXPECT_LE(form->minimumSizeHint().height(), 340) << tab << "\n" << minimaOf(*form);
    }
    form->resize(670, 340);
    passEvents();
    EXPECT_EQ(form->size(), QSize(670, 340));
}

} // namespace korvel
