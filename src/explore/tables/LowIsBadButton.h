// Says which determinands are bad when they are low, as they are judged, and lets the user say so.
#pragma once

#include "explore/ExploreState.h"
#include "toolkit/forms/Handlers.h"

#include <QMenu>
#include <QToolButton>

#include <functional>
#include <vector>

namespace korvel {

class LowIsBadButton : public QToolButton {
  public:
    LowIsBadButton(Handlers& handlers, QWidget* parent);

    std::function<void(int determinand, bool isLow)> onChosen;

    // The state has a study.
    void show(const ExploreState& state);
    using QToolButton::show;

  private:
    struct Choice {
        int determinand;
        QString name;
        bool isLow;
    };

    void fill();

    Handlers& m_handlers;
    QMenu* m_menu;
    std::vector<Choice> m_choices;
};

} // namespace korvel
