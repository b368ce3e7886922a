// The main form as its tests start it.
#pragma once

#include "app/frmStart.h"

#include "basic/DiskNames.h"
#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"
#include "global/GLOBAL.h"
#include "results/ResultsDataSet.h"

#include <QKeySequence>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTest>
#include <QUrl>

#include <set>

namespace korvel {

inline const std::string openDialog =
    "open dialog \"Open KORVEL data file ...\" filter \"Korvel input data (*.DAT)|*.DAT\" ";
inline const std::string saveDialog =
    "save dialog \"Save KORVEL input data file\" filter \"Korvel input data (*.DAT)|*.DAT\" ";
inline const std::string modifiedData =
    "box [question] Modified data: Do you wish to save the modified data, "
    "before exiting KORVEL? -> ";

class FrmStart : public CleanGlobals {
  protected:
    FrmStart() { putSettings("0"); }

    void putSettings(const std::string& level) {
        platform.putFile("MISC.TXT", "C:\\OLD\r\n" + level + "\r\nFalse\r\n");
    }
    frmStart& start() {
        form = std::make_unique<frmStart>(platform);
        platform.setBottomForm(*form);
        form->load();
        platform.platform().windows.showModeless(*form);
        EXPECT_EQ(platform.takeTranscript(), "show modeless frmStart\n");
        return *form;
    }
    void startOn(double width, double height) {
        platform.desktop = {0, 0, width, height};
        start();
    }
    void switchOn(const char* item) { control<QAction>(*form, item).setEnabled(true); }
    bool shows(const char* name) { return !control<QWidget>(*form, name).isHidden(); }
    QRect placeOf(const std::string& name) { return control<QWidget>(*form, name).geometry(); }
    std::string title() { return form->windowTitle().toStdString(); }
    std::string marks() {
        std::string marks;
        for (const char* item :
             {"mnuDisplayFull", "mnuSuppressInterpolated", "mnuSuppressFeatures", "mnuSuppressReaches"})
            marks += control<QAction>(*form, item).isChecked() ? 'x' : '-';
        return marks;
    }

    FakePlatform platform;
    std::unique_ptr<frmStart> form;
};

inline std::string runItem(int type) {
    return "mnuRun" + std::to_string(type);
}

} // namespace korvel
