// The main form's start page: where it stands, and what its buttons do.
#include "app/frmStart.h"

#include "app/Samples.h"
#include "basic/FormScaling.h"
#include "drawing/paint/Twips.h"
#include "global/GLOBAL.h"
#include "platform/DialogsChosen.h"
#include "runs/RunModel.h"
#include "toolkit/desktop/ProductIcon.h"

#include <QTimer>

#include <algorithm>

namespace korvel {

namespace {

constexpr int basicRun = 0;     // run type
constexpr int margin = 24;      // pixels, between the page and what stands in the middle
constexpr int widest = 440;     // of a column, with letters of the menus' size
constexpr int tallest = 560;    // likewise
constexpr int laterReload = 50; // milliseconds after the list has changed, as it changes several times then

constexpr double plainFactor = 768 / 452.0; // of designs, on the screen on which letters have the menus' size

// The page's letters grow with the screen, as those of the given forms do; never below the menus'.
double lettersFactor() {
    return std::max(1.0, fontFactor(GLOBAL.ScaleX, GLOBAL.ScaleY) / plainFactor);
}

} // namespace

// After all else: whoever waits for the start has seen the form by then.
void frmStart::paintEvent(QPaintEvent* event) {
    Form::paintEvent(event);
    if (m_isPainted) return;
    m_isPainted = true;
    QTimer::singleShot(0, this, handlers().guarded([this] {
        showProductIcon();
        loadHidden();
        makeStartPage();
    }));
}

// With the page's letters, and as late, since each further size takes its time at the start.
void frmStart::growGuidance() {
    const double factor = lettersFactor();
    if (factor <= 1) return;
    const auto grow = [&](QWidget& control, double wider) {
        Place place = controlPlace(control);
        place.width *= wider;
        place.height *= factor;
        setControlPlace(control, place);
    };
    grow(lblNextStep, 1); // as wide as the form
    grow(cmdExplore, factor);
    grow(cmdGuide, factor);
    placeButtons();
    for (QWidget* control : std::initializer_list<QWidget*>{&lblNextStep, &cmdExplore, &cmdGuide})
        setFontSize(*control, looks::windowText * factor, false); // last: places bring the design's
    keepRoom();
}

void frmStart::makeStartPage() {
    m_page = std::make_unique<StartPage>(
        client(), services(), handlers(),
        StartPage::Deeds{[this](const LastRun& run) { runAgain(run); },
                         [this](const LastRun& run) { showGraphsOf(run.resultsFile); },
                         [this](const LastRun& run) { showReportsOf(run.resultsFile); },
                         [this](const LastRun& run) { services().machine.startExplorer({run.resultsFile}); },
                         [this] { runSample(); }});
    growGuidance();
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
    const double factor = lettersFactor();
    const int height = std::min(qRound(tallest * factor), lblKorvel[1].y() - top);
    const int left = texts.left(), right = texts.right();
    const int width =
        std::min({qRound(widest * factor), middle.left() - margin - left, right - middle.right() - margin});
    m_page->setLetters(looks::windowText, factor);
    m_page->setRoom({left, top, width, height}, {right - width, top, width, height});
}

void frmStart::runAgain(const LastRun& run) {
    runOn(run.dataFile, run.runType);
}

void frmStart::runSample() {
    const Message question = samplesQuestion(copiedSamplesFolder(services().machine));
    if (services().dialogs.show(question) != Answer::yes) return;
    std::string first;
    try {
        first = copySamples(services());
    } catch (const RunTimeError& error) {
        services().dialogs.show(samplesRefusal(error));
        return;
    }
    runOn(first, basicRun);
}

void frmStart::runOn(const std::string& dataFile, int runType) {
    GLOBAL.RunType = runType;
    DialogsChosen dialogs(services(), dataFile);
    Platform platform = withDialogs(services(), dialogs);
    DataFiles dataFiles(platform, dataFileCallbacks());
    RunModel(platform, dataFiles);
    refresh();
}

void frmStart::showGiven(const std::string& resultsFile) {
    resultsFile.empty() ? showGraphs() : showGraphsOf(resultsFile);
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
