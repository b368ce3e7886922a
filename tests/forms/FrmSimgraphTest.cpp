// The graph form: drawing, zoom, scrolling and text size by its own buttons.
#include "graphs/draw/frmSimgraph.h"

#include "forms/DrawnGraphForm.h"

#include <QHelpEvent>
#include <QTest>

namespace korvel {

namespace {

class FrmSimgraph : public CleanGlobals {
  protected:
    FrmSimgraph() {
        platform.closesForm = closeWindow;
        handOverLongRiver(platform);
        showActive(form);
        activate();
    }

    void activate() { static_cast<ShownForm&>(form).activate(); }
    QPushButton& cmd(int k) { return control<QPushButton>(form, "Cmd_" + std::to_string(k)); }
    QWidget& graph() { return control<QWidget>(form, "picGraph"); }
    void press(const std::string& name) { click(control<QAbstractButton>(form, name)); }
    std::string tipOf(QWidget& control) {
        QHelpEvent ask(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
        QApplication::sendEvent(&control, &ask);
        return control.toolTip().toStdString();
    }
    int countOf(const std::string& text) const {
        int count = 0;
        for (const DrawnCommand& command : form.drawing().commands)
            if (const auto* drawn = std::get_if<DrawnText>(&command)) count += drawn->text == text ? 1 : 0;
        return count;
    }
    void expectDrawingFillsThePicture() {
        EXPECT_EQ(form.drawing().width, graph().width() * 15);
        EXPECT_EQ(form.drawing().height, graph().height() * 15);
    }

    FakePlatform platform;
    frmSimgraph form{platform};
};

const std::string detail =
    "This allows the graph to be displayed in more detail in a smaller font - suitable "
    "for printing.";
const std::string legible = "This allows the graph to be displayed in less detail in a larger font - to "
                            "provide improved legibility on screen.";

} // namespace

TEST_F(FrmSimgraph, HasItsMenusAndCaptions) {
    EXPECT_EQ(form.windowTitle(), "Korvel Graphical Results");
    EXPECT_EQ(menuListing(*form.menuBar()), "mnuExit|&Exit\n"
                                            "mnuPrint|&Print\n"
                                            "mnuSaveImage|&Save as Image File\n");
    EXPECT_EQ(cmd(1).text(), "Zoom In");
    EXPECT_EQ(cmd(2).text(), "Zoom Out");
    EXPECT_EQ(cmd(3).text(), "Small text");
}

TEST_F(FrmSimgraph, PrintsOnlyTheWholeGraph) {
    const auto& print = control<QAction>(form, "mnuPrint");
    EXPECT_TRUE(print.isEnabled());
    const std::vector<std::pair<const char*, const char*>> thereAndBack = {
        {"Cmd_1", "Cmd_2"}, {"Cmd_2", "Cmd_1"}, {"picUp", "picDown"}, {"picLeft", "picRight"}};
    for (const auto& [there, back] : thereAndBack) {
        press(there);
        EXPECT_FALSE(print.isEnabled()) << there;
        press(back);
        EXPECT_TRUE(print.isEnabled()) << back;
    }
    GLOBAL.ScrollOffsetX = 1;
    activate();
    EXPECT_FALSE(print.isEnabled());
}

TEST_F(FrmSimgraph, HasTheNoticeHidden) {
    const auto& notice = control<QLabel>(form, "Label");
    EXPECT_EQ(notice.text(), "Auto-interpolated points have not been plotted - too many reaches, "
                             "determinands or plotting points have been selected.");
    EXPECT_EQ(notice.font().family().toStdString(), "Arial Narrow");
    EXPECT_TRUE(notice.isHidden());
}

TEST_F(FrmSimgraph, SaysWhatItsButtonsDo) {
    const std::vector<std::pair<std::string, std::string>> tips = {
        {"Cmd_1", "Stretches the bottom left hand quarter of the current display by a factor of 2 "
                  "horizontally and vertically."},
        {"Cmd_2", "Shrinks the current display by a factor of 2 horizontally and vertically."},
        {"Cmd_3", detail},
        {"picUp", "Scrolls up the display by one quarter of its current height."},
        {"picDown", "Scrolls down the display by one quarter of its current height."},
        {"picLeft", "Scrolls left across the display by one quarter of its current width."},
        {"picRight", "Scrolls right across the display by one quarter of its current width."}};
    for (const auto& [name, tip] : tips)
        EXPECT_EQ(tipOf(control<QWidget>(form, name)), tip) << name;
}

TEST_F(FrmSimgraph, DrawsWhenItIsActivated) {
    EXPECT_EQ(countOf("KORVEL RESULTS"), 1);
    EXPECT_EQ(countOf("Date: 05/11/2026"), 1);
    EXPECT_EQ(countOf("Long river"), 1);
    EXPECT_EQ(countOf("KEY:"), 1);
    expectDrawingFillsThePicture();
    const Drawing first = form.drawing();
    activate();
    EXPECT_EQ(form.drawing(), first) << "cleared before it is drawn again";
}

TEST_F(FrmSimgraph, DrawsNothingBeforeItIsActivated) {
    frmSimgraph other(platform);
    other.resize(700, 500);
    other.show();
    passEvents();
    EXPECT_TRUE(other.drawing().commands.empty());
}

TEST_F(FrmSimgraph, PaintsTheGraph) {
    const QImage picture = graph().grab().toImage();
    bool inked = false;
    for (int y = 0; y < picture.height() && !inked; ++y)
        for (int x = 0; x < picture.width() && !inked; ++x)
            inked =
                picture.pixelColor(x, y) == QColor(0, 0, 255) || picture.pixelColor(x, y) == QColor(0, 0, 0);
    EXPECT_TRUE(inked);
    EXPECT_EQ(picture.pixelColor(0, picture.height() - 1), QColor(Qt::white));
}

TEST_F(FrmSimgraph, DrawsAnewWhenItIsResized) {
    const Drawing before = form.drawing();
    form.resize(form.width() + 120, form.height() + 90);
    passEvents();
    EXPECT_EQ(form.drawing().width, before.width + 120 * 15);
    EXPECT_EQ(form.drawing().height, before.height + 90 * 15);
    expectDrawingFillsThePicture();
    EXPECT_EQ(countOf("KORVEL RESULTS"), 1);
}

TEST_F(FrmSimgraph, ZoomsInToItsLimit) {
    const std::vector<double> factors = {0.5, 0.25, 0.25};
    Drawing last;
    for (double factor : factors) {
        last = form.drawing();
        press("Cmd_1");
        EXPECT_EQ(GLOBAL.ZoomFactor, factor);
    }
    EXPECT_EQ(form.drawing(), last) << "a click at the limit changes nothing";
    EXPECT_EQ(GLOBAL.ScrollOffsetX, 0);
    EXPECT_EQ(GLOBAL.ScrollOffsetY, 0);
}

TEST_F(FrmSimgraph, ZoomsOutToItsLimit) {
    const Drawing first = form.drawing();
    const std::vector<double> factors = {2, 4, 4};
    for (double factor : factors) {
        press("Cmd_2");
        EXPECT_EQ(GLOBAL.ZoomFactor, factor);
    }
    EXPECT_NE(form.drawing(), first);
    press("Cmd_1");
    press("Cmd_1");
    EXPECT_EQ(GLOBAL.ZoomFactor, 1);
    EXPECT_EQ(form.drawing(), first) << "the same picture after the way back";
}

TEST_F(FrmSimgraph, ScrollsByAQuarterOfWhatIsSeen) {
    const double across = graph().width() * 15 / 4.0, up = graph().height() * 15 / 4.0;
    press("picRight");
    EXPECT_EQ(GLOBAL.ScrollOffsetX, across);
    press("picUp");
    EXPECT_EQ(GLOBAL.ScrollOffsetY, up);
    press("Cmd_1");
    press("picRight");
    press("picDown");
    EXPECT_EQ(GLOBAL.ScrollOffsetX, across * 1.5);
    EXPECT_EQ(GLOBAL.ScrollOffsetY, up * 0.5);
    press("picLeft");
    press("picLeft");
    EXPECT_EQ(GLOBAL.ScrollOffsetX, across * 0.5);
}

TEST_F(FrmSimgraph, ScrollsThereAndBackToTheSamePicture) {
    const Drawing first = form.drawing();
    press("picLeft");
    EXPECT_NE(form.drawing(), first);
    press("picRight");
    EXPECT_NEAR(GLOBAL.ScrollOffsetX, 0, 0.01);
    EXPECT_EQ(form.drawing(), first);
}

TEST_F(FrmSimgraph, ScrollsOutOfSightWithoutALimit) {
    for (int i = 0; i < 40; ++i)
        press("picUp");
    EXPECT_EQ(GLOBAL.ScrollOffsetY, 40 * graph().height() * 15 / 4.0);
}

TEST_F(FrmSimgraph, AlternatesTheTextSizeWithCaptionAndTip) {
    const Drawing large = form.drawing();
    press("Cmd_3");
    EXPECT_EQ(GLOBAL.LargeTextMode, 0);
    EXPECT_EQ(cmd(3).text(), "Large text");
    EXPECT_EQ(tipOf(cmd(3)), legible);
    EXPECT_NE(form.drawing(), large);
    press("Cmd_3");
    EXPECT_EQ(GLOBAL.LargeTextMode, 1);
    EXPECT_EQ(cmd(3).text(), "Small text");
    EXPECT_EQ(tipOf(cmd(3)), detail);
    EXPECT_EQ(form.drawing(), large);
}

TEST_F(FrmSimgraph, ExitClearsTheGraphAndSaysThatItReturned) {
    EXPECT_FALSE(GLOBAL.returnedFromGraph);
    choose(form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), "close frmSimgraph\n");
    EXPECT_TRUE(GLOBAL.returnedFromGraph);
    EXPECT_TRUE(form.drawing().commands.empty());
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmSimgraph, ClosingItsWindowDoesTheSame) {
    EXPECT_TRUE(form.close());
    EXPECT_TRUE(GLOBAL.returnedFromGraph);
    EXPECT_TRUE(form.drawing().commands.empty());
}

TEST_F(FrmSimgraph, KeepsTheViewUntilTheNextPlot) {
    press("Cmd_1");
    press("picUp");
    const double offset = GLOBAL.ScrollOffsetY;
    form.close();
    EXPECT_EQ(GLOBAL.ZoomFactor, 0.5);
    EXPECT_EQ(GLOBAL.ScrollOffsetY, offset);
}

} // namespace korvel
