// The graph form: keys and wheel, paper, and the pictures that leave the program.
#include "basic/DiskNames.h"
#include "drawing/paint/PictureFile.h"
#include "forms/DrawnGraphForm.h"
#include "graphs/draw/PrintGraph.h"
#include "toolkit/PdfReading.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>

#include <filesystem>

namespace korvel {

namespace {

class FrmSimgraphView : public DrawnGraphForm {
  protected:
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&form, key, modifiers);
        passEvents();
    }
    bool turnWheel(int by, Qt::KeyboardModifiers modifiers) {
        const QPointF middle = graph().rect().center();
        QWheelEvent event(middle, graph().mapToGlobal(middle), {}, {0, by}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        event.ignore();
        QApplication::sendEvent(&graph(), &event);
        return event.isAccepted();
    }
    void dragTo(QPoint place) {
        QMouseEvent event(QEvent::MouseMove, place, graph().mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&graph(), &event);
    }
    bool printEnabled() { return control<QAction>(form, "mnuPrint").isEnabled(); }
    QMenu& pictureMenu() { return control<QMenu>(form, "mnuPicture"); }
    void saveAs(const std::string& name) {
        platform.willChoose(platform.pathOf(name));
        choose(form, "mnuSavePicture");
    }
    QImage shownPicture() { return pictureOf(form.drawing(), form.devicePixelRatioF()); }
};

std::vector<std::string> captionsOf(const QMenu& menu) {
    std::vector<std::string> captions;
    for (const QAction* item : menu.actions())
        captions.push_back(item->text().toStdString());
    return captions;
}

const std::string saveDialog =
    "save dialog \"Save the graph as PNG, SVG or PDF\" filter \"Picture files "
    "(*.png *.svg *.pdf)|*.png *.svg *.pdf\" folder \"{app}\\\" overwritePrompt yes -> ";

} // namespace

TEST_F(FrmSimgraphView, ZoomsByKeys) {
    const std::vector<std::tuple<Qt::Key, Qt::KeyboardModifiers, double>> steps = {
        {Qt::Key_Plus, Qt::NoModifier, 0.5},
        {Qt::Key_Plus, Qt::KeypadModifier, 0.25},
        {Qt::Key_Plus, Qt::NoModifier, 0.25},
        {Qt::Key_Minus, Qt::NoModifier, 0.5},
        {Qt::Key_Equal, Qt::NoModifier, 0.25}};
    for (const auto& [pressed, modifiers, factor] : steps) {
        key(pressed, modifiers);
        EXPECT_EQ(GLOBAL.ZoomFactor, factor);
    }
    for (int i = 0; i < 5; ++i)
        key(Qt::Key_Minus, Qt::KeypadModifier);
    EXPECT_EQ(GLOBAL.ZoomFactor, 4);
}

TEST_F(FrmSimgraphView, ScrollsByArrowKeysWhereverTheFocusIs) {
    const double across = area().width / 4, up = area().height / 4;
    control<QPushButton>(form, "Cmd_1").setFocus();
    key(Qt::Key_Right);
    EXPECT_EQ(GLOBAL.ScrollOffsetX, across);
    key(Qt::Key_Up);
    EXPECT_EQ(GLOBAL.ScrollOffsetY, up);
    control<QToolButton>(form, "picDown").setFocus();
    key(Qt::Key_Left);
    key(Qt::Key_Left);
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    EXPECT_EQ(GLOBAL.ScrollOffsetX, -across);
    EXPECT_EQ(GLOBAL.ScrollOffsetY, -up);
    EXPECT_EQ(GLOBAL.ZoomFactor, 1);
}

TEST_F(FrmSimgraphView, KeysRedrawAndTellWhetherTheGraphCanBePrinted) {
    const Drawing whole = form.drawing();
    for (const auto& [there, back] : {std::pair(Qt::Key_Plus, Qt::Key_Minus),
                                      {Qt::Key_Left, Qt::Key_Right},
                                      {Qt::Key_Up, Qt::Key_Down}}) {
        key(there);
        EXPECT_NE(form.drawing(), whole);
        EXPECT_FALSE(printEnabled());
        key(back);
        EXPECT_EQ(form.drawing(), whole);
        EXPECT_TRUE(printEnabled());
    }
}

