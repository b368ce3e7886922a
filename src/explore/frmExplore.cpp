#include "explore/frmExplore.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "drawing/paint/Shown.h"
#include "drawing/paint/Twips.h"
#include "explore/PathChoice.h"
#include "explore/RunList.h"
#include "explore/Scene.h"
#include "platform/Guide.h"
#include "study/SeriesValues.h"
#include "toolkit/forms/DroppedFiles.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace korvel {

namespace {

const char* const windowCaption = "KORVEL Explorer";
constexpr int sideWidth = 250; // pixels, at first
constexpr int progressWidth = 160;
constexpr int networkShare = 130, pictureShare = 420, tableShare = 180;
constexpr int runsOfALine = 4;         // in the readout
constexpr int cursorRest = 40;         // milliseconds
constexpr double shareOfScreen = 0.85; // of a window that is not maximised any more

// Studies first.
std::vector<std::string> recentOf(const ExploreMemory& memory) {
    std::vector<std::string> recent = memory.recentStudies();
    const std::vector<std::string> files = memory.recentFiles();
    recent.insert(recent.end(), files.begin(), files.end());
    return recent;
}

} // namespace

frmExplore::frmExplore(Platform& services, ExploreMemory& memory, std::vector<std::string> files)
    : Form(services, "frmExplore", windowCaption),
      m_memory(memory),
      m_openOnStart(std::move(files)),
      m_runs(m_state, services.files, handlers()),
      m_keeping(services, memory, m_state),
      m_handing(services, handedOn(), *this),
      m_theme(desktopTheme()),
      m_themeWatch(handlers().guarded([this] { showTheme(); })) {
    m_clock.start();
    m_openDialog.objectName = "cdOpen";
    m_openDialog.title = "Open results";
    m_openDialog.filter = "Results files (*.SGR)|*.SGR|Studies (*.korvel-study)|*.korvel-study|"
                          "All files (*)|*";
    setAcceptDrops(true);
    layOut();
    connectBar();
    connectSide();
    connectRuns();
    connectTables();
    connectNetwork();
    connectHandingOn();
    setHelp([this] { OpenGuide(this->services()); });
    showTheme();
    if (!restoreGeometry(m_memory.place("window"))) takeScreen();
    restoreState(m_memory.place("parts"));
    m_parts->restoreState(m_memory.place("pictures"));
    refresh();
}

// A size of its own first, for when it is not maximised any more.
void frmExplore::takeScreen() {
    const WorkArea area = services().machine.workArea();
    resize(pixels(area.width * shareOfScreen), pixels(area.height * shareOfScreen));
    setWindowState(Qt::WindowMaximized);
}

void frmExplore::layOut() {
    m_bar = new ExploreBar(handlers(), this);
    addToolBar(m_bar);
    m_side = new SidePanel(handlers(), this);
    m_dock = new QDockWidget("Runs and series", this);
    m_dock->setObjectName("dockSide");
    m_dock->setWidget(m_side);
    m_dock->setFeatures(QDockWidget::DockWidgetMovable);
    m_dock->setTitleBarWidget(new QWidget(m_dock)); // headings of its own say what it is
    addDockWidget(Qt::LeftDockWidgetArea, m_dock);
    resizeDocks({m_dock}, {sideWidth}, Qt::Horizontal);

    m_profile = new ProfilePicture(
        m_navigator, m_scene, services().screenMetrics, handlers(),
        [this](Changed changed) { told(changed); }, this);
    m_parts = new QSplitter(Qt::Vertical, this);
    m_parts->setObjectName("splitPictures");
    m_parts->setChildrenCollapsible(false);
    m_tables = new ExploreTables(handlers(), this);
    m_network = new NetworkPicture(services().screenMetrics, handlers(), this);
    m_parts->addWidget(m_network);
    m_parts->addWidget(m_profile);
    m_parts->addWidget(m_tables);
    m_parts->setSizes({networkShare, pictureShare, tableShare});
    int part = 0;
    for (const int share : {networkShare, pictureShare, tableShare})
        m_parts->setStretchFactor(part++, share);
    m_empty = new EmptyPage(handlers(), this);
    m_pages = new QStackedWidget(this);
    m_pages->addWidget(m_empty);
    m_pages->addWidget(m_parts);
    auto* all = new QVBoxLayout(&client());
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_pages);
    makeStatusLine();
}

