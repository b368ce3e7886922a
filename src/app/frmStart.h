// The main form: the menu bar from which every other function is reached, the current data file's title, and
// the start and end of the program.
#pragma once

#include "app/DisplayLevel.h"
#include "app/frmStartPage.h"
#include "global/MainFormState.h"
#include "graphs/setup/frmGraphData.h"
#include "help/frmHelp.h"
#include "reports/frmReports.h"
#include "runs/DataFiles.h"
#include "runs/frmBatch.h"
#include "toolkit/forms/ControlArray.h"
#include "toolkit/forms/Form.h"

#include <QTimer>

#include <array>
#include <memory>
#include <optional>

namespace korvel {

class frmStart : public Form {
  public:
    explicit frmStart(Platform& services);

    // Shows the set-up form on this results file (a model name; "" for none) as soon as the main form is
    // shown.
    void openOnStart(const std::string& resultsFile) { m_openOnStart = resultsFile; }

    // Start-up, in its order; a failure is the run-time's.
    void load();

    // The same, but that the hidden forms are made once this one has been painted, or when one is asked for
    // before.
    void loadShown();

  protected:
    void onActivate() override;
    bool onClose() override;
    void onResize() override;
    void onTheme() override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    MainFormCallbacks dataFileCallbacks();
    void loadHidden();
    void makeStartPage();
    void placeStartPage();
    void runAgain(const LastRun& run);
    void runSample();
    void runOn(const std::string& dataFile, int runType);
    void showGiven(const std::string& resultsFile);
    void showGraphsOf(const std::string& resultsFile);
    void showReportsOf(const std::string& resultsFile);
    void fitToWorkArea(Form& form);
    void scaleLogo();
    void keepRoom();
    void centreFrames();
    void widenTexts();
    void placeButtons();
    void growGuidance();
    void connectMenus();

    void Exit();
    void run(int runType);
    void showGraphs();
    void showReports();
    void showBatch();
    void loadHelp();
    void showHelp();
    void choosePrinter();
    void explore();
    void exploreLoaded();
    void startExplorer(const std::vector<std::string>& files);
    void setDisplayLevel(int level);
    void refresh();
    void showMarks(const DisplayLevelMarks& marks);
    void showEnginesPlace();
    void showProgressFrame(const MainFormState& state);

    // The menu bar, in its order. Kept so: the blanks space the items apart.
    QAction& mnuExit = menuItem("mnuExit", "&Exit");
    QMenu& mnuFile = submenu("mnuFile", "&File");
    QAction& mnuOpen = menuItem("mnuOpen", "&Open", &mnuFile);
    QAction& mnuSave = menuItem("mnuSave", "&Save", &mnuFile);
    QAction& mnuSaveAs = menuItem("mnuSaveAs", "Save &As", &mnuFile);
    QAction& mnuEditText = menuItem("mnuEditText", "&Edit text");
    QMenu& mnuRun = submenu("mnuRun", "     &RUN THE KORVEL MODEL ...            ");
    std::array<QAction*, 10> m_runItems = runItems();
    QAction& mnuReports = menuItem("mnuReports", "&Reports");
    QAction& mnuGraphs = menuItem("mnuGraphs", "     &Graphs");
    QAction& mnuBatch = menuItem("mnuBatch", "     &Batch Run");
    QMenu& mnuOptions = submenu("mnuOptions", "          &Options");
    QAction& mnuPrinterSetup = menuItem("mnuPrinterSetup", "&Printer Setup", &mnuOptions);
    QAction& mnuTextEditor = menuItem("mnuTextEditor", "&Text Editor", &mnuOptions);
    QMenu& mnuREsultDisplayOptions =
        submenu("mnuREsultDisplayOptions", "&Result Display Options", &mnuOptions);
    QAction& mnuDisplayFull = menuItem("mnuDisplayFull", "Display full results", &mnuREsultDisplayOptions);
    QAction& mnuSuppressInterpolated =
        menuItem("mnuSuppressInterpolated", "Suppress interpolated points", &mnuREsultDisplayOptions);
    QAction& mnuSuppressFeatures =
        menuItem("mnuSuppressFeatures", "Suppress features", &mnuREsultDisplayOptions);
    QAction& mnuSuppressReaches =
        menuItem("mnuSuppressReaches", "Suppress reaches", &mnuREsultDisplayOptions);
    QAction& mnuHelp = menuItem("mnuHelp", "Online &Manual");

    // Place and caption of each control, in the designer's order. Texts have the letters of the menus, since
    // each further size takes its time at the start.
    QFrame& frameCD = frame("frameCD", at(1560, 600, 6500, 4800));
    QFrame& frameProgress = frame("frameProgress", at(2400, 2600, 4800, 1260));
    QProgressBar& Progress = progressBar("Progress", at(240, 780, 4320, 270), {.in = &frameProgress});
    QLabel& lblProgress2 = label("lblProgress2", "", at(240, 420, 4320, 300), {.in = &frameProgress});
    QLabel& lblProgress =
        label("lblProgress", "Opening", at(240, 120, 4320, 300), {.fontSize = 10, .in = &frameProgress});
    QLabel& lblEditWarning = label("lblEditWarning",
                                   "WARNING: If you have modified and saved data using the Edit Text "
                                   "facility, you need to 'Open' the file "
                                   "again without clicking 'Save' beforehand.",
                                   at(240, 150, 9000, 480), {.fontSize = 10, .wraps = true});
    QLabel& lblAddress_0 = label("lblAddress_0", "KORVEL  \u2013  river water quality for whole catchments",
                                 at(240, 5400, 9000, 270), {.fontSize = 10});
    QLabel& lblAddress_1 = label("lblAddress_1", "Free and open source software, under the MIT licence",
                                 at(240, 5700, 9000, 270), {.fontSize = 10});
    QFrame& lineAddress_0 = frame("lineAddress_0", at(240, 5340, 9000, 15));
    QFrame& lineAddress_1 = frame("lineAddress_1", at(240, 6030, 9000, 15));
    ControlArray<QLabel> lblKorvel = korvelLabels();
    ControlArray<Shape> shpLogo = logoShapes();
    QLabel& lblEngine = label("lblEngine", "", at(240, 640, 9000, 270), {.fontSize = 10});
    QLabel& lblNextStep = label("lblNextStep", "", at(600, 4050, 8400, 870),
                                {.fontSize = 10, .align = Qt::AlignHCenter | Qt::AlignTop, .wraps = true});
    QPushButton& cmdExplore =
        button("cmdExplore", "E&xplore results", at(3190, 4925, 2200, 285), {.fontSize = 10});
    QPushButton& cmdGuide = button("cmdGuide", "G&uide", at(5510, 4925, 900, 285), {.fontSize = 10});

    std::array<QAction*, 10> runItems();
    ControlArray<QLabel> korvelLabels();
    ControlArray<Shape> logoShapes();

    DataFiles m_dataFiles;
    std::unique_ptr<frmSimgraph> m_graph;
    std::unique_ptr<frmGraphData> m_graphData;
    std::unique_ptr<frmReports> m_reports;
    std::unique_ptr<frmBatch> m_batch; // made when it is shown first
    std::unique_ptr<frmHelp> m_help;   // likewise
    std::optional<std::string> m_openOnStart;
    FileDialogSettings m_exploreDialog;
    std::unique_ptr<StartPage> m_page; // made after the first painting
    bool m_isPainted = false;
    QTimer m_reloadSoon;
};

} // namespace korvel
