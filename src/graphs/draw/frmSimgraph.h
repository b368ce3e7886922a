// The graph form: shows the profile graph and moves about in it.
#pragma once

#include "graphs/draw/GraphPrimitives.h"
#include "graphs/draw/GraphReadout.h"
#include "graphs/draw/PlotFrame.h"
#include "graphs/draw/ViewControl.h"
#include "graphs/draw/frmSimgraphSD.h"
#include "toolkit/forms/ControlArray.h"
#include "toolkit/forms/Form.h"
#include "toolkit/forms/LineBox.h"
#include "toolkit/forms/PictureBox.h"

#include <QToolButton>

#include <memory>
#include <optional>
#include <string>

namespace korvel {

class frmSimgraph : public Form {
  public:
    explicit frmSimgraph(Platform& services);

    const Drawing& drawing() const { return m_drawing; }

  protected:
    void onActivate() override;
    bool onClose() override;
    void onResize() override;

  private:
    ControlArray<QPushButton> buttons();
    QToolButton& arrow(const char* name, const char* caption, const char* says, Qt::ArrowType type,
                       Place place);
    void connectButtons();
    void connectKeys();
    void connectPictureMenu();
    void connectPointer();
    void zoomByWheel(int steps);
    void resetView();
    void print();
    void saveImage();
    void copyPicture();
    void copyData();
    void savePicture();
    void savePictureTo(const std::string& name);
    void arrange();
    void arrangeReadout();
    // Clears the graph, draws it anew and shows what can be done with this view.
    void redraw();
    void moveView(ScrollDirection direction);
    void moveView(QuarterSteps steps);
    void dragTo(QPoint moved);
    void pointAt(QPoint place);
    void stepPoint(PointStep step);
    void refresh();
    void refreshReadout();
    void tellReadout(const GraphReadout& readout);
    QLine pointLine() const;
    DrawingArea drawingArea() const;

    QAction& mnuExit = menuItem("mnuExit", "&Exit");
    QAction& mnuPrint = menuItem("mnuPrint", "&Print");
    QAction& mnuSaveImage = menuItem("mnuSaveImage", "&Save as Image File");

    QFrame& Shape2 = frame("Shape2", at(8280, 0, 1320, 6780));
    ControlArray<QPushButton> Cmd = buttons();
    QToolButton& picUp =
        arrow("picUp", "Scroll up", "Scrolls up the display by one quarter of its current height.",
              Qt::UpArrow, at(480, 1650, 360, 360));
    QToolButton& picLeft = arrow("picLeft", "Scroll left",
                                 "Scrolls left across the display by one quarter of its current width.",
                                 Qt::LeftArrow, at(90, 2040, 360, 360));
    QToolButton& picRight = arrow("picRight", "Scroll right",
                                  "Scrolls right across the display by one quarter of its current width.",
                                  Qt::RightArrow, at(870, 2040, 360, 360));
    QToolButton& picDown =
        arrow("picDown", "Scroll down", "Scrolls down the display by one quarter of its current height.",
              Qt::DownArrow, at(480, 2430, 360, 360));
    QLabel& Label =
        label("Label",
              "Auto-interpolated points have not been plotted - too many reaches, determinands or plotting "
              "points have been selected.",
              at(60, 2940, 1200, 1500), {.in = &Shape2, .wraps = true});

    // Our own, in the room under the arrows.
    QPushButton& cmdMore = button("cmdMore", "More", at(90, 2880, 1140, 300), {.in = &Shape2});
    QLabel& lblSets =
        label("lblSets", "", at(60, 3240, 1200, 900),
              {.fontSize = 6.5, .in = &Shape2, .align = Qt::AlignLeft | Qt::AlignTop, .wraps = true});
    LineBox& lblReadout = readoutBox(at(60, 3240, 1200, 3480));
    LineBox& readoutBox(Place place);

    // Our own, over the drawing area.
    QMenu mnuPicture{&client()};
    QAction& mnuCopyPicture = pictureItem("mnuCopyPicture", "Copy picture");
    QAction& mnuCopyData = pictureItem("mnuCopyData", "Copy data");
    QAction& mnuSavePicture = pictureItem("mnuSavePicture", "Save as PNG, SVG or PDF ...");
    QAction& mnuResetView = pictureItem("mnuResetView", "Reset view");
    QAction& pictureItem(const char* name, const char* caption);

    FileDialogSettings CDFilename;
    Drawing m_drawing;
    GraphPrimitives m_primitives;
    PictureBox picGraph{"picGraph", m_drawing, &client()};
    std::unique_ptr<frmSimgraphSD> m_capture; // made when it is used first
    GraphLayout m_layout;                     // of what is drawn
    std::optional<GraphPoint> m_point;
    QuarterSteps m_dragged; // since the picture was taken
    std::string m_textSizeCaption = "Small text";
};

} // namespace korvel