void frmExplore::makeStatusLine() {
    lblReadout = new QLabel(this);
    lblReadout->setObjectName("lblReadout");
    lblReadout->setTextFormat(Qt::PlainText);
    lblReadout->setContentsMargins(8, 4, 8, 4);
    lblReadout->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblReadout->setWordWrap(true);
    lblReadout->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // no text widens the window
    m_progressText = new QLabel(this);
    m_progress = new QProgressBar(this);
    m_progress->setObjectName("Progress");
    m_progress->setAccessibleName("Progress");
    m_progress->setFixedWidth(progressWidth);
    m_progress->setTextVisible(false);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(lblReadout, 1);
    statusBar()->addPermanentWidget(m_progressText);
    statusBar()->addPermanentWidget(m_progress);
    endProgress();
}

void frmExplore::connectBar() {
    onClick(m_bar->open(), [this] { open(); });
    on(m_bar->openMenu(), &QMenu::aboutToShow, [this] { fillOpenMenu(); });
    onClick(m_bar->zoomIn(), [this] { told(m_navigator.zoomAtCursor(1.5, m_clock.elapsed())); });
    onClick(m_bar->zoomOut(), [this] { told(m_navigator.zoomAtCursor(1 / 1.5, m_clock.elapsed())); });
    onClick(m_bar->showAll(), [this] { told(m_navigator.showAll()); });
    onClick(m_bar->goBack(), [this] { told(m_navigator.goBack()); });
    m_bar->onFrom = [this](int reach) {
        choosePath(
            withUpperEnd(*m_state.study->base().file, *m_state.network, {m_state.from, m_state.to}, reach));
    };
    m_bar->onTo = [this](int reach) { choosePath({m_state.from, reach}); };
    m_bar->onView = [this](ExploreView view) { m_state.view = view, refresh(); };
    m_bar->onStatistic = [this](Statistic statistic) { m_state.statistic = statistic, refresh(); };
    m_bar->onScale = [this](ScaleKind scale) { m_state.scale = scale, refresh(); };
    m_bar->onFromZero = [this](bool isOn) { m_state.fromZero = isOn, refresh(); };
    m_empty->onOpen = [this] { open(); };
    m_empty->onRecent = [this](const std::string& file) { openAny({modelNameOfHostPath(file)}); };
}

void frmExplore::connectSide() {
    m_side->onAddRun = [this] { open(); };
    m_side->onSeries = [this](std::vector<int> series) { m_state.series = std::move(series), refresh(); };
    m_side->onLowIsBad = [this](int determinand, bool isLow) { setLowIsBad(determinand, isLow); };
    m_side->onSwitched = [this](bool ExploreState::*what, bool isOn) { m_state.*what = isOn, refresh(); };
    RunsList& runs = m_side->runs();
    runs.onShown = [this](std::size_t run, bool isShown) {
        isShown ? (void)m_state.hidden.erase(run) : (void)m_state.hidden.insert(run);
        refresh();
    };
    runs.onMakeBase = [this](std::size_t run) { makeBase(m_state, run), refresh(); };
    runs.onMove = [this](std::size_t run, std::size_t to) { moveRun(m_state, run, to), refresh(); };
    runs.onRemove = [this](std::size_t run) {
        removeRun(m_state, run);
        m_runs.forgetOthers();
        refresh();
    };
}

void frmExplore::connectRuns() {
    m_runs.onChanged = [this](const std::vector<std::string>& added) { runsChanged(added); };
    m_runs.onNotes = [this] { refresh(); };
    m_runs.onRefused = [this](const std::vector<std::string>& problems) { showProblems(problems); };
    m_runs.onProgress = [this](double share) { tellProgress(share); };
    m_runs.onLoaded = [this] { endProgress(); };
}

void frmExplore::connectTables() {
    on(*m_tables, &ExploreTables::placeChosen, [this](int reach, double distance, const QString& side) {
        goTo({reach, distance, typed(side)});
    });
    on(*m_tables, &ExploreTables::seriesChosen, [this](int series) { drawAlso(series); });
    m_followCursor.setSingleShot(true);
    m_followCursor.setInterval(cursorRest);
    on(m_followCursor, &QTimer::timeout, [this] { m_tables->followCursor(m_state.cursor); });
}

