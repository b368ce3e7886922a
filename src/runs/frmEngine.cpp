#include "runs/frmEngine.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "basic/Text.h"
#include "drawing/paint/Shown.h"
#include "platform/Guide.h"
#include "runs/DataFileName.h"
#include "runs/RunControlFile.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QTextCursor>
#include <QVBoxLayout>

#include <algorithm>

namespace korvel {

namespace {

constexpr int mostLines = 200000;
constexpr int tickMilliseconds = 200;
constexpr std::size_t mostExplored = 12;
const char* const windowCaption = "KORVEL model run";

// "4.2 s", from a minute on "3 min 07 s".
std::string timeTaken(qint64 milliseconds) {
    const qint64 seconds = milliseconds / 1000;
    if (seconds < 60)
        return QString::number(static_cast<double>(milliseconds) / 1000, 'f', 1).toStdString() + " s";
    return QString("%1 min %2 s").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar('0')).toStdString();
}

} // namespace

frmEngine::frmEngine(Platform& services, StartedRun run, StartTurn turn)
    : Form(services, "frmEngine", windowCaption),
      txtOutput(*new QPlainTextEdit(&client())),
      m_run(std::move(run)),
      m_turn(std::move(turn)) {
    layOut();
    setHelp([this] { OpenGuide(this->services()); });
    cmdOpenFolder.setVisible(!m_run.dataFiles.empty());
    on(cmdOpenFolder, &QPushButton::clicked,
       [this] { this->services().machine.showFolder(folderOf(m_run.dataFiles.front())); });
    QSizePolicy keepsItsRoom = cmdExplore.sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    cmdExplore.setSizePolicy(keepsItsRoom);
    cmdExplore.hide();
    on(cmdExplore, &QPushButton::clicked, [this] { this->services().machine.startExplorer(resultsFiles()); });
    on(cmdStop, &QPushButton::clicked, [this] { askedToStop(); });
    on(cmdClose, &QPushButton::clicked, [this] { close(); });
    on(m_tick, &QTimer::timeout, [this] { refresh(); });
    m_engine.onOutput = handlers().guarded([this](std::string_view bytes) { showOutput(bytes); });
    m_engine.onFinished = handlers().guarded([this](int status) { engineFinished(status); });
}

void frmEngine::layOut() {
    txtOutput.setObjectName("txtOutput");
    txtOutput.setAccessibleName("Output of the model");
    txtOutput.setReadOnly(true);
    txtOutput.setUndoRedoEnabled(false);
    txtOutput.setMaximumBlockCount(mostLines);
    txtOutput.setLineWrapMode(QPlainTextEdit::NoWrap);
    txtOutput.setFont(looks::fixedFont());

    auto* head = new QHBoxLayout;
    head->addWidget(&lblState);
    head->addSpacing(looks::wideGap);
    head->addWidget(&lblFile, 1);
    head->addWidget(&lblTime);
    auto* foot = new QHBoxLayout;
    foot->addWidget(&lblNext, 1);
    foot->addWidget(&cmdExplore);
    foot->addWidget(&cmdOpenFolder);
    foot->addWidget(&cmdStop);
    foot->addWidget(&cmdClose);
    auto* all = new QVBoxLayout(&client());
    all->setContentsMargins(looks::margin, looks::margin, looks::margin, looks::margin);
    all->setSpacing(looks::gap);
    all->addLayout(head);
    all->addWidget(&txtOutput, 1);
    all->addLayout(foot);
}

void frmEngine::onActivate() {
    if (m_started) return;
    m_started = true;
    m_clock.start();
    m_notes.begin();
    m_tick.start(tickMilliseconds);
    startEngine();
}

// The run-control file holds UTF-8, of which a Windows program reads in its own code page only the plain
// letters, unless it declares that it reads all.
void frmEngine::warnOfLetters(const std::string& enginePath) {
    const auto isPlain = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (!isWindowsProgram(enginePath) || isUtf8Program(enginePath)) return;
    for (const std::string& file : m_run.dataFiles)
        if (!std::ranges::all_of(file, isPlain))
            append("The engine is a Windows program. It may not find " + shownUtf8(file) +
                   ", as the name holds letters outside its code page.\n");
}

