#include "runs/frmBatch.h"

#include "drawing/paint/Shown.h"
#include "global/GLOBAL.h"
#include "toolkit/forms/ListFilling.h"

#include <QSignalBlocker>

namespace korvel {

namespace {

constexpr double designWidth = 9000; // of the form with its frame, twips
constexpr double designHeight = 6150;

constexpr const char* stepCaption(BatchStep step) {
    return step == BatchStep::selectFiles ? "Step 1 - Select files" : "Step 2 - Run";
}

// In the middle of the work area, so that the main form's menus stay in reach.
Place placeIn(const WorkArea& area) {
    const double width = designWidth * GLOBAL.ScaleX;
    const double height = designHeight * GLOBAL.ScaleY;
    return {area.left + (area.width - width) / 2, area.top + (area.height - height) / 2, width, height};
}

} // namespace

ControlArray<QPushButton> frmBatch::stepButtons() {
    ControlArray<QPushButton> array("cmdBatch");
    array.add(1, button("cmdBatch_1", stepCaption(BatchStep::selectFiles), at(6750, 480, 2100, 540)));
    return array;
}

ControlArray<QRadioButton> frmBatch::options() {
    ControlArray<QRadioButton> array("optRun");
    int index = 0;
    for (const char* caption : {"Run type 0: basic run, no gap filling", "Use flow and quality gap filling",
                                "Run type 7: seek to meet river standards",
                                "Run type 8: seek to meet river standards (with no deterioration)",
                                "Run type 9: seek to meet river standards (mid-class upstream quality)",
                                "Set up flow and quality gap filling"}) {
        const Place place = at(150, 2220 + index * 300.0, 5400, 270);
        array.add(index, optionButton(array.elementName(index), caption, place));
        ++index;
    }
    return array;
}

ControlArray<QLabel> frmBatch::labels() {
    ControlArray<QLabel> array("lblBatch");
    const auto add = [&](int index, const std::string& caption, Place place, Look look = {}) {
        array.add(index, label(array.elementName(index).c_str(), caption, place, look));
    };
    const auto top = Qt::AlignLeft | Qt::AlignTop;
    add(0, "Title of run:", at(150, 1710, 1110, 315));
    add(1, "Base Files", at(90, 60, 3120, 240), {.bold = true, .in = &picBox});
    add(2, batchRemovalHint(), at(90, 2955, 3120, 795), {.in = &picBox, .align = top, .wraps = true});
    add(3, batchInstructions(), at(150, 0, 6540, 1650), {.align = top});
    add(10, "Batch run has been completed", at(150, 4035, 5250, 255), {.bold = true});
    return array;
}

WrappedText& frmBatch::listNote(Place place) {
    auto* control = new WrappedText(&client());
    control->setObjectName("lblList");
    Form::place(*control, "Label", place, looks::designText);
    return *control;
}

frmBatch::frmBatch(Platform& services)
    : Form(services, "frmBatch", "Batch Run Data", Scaling::follows),
      m_batch(services,
              [this] {
                  refresh();
                  this->services().windows.updateScreen();
              }),
      m_leaveList(onLeave(lstSelectedFiles, [this] {
          m_batch.leaveList();
          refresh();
      })) {
    lblBatch[0].setBuddy(&txtBatch);
    lblBatch[1].setBuddy(&lstSelectedFiles);
    onTheme();
    connectList();
    connectRun();
    arrangeTabOrder();
    ScaleFormControls(GLOBAL.ScaleX, GLOBAL.ScaleY);
    keepRoomForControls();
    setOuterPlace(placeIn(services.machine.workArea()));
    refresh();
}

void frmBatch::connectList() {
    on(lstSelectedFiles, &QListWidget::itemSelectionChanged,
       [this] { m_batch.state().selected = selectionOf(lstSelectedFiles); });
    new KeyWatch(lstSelectedFiles, [this](int key) {
        bool used = false;
        handlers().run([&] { used = keyInList(key); });
        return used;
    });
}

void frmBatch::connectRun() {
    on(txtBatch, &QLineEdit::textChanged,
       [this](const QString& text) { m_batch.state().title = typed(text); });
    on(cmdBatch[1], &QPushButton::clicked, [this] {
        m_leaveList.runPending();
        m_batch.takeStep();
        refresh();
    });
    for (const auto& [index, option] : optRun)
        on(*option, &QRadioButton::clicked, [this, index = index] {
            m_batch.chooseOption(index);
            refresh();
        });
}

// As the eye goes: the step button, the left side, the list.
void frmBatch::arrangeTabOrder() {
    setTabOrder(&cmdBatch[1], &txtBatch);
    QWidget* previous = &txtBatch;
    for (const auto& [index, option] : optRun) {
        setTabOrder(previous, option);
        previous = option;
    }
    setTabOrder(previous, &lstSelectedFiles);
    cmdBatch[1].setFocus();
}

bool frmBatch::keyInList(int key) {
    if (key != Qt::Key_Delete) return false;
    const int row = lstSelectedFiles.currentRow();
    m_batch.deleteSelected();
    refresh();
    lstSelectedFiles.setCurrentRow(qMin(row, lstSelectedFiles.count() - 1), QItemSelectionModel::NoUpdate);
    return true;
}

bool frmBatch::onClose() {
    startAnew();
    return true;
}

void frmBatch::startAnew() {
    m_batch.state() = {};
    txtBatch.clear();
    for (const auto& [index, option] : optRun) {
        option->setAutoExclusive(false); // or the checked one of them could not be unchecked
        option->setChecked(false);
        option->setAutoExclusive(true);
    }
    cmdBatch[1].setFocus();
    refresh();
}

void frmBatch::refresh() {
    const BatchState& state = m_batch.state();
    cmdBatch[1].setText(stepCaption(state.step));
    cmdBatch[1].setAccessibleName(stepCaption(state.step));
    lblBatch[10].setVisible(state.completed);
    frameProgress.setVisible(state.assembling);
    frameProgress.raise();
    Progress.setValue(static_cast<int>(state.progress * Progress.maximum()));
    refreshList();
    lblNextStep.setText(shown(nextStep()));
    lblList.tell(shown(m_batch.listNote()));
}

// Another form may have moved the current folder meanwhile.
bool frmBatch::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) handlers().run([this] { refresh(); });
    return Form::event(event);
}

