// The image-capture form: the saved bitmap and how its drawing differs from the graph form's.
#include "basic/DiskNames.h"
#include "drawing/paint/PictureFile.h"
#include "forms/DrawnGraphForm.h"
#include "graphs/draw/PrintGraph.h"
#include "graphs/draw/ProfileGraph.h"

#include <QtEndian>

#include <filesystem>

namespace korvel {

namespace {

class FrmSimgraphSD : public DrawnGraphForm {
  protected:
    void saveImage() {
        platform.willActOn("frmSimgraphSD", {});
        platform.willChoose(platform.pathOf("graph.bmp"));
        choose(form, "mnuSaveImage");
    }
    // What the capture form draws, by its own primitives.
    Drawing captured() {
        Drawing drawing{.width = area().width, .height = area().height, .commands = {}};
        const FixedTextMetrics metrics;
        GraphPrimitives primitives(drawing, GraphForm::capture, metrics, metrics);
        DrawGraphs(primitives, OutputTarget::screen, area(), dayMonthYear(platform.day));
        return drawing;
    }
    QImage savedImage() {
        return QImage::fromData(QByteArray::fromStdString(platform.fileText("graph.bmp")), "BMP")
            .convertToFormat(QImage::Format_RGB32);
    }
};

std::uint32_t number(const std::string& bytes, std::size_t at) {
    return qFromLittleEndian<std::uint32_t>(bytes.data() + at);
}

// Copies of a line one pixel wide, at these places; the first 1, 4 or 9 for widths 1, 2 and 3.
void addCopies(const DrawnRun& thick, std::vector<DrawnCommand>& commands) {
    static const DrawnPoint offsets[] = {{0, 0},   {0, 15},    {15, 0},   {15, 15}, {0, -15},
                                         {-15, 0}, {-15, -15}, {15, -15}, {-15, 15}};
    const int width = static_cast<int>(thick.pen.width) / 4;
    for (int copy = 0; copy < width * width; ++copy) {
        DrawnRun thin = thick;
        thin.pen.width = 1;
        for (DrawnPoint& point : thin.points)
            point = {point.x + offsets[copy].x, point.y + offsets[copy].y};
        commands.emplace_back(thin);
    }
}

void addCopies(const DrawnMarker& thick, std::vector<DrawnCommand>& commands) {
    std::vector<DrawnCommand> centres;
    addCopies(DrawnRun{{thick.centre}, thick.pen}, centres);
    for (const DrawnCommand& copy : centres) {
        const DrawnRun& thin = std::get<DrawnRun>(copy);
        commands.emplace_back(DrawnMarker{thin.points[0], thick.half, thin.pen});
    }
}

void addCaptured(const DrawnCommand& printed, std::vector<DrawnCommand>& commands) {
    const auto* line = std::get_if<DrawnLine>(&printed);
    const auto* run = std::get_if<DrawnRun>(&printed);
    const auto* marker = std::get_if<DrawnMarker>(&printed);
    std::vector<DrawnCommand> copies;
    if (line != nullptr && line->pen.width > 1) {
        addCopies(DrawnRun{{line->from, line->to}, line->pen}, copies);
        for (DrawnCommand& copy : copies) {
            const DrawnRun& thin = std::get<DrawnRun>(copy);
            commands.emplace_back(DrawnLine{thin.points[0], thin.points[1], thin.pen});
        }
    } else if (run != nullptr && run->pen.width > 1) {
        addCopies(*run, commands);
    } else if (marker != nullptr && marker->pen.width > 1) {
        addCopies(*marker, commands);
    } else {
        commands.push_back(printed);
        if (auto* text = std::get_if<DrawnText>(&commands.back())) text->font.name = "Arial";
    }
}

// On paper every thick line has its own width, so that the page tells which lines are thick and how.
Drawing capturedFrom(const Drawing& printed) {
    Drawing drawing = printed;
    drawing.commands.clear();
    for (const DrawnCommand& command : printed.commands)
        addCaptured(command, drawing.commands);
    return drawing;
}

int narrowTexts(const Drawing& drawing) {
    int count = 0;
    for (const DrawnCommand& command : drawing.commands)
        if (const auto* text = std::get_if<DrawnText>(&command))
            count += text->font.name == "Arial Narrow" ? 1 : 0;
    return count;
}

const std::string saveDialog =
    "save dialog \"Save Korvel graph to image file\" filter \"Windows bitmap files (*.bmp)|*.bmp\" "
    "folder \"{app}\\\" overwritePrompt yes -> ";

} // namespace

TEST_F(FrmSimgraphSD, OpensModallyAsksForANameAndClosesItself) {
    saveImage();
    EXPECT_EQ(platform.takeTranscript(), "show modal frmSimgraphSD\n" + saveDialog +
                                             "{app}\\graph.bmp\ncurrent folder {app}\n"
                                             "close frmSimgraphSD\nclosed frmSimgraphSD\n");
}

TEST_F(FrmSimgraphSD, WritesABitmapOfTheDrawingAreasSize) {
    saveImage();
    const std::string bytes = platform.fileText("graph.bmp");
    ASSERT_GE(bytes.size(), 54U);
    EXPECT_EQ(bytes.substr(0, 2), "BM");
    EXPECT_EQ(number(bytes, 2), bytes.size());
    EXPECT_EQ(number(bytes, 14), 40U) << "size of the header";
    EXPECT_EQ(number(bytes, 18), static_cast<std::uint32_t>(graph().width()));
    EXPECT_EQ(number(bytes, 22), static_cast<std::uint32_t>(graph().height()));
    EXPECT_EQ(number(bytes, 26) & 0xFFFF, 1U) << "planes";
    const std::uint32_t bits = number(bytes, 26) >> 16, row = (number(bytes, 18) * bits / 8 + 3) / 4 * 4;
    EXPECT_TRUE(bits == 24 || bits == 32) << bits;
    EXPECT_EQ(number(bytes, 30), 0U) << "not compressed";
    EXPECT_EQ(bytes.size(), number(bytes, 10) + row * number(bytes, 22));
}

TEST_F(FrmSimgraphSD, SavesItsOwnDrawing) {
    saveImage();
    const Drawing drawing = captured();
    EXPECT_EQ(savedImage(), pictureOf(drawing, 1));
    EXPECT_NE(savedImage(), pictureOf(form.drawing(), 1)) << "its thick lines and fonts differ";
    EXPECT_EQ(savedImage().pixelColor(0, 0), QColor(Qt::white));
}

TEST_F(FrmSimgraphSD, WidensEveryThickLineByCopiesAndHasNoNarrowFont) {
    const Drawing drawing = captured();
    EXPECT_EQ(drawing, capturedFrom(printedGraph(platform, area())));
    EXPECT_GT(drawing.commands.size(), form.drawing().commands.size());
    EXPECT_GT(narrowTexts(form.drawing()), 0);
    EXPECT_EQ(narrowTexts(drawing), 0);
}

TEST_F(FrmSimgraphSD, SavesTheViewAsItStands) {
    control<QPushButton>(form, "Cmd_1").click();
    control<QToolButton>(form, "picUp").click();
    control<QPushButton>(form, "Cmd_3").click();
    saveImage();
    EXPECT_EQ(savedImage(), pictureOf(captured(), 1));
}

TEST_F(FrmSimgraphSD, SavesThePictureAtTheSizeOfTheForm) {
    form.resize(form.width() + 75, form.height() + 40);
    passEvents();
    saveImage();
    EXPECT_EQ(savedImage().size(), graph().size());
}

TEST_F(FrmSimgraphSD, EndsQuietlyWhereTheDialogIsCancelled) {
    const Drawing before = form.drawing();
    platform.willActOn("frmSimgraphSD", {});
    platform.willCancel();
    choose(form, "mnuSaveImage");
    EXPECT_EQ(platform.takeTranscript(), "show modal frmSimgraphSD\n" + saveDialog +
                                             "cancel\nclose frmSimgraphSD\nclosed frmSimgraphSD\n");
    EXPECT_EQ(platform.platform().files.filesIn(platform.folder()), std::vector<std::string>{"A.SGR"});
    EXPECT_EQ(form.drawing(), before);
    EXPECT_TRUE(form.isVisible());
}

TEST_F(FrmSimgraphSD, EndsQuietlyWhereTheFileCannotBeWritten) {
    const Drawing before = form.drawing();
    platform.willActOn("frmSimgraphSD", {});
    platform.willChoose(platform.pathOf("none\\graph.bmp"));
    choose(form, "mnuSaveImage");
    EXPECT_EQ(platform.takeTranscript(), "show modal frmSimgraphSD\n" + saveDialog +
                                             "{app}\\none\\graph.bmp\ncurrent folder {app}\n"
                                             "close frmSimgraphSD\nclosed frmSimgraphSD\n");
    EXPECT_EQ(form.drawing(), before);
}

TEST_F(FrmSimgraphSD, EndsQuietlyWhereTheDialogFails) {
    platform.willActOn("frmSimgraphSD", {});
    platform.willFailDialog(RunTimeError(errors::deviceIoError));
    choose(form, "mnuSaveImage");
    EXPECT_EQ(platform.takeTranscript(), "show modal frmSimgraphSD\n" + saveDialog +
                                             "error 57\nclose frmSimgraphSD\nclosed frmSimgraphSD\n");
}

TEST_F(FrmSimgraphSD, SaysThatANameCannotBeUsed) {
    platform.willActOn("frmSimgraphSD", {});
    platform.willChooseRefused(platform.pathOf("a.bmp"), "The name can't be used.");
    platform.willAnswer(Answer::ok);
    choose(form, "mnuSaveImage");
    EXPECT_EQ(platform.takeTranscript(),
              "show modal frmSimgraphSD\n" + saveDialog +
                  "{app}\\a.bmp\ncurrent folder {app}\nbox [exclamation] File name: "
                  "The name can't be used. -> ok\n"
                  "close frmSimgraphSD\nclosed frmSimgraphSD\n");
}

TEST_F(FrmSimgraphSD, ReplacesNoResultsByTheirPicture) {
    const std::string results = platform.fileText("A.SGR");
    std::filesystem::create_symlink(hostPathOf(platform.pathOf("A.SGR")),
                                    hostPathOf(platform.pathOf("a.bmp")));
    platform.willActOn("frmSimgraphSD", {});
    platform.willChoose(platform.pathOf("a.bmp"));
    platform.willAnswer(Answer::ok);
    choose(form, "mnuSaveImage");
    EXPECT_EQ(platform.takeTranscript(), "show modal frmSimgraphSD\n" + saveDialog +
                                             "{app}\\a.bmp\ncurrent folder {app}\nbox [exclamation] File "
                                             "name: The output would replace the input. -> "
                                             "ok\nclose frmSimgraphSD\nclosed frmSimgraphSD\n");
    EXPECT_EQ(platform.fileText("A.SGR"), results);
}

} // namespace korvel
