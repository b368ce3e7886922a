// The main form's start page: where it stands, and what its buttons do.
#include "app/frmStart.h"

#include "drawing/paint/Twips.h"
#include "global/GLOBAL.h"
#include "platform/DialogsChosen.h"
#include "runs/RunModel.h"

#include <QTimer>

#include <algorithm>

namespace korvel {

namespace {

constexpr int margin = 24;      // pixels, between the page and what stands in the middle
constexpr int widest = 440;     // of a column
constexpr int tallest = 560;    // likewise
constexpr int laterReload = 50; // milliseconds after the list has changed, as it changes several times then

} // namespace

// After all else: whoever waits for the start has seen the form by then.
void frmStart::paintEvent(QPaintEvent* event) {
    Form::paintEvent(event);
    if (m_isPainted) return;
    m_isPainted = true;
    QTimer::singleShot(0, this, handlers().guarded([this] {
        loadHidden();
        makeStartPage();
    }));
}

void frmStart::makeStartPage() {
    m_page = std::make_unique<StartPage>(
        client(), services(), handlers(),
        StartPage::Deeds{[this](const LastRun& run) { runAgain(run); },
                         [this](const LastRun& run) { showGraphsOf(run.resultsFile); },
                         [this](const LastRun& run) { showReportsOf(run.resultsFile); },
                         [this](const LastRun& run) { services().machine.startExplorer({run.resultsFile}); },
                         [this] { services().machine.showFolder(services().machine.samplesFolder()); }});
    placeStartPage();
    m_page->reload();
    QWidget* last = nullptr;
    for (QWidget* stop : m_page->stops()) {
        if (last != nullptr) setTabOrder(last, stop);
        last = stop;
    }
    setTabOrder(last, &cmdExplore);
    setTabOrder(&cmdExplore, &cmdGuide);
    m_reloadSoon.setSingleShot(true);
    m_reloadSoon.setInterval(laterReload);
    on(m_reloadSoon, &QTimer::timeout, [this] { m_page->reload(); });
    services().machine.watchLastRuns([this] { m_reloadSoon.start(); });
}

// Beside the logo, down to the product's name.
void frmStart::placeStartPage() {
    QRect middle;
    for (const auto& [index, shape] : shpLogo)
        middle |= shape->geometry();
    const QRect texts = lblEngine.geometry();
    const int top = texts.bottom() + margin;
    const int height = std::min(tallest, lblKorvel[1].y() - top);
    const int left = texts.left(), right = texts.right();
    const int width = std::min({widest, middle.left() - margin - left, right - middle.right() - margin});
    m_page->setRoom({left, top, width, height}, {right - width, top, width, height});
}

void frmStart::runAgain(const LastRun& run) {
    GLOBAL.RunType = run.runType;
    DialogsChosen dialogs(services(), run.dataFile);
    Platform platform = withDialogs(services(), dialogs);
    DataFiles dataFiles(platform, dataFileCallbacks());
    RunModel(platform, dataFiles);
    refresh();
}

// As after a run, but that a file that can't be read is not waited for.
void frmStart::showGraphsOf(const std::string& resultsFile) {
    GLOBAL.fileNames[0] = resultsFile;
    GLOBAL.graphResultsPending = true;
    showGraphs();
    GLOBAL.graphResultsPending = false;
    refresh();
}

void frmStart::showReportsOf(const std::string& resultsFile) {
    GLOBAL.fileNames[0] = resultsFile;
    GLOBAL.reportResultsPending = true;
    showReports();
    refresh();
}

} // namespace korvel
