#include "explore/frmExplore.h"

#include "basic/ModelName.h"
#include "drawing/paint/Shown.h"
#include "drawing/paint/Twips.h"
#include "explore/PathChoice.h"
#include "explore/RunList.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QVBoxLayout>

namespace korvel {

namespace {

constexpr int sideWidth = 250; // pixels, at first
constexpr int networkShare = 130, pictureShare = 420, tableShare = 180;
constexpr int leastProfile = 90, panelMargin = 12; // pixels
constexpr int cursorRest = 40;                     // milliseconds
constexpr double shareOfScreen = 0.85;             // of a window that is not maximised any more

// Panels can be more than there is room for. In the window from the beginning, so that Tab keeps its order.
QScrollArea* scrolled(ProfilePicture& profile) {
    auto* area = new QScrollArea(profile.parentWidget());
    area->setObjectName("scrProfile");
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setMinimumHeight(leastProfile);
    area->setWidget(&profile);
    profile.onPanel = [area](int top, int bottom) {
        area->ensureVisible(0, bottom, 0, panelMargin);
        area->ensureVisible(0, top, 0, panelMargin);
    };
    return area;
}

// On low screens it is higher than they are.
QScrollArea* scrolled(SidePanel& side) {
    auto* area = new QScrollArea(side.parentWidget());
    area->setObjectName("scrSide");
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->viewport()->setAutoFillBackground(false);
    side.setAutoFillBackground(false);
    area->setMinimumWidth(side.minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    area->setWidget(&side);
    return area;
}

} // namespace

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
    m_dock->setWidget(scrolled(*m_side));
    m_dock->setFeatures(QDockWidget::DockWidgetMovable);
    m_dock->setTitleBarWidget(new QWidget(m_dock)); // headings of its own say what it is
    addDockWidget(Qt::LeftDockWidgetArea, m_dock);
    resizeDocks({m_dock}, {sideWidth}, Qt::Horizontal);

    m_profile = new ProfilePicture(
        m_navigator, m_scene, services().screenMetrics, handlers(),
        [this](Changed changed) { told(changed); }, this);
    m_parts = new QSplitter(Qt::Vertical, this);
    m_parts->setObjectName("splitPictures");
    m_tables = new ExploreTables(handlers(), this);
    m_network = new NetworkPicture(services().screenMetrics, handlers(), this);
    m_parts->addWidget(m_network);
    m_parts->addWidget(scrolled(*m_profile));
    m_parts->addWidget(m_tables);
    m_parts->setCollapsible(1, false); // the other two may go where there is little room
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
    m_status = new StatusLine(*statusBar(), services().machine, handlers());
    m_status->setHint(
        "Point at the panels for values. A click holds them, the wheel zooms, dragging moves, Shift "
        "and dragging zooms to a box.");
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
    m_runs.onProgress = [this](double share) { m_status->tellProgress("Reading ...  Esc cancels", share); };
    m_runs.onLoaded = [this] { m_status->endProgress(); };
}

void frmExplore::connectTables() {
    on(*m_tables, &ExploreTables::placeChosen, [this](int reach, double distance, const QString& side) {
        goTo({reach, distance, typed(side)});
    });
    on(*m_tables, &ExploreTables::seriesChosen, [this](int series) { drawAlso(series); });
    on(*m_tables, &ExploreTables::lowIsBadChosen,
       [this](int determinand, bool isLow) { setLowIsBad(determinand, isLow); });
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
    add("actSaveStudy", "&Save study", QKeySequence::Save, [this] { saveStudy(false); });
    add("actSaveStudyAs", "Sa&ve study as ...", QKeySequence("Ctrl+Shift+S"), [this] { saveStudy(true); });
}

} // namespace korvel
