#include "app/frmStartPage.h"

#include "basic/DiskNames.h"
#include "drawing/paint/Shown.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <span>
#include <utility>

namespace korvel {

namespace {

constexpr int leastWidth = 200, leastHeight = 170; // pixels; on a smaller desktop there is no page
constexpr int between = 6;                         // pixels, between what stands below each other
constexpr int betweenRuns = 2;                     // pixels around each run in the list
constexpr int buttonWidth = 220;                   // pixels at most

// The first of these that has room is shown.
constexpr std::array firstSteps{
    "No model has been run yet. Choose RUN THE KORVEL MODEL, then 0 BASIC RUN, and a data file of yours; or "
    "begin with \"Samples\", a catchment that is ready to run. When a run has finished it stands here, with "
    "what it says about the targets. \"Guide\" leads through all of it.",
    "No model has been run yet. RUN THE KORVEL MODEL starts one; \"Guide\" leads through it.",
    "No model has been run yet."};

QString hostPath(const std::string& file) {
    return QFile::decodeName(hostPathOf(file).c_str());
}

// "today 14:03", "21 Nov 2026 14:03"
QString timeWords(long long milliseconds) {
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(milliseconds);
    const QString clock = time.toString("HH:mm");
    if (time.date() == QDate::currentDate()) return "today " + clock;
    return QLocale::c().toString(time.date(), "d MMM yyyy ") + clock;
}

QString capitalised(QString words) {
    if (!words.isEmpty()) words[0] = words[0].toUpper();
    return words;
}

bool hasRoom(QWidget& frame) {
    QLayout& layout = *frame.layout();
    layout.invalidate();
    return layout.heightForWidth(frame.width()) <= frame.height();
}

} // namespace

StartPage::StartPage(QWidget& form, Platform& services, Handlers& handlers, const Deeds& deeds)
    : m_services(services),
      m_runs(*new QWidget(&form)),
      m_next(*new QWidget(&form)),
      lblLastRuns(text(m_runs, "lblLastRuns")),
      lstLastRuns(*new QListWidget(&m_runs)),
      lblNoRuns(text(m_runs, "lblNoRuns")),
      cmdSamples(*new QPushButton("&Samples", &m_runs)),
      lblRun(text(m_next, "lblRun")),
      lblRunFacts(text(m_next, "lblRunFacts")),
      lblVerdict(text(m_next, "lblVerdict")),
      cmdRunAgain(button("cmdRunAgain", "Run &again", "Start the model on this data file once more")),
      cmdRunGraphs(button("cmdRunGraphs", "Grap&hs", "Open the graphs on this run's results")),
      cmdRunReports(button("cmdRunReports", "Re&ports", "Open the reports on this run's results")),
      cmdRunExplore(button("cmdRunExplore", "Exp&lore", "Look down any river of this run")) {
    layOutRuns();
    layOutNext();
    connectDeeds(handlers, deeds);
}

QLabel& StartPage::text(QWidget& in, const char* name) {
    auto& label = *new QLabel(&in);
    label.setObjectName(name);
    label.setTextFormat(Qt::PlainText);
    label.setWordWrap(true);
    return label;
}

QPushButton& StartPage::button(const char* name, const char* caption, const char* tip) {
    auto& button = *new QPushButton(caption, &m_next);
    button.setObjectName(name);
    button.setToolTip(tip);
    button.setAutoDefault(true);
    return button;
}

void StartPage::layOutRuns() {
    m_runs.setObjectName("frameLastRuns");
    lblLastRuns.setText("Las&t runs");
    lblLastRuns.setWordWrap(false);
    lblLastRuns.setBuddy(&lstLastRuns);
    lstLastRuns.setObjectName("lstLastRuns");
    lstLastRuns.setAccessibleName("Last runs");
    lstLastRuns.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstLastRuns.setUniformItemSizes(true);
    lstLastRuns.setSpacing(betweenRuns);
    lblNoRuns.setText(firstSteps.front());
    cmdSamples.setObjectName("cmdSamples");
    cmdSamples.setAutoDefault(true);
    cmdSamples.setToolTip("Copy the sample catchment and run the model on it");
    cmdSamples.setAccessibleDescription(cmdSamples.toolTip());
    m_hasSamples = !m_services.machine.samplesFolder().empty();
    auto* column = new QVBoxLayout(&m_runs);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(between);
    column->addWidget(&lblLastRuns);
    column->addWidget(&lstLastRuns, 1);
    column->addWidget(&lblNoRuns);
    column->addWidget(&cmdSamples, 0, Qt::AlignLeft);
    column->addStretch(0);
}

void StartPage::layOutNext() {
    m_next.setObjectName("frameNextSteps");
    auto* column = new QVBoxLayout(&m_next);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(between);
    for (QLabel* label : {&lblRun, &lblRunFacts, &lblVerdict})
        column->addWidget(label);
    column->addSpacing(between);
    for (QPushButton* each : {&cmdRunAgain, &cmdRunGraphs, &cmdRunReports, &cmdRunExplore})
        column->addWidget(each);
    column->addStretch(1);
}

void StartPage::connectDeeds(Handlers& handlers, const Deeds& deeds) {
    const auto onSelected = [this](const std::function<void(const LastRun&)>& deed) {
        return [this, deed] {
            const Listed* const chosen = selected();
            if (chosen == nullptr) return;
            const LastRun run = chosen->run; // the list may be filled anew meanwhile
            deed(run);
        };
    };
    const auto connectTo = [&](QPushButton& button, const std::function<void(const LastRun&)>& deed) {
        QObject::connect(&button, &QPushButton::clicked, handlers.guarded(onSelected(deed)));
    };
    connectTo(cmdRunAgain, deeds.runAgain);
    connectTo(cmdRunGraphs, deeds.graphs);
    connectTo(cmdRunReports, deeds.reports);
    connectTo(cmdRunExplore, deeds.explore);
    QObject::connect(&cmdSamples, &QPushButton::clicked, handlers.guarded(deeds.samples));
    QObject::connect(&lstLastRuns, &QListWidget::currentRowChanged,
                     handlers.guarded([this] { showSelected(); }));
    QObject::connect(&lstLastRuns, &QListWidget::itemActivated, handlers.guarded([this, deeds, onSelected] {
        if (cmdRunGraphs.isEnabled()) onSelected(deeds.graphs)();
    }));
}

void StartPage::setRoom(const QRect& left, const QRect& right) {
    m_runs.setGeometry(left);
    m_next.setGeometry(right);
    m_hasRoom = left.width() >= leastWidth && left.height() >= leastHeight;
    showParts();
    fitTexts();
}

std::vector<QWidget*> StartPage::stops() const {
    return {&lstLastRuns, &cmdSamples, &cmdRunAgain, &cmdRunGraphs, &cmdRunReports, &cmdRunExplore};
}

RunToday StartPage::today(const LastRun& run) const {
    RunToday today;
    today.hasData = m_services.files.exists(run.dataFile);
    today.hasResults = m_services.files.exists(run.resultsFile);
    if (today.hasResults && !run.verdict.empty()) {
        const QFileInfo results(hostPath(run.resultsFile));
        today.resultsAreOthers = results.lastModified().toMSecsSinceEpoch() != run.resultsStamp;
    }
    return today;
}

void StartPage::reload() {
    const std::vector<Listed> before = std::exchange(m_listed, {});
    const int row = lstLastRuns.currentRow();
    for (LastRun& run : m_services.machine.lastRuns()) {
        const RunToday state = today(run);
        m_listed.push_back({std::move(run), state});
    }
    fillList(rowToSelect(before, row));
    showParts();
    showSelected();
}

// What was selected, but for a run that has come in: that is the one to look at.
int StartPage::rowToSelect(const std::vector<Listed>& before, int row) const {
    const auto isSelected = [&](const Listed& listed) {
        return listed.run.dataFile == before[static_cast<std::size_t>(row)].run.dataFile;
    };
    if (m_listed.empty() || before.empty() || row < 0) return 0;
    if (m_listed.front().run.ended > before.front().run.ended) return 0;
    const auto same = std::ranges::find_if(m_listed, isSelected);
    return same == m_listed.end() ? 0 : static_cast<int>(same - m_listed.begin());
}

void StartPage::setLetters(double points, double factor) {
    QFont font = lblRunFacts.font();
    font.setPointSizeF(points * factor);
    for (QWidget* each : std::initializer_list<QWidget*>{&m_runs, &m_next, &lstLastRuns, &lblNoRuns,
                                                         &lblRunFacts, &lblVerdict, &cmdSamples})
        each->setFont(font);
    for (QPushButton* each : {&cmdRunAgain, &cmdRunGraphs, &cmdRunReports, &cmdRunExplore}) {
        each->setFont(font);
        each->setMaximumWidth(qRound(buttonWidth * factor));
    }
    cmdSamples.setMinimumWidth(qRound(buttonWidth * factor / 2));
    font.setBold(true);
    for (QLabel* each : {&lblLastRuns, &lblRun})
        each->setFont(font);
    lblLastRuns.adjustSize(); // before the first run nothing lays it out
}

void StartPage::showParts() {
    const bool some = !m_listed.empty();
    for (QWidget* each : std::initializer_list<QWidget*>{&lblLastRuns, &lstLastRuns})
        each->setVisible(m_hasRoom && some);
    lblNoRuns.setVisible(m_hasRoom && !some);
    cmdSamples.setVisible(m_hasRoom && m_hasSamples);
    m_runs.setVisible(m_hasRoom);
    for (QWidget* each :
         std::initializer_list<QWidget*>{&m_next, &lblRun, &lblRunFacts, &lblVerdict, &cmdRunAgain,
                                         &cmdRunGraphs, &cmdRunReports, &cmdRunExplore})
        each->setVisible(m_hasRoom && some);
}

void StartPage::fillList(int selected) {
    const QSignalBlocker quiet(lstLastRuns);
    lstLastRuns.clear();
    for (const Listed& listed : m_listed) {
        const QString words = shown(nameOf(listed.run)) + ", " + timeWords(listed.run.ended) + "\n" +
                              shown(briefVerdict(listed.run, listed.today));
        auto* item = new QListWidgetItem(words, &lstLastRuns);
        item->setToolTip(hostPath(listed.run.dataFile));
    }
    if (!m_listed.empty()) lstLastRuns.setCurrentRow(selected);
}

const StartPage::Listed* StartPage::selected() const {
    const int row = lstLastRuns.currentRow();
    return row >= 0 && row < static_cast<int>(m_listed.size()) ? &m_listed[static_cast<std::size_t>(row)]
                                                               : nullptr;
}

void StartPage::showSelected() {
    const Listed* const chosen = selected();
    if (chosen == nullptr) return;
    const auto& [run, today] = *chosen;
    const QString name = shown(nameOf(run));
    lblRun.setText(name);
    lblRunFacts.setText(capitalised(timeWords(run.ended)) + ", " + shown(runTypeWords(run.runType)) +
                        ", in " + QFileInfo(hostPath(run.dataFile)).path());
    lblVerdict.setText(shown(fullVerdict(run, today)));
    // What stands beside the list is no stop of Tab's.
    lstLastRuns.setAccessibleDescription(lblRunFacts.text() + ". " + lblVerdict.text() +
                                         " The buttons that follow act on it.");
    cmdRunAgain.setEnabled(today.hasData);
    for (QPushButton* each : {&cmdRunGraphs, &cmdRunReports, &cmdRunExplore})
        each->setEnabled(today.hasResults);
    for (QPushButton* each : {&cmdRunAgain, &cmdRunGraphs, &cmdRunReports, &cmdRunExplore})
        each->setAccessibleDescription(name + ": " + each->toolTip());
    fitTexts();
}

// On a small desktop the buttons come first; the list tells the verdict in brief.
void StartPage::fitTexts() {
    if (!m_hasRoom) return;
    if (m_listed.empty()) return fitFirstSteps();
    lblRunFacts.setVisible(true);
    lblVerdict.setVisible(!lblVerdict.text().isEmpty());
    for (QLabel* each : {&lblRunFacts, &lblVerdict}) {
        if (hasRoom(m_next)) return;
        each->hide();
    }
}

void StartPage::fitFirstSteps() {
    for (const char* const steps : std::span(firstSteps).subspan(m_hasSamples ? 0 : 1)) {
        lblNoRuns.setText(steps);
        if (hasRoom(m_runs)) return;
    }
}

} // namespace korvel