void frmBatch::onTheme() {
    setTextColour(lblBatch[10], looks::done.in(theme()));
}

void frmBatch::refreshList() {
    const BatchState& state = m_batch.state();
    const QSignalBlocker quiet(lstSelectedFiles);
    showItems(lstSelectedFiles, state.names, state.selected);
    picBox.setVisible(state.step == BatchStep::run);
    lstSelectedFiles.setVisible(state.listVisible);
    lstSelectedFiles.setEnabled(state.listEnabled);
    lblBatch[1].setVisible(state.listVisible);
    lblBatch[2].setVisible(state.removalHintVisible);
}

std::string frmBatch::nextStep() const {
    const BatchState& state = m_batch.state();
    const std::size_t count = state.names.size();
    if (state.step == BatchStep::selectFiles) return "Next: click 'Step 1' and choose a data file.";
    if (state.completed) return "The model's window shows how far the files are. 'Step 2' runs them again.";
    if (count == 0) return "No data file is listed, so that there is nothing to run.";
    if (count > MaxBatchFiles) return "At most 300 files can be run in one batch. Remove some.";
    const std::string files = count == 1 ? "1 file" : std::to_string(count) + " files";
    if (state.option) return "Next: click 'Step 2' to run " + files + ".";
    return "Next: choose a run type, then 'Step 2' to run " + files + ". Without a choice it is run type " +
           std::to_string(GLOBAL.RunType) + ".";
}

} // namespace korvel
