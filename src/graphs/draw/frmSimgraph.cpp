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
#include "toolkit/forms/Spoken.h"
#include "toolkit/paper/PdfPaper.h"

#include <QApplication>
#include <QClipboard>

#include <algorithm>

namespace korvel {

namespace {

constexpr int leastColumns = 3;   // of the width of that with the buttons
constexpr int leastReadout = 100; // pixels

BoxLine::Sample sampleOf(CurveRole role) {
    switch (role) {
    case CurveRole::main: return BoxLine::Sample::thickLine;
    case CurveRole::limit: return BoxLine::Sample::thinLine;
    case CurveRole::target: return BoxLine::Sample::dottedLine;
    case CurveRole::observed: return BoxLine::Sample::cross;
    }
    return BoxLine::Sample::none;
}

BoxLine boxLine(const ReadoutLine& line) {
    using enum BoxLine::Look;
    switch (line.kind) {
    case ReadoutLine::Kind::place: return {.text = line.text};
    case ReadoutLine::Kind::series: return {.text = line.text, .look = bold};
    case ReadoutLine::Kind::more: return {.text = line.text, .look = italic};
    case ReadoutLine::Kind::value: break;
    }
    return {line.text, line.value, plain, sampleOf(line.role), paletteColour(line.colour)};
}

} // namespace

frmSimgraph::frmSimgraph(Platform& services)
    : Form(services, "frmSimgraph", "Korvel Graphical Results", Scaling::follows),
      m_primitives(m_drawing, GraphForm::graph, services.screenMetrics, services.paper.metrics()) {
    tellAsChart(picGraph);
    picGraph.setAccessibleName("Graph");
    Label.hide();
    lblSets.hide();
    CDFilename.objectName = "CDFilename";
    CDFilename.filter = pictureFilter();
    CDFilename.title = "Save the graph as " + pictureNames(PictureChoice::ofDialog, "or");
    CDFilename.overwritePrompt = true;
    CDFilename.defaultExtension = "png";
    connectButtons();
    connectKeys();
    connectPictureMenu();
    connectPointer();
    setTabOrder(&Cmd[3], &Cmd[1]); // as they stand, from the top
    setTabOrder(&Cmd[1], &Cmd[2]);
    Cmd[1].setFocus();
    // On a tall screen the buttons stay as they are wide, and the readout has the room.
    ScaleFormControls(GLOBAL.ScaleX, std::min(GLOBAL.ScaleX, GLOBAL.ScaleY));
    client().setMinimumSize(leastColumns * Shape2.width(), cmdMore.geometry().bottom() + leastReadout);
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

QToolButton& frmSimgraph::arrow(const char* name, const char* caption, const char* says, Qt::ArrowType type,
                                Place place) {
    auto* control = new QToolButton(&Shape2);
    control->setObjectName(name);
    control->setArrowType(type);
    control->setToolTip(says);
    control->setAccessibleName(caption);
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
    onClick(mnuExit, [this] { services().windows.close(*this); });
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
    onShortcut(QKeySequence(Qt::CTRL | Qt::Key_Left), [this] { stepPoint(PointStep::back); });
    onShortcut(QKeySequence(Qt::CTRL | Qt::Key_Right), [this] { stepPoint(PointStep::on); });
}

void frmSimgraph::connectPointer() {
    picGraph.setMouseTracking(true);
    picGraph.onControlWheel = handlers().guarded([this](int steps) { zoomByWheel(steps); });
    picGraph.onWheel = handlers().guarded([this](QPoint steps) { moveView({steps.x(), steps.y()}); });
    picGraph.onPointer = handlers().guarded([this](QPoint place) { pointAt(place); });
    picGraph.onTake = [this] { m_dragged = {}; };
    picGraph.onDrag = handlers().guarded([this](QPoint moved) { dragTo(moved); });
}

void frmSimgraph::connectPictureMenu() {
    mnuPicture.setObjectName("mnuPicture");
    picGraph.setContextMenuPolicy(Qt::CustomContextMenu);
    on(picGraph, &QWidget::customContextMenuRequested,
       [this](const QPoint& point) { mnuPicture.popup(picGraph.mapToGlobal(point)); });
    cmdMore.setFlat(true);
    tip(cmdMore, "What else can be done with this graph: copy it, save it, go back to the whole of it.");
    on(cmdMore, &QPushButton::clicked,
       [this] { mnuPicture.popup(cmdMore.mapToGlobal(QPoint(0, cmdMore.height()))); });
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

LineBox& frmSimgraph::readoutBox(Place place) {
    auto* control = new LineBox(&Shape2);
    control->setObjectName("lblReadout");
    Form::place(*control, "Label", place, looks::readoutText);
    return *control;
}

// The drawing area takes what the column of buttons leaves.
void frmSimgraph::arrange() {
    const QSize inside = client().size();
    Shape2.setGeometry(inside.width() - Shape2.width(), 0, Shape2.width(), inside.height());
    picGraph.setGeometry(0, 0, inside.width() - Shape2.width(), inside.height());
    arrangeReadout();
}

// Under the arrows: which set is which, then the readout down to the bottom.
void frmSimgraph::arrangeReadout() {
    const int left = lblSets.x(), width = Shape2.width() - 2 * left, gap = cmdMore.height() / 4;
    int top = cmdMore.geometry().bottom() + gap;
    if (!lblSets.isHidden()) {
        lblSets.setGeometry(left, top, width, lblSets.heightForWidth(width));
        top = lblSets.geometry().bottom() + gap;
    }
    lblReadout.setGeometry(left, top, width, qMax(0, Shape2.height() - top - gap));
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
    m_layout = {};
    m_point.reset();
    refreshReadout();
    GLOBAL.returnedFromGraph = true;
    return true;
}

void frmSimgraph::redraw() {
    const DrawingArea area = drawingArea();
    m_primitives.CloseGraph();
    m_drawing.width = area.width;
    m_drawing.height = area.height;
    m_layout = DrawGraphs(m_primitives, OutputTarget::screen, area, dayMonthYear(services().machine.today()));
    picGraph.showAnew();
    refresh();
}

void frmSimgraph::moveView(ScrollDirection direction) {
    const DrawingArea area = drawingArea();
    korvel::scroll(GLOBAL, direction, area.width, area.height);
    redraw();
}

void frmSimgraph::moveView(QuarterSteps steps) {
    const DrawingArea area = drawingArea();
    korvel::scroll(GLOBAL, steps, area.width, area.height);
    redraw();
}

void frmSimgraph::dragTo(QPoint moved) {
    const DrawingArea area = drawingArea();
    const QuarterSteps wanted =
        stepsOfDrag(GLOBAL, moved.x() * twipsPerPixel, moved.y() * twipsPerPixel, area.width, area.height);
    if (wanted == m_dragged) return;
    moveView({wanted.right - m_dragged.right, wanted.up - m_dragged.up});
    m_dragged = wanted;
}

// Between panels and beside them the last point stays.
void frmSimgraph::pointAt(QPoint place) {
    const auto nearest =
        nearestPoint(m_layout, {place.x() * twipsPerPixel, m_drawing.height - place.y() * twipsPerPixel});
    if (!nearest || nearest == m_point) return;
    m_point = nearest;
    refreshReadout();
}

void frmSimgraph::stepPoint(PointStep step) {
    m_point = steppedFrom(m_layout, m_point, step);
    refreshReadout();
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
    PrintGraph(services(), drawingArea());
}

void frmSimgraph::saveImage() {
    if (!m_capture) m_capture = std::make_unique<frmSimgraphSD>(services());
    m_capture->setDrawingArea(drawingArea());
    m_capture->setOuterPlace(outerPlace());
    services().windows.showModal(*m_capture);
}

void frmSimgraph::copyPicture() {
    QApplication::clipboard()->setImage(pictureOf(m_drawing, devicePixelRatioF()));
}

void frmSimgraph::copyData() {
    QApplication::clipboard()->setText(shown(plottedData(RESULTS, GLOBAL)));
}

void frmSimgraph::savePicture() {
    CDFilename.initialFolder = folderOf(GLOBAL.fileNames[0]);
    const std::optional<ChosenFile> chosen = services().dialogs.chooseFile(FileDialogKind::save, CDFilename);
    if (!chosen) return;
    services().files.setCurrentFolder(services().machine.applicationFolder());
    try {
        if (chosen->refusal)
            services().dialogs.show(refusedName(*chosen));
        else if (replacesInput(services().files, chosen->name, {GLOBAL.fileNames[0], GLOBAL.fileNames[1]}))
            services().dialogs.show(outputWouldReplaceInput());
        else
            savePictureTo(chosen->name);
    } catch (const RunTimeError& error) {
        services().dialogs.show({fileOf(chosen->name) + " can't be written: " + error.description + ".",
                                 "Save picture", Icon::exclamation, Buttons::ok});
    }
}

void frmSimgraph::savePictureTo(const std::string& name) {
    const PictureFormat* const format = pictureFormatOf(name);
    if (format == nullptr) {
        services().dialogs.show(
            {"The picture's name must end in " + pictureExtensions(PictureChoice::ofDialog, "or") + ".",
             "Save picture", Icon::exclamation, Buttons::ok});
    } else if (format->name == std::string("PDF")) { // as it is printed
        PdfFilePaper paper(services().files, name);
        const auto job = paper.begin({fileOf(name), Orientation::landscape, name});
        job->page(printedGraph(services(), drawingArea()));
        job->finish();
    } else {
        services().files.writeWhole(name, format->bytes(m_drawing, devicePixelRatioF()));
    }
}

void frmSimgraph::refresh() {
    mnuPrint.setEnabled(isDefaultView(GLOBAL));
    Cmd[3].setText(shown(m_textSizeCaption));
    Cmd[3].setAccessibleName(shown(m_textSizeCaption));
    Cmd[3].setToolTip(shown(textSizeToolTip(m_textSizeCaption)));
    const std::string sets = comparisonNote(GLOBAL, GLOBAL.fileNames, RESULTS.slotLoaded);
    lblSets.setText(shown(sets));
    lblSets.setVisible(!sets.empty());
    arrangeReadout();
    refreshReadout();
}

void frmSimgraph::refreshReadout() {
    if (m_point && !exists(m_layout, *m_point)) m_point.reset();
    picGraph.lay(pointLine());
    if (m_point)
        tellReadout(graphReadout(RESULTS, m_layout, *m_point));
    else
        lblReadout.hint("Move the pointer over the graph, or press Ctrl+Right, to read its values.");
}

void frmSimgraph::tellReadout(const GraphReadout& readout) {
    const auto lines = [readout](std::size_t most) {
        std::vector<BoxLine> shown;
        for (const ReadoutLine& line : readoutLines(readout, most))
            shown.push_back(boxLine(line));
        return shown;
    };
    lblReadout.tell(lines, spokenText(readout));
}

// Through the panels of the point's block.
QLine frmSimgraph::pointLine() const {
    if (!m_point) return {};
    const GraphBlock& block = m_layout.blocks[m_point->block];
    const int x = pixels(xOf(m_layout, *m_point));
    return {x, pixels(m_drawing.height - block.panels.front().area.top), x,
            pixels(m_drawing.height - block.base)};
}

} // namespace korvel
