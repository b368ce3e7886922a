#include "explore/tables/RowsView.h"

#include "drawing/paint/Shown.h"
#include "explore/rows/ShownCells.h"
#include "explore/tables/CellDelegate.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <set>

namespace korvel {

namespace {

constexpr int sampledRows = 40;
constexpr int widestColumn = 44; // letters
constexpr int leastColumns = 4;  // as wide as a line is high

} // namespace

RowsView::RowsView(const char* name, const QString& accessibleName, Handlers& handlers, QWidget* parent)
    : QTableView(parent), m_handlers(handlers), m_model(new RowsModel(handlers, this)) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setModel(m_model);
    setItemDelegate(new CellDelegate(this));
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollMode(ScrollPerPixel);
    setFrameShape(QFrame::NoFrame);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    verticalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    horizontalHeader()->setSortIndicatorClearable(true);
    horizontalHeader()->setAccessibleName(tr("%1: headings").arg(accessibleName));
    setSortingEnabled(true);
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this,
            m_handlers.guarded([this] { keepCurrent(); }));
    connect(m_model, &QAbstractItemModel::modelReset, this, m_handlers.guarded([this] { restoreCurrent(); }));
    addActions();
}

void RowsView::addActions() {
    setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto add = [this](const QString& caption, const QKeySequence& keys, auto action) {
        auto* item = new QAction(caption, this);
        item->setShortcut(keys);
        item->setShortcutContext(Qt::WidgetShortcut);
        connect(item, &QAction::triggered, this, m_handlers.guarded(action));
        addAction(item);
    };
    add(tr("Copy"), QKeySequence::Copy, [this] { copySelection(); });
    add(tr("Sort by this column"), QKeySequence(Qt::Key_F8),
        [this] { stepSorting(currentIndex().column()); });
}

void RowsView::stepSorting(int column) {
    if (column < 0) return;
    const auto first = static_cast<Qt::SortOrder>(
        m_model->headerData(column, Qt::Horizontal, Qt::InitialSortOrderRole).toInt());
    const auto second = first == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    QHeaderView& header = *horizontalHeader();
    if (header.sortIndicatorSection() != column)
        header.setSortIndicator(column, first);
    else if (header.sortIndicatorOrder() == first)
        header.setSortIndicator(column, second);
    else
        header.setSortIndicator(-1, first);
}

std::vector<std::string> RowsView::columnNames() const {
    std::vector<std::string> names;
    for (int column = 0; column < m_model->columnCount(); ++column)
        names.push_back(m_model->source()->column(column).column.flatName());
    return names;
}

void RowsView::keepCurrent() {
    m_kept = {};
    const QModelIndex current = currentIndex();
    if (!current.isValid() || m_model->source() == nullptr) return;
    const int row = m_model->sourceRow(current.row());
    m_kept = {m_model->source(), row, current.column(), m_model->source()->place(row, current.column())};
}

void RowsView::restoreCurrent() {
    if (m_kept.source == nullptr || m_model->source() == nullptr) return;
    if (m_kept.source == m_model->source()) {
        if (const int row = m_model->shownRow(m_kept.row); row >= 0) makeCurrent(row, m_kept.column, true);
    } else if (m_kept.place) {
        follow(*m_kept.place);
    }
}

void RowsView::setSource(std::shared_ptr<const RowSource> source) {
    const int scrolled = verticalScrollBar()->value();
    m_model->setSource(std::move(source));
    if (!currentIndex().isValid()) verticalScrollBar()->setValue(scrolled);
    const QSignalBlocker noSorting(horizontalHeader());
    const RowSorting& sorting = m_model->sorting();
    horizontalHeader()->setSortIndicator(sorting.column, sorting.direction == SortDirection::descending
                                                             ? Qt::DescendingOrder
                                                             : Qt::AscendingOrder);
    if (m_fitted != columnNames()) fitColumns();
}