void frmExplore::connectNetwork() {
    m_colouring = new QComboBox(m_side);
    m_colouring->setObjectName("cboColouring");
    m_colouring->setAccessibleName("Colours of the network");
    m_colouring->setToolTip("What the colours of the rivers tell, of the run that is chosen in the list");
    m_colouring->addItems({"Verdict", "Value", "Plain"});
    m_side->addChoice("Rivers by", *m_colouring);
    on(*m_colouring, &QComboBox::activated, [this] { refreshNetwork(); });
    on(m_side->runs(), &QListWidget::currentRowChanged, [this] { refreshNetwork(); });
    m_network->onRiver = [this](int reach) {
        choosePath(riverThrough(*m_state.study->base().file, *m_state.network, reach));
    };
    m_network->onSecondEnd = [this](int reach) {
        const PathEnds ends{m_state.from, m_state.to};
        if (const auto other = withEndAt(*m_state.study->base().file, *m_state.network, ends, reach))
            choosePath(*other);
    };
}

HandedOn frmExplore::handedOn() {
    HandedOn handed;
    handed.picture = [this](double width, double height, Theme theme) {
        return picture(width, height, theme);
    };
    handed.table = [this] { return m_tables->tableInFront(); };
    handed.tableName = [this] { return typed(m_tables->nameInFront()); };
    handed.base = [this] { return m_state.isEmpty() ? std::string() : m_state.study->base().file->file; };
    handed.inputs = [this] {
        std::vector<std::string> files;
        if (!m_state.isEmpty())
            for (const StudyRun& run : m_state.study->runs())
                files.push_back(run.file->file);
        return files;
    };
    handed.study = [this] { return m_state.study; };
    handed.lowIsBad = [this] { return lowIsBadOf(m_state); };
    return handed;
}

Drawing frmExplore::picture(double width, double height, Theme theme) const {
    return m_profile->drawing(width, height, theme);
}

void frmExplore::connectHandingOn() {
    QMenu& menu = m_bar->exportMenu();
    const auto add = [&](const char* name, const char* caption, const QKeySequence& keys, auto action) {
        QAction* item = menu.addAction(caption);
        item->setObjectName(name);
        item->setShortcut(keys);
        addAction(item);
        onClick(*item, [this, action] {
            if (!m_state.isEmpty()) action();
        });
    };
    add("actSavePicture", "Save &picture ...", {}, [this] { m_handing.savePicture(); });
    add("actCopyPicture", "&Copy picture", QKeySequence("Ctrl+Shift+C"), [this] { m_handing.copyPicture(); });
    add("actSaveTable", "Save &table in front ...", {}, [this] { m_handing.saveTable(); });
    add("actSavePage", "Save pa&ge for browsers ...", {}, [this] { m_handing.savePage(); });
    add("actSaveAtlas", "Save &atlas ...", {}, [this] { m_handing.saveAtlas(); });
    add("actPrint", "P&rint ...", QKeySequence::Print, [this] { m_handing.print(); });
    menu.addSeparator();
    add("actSaveStudy", "&Save study", QKeySequence::Save, [this] { m_keeping.save(), refresh(); });
    add("actSaveStudyAs", "Sa&ve study as ...", QKeySequence("Ctrl+Shift+S"),
        [this] { m_keeping.saveAs(), refresh(); });
}

void frmExplore::onActivate() {
    const std::vector<std::string> files = std::exchange(m_openOnStart, {});
    if (!files.empty()) openAny(files);
}

void frmExplore::runsChanged(const std::vector<std::string>& added) {
    for (const std::string& file : added)
        m_memory.noteFile(hostPathOf(file));
    takeRememberedLowIsBad();
    refresh();
    if (!added.empty() && !m_state.isEmpty()) m_profile->setFocus();
}

void frmExplore::showProblems(const std::vector<std::string>& problems) {
    std::string text;
    for (const std::string& problem : problems)
        text += (text.empty() ? "" : "\n") + problem;
    services().dialogs.show({text, "Open results", Icon::exclamation, Buttons::ok});
}

