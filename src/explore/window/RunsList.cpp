#include "explore/window/RunsList.h"

#include "drawing/paint/Shown.h"
#include "explore/window/Icons.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <array>
#include <utility>

namespace korvel {

namespace {

constexpr QSize swatchSize = {28, 14};
constexpr int betweenLines = 2; // pixels
constexpr int leastLines = 4;   // that are seen without scrolling

QString textOf(const ListedRun& run, bool isBase) {
    QString text = shown(run.name);
    if (isBase) text += "  (base)";
    if (!run.note.empty()) text += "\n" + shown(run.note);
    return text;
}

} // namespace

RunsList::RunsList(Handlers& handlers, QWidget* parent) : QListWidget(parent), m_handlers(handlers) {
    setObjectName("lstRuns");
    setAccessibleName("Runs");
    setIconSize(swatchSize);
    setFrameShape(QFrame::NoFrame);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSpacing(betweenLines);
    viewport()->setAutoFillBackground(false);
    setDragDropMode(InternalMove); // into another order; files are dropped on the window
    connect(this, &QListWidget::itemChanged, this, handlers.guarded([this](QListWidgetItem* item) {
        onShown(static_cast<std::size_t>(row(item)), item->checkState() == Qt::Checked);
    }));
}

void RunsList::show(const std::vector<ListedRun>& runs, Theme theme) {
    const QSignalBlocker quiet(this);
    const int current = currentRow();
    while (count() > static_cast<int>(runs.size()))
        delete takeItem(count() - 1);
    while (count() < static_cast<int>(runs.size()))
        addRun();
    fill(runs, theme);
    setCurrentRow(std::min(current, count() - 1));
    fitHeight();
}

// Others are dropped between runs, not on one.
void RunsList::addRun() {
    auto* line = new QListWidgetItem(this);
    line->setFlags(line->flags() & ~Qt::ItemIsDropEnabled);
}

// As high as the runs need, so that the series get what is left.
void RunsList::fitHeight() {
    int height = 2 * betweenLines;
    for (int line = 0; line < count(); ++line)
        height += sizeHintForRow(line) + 2 * betweenLines;
    setMaximumHeight(height);
    setMinimumHeight(std::min(height, leastLines * (sizeHintForRow(0) + 2 * betweenLines)));
}

void RunsList::fill(const std::vector<ListedRun>& runs, Theme theme) {
    for (std::size_t run = 0; run < runs.size(); ++run) {
        QListWidgetItem& line = *item(static_cast<int>(run));
        line.setText(textOf(runs[run], run == 0));
        line.setIcon(swatchOf(run, theme));
        line.setToolTip(shown(runs[run].file));
        line.setCheckState(runs[run].isShown ? Qt::Checked : Qt::Unchecked);
    }
}

bool RunsList::canDo(Deed deed) const {
    const int run = currentRow();
    if (run < 0) return false;
    if (deed == Deed::moveDown) return run + 1 < count();
    return deed == Deed::remove || run > 0;
}

void RunsList::act(Deed deed) {
    if (!canDo(deed)) return;
    const auto run = static_cast<std::size_t>(currentRow());
    switch (deed) {
    case Deed::makeBase: onMakeBase(run); return setCurrentRow(0);
    case Deed::moveUp: return moveTo(run - 1);
    case Deed::moveDown: return moveTo(run + 1);
    case Deed::remove: return onRemove(run);
    }
}

void RunsList::moveTo(std::size_t to) {
    onMove(static_cast<std::size_t>(currentRow()), to);
    setCurrentRow(static_cast<int>(to));
}

// The list itself is made anew from the runs: Qt must not take the dragged line away.
void RunsList::dropEvent(QDropEvent* event) {
    const QModelIndex at = indexAt(event->position().toPoint());
    const int from = currentRow();
    int to = at.isValid() ? at.row() + (dropIndicatorPosition() == BelowItem ? 1 : 0) : count();
    if (to > from) --to;
    event->setDropAction(Qt::IgnoreAction);
    event->accept();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    if (from >= 0 && to != from) m_handlers.run([&] { moveTo(static_cast<std::size_t>(to)); });
}

void RunsList::keyPressEvent(QKeyEvent* event) {
    const bool control = event->modifiers() == Qt::ControlModifier;
    const auto use = [&](Deed deed) { m_handlers.run([&] { act(deed); }); };
    if (control && event->key() == Qt::Key_Up) return use(Deed::moveUp);
    if (control && event->key() == Qt::Key_Down) return use(Deed::moveDown);
    if (control && event->key() == Qt::Key_B) return use(Deed::makeBase);
    if (event->key() == Qt::Key_Delete) return use(Deed::remove);
    QListWidget::keyPressEvent(event);
}

void RunsList::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    fillMenu(menu);
    menu.exec(event->globalPos());
}

void RunsList::fillMenu(QMenu& menu) {
    menu.clear();
    if (currentRow() < 0 && count() > 0) setCurrentRow(0);
    const auto add = [&](const char* caption, Picture picture, Deed deed) {
        QAction* action = menu.addAction(iconOf(picture), caption);
        action->setEnabled(canDo(deed));
        connect(action, &QAction::triggered, this, m_handlers.guarded([this, deed] { act(deed); }));
    };
    add("Make this the &base\tCtrl+B", Picture::makeBase, Deed::makeBase);
    add("Move &up\tCtrl+Up", Picture::up, Deed::moveUp);
    add("Move &down\tCtrl+Down", Picture::down, Deed::moveDown);
    add("&Remove\tDel", Picture::remove, Deed::remove);
}

} // namespace korvel
