// A table's rows for Qt's views, sorted and filtered over their indices.
#pragma once

#include "explore/rows/RowOrder.h"
#include "explore/rows/RowSource.h"
#include "toolkit/forms/Handlers.h"

#include <QAbstractTableModel>

#include <memory>
#include <vector>

namespace korvel {

class RowsModel : public QAbstractTableModel {
  public:
    enum Role {
        lookRole = Qt::UserRole, // how a cell looks, of its column
        decimalsRole,            // behind the point; -1 where there is none to line up by
        columnDecimalsRole,      // the most that the column lines up for
        barRole                  // the length of a bar, 0 to 1
    };

    RowsModel(Handlers& handlers, QObject* parent);

    // What was sorted stays so where the column is still there.
    void setSource(std::shared_ptr<const RowSource> source);
    void setFilter(const std::string& words);
    const RowSource* source() const { return m_source.get(); }
    const std::shared_ptr<const RowSource>& sharedSource() const { return m_source; }
    const RowSorting& sorting() const { return m_sorting; }
    const std::vector<int>& rows() const { return m_rows; } // of the source, as they are shown
    int sourceRow(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    int shownRow(int sourceRow) const; // -1 where it isn't shown

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // Column -1: in file order.
    void sort(int column, Qt::SortOrder order) override;

  private:
    QVariant dataOf(int row, int column, int role) const;
    QVariant textOf(int row, int column) const;
    int columnNamed(const std::string& name) const;
    void arrange();
    void measureDecimals();

    Handlers& m_handlers;
    std::shared_ptr<const RowSource> m_source;
    std::string m_filter;
    RowSorting m_sorting;
    std::vector<int> m_rows;
    std::vector<int> m_shownRows; // by the source's row
    std::vector<int> m_decimals;  // by column
};

} // namespace korvel
