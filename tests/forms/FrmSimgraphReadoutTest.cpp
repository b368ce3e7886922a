// The graph form: what it tells of a point beside the graph, and that nothing of it gets into the graph.
#include "basic/DiskNames.h"
#include "forms/DrawnGraphForm.h"
#include "graphs/draw/GraphLayout.h"
#include "graphs/draw/ProfileGraph.h"
#include "toolkit/forms/LineBox.h"

#include <QAccessible>
#include <QClipboard>
#include <QMouseEvent>
#include <QTest>

namespace korvel {

namespace {

class FrmSimgraphReadout : public DrawnGraphForm {
  protected:
    void key(Qt::Key key) {
        QTest::keyClick(&form, key, Qt::ControlModifier);
        passEvents();
    }
    // Where the form drew the point.
    QPoint placeOfPoint(std::size_t index) {
        Drawing drawing;
        drawing.width = area().width;
        drawing.height = area().height;
        GraphPrimitives primitives(drawing, GraphForm::graph, platform.platform().screenMetrics,
                                   platform.platform().paper.metrics());
        const GraphLayout layout = DrawGraphs(primitives, OutputTarget::screen, area(), "01/02/2026");
        const PlotArea& panel = layout.blocks[0].panels[0].area;
        return {static_cast<int>(std::lround(xOf(layout, {0, index}) / 15)),
                static_cast<int>(std::lround((drawing.height - (panel.bottom + panel.top) / 2) / 15))};
    }
    void moveTo(QPoint place) {
        QMouseEvent event(QEvent::MouseMove, place, graph().mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&graph(), &event);
        passEvents();
    }
    LineBox& box() { return static_cast<LineBox&>(control<QLabel>(form, "lblReadout")); }
    // "text value" of every line.
    std::vector<std::string> told() {
        std::vector<std::string> texts;
        for (const BoxLine& line : box().lines())
            texts.push_back(line.value.empty() ? line.text : line.text + " " + line.value);
        return texts;
    }
    std::string spoken() {
        return QAccessible::queryAccessibleInterface(&box())->text(QAccessible::Name).toStdString();
    }
    int darkColumn() { // the x of the line over the graph; -1 without one
        const QImage seen = graph().grab().toImage();
        const QImage drawn = pictureWithoutLine();
        for (int x = 0; x < seen.width(); ++x)
            for (int y = 0; y < seen.height(); ++y)
                if (seen.pixel(x, y) != drawn.pixel(x, y)) return x;
        return -1;
    }
    QImage pictureWithoutLine() {
        choose(form, "mnuCopyPicture");
        return QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
    }
};

const std::string hint = "Move the pointer over the graph, or press Ctrl+Right, to read its values.";
const std::vector<std::string> secondPoint = {"8.00 km",    "Reach number 1", "Gauge",
                                              "Flow",       "mean 3000",      "observed mean 3003",
                                              "BOD (Conc)", "mean 3010",      "observed mean 3013"};

} // namespace

TEST_F(FrmSimgraphReadout, SaysHowToReadValuesUntilThereIsAPoint) {
    EXPECT_EQ(box().text().toStdString(), hint);
    EXPECT_EQ(spoken(), hint);
    EXPECT_TRUE(told().empty());
    EXPECT_EQ(darkColumn(), -1);
}

TEST_F(FrmSimgraphReadout, TellsOfThePointNearestThePointer) {
    moveTo(placeOfPoint(1) + QPoint(3, 0));
    EXPECT_EQ(told(), secondPoint);
    EXPECT_EQ(spoken(), "8.00 km, Reach number 1, Gauge. Flow: mean 3000, observed mean 3003. BOD (Conc): "
                        "mean 3010, observed mean 3013.");
    EXPECT_EQ(box().text(), "") << "instead of the hint";
    moveTo(placeOfPoint(5) - QPoint(3, 0));
    EXPECT_EQ(told().front(), "28.00 km");
    moveTo({1, 1});
    EXPECT_EQ(told().front(), "28.00 km") << "stays where there is no other";
}

TEST_F(FrmSimgraphReadout, ShowsAThinLineThroughThePanelsAtThePoint) {
    moveTo(placeOfPoint(1) + QPoint(3, 0));
    EXPECT_EQ(darkColumn(), placeOfPoint(1).x());
    moveTo(placeOfPoint(4));
    EXPECT_EQ(darkColumn(), placeOfPoint(4).x()) << "the first one is gone";
}

TEST_F(FrmSimgraphReadout, StepsFromPointToPointByKeys) {
    key(Qt::Key_Right);
    EXPECT_EQ(told().front(), "0.00 km");
    key(Qt::Key_Right);
    EXPECT_EQ(told(), secondPoint);
    EXPECT_EQ(darkColumn(), placeOfPoint(1).x());
    for (int k = 0; k < 9; ++k)
        key(Qt::Key_Right);
    EXPECT_EQ(told().front(), "28.00 km") << "the last one";
    key(Qt::Key_Left);
    EXPECT_EQ(told().front(), "20.00 km");
    EXPECT_EQ(GLOBAL.ScrollOffsetX, 0) << "the view stays";
}

TEST_F(FrmSimgraphReadout, IsNoPartOfTheGraph) {
    const Drawing drawing = form.drawing();
    const QImage picture = pictureWithoutLine();
    choose(form, "mnuPrint");
    key(Qt::Key_Right);
    EXPECT_EQ(form.drawing(), drawing);
    EXPECT_EQ(pictureWithoutLine(), picture);
    choose(form, "mnuPrint");
    ASSERT_EQ(platform.printed().size(), 2u);
    EXPECT_EQ(platform.printed()[0].pages, platform.printed()[1].pages);
}

TEST_F(FrmSimgraphReadout, FollowsThePointWhenTheViewChanges) {
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    control<QAbstractButton>(form, "picLeft").click();
    passEvents();
    EXPECT_EQ(told(), secondPoint);
    EXPECT_EQ(darkColumn(), placeOfPoint(1).x());
    control<QAbstractButton>(form, "Cmd_3").click();
    EXPECT_EQ(darkColumn(), placeOfPoint(1).x());
}

TEST_F(FrmSimgraphReadout, ForgetsAPointThatAnotherGraphHasNot) {
    key(Qt::Key_Left); // the last one
    GLOBAL.graphPointCounts[1] = 2;
    static_cast<ShownForm&>(form).activate();
    EXPECT_EQ(box().text().toStdString(), hint);
    EXPECT_EQ(darkColumn(), -1);
}

TEST_F(FrmSimgraphReadout, BeginsAnewWhenItIsShownAgain) {
    key(Qt::Key_Right);
    form.close();
    EXPECT_EQ(box().text().toStdString(), hint);
    showActive(form);
    static_cast<ShownForm&>(form).activate();
    EXPECT_EQ(darkColumn(), -1);
}

TEST_F(FrmSimgraphReadout, TakesSmallerLettersBeforeItLeavesOutValues) {
    key(Qt::Key_Right);
    const auto all = told();
    QFont large = box().font();
    large.setPointSizeF(20);
    box().setFont(large);
    EXPECT_EQ(told(), all);
    box().resize(box().width(), 60);
    EXPECT_LT(told().size(), all.size());
    EXPECT_EQ(told().back(), "more than fits here");
}

TEST_F(FrmSimgraphReadout, PaintsItsLines) {
    key(Qt::Key_Right);
    const QImage seen = box().grab().toImage();
    bool swatch = false, text = false;
    for (int y = 0; y < seen.height(); ++y)
        for (int x = 0; x < seen.width(); ++x) {
            swatch = swatch || seen.pixelColor(x, y) == QColor(0, 0, 255);
            text = text || seen.pixelColor(x, y).lightness() < 60;
        }
    EXPECT_TRUE(swatch);
    EXPECT_TRUE(text);
}

TEST_F(FrmSimgraphReadout, OpensThePicturesMenuByAButton) {
    const auto& menu = control<QMenu>(form, "mnuPicture");
    EXPECT_EQ(control<QPushButton>(form, "cmdMore").text(), "More");
    click(control<QPushButton>(form, "cmdMore"));
    EXPECT_TRUE(menu.isVisible());
    const_cast<QMenu&>(menu).close();
}

TEST_F(FrmSimgraphReadout, SaysWhichSetIsWhichWhileTwoAreCompared) {
    auto& sets = control<QLabel>(form, "lblSets");
    EXPECT_TRUE(sets.isHidden());
    platform.putFile("B.SGR", longRiver());
    GLOBAL.fileNames[1] = platform.pathOf("B.SGR");
    GLOBAL.currentSlot = 1;
    LoadResultsFile(platform, true, {});
    GLOBAL.plotType = PlotType::comparison;
    static_cast<ShownForm&>(form).activate();
    EXPECT_EQ(sets.text().toStdString(),
              "Set 1: A.SGR\nSet 2: B.SGR\nWhere both are equal, set 2 lies above set 1.");
    EXPECT_FALSE(sets.isHidden());
    EXPECT_GE(box().y(), sets.geometry().bottom());
    EXPECT_GE(sets.height(), sets.heightForWidth(sets.width()));
    key(Qt::Key_Right);
    EXPECT_EQ(told()[4], "mean, set 1 1000");
    EXPECT_EQ(told()[5], "mean, set 2 1000");
}

} // namespace korvel