// The headings and a line.
QSize RowsView::minimumSizeHint() const {
    const int line = verticalHeader()->defaultSectionSize();
    return {leastColumns * line, horizontalHeader()->sizeHint().height() + line};
}

void RowsView::setFilter(const std::string& words) {
    m_model->setFilter(words);
}

void RowsView::fitColumns() {
    m_fitted = columnNames();
    for (int column = 0; column < m_model->columnCount(); ++column)
        setColumnWidth(column, widthFor(column));
}

// Of rows spread over the table, and the heading.
int RowsView::widthFor(int column) const {
    int width = horizontalHeader()->sectionSizeHint(column);
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int rows = m_model->rowCount(), step = std::max(1, rows / sampledRows);
    for (int row = 0; row < rows; row += step)
        width = std::max(width, itemDelegate()->sizeHint(option, m_model->index(row, column)).width());
    return std::min(width, std::max(horizontalHeader()->sectionSizeHint(column),
                                    widestColumn * fontMetrics().averageCharWidth()));
}

bool RowsView::isInHand() const {
    return verticalScrollBar()->isSliderDown() || viewport()->underMouse() ||
           verticalScrollBar()->underMouse();
}

void RowsView::makeCurrent(int row, int column, bool scrolls) {
    const QScopedValueRollback<bool> quiet(m_quiet, true);
    const bool scrolled = hasAutoScroll();
    setAutoScroll(scrolls);
    const QModelIndex index = m_model->index(row, std::max(0, column));
    const int across = horizontalScrollBar()->value();
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    setAutoScroll(scrolled);
    if (scrolls) scrollTo(index);
    horizontalScrollBar()->setValue(across);
}

void RowsView::follow(const ExplorePlace& place) {
    if (m_model->source() == nullptr) return;
    std::vector<int> rows = m_model->source()->rowsAt(place);
    for (int& row : rows)
        row = m_model->shownRow(row);
    std::erase(rows, -1);
    const QModelIndex current = currentIndex();
    if (rows.empty() || (current.isValid() && std::ranges::count(rows, current.row()) > 0)) return;
    makeCurrent(*std::ranges::min_element(rows), current.isValid() ? current.column() : 0, !isInHand());
}

void RowsView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (!m_quiet && current.isValid()) m_handlers.run([&] { tell(current); });
}

void RowsView::tell(const QModelIndex& current) {
    const int row = m_model->sourceRow(current.row());
    emit cellChosen(row, current.column());
    if (const auto place = m_model->source()->place(row, current.column()))
        emit placeChosen(place->reach, place->distance, shown(place->side));
}

void RowsView::take(const QModelIndex& index) {
    if (index.isValid()) emit cellTaken(m_model->sourceRow(index.row()), index.column());
}

void RowsView::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    m_handlers.run([&] { take(indexAt(event->position().toPoint())); });
}

void RowsView::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QTableView::keyPressEvent(event);
    m_handlers.run([this] { take(currentIndex()); });
}

void RowsView::copySelection() const {
    std::set<int> rows, columns;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.insert(row);
        for (int column = range.left(); column <= range.right(); ++column)
            columns.insert(column);
    }
    if (rows.empty()) return;
    std::vector<int> sourceRows;
    for (const int row : rows)
        sourceRows.push_back(m_model->sourceRow(row));
    const std::vector<int> shownColumns(columns.begin(), columns.end());
    QApplication::clipboard()->setText(
        QString::fromStdString(copiedRows(*m_model->source(), sourceRows, shownColumns)));
}

QString RowsView::emptyText() const {
    if (m_model->rowCount() > 0 || m_model->source() == nullptr) return {};
    const bool isFiltered = m_model->source()->rowCount() > 0;
    return isFiltered ? tr("No row holds these words.") : shown(m_model->source()->whyEmpty());
}

void RowsView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    const QString text = emptyText();
    if (text.isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap, text);
}

} // namespace korvel
