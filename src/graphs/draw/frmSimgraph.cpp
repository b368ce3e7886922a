#include "graphs/draw/frmSimgraph.h"

#include "basic/ModelName.h"
#include "basic/Text.h"
#include "drawing/paint/PictureFile.h"
#include "drawing/paint/Shown.h"
#include "drawing/paint/Twips.h"
#include "global/GLOBAL.h"
#include "graphs/draw/PlottedData.h"
#include "graphs/draw/PrintGraph.h"
#include "graphs/draw/ProfileGraph.h"
#include "platform/OwnInput.h"
#include "toolkit/paper/PdfPaper.h"

#include <QApplication>
#include <QClipboard>

namespace korvel {

frmSimgraph::frmSimgraph(Platform& doors)
    : Form(doors, "frmSimgraph", "Korvel Graphical Results"),
      m_primitives(m_drawing, GraphForm::graph, doors.screenMetrics, doors.paper.metrics()),
      m_capture(doors) {
    picGraph.setAccessibleName("Graph");
    Label.hide();
    CDFilename.objectName = "CDFilename";
    CDFilename.filter = pictureFilter();
    CDFilename.title = "Save the graph as " + pictureNames(PictureChoice::ofDialog, "or");
    CDFilename.overwritePrompt = true;
    CDFilename.defaultExtension = "png";
    connectButtons();
    connectKeys();
    connectPictureMenu();
    ScaleFormControls(GLOBAL.ScaleX, GLOBAL.ScaleY);
    QFont narrow = Label.font();
    narrow.setFamily("Arial Narrow");
    Label.setFont(narrow);
}

ControlArray<QPushButton> frmSimgraph::buttons() {
    ControlArray<QPushButton> array("Cmd");
    const auto add = [&](int index, const char* caption, Place place) {
        array.add(index, button(array.elementName(index).c_str(), caption, place, {.in = &Shape2}));
    };
    add(1, "Zoom In", at(90, 600, 1140, 360));
    add(2, "Zoom Out", at(90, 1020, 1140, 360));
    add(3, "Small text", at(90, 120, 1140, 360));
    return array;
}

QToolButton& frmSimgraph::arrow(const char* name, const char* says, Qt::ArrowType type, Place place) {
    auto* control = new QToolButton(&Shape2);
    control->setObjectName(name);
    control->setArrowType(type);
    control->setToolTip(says);
    control->setAccessibleName(says);
    Form::place(*control, "PictureBox", place);
    return *control;
}

void frmSimgraph::connectButtons() {
    tip(Cmd[1],
        "Stretches the bottom left hand quarter of the current display by a factor of 2 horizontally and "
        "vertically.");
    tip(Cmd[2], "Shrinks the current display by a factor of 2 horizontally and vertically.");
    tip(Cmd[3], [this] { return textSizeToolTip(m_textSizeCaption); });
    on(Cmd[1], &QPushButton::clicked, [this] { zoomIn(GLOBAL), redraw(); });
    on(Cmd[2], &QPushButton::clicked, [this] { zoomOut(GLOBAL), redraw(); });
    on(Cmd[3], &QPushButton::clicked, [this] {
        m_textSizeCaption = toggleTextSize(GLOBAL, m_textSizeCaption);
        redraw();
    });
    on(picUp, &QToolButton::clicked, [this] { moveView(ScrollDirection::up); });
    on(picDown, &QToolButton::clicked, [this] { moveView(ScrollDirection::down); });
    on(picLeft, &QToolButton::clicked, [this] { moveView(ScrollDirection::left); });
    on(picRight, &QToolButton::clicked, [this] { moveView(ScrollDirection::right); });
    onClick(mnuExit, [this] { doors().windows.close(*this); });
    onClick(mnuPrint, [this] { print(); });
    onClick(mnuSaveImage, [this] { saveImage(); });
}

// Each key runs what a button or a menu item runs.
void frmSimgraph::connectKeys() {
    for (const Qt::Key plus : {Qt::Key_Plus, Qt::Key_Equal})
        onShortcut(QKeySequence(plus), [this] { Cmd[1].click(); });
    onShortcut(QKeySequence(Qt::Key_Minus), [this] { Cmd[2].click(); });
    onShortcut(QKeySequence(Qt::Key_Up), [this] { picUp.click(); });
    onShortcut(QKeySequence(Qt::Key_Down), [this] { picDown.click(); });
    onShortcut(QKeySequence(Qt::Key_Left), [this] { picLeft.click(); });
    onShortcut(QKeySequence(Qt::Key_Right), [this] { picRight.click(); });
    onShortcut(QKeySequence(Qt::Key_Home), [this] { resetView(); });
    onShortcut(QKeySequence(Qt::CTRL | Qt::Key_P), [this] { mnuPrint.trigger(); });
    picGraph.onControlWheel = handlers().guarded([this](int steps) { zoomByWheel(steps); });
}

void frmSimgraph::connectPictureMenu() {
    mnuPicture.setObjectName("mnuPicture");
    picGraph.setContextMenuPolicy(Qt::CustomContextMenu);
    on(picGraph, &QWidget::customContextMenuRequested,
       [this](const QPoint& point) { mnuPicture.popup(picGraph.mapToGlobal(point)); });
    onClick(mnuCopyPicture, [this] { copyPicture(); });
    onClick(mnuCopyData, [this] { copyData(); });
    onClick(mnuSavePicture, [this] { savePicture(); });
    onClick(mnuResetView, [this] { resetView(); });
}

QAction& frmSimgraph::pictureItem(const char* name, const char* caption) {
    QAction* item = mnuPicture.addAction(caption);
    item->setObjectName(name);
    return *item;
}

// The drawing area takes what the column of buttons leaves.
void frmSimgraph::arrange() {
    const QSize inside = client().size();
    Shape2.setGeometry(inside.width() - Shape2.width(), 0, Shape2.width(), inside.height());
    picGraph.setGeometry(0, 0, inside.width() - Shape2.width(), inside.height());
}

DrawingArea frmSimgraph::drawingArea() const {
    const double width = picGraph.width() * twipsPerPixel;
    return {width, picGraph.height() * twipsPerPixel, width};
}

void frmSimgraph::onActivate() {
    m_textSizeCaption = GLOBAL.LargeTextMode == 1 ? "Small text" : "Large text";
    redraw();
}

void frmSimgraph::onResize() {
    arrange();
    if (wasActivated()) redraw();
}

bool frmSimgraph::onClose() {
    m_primitives.CloseGraph();
    GLOBAL.returnedFromGraph = true;
    return true;
}

void frmSimgraph::redraw() {
    const DrawingArea area = drawingArea();
    m_primitives.CloseGraph();
    m_drawing.width = area.width;
    m_drawing.height = area.height;
    DrawGraphs(m_primitives, false, area, dayMonthYear(doors().machine.today()));
    picGraph.update();
    refresh();
}

void frmSimgraph::moveView(ScrollDirection direction) {
    const DrawingArea area = drawingArea();
    korvel::scroll(GLOBAL, direction, area.width, area.height);
    redraw();
}

void frmSimgraph::zoomByWheel(int steps) {
    Cmd[steps > 0 ? 1 : 2].click();
}

void frmSimgraph::resetView() {
    GLOBAL.ZoomFactor = 1;
    GLOBAL.ScrollOffsetX = GLOBAL.ScrollOffsetY = 0;
    redraw();
}

void frmSimgraph::print() {
    PrintGraph(doors(), drawingArea());
}

void frmSimgraph::saveImage() {
    m_capture.setDrawingArea(drawingArea());
    m_capture.setOuterPlace(outerPlace());
    doors().windows.showModal(m_capture);
}

void frmSimgraph::copyPicture() {
    QApplication::clipboard()->setImage(pictureOf(m_drawing, devicePixelRatioF()));
}

void frmSimgraph::copyData() {
    QApplication::clipboard()->setText(shown(plottedData(RESULTS, GLOBAL)));
}

void frmSimgraph::savePicture() {
    CDFilename.initialFolder = folderOf(GLOBAL.fileNames[0]);
    const std::optional<ChosenFile> chosen = doors().dialogs.chooseFile(FileDialogKind::save, CDFilename);
    if (!chosen) return;
    doors().files.setCurrentFolder(doors().machine.applicationFolder());
    try {
        if (chosen->refusal)
            doors().dialogs.show(refusedName(*chosen));
        else if (replacesInput(doors().files, chosen->name, {GLOBAL.fileNames[0], GLOBAL.fileNames[1]}))
            doors().dialogs.show(outputWouldReplaceInput());
        else
            savePictureTo(chosen->name);
    } catch (const RunTimeError& error) {
        doors().dialogs.show({fileOf(chosen->name) + " can't be written: " + error.description + ".",
                              "Save picture", Icon::exclamation, Buttons::ok});
    }
}

void frmSimgraph::savePictureTo(const std::string& name) {
    const PictureFormat* const format = pictureFormatOf(name);
    if (format == nullptr) {
        doors().dialogs.show(
            {"The picture's name must end in " + pictureExtensions(PictureChoice::ofDialog, "or") + ".",
             "Save picture", Icon::exclamation, Buttons::ok});
    } else if (format->name == std::string("PDF")) { // as it is printed
        PdfFilePaper paper(doors().files, name);
        const auto job = paper.begin({fileOf(name), Orientation::landscape, name});
        job->page(printedGraph(doors(), drawingArea()));
        job->finish();
    } else {
        doors().files.writeWhole(name, format->bytes(m_drawing, devicePixelRatioF()));
    }
}

void frmSimgraph::refresh() {
    mnuPrint.setEnabled(isDefaultView(GLOBAL));
    Cmd[3].setText(shown(m_textSizeCaption));
    Cmd[3].setAccessibleName(shown(m_textSizeCaption));
    Cmd[3].setToolTip(shown(textSizeToolTip(m_textSizeCaption)));
}

} // namespace korvel
