#include "explore/frmExplore.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "drawing/paint/Shown.h"
#include "explore/PathChoice.h"
#include "explore/Scene.h"
#include "platform/Guide.h"
#include "study/SeriesValues.h"
#include "toolkit/forms/DroppedFiles.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>

#include <algorithm>
#include <array>
#include <utility>

namespace korvel {

namespace {

const char* const windowCaption = "KORVEL Explorer";

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
      m_handing(services, handedOn(), handingOnNews(), *this),
      m_theme(desktopTheme()),
      m_themeWatch(handlers().guarded([this] {
          if (desktopTheme() != m_theme) showTheme();
      })) {
    m_clock.start();
    m_openDialog.objectName = "cdOpen";
    m_openDialog.title = "Open results";
    m_openDialog.filter = "Results and studies (*.SGR *.korvel-study)|*.SGR *.korvel-study|"
                          "Results files (*.SGR)|*.SGR|Studies (*.korvel-study)|*.korvel-study|"
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
    m_tables->showInFront(QString::fromUtf8(m_memory.place("table")));
    refresh();
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

HandingOnNews frmExplore::handingOnNews() {
    return {[this] { m_status->done().clear(); },
            [this](const std::string& what, const std::string& file) { m_status->done().tell(what, file); },
            [this] { m_status->done().say("The picture was copied."); }};
}

void frmExplore::saveStudy(bool underAnotherName) {
    m_status->done().clear();
    if (underAnotherName ? m_keeping.saveAs() : m_keeping.save())
        m_status->done().tell("The study", m_keeping.file());
    refresh();
}

Drawing frmExplore::picture(double width, double height, Theme theme) const {
    return m_profile->drawing(width, height, theme);
}

void frmExplore::onActivate() {
    const std::vector<std::string> files = std::exchange(m_openOnStart, {});
    if (!files.empty()) openAny(files);
}

void frmExplore::runsChanged(const std::vector<std::string>& added) {
    if (!added.empty()) m_status->done().clear();
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
    std::vector<std::string> files;
    for (const ChosenFile& chosen : services().dialogs.chooseFiles(m_openDialog)) {
        if (chosen.refusal)
            services().dialogs.show(refusedName(chosen));
        else
            files.push_back(chosen.name);
    }
    openAny(files);
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

// With a star in front of a study that is not saved as it is: "ALDER.SGR and 2 more - KORVEL Explorer"
std::string frmExplore::titleText() const {
    if (m_state.isEmpty()) return windowCaption;
    if (!m_keeping.file().empty())
        return (m_keeping.isChanged() ? "*" : "") + fileOf(m_keeping.file()) + " - " + windowCaption;
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

void frmExplore::giveReadoutRoom() {
    m_status->giveRoom(m_state.shownRuns().size(), height());
}

void frmExplore::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    giveReadoutRoom();
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
    m_status->showReadout(place ? readoutTexts(*place) : std::vector<QString>());
    if (!m_followCursor.isActive()) m_followCursor.start();
}

// Whole, and with shorter and shorter names of runs.
std::vector<QString> frmExplore::readoutTexts(std::size_t place) const {
    const Readout whole = m_scene.readout(place);
    const auto textOf = [&](const Readout& readout) {
        return QString::fromStdString(cursorText(readout, m_scene.view().kind, m_navigator.panel()));
    };
    std::vector<QString> texts = {textOf(whole)};
    for (const std::size_t letters : {24, 16, 10})
        if (!m_status->fits(texts.back())) texts.push_back(textOf(withShortNames(whole, letters)));
    return texts;
}

void frmExplore::told(Changed changed) {
    if (changed == Changed::view) {
        refreshPictures();
        setWindowTitle(shown(titleText())); // what is seen belongs to the study
    }
    if (changed != Changed::nothing) refreshCursor();
}

void frmExplore::showTheme() {
    m_theme = desktopTheme();
    QApplication::setPalette(paletteOf(m_theme));
    m_profile->setTheme(m_theme);
    m_network->setTheme(m_theme);
    m_side->show(m_state, listedRuns(), m_theme);
}

bool frmExplore::onKey(int key, Qt::KeyboardModifiers) {
    if (key != Qt::Key_Escape) return false;
    if (m_runs.isLoading())
        m_runs.cancel();
    else
        told(m_navigator.letGo());
    m_status->done().clear();
    return true;
}

void frmExplore::dragEnterEvent(QDragEnterEvent* event) {
    if (!event->mimeData()->hasUrls()) return;
    event->setDropAction(Qt::CopyAction); // whatever the key: the files stay where they are
    event->accept();
}

void frmExplore::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // Afterwards: a question that is asked here would keep the one waiting who drops.
    QTimer::singleShot(
        0, this, handlers().guarded([this, files = droppedFiles(*event->mimeData())] { openAny(files); }));
}

bool frmExplore::onClose() {
    if (!m_keeping.mayClose()) return false;
    m_memory.setPlace("window", saveGeometry());
    m_memory.setPlace("parts", saveState());
    m_memory.setPlace("pictures", m_parts->saveState());
    m_memory.setPlace("table", m_tables->nameInFront().toUtf8());
    return true;
}

} // namespace korvel