TEST_F(FrmSimgraphView, HomeShowsTheWholeGraphAgain) {
    const Drawing whole = form.drawing();
    key(Qt::Key_Plus);
    key(Qt::Key_Right);
    key(Qt::Key_Down);
    key(Qt::Key_Home);
    EXPECT_EQ(GLOBAL.ZoomFactor, 1);
    EXPECT_EQ(GLOBAL.ScrollOffsetX, 0);
    EXPECT_EQ(GLOBAL.ScrollOffsetY, 0);
    EXPECT_EQ(form.drawing(), whole);
    EXPECT_TRUE(printEnabled());
}

TEST_F(FrmSimgraphView, ZoomsByControlAndTheWheel) {
    EXPECT_TRUE(turnWheel(120, Qt::ControlModifier));
    EXPECT_EQ(GLOBAL.ZoomFactor, 0.5);
    EXPECT_FALSE(printEnabled());
    turnWheel(-120, Qt::ControlModifier);
    turnWheel(-120, Qt::ControlModifier);
    EXPECT_EQ(GLOBAL.ZoomFactor, 2);
    EXPECT_FALSE(turnWheel(0, Qt::ControlModifier));
    EXPECT_EQ(GLOBAL.ZoomFactor, 2);
    turnWheel(60, Qt::ControlModifier);
    EXPECT_EQ(GLOBAL.ZoomFactor, 2) << "half a step, as touch pads send";
    turnWheel(60, Qt::ControlModifier);
    EXPECT_EQ(GLOBAL.ZoomFactor, 1);
}

TEST_F(FrmSimgraphView, MovesByWholeQuarterStepsOfTheWheel) {
    const Drawing whole = form.drawing();
    const double across = area().width / 4, up = area().height / 4;
    EXPECT_TRUE(turnWheel(120, Qt::NoModifier));
    EXPECT_EQ(GLOBAL.ScrollOffsetY, up);
    EXPECT_EQ(GLOBAL.ZoomFactor, 1);
    EXPECT_FALSE(printEnabled());
    turnWheel(-240, Qt::NoModifier);
    EXPECT_EQ(GLOBAL.ScrollOffsetY, -up);
    turnWheel(120, Qt::NoModifier);
    turnWheel(-120, Qt::ShiftModifier);
    EXPECT_EQ(GLOBAL.ScrollOffsetX, across);
    turnWheel(120, Qt::ShiftModifier);
    for (const int part : {70, 40, -110})
        turnWheel(part, Qt::NoModifier);
    EXPECT_EQ(form.drawing(), whole) << "there and back";
    EXPECT_TRUE(printEnabled());
    EXPECT_FALSE(turnWheel(0, Qt::NoModifier));
}

TEST_F(FrmSimgraphView, MovesByWholeQuarterStepsWhereItIsDragged) {
    const Drawing whole = form.drawing();
    const double across = area().width / 4, up = area().height / 4;
    const QPoint from = graph().rect().center();
    const QPoint step(graph().width() / 4, graph().height() / 4);
    QTest::mousePress(&graph(), Qt::LeftButton, {}, from);
    dragTo(from + QPoint(step.x() / 3, 0));
    EXPECT_EQ(form.drawing(), whole) << "less than half a step";
    dragTo(from + QPoint(step.x(), 0));
    EXPECT_EQ(GLOBAL.ScrollOffsetX, -across) << "the picture follows the hand";
    dragTo(from + QPoint(-step.x(), step.y()));
    EXPECT_EQ(GLOBAL.ScrollOffsetX, across);
    EXPECT_EQ(GLOBAL.ScrollOffsetY, up);
    EXPECT_EQ(graph().cursor().shape(), Qt::ClosedHandCursor);
    dragTo(from);
    EXPECT_EQ(form.drawing(), whole);
    EXPECT_TRUE(printEnabled());
    QTest::mouseRelease(&graph(), Qt::LeftButton, {}, from);
    EXPECT_EQ(graph().cursor().shape(), Qt::ArrowCursor);
    QTest::mouseMove(&graph(), from + step);
    EXPECT_EQ(form.drawing(), whole) << "not taken any more";
}

