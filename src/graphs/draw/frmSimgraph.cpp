#include "graphs/draw/frmSimgraph.h"

#include "global/GLOBAL.h"
#include "graphs/draw/ProfileGraph.h"
#include "toolkit/Shown.h"
#include "toolkit/Twips.h"

frmSimgraph::frmSimgraph(Platform& doors)
    : Form(doors, "frmSimgraph", "Korvel Graphical Results"),
      m_primitives(m_drawing, GraphForm::graph, doors.screenMetrics, doors.paper.metrics()) {
    picGraph.setAccessibleName("Graph");
    QFont narrow = Label.font();
    narrow.setFamily("Arial Narrow");
    Label.setFont(narrow);
    Label.hide();
    mnuPrint.setEnabled(false);
    mnuSaveImage.setEnabled(false);
    connectButtons();
    ScaleFormControls(GLOBAL.ScaleX, GLOBAL.ScaleY);
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
    ::scroll(GLOBAL, direction, area.width, area.height);
    redraw();
}

void frmSimgraph::refresh() {
    Cmd[3].setText(shown(m_textSizeCaption));
    Cmd[3].setToolTip(shown(textSizeToolTip(m_textSizeCaption)));
}