void frmExplore::open() {
    if (!m_state.isEmpty()) m_openDialog.initialFolder = folderOf(m_state.study->base().file->file);
    const auto chosen = services().dialogs.chooseFile(FileDialogKind::open, m_openDialog);
    if (!chosen) return;
    if (chosen->refusal) return (void)services().dialogs.show(refusedName(*chosen));
    openAny({chosen->name});
}

void frmExplore::openAny(const std::vector<std::string>& files) {
    const auto study = std::ranges::find_if(files, isStudyFile);
    study == files.end() ? m_runs.open(files) : openStudy(*study);
}

void frmExplore::openStudy(const std::string& file) {
    if (!m_keeping.mayClose()) return;
    const auto study = m_keeping.read(file);
    if (!study) return;
    std::vector<std::string> runs;
    for (const StudyFileRun& run : study->runs)
        runs.push_back(modelNameOfHostPath(run.file));
    m_runs.openInstead(runs, [this, file, study = *study] { showStudy(file, study); });
}

// What could be read of it; what not, the user has been told.
void frmExplore::showStudy(const std::string& file, const StudyFile& study) {
    showAs(m_state, study);
    m_navigator.wayChanged();
    m_state.visible = study.visible;
    m_keeping.wasOpened(file, study);
}

void frmExplore::setLowIsBad(int determinand, bool isLow) {
    std::set<int> low = lowIsBadOf(m_state);
    isLow ? (void)low.insert(determinand) : (void)low.erase(determinand);
    m_state.lowIsBad = low;
    std::vector<std::string> names;
    for (const int number : low)
        names.push_back(shownUtf8(determinandName(m_state.study->base().results(), number)));
    m_memory.setLowIsBad(names);
    refresh();
}

// What the user said of determinands of these names another time.
void frmExplore::takeRememberedLowIsBad() {
    const auto names = m_memory.lowIsBad();
    if (!names || m_state.isEmpty() || m_state.lowIsBad) return;
    const ResultsDataSet& results = m_state.study->base().results();
    std::set<int> low;
    for (int d = 1; d <= results.determinandCount; ++d)
        if (std::ranges::find(*names, shownUtf8(determinandName(results, d))) != names->end()) low.insert(d);
    m_state.lowIsBad = low;
}

void frmExplore::fillOpenMenu() {
    QMenu& menu = m_bar->openMenu();
    menu.clear();
    const auto add = [&](const std::vector<std::string>& files) {
        if (!menu.isEmpty() && !files.empty()) menu.addSeparator();
        for (const std::string& file : files) {
            QAction* item = menu.addAction(QFile::decodeName(file.c_str()));
            onClick(*item, [this, file] { openAny({modelNameOfHostPath(file)}); });
        }
    };
    add(m_memory.recentStudies());
    add(m_memory.recentFiles());
    if (menu.isEmpty()) menu.addAction("Nothing opened yet")->setEnabled(false);
}

void frmExplore::choosePath(PathEnds ends) {
    m_state.from = ends.from;
    m_state.to = ends.to;
    m_navigator.wayChanged();
    refresh();
}

// On its own river where the way does not come by.
void frmExplore::goTo(const ExplorePlace& place) {
    if (m_state.isEmpty()) return;
    if (!m_scene.placeOf(place))
        choosePath(riverThrough(*m_state.study->base().file, *m_state.network, place.reach));
    told(m_navigator.goTo(place));
}

void frmExplore::drawAlso(int series) {
    if (std::ranges::find(m_state.series, series) != m_state.series.end()) return;
    m_state.series.push_back(series);
    std::ranges::sort(m_state.series);
    refresh();
}

std::vector<ListedRun> frmExplore::listedRuns() const {
    std::vector<ListedRun> listed;
    if (m_state.isEmpty()) return listed;
    for (std::size_t run = 0; run < m_state.study->runs().size(); ++run) {
        const StudyRun& there = m_state.study->runs()[run];
        listed.push_back({there.name, hostPathOf(there.file->file), m_runs.noteOf(there.file->file),
                          m_state.isShown(run)});
    }
    return listed;
}