TEST_F(FrmSimgraphView, PrintsByItsKeyTheWholeGraphOnly) {
    key(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(platform.takeTranscript(), "print landscape \"A.SGR\"\npage\nfinish\n");
    key(Qt::Key_Plus);
    key(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(platform.takeTranscript(), "");
}

TEST_F(FrmSimgraphView, PrintsTheScreensDrawingOnOneLandscapePage) {
    const Drawing screen = form.drawing();
    choose(form, "mnuPrint");
    EXPECT_EQ(platform.takeTranscript(), "print landscape \"A.SGR\"\npage\nfinish\n");
    ASSERT_EQ(platform.printed().size(), 1U);
    EXPECT_EQ(platform.printed()[0].request.fallbackFile, platform.pathOf("A-graph.pdf"));
    ASSERT_EQ(platform.printed()[0].pages.size(), 1U);
    const Drawing& page = platform.printed()[0].pages[0];
    EXPECT_EQ(page.width, screen.width);
    EXPECT_EQ(page.height, screen.height);
    ASSERT_EQ(page.commands.size(), screen.commands.size());
    for (std::size_t i = 0; i < page.commands.size(); ++i) {
        DrawnCommand expected = screen.commands[i];
        if (auto* line = std::get_if<DrawnLine>(&expected))
            line->pen.width = std::get<DrawnLine>(page.commands[i]).pen.width;
        if (auto* run = std::get_if<DrawnRun>(&expected))
            run->pen.width = std::get<DrawnRun>(page.commands[i]).pen.width;
        if (auto* marker = std::get_if<DrawnMarker>(&expected))
            marker->pen.width = std::get<DrawnMarker>(page.commands[i]).pen.width;
        EXPECT_EQ(page.commands[i], expected) << i;
    }
    EXPECT_EQ(form.drawing(), screen) << "the screen's graph stays";
}

TEST_F(FrmSimgraphView, PrintsInTheChosenTextSize) {
    control<QPushButton>(form, "Cmd_3").click();
    choose(form, "mnuPrint");
    const auto sizeOfTitle = [](const Drawing& drawing) {
        for (const DrawnCommand& command : drawing.commands)
            if (const auto* text = std::get_if<DrawnText>(&command))
                if (text->text == "KEY:") return text->font.size;
        return 0.0;
    };
    EXPECT_GT(sizeOfTitle(form.drawing()), 0);
    EXPECT_EQ(sizeOfTitle(platform.printed().at(0).pages.at(0)), sizeOfTitle(form.drawing()));
}

TEST_F(FrmSimgraphView, SaysThatThePrinterFailedAndGoesOn) {
    const Drawing screen = form.drawing();
    platform.willFailPrinting(PrintStep::finish);
    platform.willAnswer(Answer::ok);
    choose(form, "mnuPrint");
    EXPECT_EQ(platform.takeTranscript(), "print landscape \"A.SGR\"\npage\nfinish\nbox [information] "
                                         "Printer: Your printer is offline or out of paper. -> ok\n");
    EXPECT_TRUE(printEnabled());
    EXPECT_EQ(form.drawing(), screen);
}

TEST_F(FrmSimgraphView, SaysWhereThePageWentWithoutAPrinter) {
    platform.printedTo = platform.pathOf("A-graph.pdf");
    platform.willAnswer(Answer::ok);
    choose(form, "mnuPrint");
    EXPECT_EQ(platform.takeTranscript(), "print landscape \"A.SGR\"\npage\nfinish\nbox [information] "
                                         "Printer: There is no printer, so the pages were written to " +
                                             hostPathOf(platform.pathOf("A-graph.pdf")) + ". -> ok\n");
}

TEST_F(FrmSimgraphView, OffersWhatCanBeDoneWithThePicture) {
    QContextMenuEvent asked(QContextMenuEvent::Mouse, {40, 30}, graph().mapToGlobal(QPoint(40, 30)));
    QApplication::sendEvent(&graph(), &asked);
    passEvents();
    EXPECT_TRUE(pictureMenu().isVisible());
    EXPECT_EQ(
        captionsOf(pictureMenu()),
        (std::vector<std::string>{"Copy picture", "Copy data", "Save as PNG, SVG or PDF ...", "Reset view"}));
    pictureMenu().close();
}

TEST_F(FrmSimgraphView, TellsTheTextSizeButtonsCaptionToScreenReaders) {
    auto& button = control<QPushButton>(form, "Cmd_3");
    button.click();
    EXPECT_EQ(button.accessibleName(), "Large text");
    button.click();
    EXPECT_EQ(button.accessibleName(), "Small text");
}

TEST_F(FrmSimgraphView, ResetsTheView) {
    const Drawing whole = form.drawing();
    key(Qt::Key_Minus);
    key(Qt::Key_Up);
    choose(form, "mnuResetView");
    EXPECT_EQ(form.drawing(), whole);
    EXPECT_TRUE(printEnabled());
}

TEST_F(FrmSimgraphView, CopiesThePicture) {
    choose(form, "mnuCopyPicture");
    const QImage copied = QApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), graph().size() * form.devicePixelRatioF());
    EXPECT_EQ(copied.convertToFormat(QImage::Format_RGB32), shownPicture());
    EXPECT_EQ(copied.convertToFormat(QImage::Format_RGB32),
              graph().grab().toImage().convertToFormat(QImage::Format_RGB32))
        << "as it is seen";
}

