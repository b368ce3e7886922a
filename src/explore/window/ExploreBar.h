// The tool bar of the Explorer: what is opened, which way is looked at and how, and what is handed on.
#pragma once

#include "explore/ExploreState.h"
#include "explore/PathChoice.h"
#include "panels/RunStyle.h"
#include "toolkit/forms/Handlers.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <functional>
#include <vector>

namespace korvel {

enum class Picture;

class ExploreBar : public QToolBar {
  public:
    ExploreBar(Handlers& handlers, QWidget* parent);

    std::function<void(int reach)> onFrom, onTo;
    std::function<void(ExploreView)> onView;
    std::function<void(Statistic)> onStatistic;
    std::function<void(ScaleKind)> onScale;
    std::function<void(bool)> onFromZero;

    // Filled by whoever opens and hands on.
    QMenu& openMenu() { return *m_openMenu; }
    QMenu& exportMenu() { return *m_exportMenu; }
    QAction& open() { return *m_open; }
    QAction& zoomIn() { return *m_zoomIn; }
    QAction& zoomOut() { return *m_zoomOut; }
    QAction& showAll() { return *m_showAll; }
    QAction& goBack() { return *m_goBack; }

    void show(const ExploreState& state);
    using QWidget::show;

  private:
    QAction* addTool(const char* name, const char* caption, const char* tip, const QKeySequence& keys);
    QComboBox* addChoice(const char* name, const QString& accessibleName, const QStringList& choices,
                         int letters);
    QCheckBox* addSwitch(const char* name, const QString& caption, const QString& tip);
    QLabel* addLabel(const QString& text);
    void addGap();
    void addWays();
    void addLooks();
    void addMoves();
    void setIcons();
    void nameTheRest();
    QToolButton* addMenuButton(const char* name, QAction* action, QMenu* menu);
    void showWays(const ExploreState& state);

    Handlers& m_handlers;
    QMenu* m_openMenu;
    QMenu* m_exportMenu;
    QAction *m_open, *m_zoomIn = nullptr, *m_zoomOut = nullptr, *m_showAll = nullptr, *m_goBack = nullptr;
    QToolButton* m_export = nullptr;
    QComboBox *m_from = nullptr, *m_to = nullptr, *m_view = nullptr, *m_statistic = nullptr;
    QCheckBox *m_logarithmic = nullptr, *m_fromZero = nullptr;
};

} // namespace korvel
