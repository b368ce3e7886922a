#include "app/frmStart.h"

#include "app/DisplayLevel.h"
#include "app/Settings.h"
#include "app/StartUp.h"
#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "basic/Product.h"
#include "drawing/paint/Shown.h"
#include "drawing/paint/Twips.h"
#include "global/GLOBAL.h"
#include "platform/Guide.h"
#include "platform/StartTurn.h"
#include "runs/RunModel.h"

#include <QMenuBar>

#include <algorithm>

namespace korvel {

namespace {

constexpr std::array<const char*, 10> runCaptions = {
    "&0   BASIC RUN BASIC RUN BASIC RUN ...",     "&1   Gap filling of river flows",
    "&2   Use the gap filled river flows",        "&3   Gap filling of water quality",
    "&4   Run the full gap filled model",         "&5   Perform options 1 and 3 in sequence",
    "&6   Perfom options 1, 3 and 4 in sequence", "&7   Set effluent standards to meet river targets",
    "&8   As 7 with aspects of no deterioration", "&9   As 8 assuming mid-class upstream quality standards",
};

const std::string productAndVersion = std::string(productName) + " " + productVersion;
const std::string designCaption = productAndVersion + " ... " + productReleaseDate;

constexpr double titleFontSize = 30;                       // points
constexpr double titleWidth = 5600;                        // twips, as designed
constexpr double creditsHeight = 780;                      // twips above the bottom
constexpr double betweenButtons = 120, belowNextStep = 15; // twips, of the two below the guidance

// The logo: a river's profile, falling from the source to the sea.
constexpr int logoCount = 7;
constexpr double logoLeft = 3000, logoBottom = 2900, logoBar = 420, logoStep = 530;
constexpr std::array<double, logoCount> logoHeights = {1980, 1590, 1710, 1230, 1350, 870, 540};
constexpr std::array<Rgb, logoCount> logoColours = {Rgb{11, 60, 93}, {15, 86, 122},  {29, 111, 145},
                                                    {50, 140, 166},  {88, 167, 182}, {128, 190, 194},
                                                    {168, 210, 205}};

std::string nextStep() {
    const bool pending = GLOBAL.graphResultsPending || GLOBAL.reportResultsPending;
    const std::string step =
        pending ? "When the model has finished, open Graphs or Reports to study the results."
                : "Start with RUN THE KORVEL MODEL and choose a data file, or open Graphs to look at results "
                  "that are there.";
    return step + "\nF1 tells about the data file.";
}

} // namespace

std::array<QAction*, 10> frmStart::runItems() {
    std::array<QAction*, 10> items{};
    for (std::size_t type = 0; type < items.size(); ++type)
        items[type] = &menuItem(("mnuRun" + std::to_string(type)).c_str(), runCaptions[type], &mnuRun);
    return items;
}

// Element 1 is the name, element 0 its shadow.
ControlArray<QLabel> frmStart::korvelLabels() {
    ControlArray<QLabel> labels("lblKorvel");
    const Look look{.fontSize = titleFontSize, .bold = true, .align = Qt::AlignCenter};
    labels.add(0, label("lblKorvel_0", productAndVersion, at(2030, 3130, titleWidth, 900), look));
    labels.add(1, label("lblKorvel_1", productAndVersion, at(2000, 3100, titleWidth, 900), look));
    return labels;
}

ControlArray<Shape> frmStart::logoShapes() {
    ControlArray<Shape> shapes("shpLogo");
    for (int i = 0; i < logoCount; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const Place place = at(logoLeft + i * logoStep, logoBottom - logoHeights[k], logoBar, logoHeights[k]);
        shapes.add(i, shape(shapes.elementName(i), Shape::Kind::rounded, logoColours[k], place));
    }
    return shapes;
}

frmStart::frmStart(Platform& services)
    : Form(services, "frmStart", designCaption), m_dataFiles(services, dataFileCallbacks()) {
    client().setObjectName("client");
    client().setAutoFillBackground(true);
    client().setBackgroundRole(QPalette::Base);
    for (QFrame* line : {&lineAddress_0, &lineAddress_1})
        line->setFrameStyle(QFrame::NoFrame);
    onTheme();
    frameCD.hide();
    m_exploreDialog.objectName = "cdExplore";
    m_exploreDialog.title = "Explore results";
    m_exploreDialog.filter = "Korvel graph files (*.SGR)|*.SGR";
    tip(cmdExplore, "Look down any river, with several runs side by side (Ctrl+E)");
    setAcceptDrops(true);
    connectMenus();
    on(cmdExplore, &QPushButton::clicked, [this] { explore(); });
}

MainFormCallbacks frmStart::dataFileCallbacks() {
    return {[this] { SaveSettings(services()); }, [this] { refresh(); }};
}

void frmStart::connectMenus() {
    onClick(mnuExit, [this] { Exit(); });
    onClick(mnuOpen, [this] { m_dataFiles.Open(), refresh(); });
    onClick(mnuSave, [this] { m_dataFiles.Save(), refresh(); });
    onClick(mnuSaveAs, [this] { m_dataFiles.SaveAs(), refresh(); });
    for (int type = 0; type < static_cast<int>(m_runItems.size()); ++type)
        onClick(*m_runItems[static_cast<std::size_t>(type)], [this, type] { run(type); });
    onClick(mnuReports, [this] { showReports(); });
    onClick(mnuGraphs, [this] { showGraphs(); });
    onClick(mnuBatch, [this] { showBatch(); });
    onClick(mnuPrinterSetup, [this] { choosePrinter(); });
    on(cmdGuide, &QPushButton::clicked, [this] { OpenGuide(this->services()); });
    onClick(mnuDisplayFull, [this] { setDisplayLevel(0); });
    onClick(mnuSuppressInterpolated, [this] { setDisplayLevel(1); });
    onClick(mnuSuppressFeatures, [this] { setDisplayLevel(2); });
    onClick(mnuSuppressReaches, [this] { setDisplayLevel(3); });
    for (QAction* item :
         {&mnuDisplayFull, &mnuSuppressInterpolated, &mnuSuppressFeatures, &mnuSuppressReaches})
        item->setCheckable(true);
    // Switched off: nothing is behind them in this version.
    for (QAction* item : {mnuFile.menuAction(), &mnuEditText, &mnuTextEditor, &mnuHelp})
        item->setEnabled(false);
}

void frmStart::load() {
    loadShown();
    loadHidden();
}

void frmStart::loadShown() {
    SetStartValues(services());
    GLOBAL.mainForm.title = designCaption;
    fitToWorkArea(*this);
    scaleLogo();
    centreFrames();
    widenTexts();
    keepRoom();
    setHelp([this] { showHelp(); });
    setExplore([this] { explore(); });
    refresh();
}

void frmStart::loadHidden() {
    if (m_graph) return;
    m_graph = std::make_unique<frmSimgraph>(services());
    m_graphData = std::make_unique<frmGraphData>(services(), *m_graph);
    m_reports = std::make_unique<frmReports>(services());
    for (Form* form : std::initializer_list<Form*>{m_graphData.get(), m_reports.get(), m_graph.get()}) {
        fitToWorkArea(*form);
        form->setHelp([this] { showHelp(); });
        form->setExplore([this] { exploreLoaded(); });
    }
}

void frmStart::fitToWorkArea(Form& form) {
    form.setOuterPlace(formPlace(services().machine.workArea()));
}

void frmStart::scaleLogo() {
    const ScreenFactors factors{GLOBAL.ScaleX, GLOBAL.ScaleY};
    for (const auto& [index, control] : lblKorvel) {
        const TitleLabel scaled = scaledTitleLabel({controlPlace(*control), titleFontSize}, factors);
        setControlPlace(*control, scaled.place);
        setFontSize(*control, scaled.fontSize, true);
    }
    // A label is as wide as the larger factor makes it, on a tall screen wider than that; its text stays in
    // the middle of the form.
    for (const auto& [index, control] : lblKorvel) {
        const int beyond = control->width() - pixels(titleWidth * GLOBAL.ScaleX);
        control->setContentsMargins(0, 0, qMax(0, beyond), 0);
    }
    for (const auto& [index, control] : shpLogo)
        setControlPlace(*control, scaledLogoShape(controlPlace(*control), factors));
}

// The texts keep the width that they have at the start, and the credits stay below all else.
void frmStart::keepRoom() {
    const QRect texts = lblNextStep.geometry().united(cmdGuide.geometry());
    client().setMinimumSize(texts.right() + 1, texts.bottom() + 1 + pixels(creditsHeight));
}

void frmStart::centreFrames() {
    const Place form = outerPlace();
    setControlPlace(frameCD, dialogFramePlace(controlPlace(frameCD), form));
    setControlPlace(frameProgress, centredOnForm(controlPlace(frameProgress), form));
}

// Controls that the design leaves open take the form's width.
void frmStart::widenTexts() {
    const double width = outerPlace().width;
    const auto widen = [&](QWidget& control, double margin) {
        Place place = controlPlace(control);
        place.left = margin;
        place.width = width - 2 * margin;
        setControlPlace(control, place);
    };
    for (QWidget* control :
         std::initializer_list<QWidget*>{&lblEditWarning, &lblEngine, &lblAddress_0, &lblAddress_1,
                                         &lineAddress_0, &lineAddress_1, &lblNextStep})
        widen(*control, 240);
    Place next = controlPlace(lblNextStep);
    const Place title = controlPlace(lblKorvel[0]); // on a wide screen taller than its room
    next.top = std::max(next.top * GLOBAL.ScaleY, title.top + title.height);
    setControlPlace(lblNextStep, next);
    placeButtons();
}

// In the middle, below the line of guidance.
void frmStart::placeButtons() {
    const double width = outerPlace().width;
    const Place next = controlPlace(lblNextStep);
    Place explore = controlPlace(cmdExplore), guide = controlPlace(cmdGuide);
    explore.left = (width - explore.width - betweenButtons - guide.width) / 2;
    explore.top = guide.top = next.top + next.height + belowNextStep;
    guide.left = explore.left + explore.width + betweenButtons;
    setControlPlace(cmdExplore, explore);
    setControlPlace(cmdGuide, guide);
}

void frmStart::onActivate() {
    GLOBAL.RunStarting = false;
    refresh();
    if (m_page) m_page->reload();
    if (m_openOnStart) showGiven(*std::exchange(m_openOnStart, std::nullopt));
}

// The form was closed by its window control.
bool frmStart::onClose() {
    Exit();
    return true;
}

void frmStart::Exit() {
    if (GLOBAL.DataModified) {
        const Message question{"Do you wish to save the modified data, before exiting KORVEL?",
                               "Modified data", Icon::question, Buttons::yesNo};
        if (services().dialogs.show(question) == Answer::yes) m_dataFiles.SaveAs();
    }
    services().windows.endProgram();
}

void frmStart::run(int runType) {
    GLOBAL.RunType = runType;
    RunModel(services(), m_dataFiles);
    refresh();
}

void frmStart::showGraphs() {
    loadHidden();
    HideEditWarningMessage(GLOBAL.mainForm);
    refresh();
    services().windows.showModal(*m_graphData);
}

void frmStart::showReports() {
    loadHidden();
    HideEditWarningMessage(GLOBAL.mainForm);
    refresh();
    services().windows.showModal(*m_reports);
}

void frmStart::showBatch() {
    if (!m_batch) {
        m_batch = std::make_unique<frmBatch>(services());
        m_batch->setHelp([this] { showHelp(); });
    }
    services().windows.showModeless(*m_batch);
}

void frmStart::loadHelp() {
    if (!m_help) {
        m_help = std::make_unique<frmHelp>(services());
        m_help->setHelp([this] { loadHelp(); });
    }
    GLOBAL.helpPage = "4";
    m_help->load();
}

void frmStart::showHelp() {
    loadHelp();
    services().windows.showModal(*m_help);
}

void frmStart::choosePrinter() {
    try {
        services().dialogs.choosePrinter("cdPrinterSetup");
    } catch (const RunTimeError&) {
        // Kept so: whatever goes wrong here, a cancel included, changes nothing.
    }
}

void frmStart::setDisplayLevel(int level) {
    ChooseDisplayLevel(services(), level);
    refresh();
}

void frmStart::onTheme() {
    setTextColour(lblKorvel[0], looks::titleShadow.in(theme()));
    setTextColour(lblKorvel[1], looks::title.in(theme()));
    setTextColour(lblEditWarning, looks::warning.in(theme()));
    for (QFrame* line : {&lineAddress_0, &lineAddress_1})
        setBackground(*line, looks::rule.in(theme()));
}

// The credits and their rules keep their distance from the bottom; nothing else moves.
void frmStart::onResize() {
    const int bottom = client().height();
    const auto keepAbove = [bottom](QWidget& control, double twipsAboveBottom) {
        control.move(control.x(), bottom - pixels(twipsAboveBottom));
    };
    keepAbove(lineAddress_0, creditsHeight);
    keepAbove(lblAddress_0, 720);
    keepAbove(lblAddress_1, 420);
    keepAbove(lineAddress_1, 90);
}

void frmStart::refresh() {
    const MainFormState& state = GLOBAL.mainForm;
    setWindowTitle(shown(state.title));
    lblEditWarning.setVisible(state.editWarningVisible);
    mnuRun.menuAction()->setEnabled(state.runMenuEnabled);
    mnuSave.setEnabled(state.saveEnabled);
    mnuSaveAs.setEnabled(state.saveAsEnabled);
    mnuEditText.setEnabled(state.editTextEnabled);
    showMarks(displayLevelMarks(state.displayLevel));
    showProgressFrame(state);
    lblNextStep.setText(shown(nextStep()));
    showEnginesPlace();
}

// Until a run has been started from the application folder: whoever has an engine of his own has to know.
void frmStart::showEnginesPlace() {
    const std::string folder = services().machine.applicationFolder();
    lblEngine.setVisible(!services().files.exists(inFolder(folder, RunControlFileName)));
    if (lblEngine.isHidden()) return;
    const std::string text = std::string("Runs use ") + EngineFileName + " in " +
                             shownUtf8(hostPathOf(folder)) + ". Put your own engine in its place.";
    lblEngine.setText(lblEngine.fontMetrics().elidedText(shown(text), Qt::ElideMiddle, lblEngine.width()));
    lblEngine.setToolTip(shown(text));
}

void frmStart::showMarks(const DisplayLevelMarks& marks) {
    mnuDisplayFull.setChecked(marks[0]);
    mnuSuppressInterpolated.setChecked(marks[1]);
    mnuSuppressFeatures.setChecked(marks[2]);
    mnuSuppressReaches.setChecked(marks[3]);
}

void frmStart::showProgressFrame(const MainFormState& state) {
    frameProgress.setVisible(state.progressFrameVisible);
    if (state.progressFrameColour) setBackground(frameProgress, paletteColour(*state.progressFrameColour));
    for (QWidget* content : std::initializer_list<QWidget*>{&Progress, &lblProgress, &lblProgress2})
        content->setVisible(state.progressContentsVisible);
    Progress.setValue(static_cast<int>(state.progress * Progress.maximum()));
}

} // namespace korvel