TEST_F(FrmSimgraphView, CopiesThePlottedNumbers) {
    choose(form, "mnuCopyData");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
              "Reach\tDistance (km)\tFeature\tFlow mean\tFlow observed mean\tBOD (Conc) mean\t"
              "BOD (Conc) quality target\tBOD (Conc) observed mean\n"
              "Reach number 1\t0\tHead\t1000\t1003\t1010\t\t1013\n"
              "Reach number 1\t8\tGauge\t3000\t3003\t3010\t\t3013\n"
              "Reach number 2\t10\tHead\t4000\t4003\t4010\t\t4013\n"
              "Reach number 2\t18\tGauge\t6000\t6003\t6010\t\t6013\n"
              "Reach number 3\t20\tHead\t7000\t7003\t7010\t\t7013\n"
              "Reach number 3\t28\tGauge\t9000\t9003\t9010\t\t9013\n");
}

TEST_F(FrmSimgraphView, SavesThePictureAsPng) {
    saveAs("graph.PNG");
    EXPECT_EQ(platform.takeTranscript(), saveDialog + "{app}\\graph.PNG\ncurrent folder {app}\n");
    const QImage saved = QImage::fromData(QByteArray::fromStdString(platform.fileText("graph.PNG")), "PNG");
    EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), shownPicture());
}

TEST_F(FrmSimgraphView, SavesThePictureAsSvgWithItsTexts) {
    saveAs("graph.svg");
    EXPECT_EQ(platform.takeTranscript(), saveDialog + "{app}\\graph.svg\ncurrent folder {app}\n");
    const std::string svg = platform.fileText("graph.svg");
    EXPECT_TRUE(svg.starts_with("<?xml")) << svg.substr(0, 40);
    EXPECT_NE(svg.find("viewBox=\"0 0 " + std::to_string(graph().width()) + " " +
                       std::to_string(graph().height()) + "\""),
              std::string::npos);
    for (const char* text : {">KORVEL RESULTS<", ">Long river<", ">KEY:<"})
        EXPECT_NE(svg.find(text), std::string::npos) << text;
}

