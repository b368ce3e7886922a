// A table in the Explorer: sorted by a click on a heading, copied with Ctrl+C, and a row that is chosen is
// told, but not one that merely follows the cursor.
#pragma once

#include "explore/tables/RowsModel.h"

#include <QTableView>

namespace korvel {

class RowsView : public QTableView {
    Q_OBJECT
  public:
    RowsView(const char* name, const QString& accessibleName, Handlers& handlers, QWidget* parent);

    RowsModel& rows() { return *m_model; }
    const RowsModel& rows() const { return *m_model; }
    void setSource(std::shared_ptr<const RowSource> source);
    void setFilter(const std::string& words);
    // Takes the row of this place as the current one, without telling. It is scrolled to unless the table is
    // in the user's hands.
    void follow(const ExplorePlace& place);
    void copySelection() const;
    // Why there is nothing to see; "" where there is.
    QString emptyText() const;
    QSize minimumSizeHint() const override;
    // As a click on its heading: one way, the other way, file order.
    void stepSorting(int column);

  signals:
    void placeChosen(int reach, double distance, const QString& side);
    void cellChosen(int sourceRow, int column); // current, by the user
    void cellTaken(int sourceRow, int column);  // double click or Enter

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void addActions();
    void tell(const QModelIndex& current);
    void take(const QModelIndex& index);
    // What is current stays so over what resets the model.
    void keepCurrent();
    void restoreCurrent();
    void makeCurrent(int row, int column, bool scrolls);
    void fitColumns();
    int widthFor(int column) const;
    std::vector<std::string> columnNames() const;
    bool isInHand() const;

    Handlers& m_handlers;
    RowsModel* m_model;
    std::vector<std::string> m_fitted; // the columns whose widths were fitted
    struct Kept {
        const RowSource* source = nullptr;
        int row = -1; // of the source
        int column = 0;
        std::optional<ExplorePlace> place;
    };
    Kept m_kept;
    bool m_quiet = false;
};

} // namespace korvel