void frmEngine::startEngine() {
    const std::string folder = services().machine.applicationFolder();
    warnOfLetters(hostPathOf(inFolder(folder, EngineFileName)));
    const auto problem =
        m_engine.start(hostPathOf(inFolder(folder, EngineFileName)), hostPathOf(folder), std::move(m_turn));
    if (problem) {
        append(*problem + "\n");
        engineFinished(127);
    }
    refresh();
}

void frmEngine::showOutput(std::string_view bytes) {
    std::string text;
    for (const std::string& line : m_output.feed(bytes))
        text += shownUtf8(line) + "\n";
    append(text);
}

// The line that is still open is taken back and shown anew, as more of it may have come.
void frmEngine::append(const std::string& text) {
    QScrollBar& bar = *txtOutput.verticalScrollBar();
    const bool followsEnd = bar.value() >= bar.maximum();
    QTextCursor cursor(txtOutput.document());
    cursor.movePosition(QTextCursor::End);
    cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(shown(text + shownUtf8(m_output.openLine())));
    if (followsEnd) bar.setValue(bar.maximum());
}

void frmEngine::engineFinished(int status) {
    m_status = status;
    m_milliseconds = m_clock.elapsed();
    m_tick.stop();
    m_state = m_stopRequested ? State::stopped : status == 0 ? State::finished : State::failed;
    refresh();
    cmdClose.setFocus();
    m_notes.note(m_run, stateText(), m_state == State::finished ? RunEnd::withResults : RunEnd::without);
}

bool frmEngine::wantsToStop() {
    const Message question{"The model is still running. Do you want to stop it?", "KORVEL", Icon::question,
                           Buttons::yesNo};
    return services().dialogs.show(question) == Answer::yes;
}

void frmEngine::askedToStop() {
    if (!wantsToStop() || !m_engine.running()) return;
    m_stopRequested = true;
    m_engine.stop();
}

bool frmEngine::onClose() {
    if (m_engine.running()) return wantsToStop(); // the engine ends with the window
    if (m_notes.isReading()) hide();              // and nobody waits for it
    m_notes.finish();
    return true;
}

// As many as stand side by side.
std::vector<std::string> frmEngine::resultsFiles() const {
    std::vector<std::string> files;
    for (const std::string& dataFile : m_run.dataFiles)
        if (files.size() < mostExplored)
            files.push_back(resultsFileName(folderOf(dataFile), withoutLast(fileOf(dataFile), 4)));
    return files;
}

std::string frmEngine::stateText() const {
    switch (m_state) {
    case State::running: return "Running";
    case State::finished: return "Finished";
    case State::failed: return "Failed (status " + std::to_string(m_status) + ")";
    case State::stopped: return "Stopped";
    }
    return "";
}

// "KORVEL model run: Finished - RIVER.DAT, run type 0"
std::string frmEngine::titleText() const {
    std::string title = windowCaption;
    if (m_state != State::running) title += ": " + stateText();
    if (m_run.dataFiles.empty()) return title;
    const std::size_t count = m_run.dataFiles.size();
    const std::string what =
        count == 1 ? fileOf(m_run.dataFiles.front()) : std::to_string(count) + " data files";
    return title + " - " + what + ", run type " + std::to_string(m_run.runType);
}

void frmEngine::refresh() {
    const bool running = m_state == State::running;
    // In the title too, so that a task bar shows when the run is over.
    setWindowTitle(shown(titleText()));
    lblState.setText(shown(stateText()));
    lblTime.setText(shown("Time taken: " + timeTaken(running ? m_clock.elapsed() : m_milliseconds)));
    lblFile.setText(shown(m_output.fileInHand()));
    cmdStop.setEnabled(running);
    cmdExplore.setVisible(m_state == State::finished && !m_run.dataFiles.empty());
    lblNext.setText(m_state == State::finished
                        ? "Close this window and choose Graphs or Reports in KORVEL to study the results."
                        : QString());
}

} // namespace korvel