TEST_F(FrmSimgraphView, SavesThePictureAsALandscapePage) {
    saveAs("graph.pdf");
    EXPECT_EQ(platform.takeTranscript(), saveDialog + "{app}\\graph.pdf\ncurrent folder {app}\n");
    const std::string file = hostPathOf(platform.pathOf("graph.pdf"));
    const std::string about = outputOf("pdfinfo '" + file + "'");
    EXPECT_NE(about.find("Pages:           1\n"), std::string::npos) << about;
    EXPECT_NE(about.find("842 x 595 pts (A4)"), std::string::npos) << about;
    EXPECT_NE(pdfText(file).find("KORVEL RESULTS"), std::string::npos);
    EXPECT_NE(pdfText(file).find("Long river"), std::string::npos);
}

TEST_F(FrmSimgraphView, SavesWhatTheScreenShows) {
    key(Qt::Key_Plus);
    key(Qt::Key_Left);
    saveAs("part.png");
    const QImage saved = QImage::fromData(QByteArray::fromStdString(platform.fileText("part.png")), "PNG");
    EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), shownPicture());
}

TEST_F(FrmSimgraphView, SavesNothingWithoutAName) {
    platform.willCancel();
    choose(form, "mnuSavePicture");
    EXPECT_EQ(platform.takeTranscript(), saveDialog + "cancel\n");
    platform.willChooseRefused(platform.pathOf("a.png"), "The name can't be used.");
    platform.willAnswer(Answer::ok);
    choose(form, "mnuSavePicture");
    EXPECT_EQ(platform.takeTranscript(), saveDialog + "{app}\\a.png\ncurrent folder {app}\n"
                                                      "box [exclamation] File name: The name can't be used. "
                                                      "-> ok\n");
    EXPECT_EQ(platform.platform().files.filesIn(platform.folder()), std::vector<std::string>{"A.SGR"});
}

TEST_F(FrmSimgraphView, SaysWhichEndingsAPictureCanHave) {
    for (const std::string name : {"graph.gif", "graph", "graph.pdf.txt"}) {
        platform.willChoose(platform.pathOf(name));
        platform.willAnswer(Answer::ok);
        choose(form, "mnuSavePicture");
        EXPECT_EQ(platform.takeTranscript(),
                  saveDialog + "{app}\\" + name +
                      "\ncurrent folder {app}\nbox [exclamation] Save picture: The picture's name must end "
                      "in .png, .svg or .pdf. -> ok\n");
        EXPECT_FALSE(platform.hasFile(name));
    }
}

TEST_F(FrmSimgraphView, SavesABitmapToo) {
    for (const std::string name : {"graph.bmp", "GRAPH2.BMP"}) {
        saveAs(name);
        const QByteArray bytes = QByteArray::fromStdString(platform.fileText(name));
        EXPECT_TRUE(bytes.startsWith("BM"));
        EXPECT_EQ(QImage::fromData(bytes, "BMP").convertToFormat(QImage::Format_RGB32), shownPicture());
    }
}

TEST_F(FrmSimgraphView, SaysThatAPictureCannotBeWritten) {
    for (const std::string name : {"graph.png", "graph.svg", "graph.pdf"}) {
        platform.willChoose(platform.pathOf("none\\" + name));
        platform.willAnswer(Answer::ok);
        choose(form, "mnuSavePicture");
        EXPECT_EQ(platform.takeTranscript(), saveDialog + "{app}\\none\\" + name +
                                                 "\ncurrent folder {app}\nbox [exclamation] Save picture: " +
                                                 name + " can't be written: Path not found. -> ok\n");
    }
}

TEST_F(FrmSimgraphView, ReplacesNoResultsByTheirPicture) {
    const std::string results = platform.fileText("A.SGR");
    std::filesystem::create_symlink(hostPathOf(platform.pathOf("A.SGR")),
                                    hostPathOf(platform.pathOf("a.svg")));
    for (const std::string name : {"A.SGR", "a.svg"}) {
        platform.willChoose(platform.pathOf(name));
        platform.willAnswer(Answer::ok);
        choose(form, "mnuSavePicture");
        EXPECT_EQ(platform.takeTranscript(), saveDialog + "{app}\\" + name +
                                                 "\ncurrent folder {app}\nbox [exclamation] File name: The "
                                                 "output would replace the input. -> ok\n");
    }
    EXPECT_EQ(platform.fileText("A.SGR"), results);
}

} // namespace korvel
