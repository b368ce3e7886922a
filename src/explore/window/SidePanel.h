// What stands beside the pictures: the runs, the series and what else is drawn.
#pragma once

#include "explore/window/RunsList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QToolButton>

#include <functional>
#include <set>
#include <string>
#include <vector>

class QGridLayout;

namespace korvel {

struct ExploreState;

class SidePanel : public QWidget {
  public:
    SidePanel(Handlers& handlers, QWidget* parent = nullptr);

    RunsList& runs() { return *m_runs; }
    // A further choice at the bottom.
    void addChoice(const QString& caption, QComboBox& box);

    std::function<void()> onAddRun;
    std::function<void(std::vector<int>)> onSeries;
    // One of limits, targets, observed values and interpolated points was switched.
    std::function<void(bool ExploreState::*what, bool isOn)> onSwitched;

    // Said in the context menu of a concentration.
    std::function<void(int determinand, bool isLow)> onLowIsBad;

    void show(const ExploreState& state, const std::vector<ListedRun>& runs, Theme theme);
    using QWidget::show;

  private:
    struct Switch {
        QCheckBox* box;
        bool ExploreState::*what;
    };

    void makeSeries();
    void makeSwitches();
    void makeRunButtons();
    QWidget* makeHeading(const QString& text, const std::vector<QWidget*>& beside = {});
    void takeTab(QWidget& control);
    void showSeries(const ExploreState& state);
    std::vector<int> chosenSeries() const;
    void showSeriesMenu(QPoint at);

    Handlers& m_handlers;
    QGridLayout* m_switchRows;
    RunsList* m_runs;
    QToolButton *m_arrange, *m_add;
    QListWidget* m_series;
    std::vector<Switch> m_switches;
    QWidget* m_lastControl = nullptr; // in the order of the Tab key
    int m_determinands = 0;
    std::set<int> m_lowIsBad;
};

} // namespace korvel
