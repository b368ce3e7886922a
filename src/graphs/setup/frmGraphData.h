// The graph set-up form: loads one or two results files, offers what to plot and how, and opens the graph.
#pragma once

#include "graphs/draw/frmSimgraph.h"
#include "graphs/setup/GraphChoices.h"
#include "graphs/setup/ResultsLoading.h"
#include "toolkit/forms/ControlArray.h"
#include "toolkit/forms/Form.h"

#include <QButtonGroup>

namespace korvel {

class frmGraphData : public Form {
  public:
    frmGraphData(Platform& services, frmSimgraph& graph);

  protected:
    void onActivate() override;
    bool onClose() override;
    void onResize() override { arrange(); }
    void onTheme() override { showModes(); }

  private:
    void connectMenus();
    void connectMode1();
    void connectMode2();
    void connectOptions();
    void connectTitles();
    void setToolTips();
    void arrangeTabOrder();

    void load(int slot);
    void plot();
    void showProgress(double share);
    SetUpCallbacks callbacks();

    void enterMode1();
    void enterMode2();
    // Runs a change of the choices and shows the outcome.
    template <typename Change>
    auto changing(Change change) {
        return [this, change](auto... arguments) {
            change(arguments...);
            refresh();
        };
    }

    void refresh();
    void refreshFiles();
    void refreshMode1();
    void refreshMode2();
    void refreshOptions();
    void showModes();

    // Pixels, of what stands line by line; `across`: a twip of the design.
    struct Measures {
        int line = 0, box = 0, gap = 0, small = 0;
        double across = 0;
        int x(double twips) const { return qRound(twips * across); }
    };
    Measures measures() const;
    int modeHeight(const Measures& its, const QLabel& title, int lines) const;
    int optionsHeight(const Measures& its, int row) const;
    int featuresHeight(const Measures& its) const;
    int featureLines() const;
    void keepLeastRoom();
    void arrange();
    void arrangeFiles(const Measures& its, int top);
    void arrangeMode(const Measures& its, int mode, int top, int height);
    void arrangeTitles(const Measures& its, int top);
    void arrangeWaiting(const Measures& its, int top);
    void arrangeOptions(const Measures& its, int top, int row);
    void arrangeFeatures(const Measures& its, int top);
    std::string nextStep() const;

    ControlArray<QLabel> labels();
    ControlArray<QComboBox> combos();
    ControlArray<QCheckBox> checkBoxes();
    ControlArray<QRadioButton> plotTypes();
    ControlArray<QLineEdit> titleBoxes();

    // The controls in the designer's order, with its places; arrange() lets them follow the form's size.
    QMenu& mnuOpen = submenu("mnuOpen", "&Open");
    QAction& mnuDataFile1 = menuItem("mnuDataFile1", "Data File 1", &mnuOpen);
    QAction& mnuDataFile2 = menuItem("mnuDataFile2", "Data file 2", &mnuOpen);
    QAction& mnuPlot = menuItem("mnuPlot", "&Plot");
    QAction& mnuExit = menuItem("mnuExit", "&Exit");

    QLabel& lblFileName_0 = label("lblFileName_0", "", at(1200, 75, 3420, 285));
    QLabel& lblFileName_1 = label("lblFileName_1", "", at(5820, 75, 3540, 285));
    QProgressBar& Progress = progressBar("Progress", at(4860, 420, 4500, 210));

    QFrame& frameMode_1 = frame("frameMode_1", at(150, 690, 5610, 2430));
    QFrame& frameMode_2 = frame("frameMode_2", at(150, 3180, 5610, 1920));
    QFrame& frameOptions = frame("frameOptions", at(5880, 690, 3480, 2700));
    QFrame& frameFeatures = frame("frameFeatures", at(5880, 3450, 3480, 1740));
    QListWidget& lstDets = listBox("lstDets", "Select 1 to 5 determinands to be plotted.",
                                   at(2610, 720, 2910, 1380), {.in = &frameMode_1});
    QListWidget& lstSites =
        listBox("lstSites", "Select up to six reaches.", at(2610, 720, 2910, 870), {.in = &frameMode_2});
    QListWidget& lstFeatures = listBox("lstFeatures", "Select feature types to be labelled on graphs.",
                                       at(90, 300, 3300, 1380), {.in = &frameFeatures});
    ControlArray<QLabel> Label = labels();
    ControlArray<QComboBox> Combo = combos();
    ControlArray<QCheckBox> Check = checkBoxes();
    ControlArray<QRadioButton> optPlotType = plotTypes();
    ControlArray<QLineEdit> txtTitle = titleBoxes();
    QButtonGroup m_plotTypeGroup;
    QButtonGroup m_levelGroup;

    QLabel& lblNextStep = label("lblNextStep", "", at(5880, 5280, 3480, 720),
                                {.bold = true, .align = Qt::AlignLeft | Qt::AlignTop, .wraps = true});

    GraphChoices m_choices;
    FileDialogSettings CDFilename;
    bool m_loading = false;
    frmSimgraph& m_graph;
};

} // namespace korvel
