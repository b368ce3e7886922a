#include "graphs/setup/frmGraphData.h"

#include "drawing/paint/Shown.h"
#include "global/GLOBAL.h"
#include "graphs/setup/GraphToolTips.h"
#include "graphs/setup/PlottingLists.h"
#include "toolkit/forms/ListFilling.h"

#include <QSignalBlocker>

namespace korvel {

namespace {

Tick tickOf(bool ticked) {
    return ticked ? Tick::on : Tick::off;
}

std::vector<std::string> textsOf(const std::vector<ListedReach>& reaches) {
    std::vector<std::string> texts;
    texts.reserve(reaches.size());
    for (const ListedReach& reach : reaches)
        texts.push_back(reach.text);
    return texts;
}

// The option buttons of one array: the plot types in their order, then the percentiles.
constexpr int firstPercentileOption = 3;

} // namespace

frmGraphData::frmGraphData(Platform& services, frmSimgraph& graph)
    : Form(services, "frmGraphData", "Korvel Graphical Results", Scaling::follows),
      CDFilename(resultsDialog()),
      m_graph(graph) {
    for (int option = 0; option < firstPercentileOption; ++option)
        m_plotTypeGroup.addButton(&optPlotType[option], option);
    for (int option = firstPercentileOption; option < firstPercentileOption + statistics::levels; ++option)
        m_levelGroup.addButton(&optPlotType[option], option);
    for (QLabel* name : {&lblFileName_0, &lblFileName_1})
        name->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    for (const char* feature : FeatureTypeTexts)
        lstFeatures.addItem(shown(feature));
    lstFeatures.setSelectionMode(QAbstractItemView::MultiSelection);
    connectMenus();
    connectMode1();
    connectMode2();
    connectOptions();
    connectTitles();
    setToolTips();
    arrangeTabOrder();
    ScaleFormControls(GLOBAL.ScaleX, GLOBAL.ScaleY);
    keepLeastRoom();
    refresh();
}

void frmGraphData::connectMenus() {
    onClick(mnuDataFile1, [this] { load(0); });
    onClick(mnuDataFile2, [this] { load(1); });
    onClick(mnuPlot, [this] { plot(); });
    onClick(mnuExit, [this] { services().windows.close(*this); });
}

void frmGraphData::connectMode1() {
    onEnter(Combo[1], [this] { enterMode1(); });
    onEnter(Combo[2], [this] { enterMode1(); });
    onEnter(lstDets, [this] { enterMode1(); });
    on(Combo[1], &QComboBox::currentIndexChanged, [this](int index) {
        enterMode1();
        chooseUpstreamReach(m_choices, index, RESULTS);
        refresh();
    });
    on(Combo[2], &QComboBox::currentIndexChanged, [this](int index) {
        enterMode1();
        m_choices.downstream = index;
        refresh();
    });
    on(lstDets, &QListWidget::itemSelectionChanged, [this] {
        const std::vector<bool> selected = selectionOf(lstDets);
        enterMode1();
        selectSeries(m_choices, selected);
        refresh();
    });
}

void frmGraphData::connectMode2() {
    onEnter(Combo[3], [this] { enterMode2(); });
    onEnter(lstSites, [this] { enterMode2(); });
    on(Combo[3], &QComboBox::currentIndexChanged, [this](int index) {
        enterMode2();
        m_choices.determinand = index;
        refresh();
    });
    on(lstSites, &QListWidget::itemSelectionChanged, [this] {
        const std::vector<bool> selected = selectionOf(lstSites);
        enterMode2();
        selectSites(m_choices, selected);
        refresh();
    });
}

void frmGraphData::connectOptions() {
    on(Check[0], &QCheckBox::toggled, changing([this](bool on) { tickMeans(m_choices, tickOf(on)); }));
    on(Check[1], &QCheckBox::toggled, changing([this](bool on) { tickPercentiles(m_choices, tickOf(on)); }));
    on(Check[2], &QCheckBox::toggled, changing([this](bool on) { m_choices.plotConfidenceLimits = on; }));
    on(Check[3], &QCheckBox::toggled, changing([this](bool on) { m_choices.plotQualityTargets = on; }));
    on(Check[4], &QCheckBox::toggled, changing([this](bool on) { m_choices.plotObservedValues = on; }));
    on(Check[5], &QCheckBox::toggled, changing([this](bool on) { m_choices.plotInterpolatedPoints = on; }));
    on(m_plotTypeGroup, &QButtonGroup::idClicked,
       changing([this](int option) { choosePlotType(m_choices, static_cast<PlotType>(option)); }));
    on(m_levelGroup, &QButtonGroup::idClicked, changing([this](int option) {
           choosePercentile(m_choices, percentileOfLevel(option - firstPercentileOption), RESULTS);
       }));
    on(lstFeatures, &QListWidget::itemSelectionChanged,
       [this] { m_choices.selectedFeatures = selectionOf(lstFeatures); });
    onLeave(txtTitle[0], [this] {
        const std::optional<Message> refusal = leaveLevelBox(typed(txtTitle[0].text()), RESULTS);
        if (!refusal) return;
        services().dialogs.show(*refusal);
        txtTitle[0].setFocus();
    });
}

void frmGraphData::connectTitles() {
    on(txtTitle[1], &QLineEdit::textChanged, [this](const QString& text) { m_choices.title = typed(text); });
    on(txtTitle[2], &QLineEdit::textChanged,
       [this](const QString& text) { m_choices.subTitle = typed(text); });
    onLeave(txtTitle[1], changing([this] { m_choices.title = cutTitle(m_choices.title); }));
    onLeave(txtTitle[2], changing([this] { m_choices.subTitle = cutTitle(m_choices.subTitle); }));
}

void frmGraphData::setToolTips() {
    const auto say = [](QWidget& control, GraphTip which) {
        tip(control, [which] { return korvel::toolTip(which, RESULTS.percentileLevel); });
    };
    say(Check[0], GraphTip::plotMeans);
    say(Check[1], GraphTip::plotPercentiles);
    say(Check[2], GraphTip::plotConfidenceLimits);
    say(Check[3], GraphTip::plotQualityTargets);
    say(Check[4], GraphTip::plotObservedValues);
    say(Check[5], GraphTip::plotInterpolatedPoints);
    say(optPlotType[0], GraphTip::plotFirstDataSet);
    say(optPlotType[1], GraphTip::plotSecondDataSet);
    say(optPlotType[2], GraphTip::compareDataSets);
    say(lstFeatures, GraphTip::featureTypes);
}

// As the eye goes: the two modes, the options, the features, the titles.
void frmGraphData::arrangeTabOrder() {
    QWidget* previous = &Combo[1];
    const auto next = [&previous](QWidget& control) {
        setTabOrder(previous, &control);
        previous = &control;
    };
    for (QWidget* control : std::initializer_list<QWidget*>{&Combo[2], &lstDets, &Combo[3], &lstSites})
        next(*control);
    for (const auto& [index, box] : Check)
        next(*box);
    for (const auto& [index, option] : optPlotType)
        next(*option);
    for (QWidget* control :
         std::initializer_list<QWidget*>{&txtTitle[0], &lstFeatures, &txtTitle[1], &txtTitle[2]})
        next(*control);
    Label[5].setBuddy(&Combo[1]);
    Label[6].setBuddy(&Combo[2]);
    Label[7].setBuddy(&lstDets);
    Label[8].setBuddy(&Combo[3]);
    Label[9].setBuddy(&lstSites);
    Label[12].setBuddy(&txtTitle[1]);
    Label[14].setBuddy(&lstFeatures);
    Label[15].setBuddy(&txtTitle[0]);
}

void frmGraphData::onActivate() {
    m_loading = true;
    activateGraphSetUp(services(), m_choices, callbacks());
    m_loading = false;
    refresh();
}

// Not while a file is being read.
bool frmGraphData::onClose() {
    return !m_loading;
}

SetUpCallbacks frmGraphData::callbacks() {
    const auto showState = [this] {
        refresh();
        services().windows.updateScreen();
    };
    return {showState, [this](double share) { showProgress(share); }};
}

void frmGraphData::showProgress(double share) {
    Progress.setValue(static_cast<int>(share * Progress.maximum()));
    services().windows.updateScreen();
}

void frmGraphData::load(int slot) {
    if (m_loading) return;
    m_loading = true;
    chooseResultsFile(services(), m_choices, CDFilename, slot, callbacks());
    m_loading = false;
    refresh();
}

void frmGraphData::plot() {
    const bool ready = readyToPlot(services(), m_choices);
    refresh();
    if (ready) services().windows.showModal(m_graph);
}

void frmGraphData::enterMode1() {
    if (m_choices.displayMode1) return;
    enterDisplayMode1(m_choices);
    refresh();
}

void frmGraphData::enterMode2() {
    if (!m_choices.displayMode1) return;
    enterDisplayMode2(m_choices);
    refresh();
}

void frmGraphData::refresh() {
    refreshFiles();
    showModes();
    refreshMode1();
    refreshMode2();
    refreshOptions();
    lblNextStep.setText(shown(nextStep()));
}

void frmGraphData::refreshFiles() {
    lblFileName_0.setText(shown(m_choices.fileLabels[0]));
    lblFileName_1.setText(shown(m_choices.fileLabels[1]));
    Label[2].setVisible(m_choices.waiting);
    Progress.setVisible(m_choices.waiting);
    if (!m_choices.waiting) Progress.setValue(0);
    mnuPlot.setEnabled(m_choices.plotEnabled);
}

void frmGraphData::refreshMode1() {
    const QSignalBlocker quietUpstream(Combo[1]), quietDownstream(Combo[2]), quietSeries(lstDets);
    showItems(Combo[1], textsOf(m_choices.reaches), m_choices.upstream);
    showItems(Combo[2], textsOf(m_choices.downstreamReaches), m_choices.downstream);
    showItems(lstDets, m_choices.series, m_choices.selectedSeries);
}

void frmGraphData::refreshMode2() {
    const QSignalBlocker quietDeterminand(Combo[3]), quietSites(lstSites);
    showItems(Combo[3], m_choices.series, m_choices.determinand);
    showItems(lstSites, textsOf(m_choices.reaches), m_choices.selectedSites);
}

void frmGraphData::showModes() {
    QFrame& current = m_choices.displayMode1 ? frameMode_1 : frameMode_2;
    clearBackground(m_choices.displayMode1 ? frameMode_2 : frameMode_1);
    setBackground(current, paletteColour(GLOBAL.highlightColour));
}

void frmGraphData::refreshOptions() {
    const std::array<bool, 6> ticks = {
        m_choices.plotMeans,          m_choices.plotPercentiles,    m_choices.plotConfidenceLimits,
        m_choices.plotQualityTargets, m_choices.plotObservedValues, m_choices.plotInterpolatedPoints};
    for (const auto& [index, box] : Check) {
        const QSignalBlocker quiet(box);
        box->setChecked(ticks[static_cast<std::size_t>(index)]);
    }
    Check[5].setEnabled(m_choices.offersInterpolatedPoints);
    optPlotType[static_cast<int>(m_choices.plotType)].setChecked(true);
    optPlotType[firstPercentileOption + factsOf(m_choices.percentile).level].setChecked(true);
    // The Tab key stops at the chosen one of each group.
    for (const auto& [index, option] : optPlotType)
        option->setFocusPolicy(option->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    const QSignalBlocker quietTitle(txtTitle[1]), quietSubTitle(txtTitle[2]);
    if (typed(txtTitle[1].text()) != m_choices.title) txtTitle[1].setText(shown(m_choices.title));
    if (typed(txtTitle[2].text()) != m_choices.subTitle) txtTitle[2].setText(shown(m_choices.subTitle));
    const QSignalBlocker quietFeatures(lstFeatures);
    showSelection(lstFeatures, m_choices.selectedFeatures);
}

std::string frmGraphData::nextStep() const {
    if (m_choices.waiting) return "";
    if (!m_choices.firstDataSetLoaded) return "Next: choose Open, then Data File 1.";
    const std::optional<Message> missing = missingData(m_choices);
    return missing ? "Next: choose reaches and determinands in one of the two modes." : "Next: choose Plot.";
}

} // namespace korvel