// "ALDER.SGR and 2 more - KORVEL Explorer"
std::string frmExplore::titleText() const {
    if (m_state.isEmpty()) return windowCaption;
    if (!m_keeping.file().empty()) return fileOf(m_keeping.file()) + " - " + windowCaption;
    const std::size_t others = m_state.study->runs().size() - 1;
    std::string title = m_state.study->base().name;
    if (others > 0) title += " and " + std::to_string(others) + " more";
    return title + " - " + windowCaption;
}

void frmExplore::refresh() {
    m_bar->show(m_state);
    m_side->show(m_state, listedRuns(), m_theme);
    setWindowTitle(shown(titleText()));
    m_pages->setCurrentWidget(m_state.isEmpty() ? static_cast<QWidget*>(m_empty) : m_parts);
    m_dock->setVisible(!m_state.isEmpty());
    if (m_state.isEmpty()) m_empty->show(recentOf(m_memory));
    giveReadoutRoom();
    refreshPictures();
    refreshCursor();
}

// As many lines as the values of all runs may need, so that nothing moves while the cursor does.
void frmExplore::giveReadoutRoom() {
    const auto runs = static_cast<int>(m_state.shownRuns().size());
    const int lines = 1 + runs / runsOfALine;
    const QMargins margins = lblReadout->contentsMargins();
    lblReadout->setFixedHeight(lines * lblReadout->fontMetrics().lineSpacing() + margins.top() +
                               margins.bottom());
}

void frmExplore::refreshPictures() {
    m_state.isEmpty() ? m_scene.clear() : m_scene.show(m_state);
    m_profile->refresh();
    refreshNetwork();
    m_tables->show(m_state);
}

void frmExplore::refreshNetwork() {
    if (m_state.isEmpty()) return;
    constexpr std::array colourings = {NetworkColours::byVerdict, NetworkColours::byValue,
                                       NetworkColours::plain};
    const auto colours = colourings[static_cast<std::size_t>(m_colouring->currentIndex())];
    const auto run = static_cast<std::size_t>(std::max(0, m_side->runs().currentRow()));
    const bool hasPanel = m_navigator.panel() < m_state.series.size();
    const int series = hasPanel ? m_state.series[m_navigator.panel()] : 0;
    m_network->show(m_state, m_colours.of(m_state, colours, run, series));
}

void frmExplore::refreshCursor() {
    m_profile->refreshCursor();
    m_network->showCursor(m_state.cursor);
    const auto place = m_navigator.place();
    QString text;
    if (place)
        text = QString::fromStdString(
            cursorText(m_scene.readout(*place), m_scene.view().kind, m_navigator.panel()));
    lblReadout->setText(text);
    lblReadout->setToolTip(text);
    if (!m_followCursor.isActive()) m_followCursor.start();
}

void frmExplore::told(Changed changed) {
    if (changed == Changed::view) refreshPictures();
    if (changed != Changed::nothing) refreshCursor();
}

void frmExplore::showTheme() {
    m_theme = desktopTheme();
    QApplication::setPalette(paletteOf(m_theme));
    m_profile->setTheme(m_theme);
    m_network->setTheme(m_theme);
    m_side->show(m_state, listedRuns(), m_theme);
}

void frmExplore::tellProgress(double share) {
    m_progressText->setText("Reading ...  Esc cancels");
    m_progress->setValue(static_cast<int>(share * m_progress->maximum()));
    m_progressText->show();
    m_progress->show();
}

void frmExplore::endProgress() {
    m_progressText->hide();
    m_progress->hide();
}

bool frmExplore::onKey(int key, Qt::KeyboardModifiers) {
    if (key != Qt::Key_Escape) return false;
    if (m_runs.isLoading())
        m_runs.cancel();
    else
        told(m_navigator.letGo());
    return true;
}

void frmExplore::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void frmExplore::dropEvent(QDropEvent* event) {
    handlers().run([&] { openAny(droppedFiles(*event->mimeData())); });
    event->acceptProposedAction();
}

bool frmExplore::onClose() {
    if (!m_keeping.mayClose()) return false;
    m_memory.setPlace("window", saveGeometry());
    m_memory.setPlace("parts", saveState());
    m_memory.setPlace("pictures", m_parts->saveState());
    return true;
}

} // namespace korvel
