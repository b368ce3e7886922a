// The image-capture form: draws the graph once more with its own line widths and fonts, and saves it as a
// bitmap file.
#pragma once

#include "graphs/draw/GraphPrimitives.h"
#include "graphs/draw/PlotFrame.h"
#include "toolkit/forms/Form.h"
#include "toolkit/forms/PictureBox.h"

namespace korvel {

class frmSimgraphSD : public Form {
  public:
    explicit frmSimgraphSD(Platform& services);

    // The size that the picture takes, which is that of the graph form's drawing area.
    void setDrawingArea(const DrawingArea& area);

  protected:
    void onActivate() override;

  private:
    void DrawGraphs();
    void savePicture();

    FileDialogSettings CDFilename;
    DrawingArea m_area;
    Drawing m_drawing;
    GraphPrimitives m_primitives;
    PictureBox ScreenCapture{"ScreenCapture", m_drawing, &client()};
};

} // namespace korvel
