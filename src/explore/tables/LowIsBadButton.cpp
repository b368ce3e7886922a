#include "explore/tables/LowIsBadButton.h"

#include "analysis/Judging.h"
#include "drawing/paint/Shown.h"
#include "explore/Scene.h"
#include "study/SeriesValues.h"

namespace korvel {

namespace {

constexpr int mostNames = 3; // on the button

// In a menu or on a button "&" would be a key.
QString plain(QString name) {
    return name.replace('&', "&&");
}

QString listed(const QStringList& names) {
    if (names.isEmpty()) return "none";
    const QString shown = names.mid(0, mostNames).join(", ");
    return names.size() > mostNames ? shown + QString(" and %1 more").arg(names.size() - mostNames) : shown;
}

} // namespace

LowIsBadButton::LowIsBadButton(Handlers& handlers, QWidget* parent)
    : QToolButton(parent), m_handlers(handlers), m_menu(new QMenu(this)) {
    setObjectName("cmdLowIsBad");
    setToolTip("Which determinands fail their targets when they are low, like oxygen; the others fail when "
               "they are high");
    setPopupMode(QToolButton::InstantPopup);
    setMenu(m_menu);
    setFocusPolicy(Qt::TabFocus);
    connect(m_menu, &QMenu::aboutToShow, this, m_handlers.guarded([this] { fill(); }));
}

// Made anew when it opens: while an action of it is being taken it must stay.
void LowIsBadButton::fill() {
    m_menu->clear();
    for (const Choice& choice : m_choices) {
        QAction* action = m_menu->addAction(plain(choice.name));
        action->setCheckable(true);
        action->setChecked(choice.isLow);
        connect(action, &QAction::toggled, this,
                m_handlers.guarded(
                    [this, determinand = choice.determinand](bool isOn) { onChosen(determinand, isOn); }));
    }
}

void LowIsBadButton::show(const ExploreState& state) {
    const ResultsDataSet& results = state.study->base().results();
    m_choices.clear();
    QStringList low;
    for (const JudgedDeterminand& each : judgedDeterminands(results, lowIsBadOf(state))) {
        m_choices.push_back(
            {each.number, shown(determinandName(results, each.number)), each.side == BadSide::low});
        if (m_choices.back().isLow) low << m_choices.back().name;
    }
    setText(plain("Bad when low: " + listed(low)));
    setAccessibleName("Bad when low: " + listed(low));
}

} // namespace korvel
