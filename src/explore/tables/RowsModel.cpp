#include "explore/tables/RowsModel.h"

#include "basic/Text.h"
#include "drawing/paint/Shown.h"
#include "explore/rows/ShownCells.h"
#include "panels/TextFitting.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr int mostDecimals = 6; // that a column lines up for
constexpr int sampledRows = 40;

Qt::Alignment alignmentOf(CellLook look) {
    return (isText(look) ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
}

std::string_view wordOf(const Cell& cell) {
    const auto* text = std::get_if<std::string_view>(&cell);
    return text == nullptr ? std::string_view() : *text;
}

constexpr std::size_t widestHeading = 26; // letters

// A run's name may be many times as long as the values under it.
std::string shortHeading(const ShownColumn& column) {
    const std::string heading = shownUtf8(column.heading);
    std::string text;
    for (std::size_t from = 0; from <= heading.size();) {
        const std::size_t end = std::min(heading.find('\n', from), heading.size());
        text += (from > 0 ? "\n" : "") +
                shortenedTo(heading.substr(from, end - from), widestHeading, Shorten::middle);
        from = end + 1;
    }
    return text;
}

} // namespace

RowsModel::RowsModel(Handlers& handlers, QObject* parent)
    : QAbstractTableModel(parent), m_handlers(handlers) {}

void RowsModel::setSource(std::shared_ptr<const RowSource> source) {
    beginResetModel();
    const bool wasSorted = m_source && m_sorting.column >= 0;
    const std::string sortedBy = wasSorted ? m_source->column(m_sorting.column).column.flatName() : "";
    m_source = std::move(source);
    m_sorting.column = wasSorted ? columnNamed(sortedBy) : -1;
    if (m_sorting.column < 0) m_sorting = {};
    arrange();
    measureDecimals();
    endResetModel();
}

void RowsModel::setFilter(const std::string& words) {
    if (words == m_filter) return;
    beginResetModel();
    m_filter = words;
    arrange();
    endResetModel();
}

void RowsModel::sort(int column, Qt::SortOrder order) {
    beginResetModel();
    m_sorting = {};
    if (column >= 0)
        m_sorting = {column,
                     order == Qt::AscendingOrder ? SortDirection::ascending : SortDirection::descending};
    arrange();
    endResetModel();
}

int RowsModel::columnNamed(const std::string& name) const {
    for (int column = 0; m_source && column < m_source->columnCount(); ++column)
        if (m_source->column(column).column.flatName() == name) return column;
    return -1;
}

void RowsModel::arrange() {
    m_handlers.run([this] {
        m_rows = m_source ? shownRows(*m_source, m_sorting, m_filter) : std::vector<int>();
        m_shownRows.assign(m_source ? static_cast<std::size_t>(m_source->rowCount()) : 0, -1);
        for (std::size_t row = 0; row < m_rows.size(); ++row)
            m_shownRows[static_cast<std::size_t>(m_rows[row])] = static_cast<int>(row);
    });
}

// Of rows spread over the table: what lines up need not be known of all of them.
void RowsModel::measureDecimals() {
    m_handlers.run([this] {
        m_decimals.assign(static_cast<std::size_t>(columnCount()), 0);
        const int rows = m_source ? m_source->rowCount() : 0, step = std::max(1, rows / sampledRows);
        for (int column = 0; column < columnCount(); ++column)
            for (int row = 0; row < rows && !isText(m_source->column(column).look); row += step) {
                const int decimals =
                    shownCell(m_source->cell(row, column), m_source->column(column).look).decimals;
                int& most = m_decimals[static_cast<std::size_t>(column)];
                most = std::max(most, std::min(decimals, mostDecimals));
            }
    });
}

int RowsModel::shownRow(int sourceRow) const {
    const auto index = static_cast<std::size_t>(sourceRow);
    return sourceRow < 0 || index >= m_shownRows.size() ? -1 : m_shownRows[index];
}

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int RowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || !m_source ? 0 : m_source->columnCount();
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    QVariant value;
    if (index.isValid())
        m_handlers.run([&] { value = dataOf(sourceRow(index.row()), index.column(), role); });
    return value;
}

QVariant RowsModel::dataOf(int row, int column, int role) const {
    const CellLook look = m_source->column(column).look;
    switch (role) {
    case Qt::DisplayRole: return textOf(row, column);
    case Qt::AccessibleTextRole: return shown(shownCell(m_source->cell(row, column), look).text);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: return shown(m_source->note(row, column));
    case Qt::TextAlignmentRole: return QVariant(alignmentOf(look));
    case lookRole: return static_cast<int>(look);
    case decimalsRole: return shownCell(m_source->cell(row, column), look).decimals;
    case columnDecimalsRole: return m_decimals[static_cast<std::size_t>(column)];
    case barRole: return look == CellLook::share ? QVariant(m_source->bar(row, column)) : QVariant();
    default: return {};
    }
}

QVariant RowsModel::textOf(int row, int column) const {
    const CellLook look = m_source->column(column).look;
    const Cell cell = m_source->cell(row, column);
    const QString text = shown(shownCell(cell, look).text);
    if (look != CellLook::verdict || text.isEmpty()) return text;
    const std::string_view symbol = verdictSymbol(wordOf(cell));
    return QString::fromUtf8(symbol.data(), static_cast<qsizetype>(symbol.size())) + ' ' + text;
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const ShownColumn& column = m_source->column(section);
    switch (role) {
    case Qt::DisplayRole: return shown(shortHeading(column));
    case Qt::ToolTipRole:
        return shortHeading(column) == shownUtf8(column.heading) ? QVariant() : shown(column.heading);
    case Qt::AccessibleTextRole: return shown(column.heading).replace('\n', ' ');
    case Qt::TextAlignmentRole: return QVariant(alignmentOf(column.look));
    case Qt::InitialSortOrderRole: return column.largestFirst ? Qt::DescendingOrder : Qt::AscendingOrder;
    default: return {};
    }
}

} // namespace korvel
