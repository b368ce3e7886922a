#include "reports/frmReports.h"

#include "basic/ModelName.h"
#include "basic/Text.h"
#include "drawing/paint/Shown.h"
#include "drawing/paint/Twips.h"
#include "global/GLOBAL.h"
#include "reports/ReportColumns.h"
#include "results/LoadResultsFile.h"
#include "tables/TableFormats.h"
#include "toolkit/forms/ListFilling.h"

#include <QScopeGuard>
#include <QSignalBlocker>

#include <array>

namespace korvel {

namespace {

constexpr const char* explanation =
    "The following different types of text output file are available after Korvel has been run:\n"
    "\n"
    "filename.SCN: a copy of the output displayed on the screen during the model run\n"
    "filename.OUT: the detailed output\n"
    "filename.LOD: a report on loads\n"
    "filename.SUM: a report on sources and sinks of pollution\n";

constexpr int viewButton = 0;
constexpr const char* workbookTitle = "Save as workbook";

struct OutputWords {
    const char* doing;
    const char* made;
};

const OutputWords& wordsOf(OutputMode mode) {
    static constexpr std::array<OutputWords, 3> words = {
        {{"Printing ...", "The report"},
         {"Writing to spreadsheet file ...", "The spreadsheet file"},
         {"Writing the workbook ...", "The workbook"}}};
    return words.at(static_cast<std::size_t>(mode));
}

void split(const std::vector<ListEntry>& list, std::vector<std::string>& texts, std::vector<bool>& selected) {
    for (const ListEntry& entry : list) {
        texts.push_back(entry.text);
        selected.push_back(entry.selected);
    }
}

void showList(QListWidget& list, const std::vector<ListEntry>& entries) {
    std::vector<std::string> texts;
    std::vector<bool> selected;
    split(entries, texts, selected);
    const QSignalBlocker quiet(list);
    showItems(list, texts, selected);
}

std::string fitHint(int determinands) {
    if (determinands == 0) return "With these options not even one determinand fits.";
    return "With these options at most " + std::to_string(determinands) +
           (determinands == 1 ? " determinand fits." : " determinands fit.");
}

} // namespace

frmReports::frmReports(Platform& services)
    : Form(services, "frmReports", "Korvel Reports", Scaling::follows),
      lblExplain(label("lblExplain", explanation, at(180, 120, 6240, 1470),
                       {.in = &frameExplain, .align = Qt::AlignLeft | Qt::AlignTop, .wraps = true})) {
    CDFilename.objectName = "CDFilename";
    connectMenus();
    connectChoices();
    connectLists();
    addListMenus();
    addWorkbookItem();
    arrangeTabOrder();
    scaleToScreen();
    keepRoomForControls();
    for (QFrame* overlay : {&frameExplain, &frameProgress}) {
        overlay->setFrameStyle(QFrame::Box | QFrame::Plain);
        overlay->setLineWidth(2);
        overlay->hide();
    }
    refresh();
}

void frmReports::connectMenus() {
    onClick(mnuOpen, [this] { openResults(); });
    onClick(mnuPrint, [this] { produce(OutputMode::print); });
    onClick(mnuSpreadsheet, [this] { produce(OutputMode::spreadsheet); });
    onClick(mnuViewOutputFile, [this] { showExplanation(); });
    onClick(mnuExit, [this] { services().windows.close(*this); });
    for (const auto& [index, pressed] : cmdView)
        on(*pressed, &QPushButton::clicked, [this, button = index] { chooseOutputFile(button); });
}

void frmReports::connectChoices() {
    for (const auto& [index, box] : Check)
        on(*box, &QCheckBox::toggled, [this, which = static_cast<ReportBox>(index)](bool ticked) {
            m_choices.tick(which, ticked);
            refresh();
        });
}

void frmReports::connectLists() {
    const auto chooseDeterminands = [this] {
        m_choices.chooseDeterminands(selectionOf(lstDets));
        refresh();
    };
    const auto chooseReaches = [this] {
        m_choices.chooseReaches(selectionOf(lstReaches));
        refresh();
    };
    // A click counts also where it selects what is selected already.
    on(lstDets, &QListWidget::itemSelectionChanged, chooseDeterminands);
    on(lstDets, &QListWidget::itemClicked, chooseDeterminands);
    on(lstReaches, &QListWidget::itemSelectionChanged, chooseReaches);
    on(lstReaches, &QListWidget::itemClicked, chooseReaches);
}

// As the eye goes: each list below its box, then the options.
void frmReports::arrangeTabOrder() {
    setTabOrder(&Check[static_cast<int>(ReportBox::allReaches)], &lstReaches);
    setTabOrder(&lstReaches, &Check[static_cast<int>(ReportBox::allDeterminands)]);
    setTabOrder(&Check[static_cast<int>(ReportBox::allDeterminands)], &lstDets);
    QWidget* previous = &lstDets;
    for (const auto& [index, box] : Check) {
        if (box->parentWidget() != &frameOptions) continue;
        setTabOrder(previous, box);
        previous = box;
    }
    lstReaches.setFocus();
}

void frmReports::addListMenus() {
    using enum ListPick;
    addListMenu(lstReaches, ReportBox::allReaches, &ReportChoices::chooseReaches, &ReportChoices::reaches,
                {all, none, inverted});
    addListMenu(lstDets, ReportBox::allDeterminands, &ReportChoices::chooseDeterminands,
                &ReportChoices::determinands, {all, none, inverted, concentrations, loads});
}

void frmReports::addListMenu(QListWidget& list, ReportBox all,
                             void (ReportChoices::*choose)(const std::vector<bool>&),
                             const std::vector<ListEntry>& (ReportChoices::*lines)() const,
                             std::initializer_list<ListPick> picks) {
    static constexpr std::array captions{"&All", "&None", "&Invert", "&Concentrations only", "&Loads only"};
    list.setContextMenuPolicy(Qt::ActionsContextMenu);
    for (const ListPick pick : picks) {
        auto* item = new QAction(captions[static_cast<std::size_t>(pick)], &list);
        list.addAction(item);
        onClick(*item, [=, this] {
            if (pick == ListPick::all)
                m_choices.tick(all, true);
            else
                (m_choices.*choose)(picked((m_choices.*lines)(), pick));
            refresh();
        });
    }
}

// In the menu of the form, and last in those of its lists.
void frmReports::addWorkbookItem() {
    mnuWorkbook.setObjectName("mnuWorkbook");
    onClick(mnuWorkbook, [this] { saveWorkbook(); });
    for (QWidget* const place : std::initializer_list<QWidget*>{&client(), &lstReaches, &lstDets}) {
        place->setContextMenuPolicy(Qt::ActionsContextMenu);
        if (!place->actions().isEmpty()) {
            auto* line = new QAction(place);
            line->setSeparator(true);
            place->addAction(line);
        }
        place->addAction(&mnuWorkbook);
    }
}

void frmReports::onActivate() {
    centreFrames();
    if (!GLOBAL.reportResultsPending) return takeOverResults();
    m_loaded = false;
    setWindowTitle("Korvel Reports");
    refresh();
    loadResults();
    GLOBAL.reportResultsPending = false;
}

// The set-up form may have read the first slot anew since the lists were filled.
void frmReports::takeOverResults() {
    if (m_loadsSeen == GLOBAL.firstSlotLoads) return;
    m_loadsSeen = GLOBAL.firstSlotLoads;
    m_loaded = GLOBAL.firstSlotLoaded;
    m_done.clear();
    if (m_loaded) FillReportLists(m_choices, RESULTS);
    setWindowTitle(shown(m_loaded ? "Reports for " + GLOBAL.fileNames[0] : "Korvel Reports"));
    refresh();
}

void frmReports::centreFrames() {
    for (QFrame* overlay : {&frameExplain, &frameProgress}) {
        overlay->move((client().width() - overlay->width()) / 2, (client().height() - overlay->height()) / 2);
        overlay->raise();
    }
}

void frmReports::openResults() {
    CDFilename.title = "Open results file";
    CDFilename.filter = "Korvel graph files (*.SGR)|*.SGR";
    const std::optional<std::string> name = askForFile();
    if (!name) return;
    GLOBAL.fileNames[0] = *name;
    setWindowTitle(shown("Reports for " + *name));
    loadResults();
}

// Into the first slot, which reports read. A failure leaves the previous lists.
void frmReports::loadResults() {
    GLOBAL.currentSlot = 0;
    m_done.clear();
    setBusy("Reading the results ...");
    lblCancel.hide();
    LoadResultsFile(m_quietServices, true, [this](double share) {
        Progress.setValue(static_cast<int>(share * Progress.maximum()));
        services().windows.updateScreen();
    });
    setIdle();
    m_loadsSeen = GLOBAL.firstSlotLoads;
    m_loaded = !GLOBAL.loadFailed;
    if (m_loaded) FillReportLists(m_choices, RESULTS);
    refresh();
}

std::optional<std::string> frmReports::askForFile() {
    const std::string& results = GLOBAL.fileNames[0];
    CDFilename.initialFolder = results.empty() ? GLOBAL.LastFolder : folderOf(results);
    const std::optional<ChosenFile> chosen = services().dialogs.chooseFile(FileDialogKind::open, CDFilename);
    if (!chosen) return std::nullopt;
    services().files.setCurrentFolder(services().machine.applicationFolder());
    if (!chosen->refusal) return trim(chosen->name);
    services().dialogs.show(refusedName(*chosen));
    return std::nullopt;
}

void frmReports::produce(OutputMode mode) {
    const ReportSelection selection = m_choices.selection();
    produce(mode, outputRequest(mode, RESULTS, selection, GLOBAL.fileNames[0]));
}

void frmReports::produce(OutputMode mode, const OutputRequest& request) {
    const OutputWords& words = wordsOf(mode);
    m_done.clear();
    setBusy(words.doing);
    const auto idleAgain = qScopeGuard([this] { setIdle(); });
    const OutputResult made =
        Output(m_quietServices, mode, request, [this](double share) { return showProgress(share); });
    if (made == OutputEnd::done) m_done.tell(words.made, made.file);
}

void frmReports::saveWorkbook() {
    const TableFormat& format = workbookFormat();
    FileDialogSettings dialog;
    dialog.objectName = CDFilename.objectName;
    dialog.title = workbookTitle;
    dialog.filter = tableFilter(format);
    dialog.initialFolder = folderOf(GLOBAL.fileNames[0]);
    dialog.overwritePrompt = true;
    dialog.defaultExtension = format.extension.substr(1);
    const std::optional<ChosenFile> chosen = services().dialogs.chooseFile(FileDialogKind::save, dialog);
    if (!chosen) return;
    services().files.setCurrentFolder(services().machine.applicationFolder());
    if (chosen->refusal) {
        services().dialogs.show(refusedName(*chosen));
    } else if (formatOfExtension(chosen->name) != &format) {
        services().dialogs.show({"The workbook's name must end in " + std::string(format.extension) + ".",
                                 workbookTitle, Icon::exclamation, Buttons::ok});
    } else {
        const ReportSelection selection = m_choices.selection();
        produce(OutputMode::workbook, {RESULTS, selection, GLOBAL.fileNames[0], chosen->name});
    }
}

// Input may pass here, so that Esc can cancel; all else is switched off meanwhile.
bool frmReports::showProgress(double share) {
    Progress.setValue(static_cast<int>(share * (Progress.maximum() - 2)));
    services().windows.passEvents();
    return !m_cancelled;
}

bool frmReports::onKey(int key, Qt::KeyboardModifiers) {
    if (key != Qt::Key_Escape) return false;
    m_cancelled = m_busy;
    frameExplain.hide();
    return true;
}

void frmReports::setBusy(const std::string& doing) {
    m_busy = true;
    m_cancelled = false;
    m_focusBefore = focusWidget();
    frameExplain.hide();
    lblProgress.setText(shown(doing));
    lblCancel.show();
    Progress.setValue(0);
    frameProgress.show();
    enableChoices(false);
    setFocus();
    services().windows.updateScreen();
}

void frmReports::setIdle() {
    m_busy = false;
    frameProgress.hide();
    enableChoices(true);
    if (m_focusBefore != nullptr) m_focusBefore->setFocus(); // keys go on where they were
}

void frmReports::enableChoices(bool enabled) {
    menuBar()->setEnabled(enabled);
    mnuWorkbook.setEnabled(enabled && m_loaded);
    for (QWidget* control : std::initializer_list<QWidget*>{&lstDets, &lstReaches, &frameOptions})
        control->setEnabled(enabled);
    for (const ReportBox box : {ReportBox::allDeterminands, ReportBox::allReaches})
        Check[static_cast<int>(box)].setEnabled(enabled);
}

void frmReports::showExplanation() {
    frameExplain.show();
    frameExplain.raise();
    cmdView[viewButton].setFocus();
}

void frmReports::chooseOutputFile(int button) {
    CDFilename.title = "Open output text file";
    // Kept so: put in front each time, the list of file types grows with every use.
    CDFilename.filter = "Input data files (*.DAT)|*.DAT|All files (*.*)|*.*|" + CDFilename.filter;
    const std::optional<std::string> name = askForFile();
    frameExplain.hide();
    if (!name) return;
    m_done.clear();
    if (button == viewButton) return viewListing(*name);
    const OutputResult printed = PrintFile(services(), *name);
    if (printed == OutputEnd::done) m_done.tell("The listing", printed.file);
}

void frmReports::viewListing(const std::string& name) {
    if (!m_listing) m_listing = std::make_unique<frmListing>(services());
    m_listing->view(name);
}

void frmReports::refresh() {
    refreshLists();
    showVerdict();
}

void frmReports::refreshLists() {
    showList(lstReaches, m_choices.reaches());
    showList(lstDets, m_choices.determinands());
    for (const auto& [index, box] : Check) {
        const QSignalBlocker quiet(box);
        box->setChecked(m_choices.ticked(static_cast<ReportBox>(index)));
    }
    QCheckBox& targets = Check[static_cast<int>(ReportBox::targets)];
    targets.setText(shown(m_choices.targetsCaption()));
    targets.setAccessibleName(shown(trim(m_choices.targetsCaption())));
}

void frmReports::showVerdict() {
    const ReportSelection selection = m_choices.selection();
    const ColumnVerdict verdict = verdictOn(CountCols(selection));
    Label[7].setText(shown(verdict.countText));
    Label[8].setText(shown(verdict.fitText));
    for (const int index : {7, 8})
        setBackground(Label[index], paletteColour(verdict.colour));
    const bool tooWide = verdict.fit == PageFit::tooWide;
    lblFit.setText(tooWide ? shown(fitHint(determinandsThatFit(selection))) : QString());
    mnuPrint.setEnabled(m_loaded && !tooWide);
    mnuSpreadsheet.setEnabled(m_loaded);
    mnuWorkbook.setEnabled(m_loaded);
    lblNextStep.setText(shown(nextStep()));
}

std::string frmReports::nextStep() const {
    if (m_loaded)
        return "Choose reaches, determinands and options, then Print tabular output or Spreadsheet file.";
    if (m_loadsSeen > 0) return "The results could not be read. Choose Open and pick a results file.";
    return "Next: choose Open and pick a results file.";
}

} // namespace korvel
