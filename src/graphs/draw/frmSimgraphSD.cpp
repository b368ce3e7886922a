#include "graphs/draw/frmSimgraphSD.h"

#include "basic/ModelName.h"
#include "drawing/paint/PictureFile.h"
#include "drawing/paint/Twips.h"
#include "global/GLOBAL.h"
#include "graphs/draw/ProfileGraph.h"
#include "platform/OwnInput.h"

namespace korvel {

frmSimgraphSD::frmSimgraphSD(Platform& services)
    : Form(services, "frmSimgraphSD", "Korvel Graphical Results"),
      m_primitives(m_drawing, GraphForm::capture, services.screenMetrics, services.paper.metrics()) {
    CDFilename.objectName = "CDFilename";
    CDFilename.filter = "Windows bitmap files (*.bmp)|*.bmp";
    CDFilename.title = "Save Korvel graph to image file";
    CDFilename.overwritePrompt = true;
    CDFilename.defaultExtension = "bmp";
    ScreenCapture.setAccessibleName("Graph");
}

void frmSimgraphSD::setDrawingArea(const DrawingArea& area) {
    m_area = area;
    ScreenCapture.setGeometry(0, 0, pixels(area.width), pixels(area.height));
}

void frmSimgraphSD::onActivate() {
    DrawGraphs();
    services().windows.updateScreen();
    try {
        savePicture();
    } catch (const RunTimeError&) {
        // Kept so: a file that can't be written ends the saving quietly.
    }
    services().windows.close(*this);
}

void frmSimgraphSD::DrawGraphs() {
    m_primitives.CloseGraph();
    m_drawing.width = m_area.width;
    m_drawing.height = m_area.height;
    korvel::DrawGraphs(m_primitives, OutputTarget::screen, m_area, dayMonthYear(services().machine.today()));
    ScreenCapture.update();
}

void frmSimgraphSD::savePicture() {
    CDFilename.initialFolder = folderOf(GLOBAL.fileNames[0]);
    const std::optional<ChosenFile> chosen = services().dialogs.chooseFile(FileDialogKind::save, CDFilename);
    if (!chosen) return;
    services().files.setCurrentFolder(services().machine.applicationFolder());
    if (chosen->refusal) {
        services().dialogs.show(refusedName(*chosen));
        return;
    }
    if (replacesInput(services().files, chosen->name, {GLOBAL.fileNames[0], GLOBAL.fileNames[1]})) {
        services().dialogs.show(outputWouldReplaceInput());
        return;
    }
    services().files.writeWhole(chosen->name, pictureFormatOf(".bmp")->bytes(m_drawing, devicePixelRatioF()));
}

} // namespace korvel
