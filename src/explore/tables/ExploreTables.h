// The tables of the Explorer: values, changes, compliance, fit and sources. Only the one in front is made;
// the others when they are looked at.
#pragma once

#include "explore/ExploreState.h"
#include "explore/rows/FitRows.h"
#include "explore/rows/SourceRows.h"
#include "explore/tables/LowIsBadButton.h"
#include "explore/tables/RowsView.h"
#include "explore/tables/ScatterPicture.h"
#include "explore/tables/WrappedNote.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTimer>

#include <array>

namespace korvel {

class ExploreTables : public QWidget {
    Q_OBJECT
  public:
    explicit ExploreTables(Handlers& handlers, QWidget* parent = nullptr);

    void show(const ExploreState& state);
    using QWidget::show;
    void followCursor(const std::optional<ExplorePlace>& cursor);

    // As it is sorted and filtered, for files; nothing in an empty Explorer.
    std::optional<Table> tableInFront() const;
    QString nameInFront() const;           // "Values"
    void showInFront(const QString& name); // where there is such a one

  signals:
    void placeChosen(int reach, double distance, const QString& side);
    void seriesChosen(int series);
    void lowIsBadChosen(int determinand, bool isLow);

  private:
    enum Tab { values, changes, compliance, fit, sources, tabs };
    struct Page {
        RowsView* view = nullptr;
        bool isOld = true; // what it shows is no longer so
    };

    RowsView& addView(Tab tab, const char* name, const QString& caption);
    void addPages();
    QWidget* makeCompliancePage();
    QWidget* makeFitPage();
    QWidget* makeSourcesPage();
    void addFilter();
    QComboBox& choiceBox(const char* name, const QString& accessibleName, const QStringList& choices);
    QLabel& caption(const QString& text, QComboBox& box);
    void listDeterminands();

    Tab front() const { return static_cast<Tab>(m_tabs->currentIndex()); }
    Page& page(Tab tab) { return m_pages[static_cast<std::size_t>(tab)]; }
    void markOld(const ExploreState& state);
    void makeOld(Tab tab);
    void bringUpToDate();
    std::shared_ptr<const RowSource> rowsOf(Tab tab);
    std::shared_ptr<const RowSource> sourceRows(const TableScope& scope);
    SourcesChoice sourcesChoice() const;
    void showScatter(int sourceRow);
    void take(Tab tab, int sourceRow, int column);
    void tell(Tab tab, int reach, double distance, const QString& side);
    bool sourcesAreAtCursor() const;

    Handlers& m_handlers;
    ExploreState m_state;
    std::shared_ptr<MatchedRuns> m_matched = std::make_shared<MatchedRuns>();
    std::array<Page, tabs> m_pages;
    QTabWidget* m_tabs;
    QLineEdit* m_filter = nullptr;
    LowIsBadButton* m_lowIsBad = nullptr;
    QComboBox* m_fitBy = nullptr;
    QCheckBox* m_fitLogarithmic = nullptr;
    ScatterPicture* m_scatter = nullptr;
    QComboBox* m_sourcesOf = nullptr;
    QComboBox* m_sourcesAt = nullptr;
    QComboBox* m_sourcesBy = nullptr;
    WrappedNote* m_sourcesHeading = nullptr;
    QTimer m_cursorRest; // before the sources at the cursor are found
};

} // namespace korvel
