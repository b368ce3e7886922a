#include "explore/window/ExploreBar.h"

#include "drawing/paint/Shown.h"
#include "explore/window/Icons.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QSignalBlocker>

#include <array>

namespace korvel {

namespace {

constexpr int gap = 10; // pixels between groups
constexpr int iconSide = 18;
constexpr int wayLetters = 15;

// A name that several reaches have says nothing: the number stands behind it then.
QString reachText(const RunFile& run, int reach) {
    const QString name = shown(run.reachName(reach));
    return name.isEmpty() ? QString("Reach %1").arg(reach) : QString("%1  (%2)").arg(name).arg(reach);
}

void showReaches(QComboBox& box, const RunFile& run, const std::vector<int>& reaches, int current) {
    const QSignalBlocker quiet(&box);
    box.clear();
    for (const int reach : reaches)
        box.addItem(reachText(run, reach), reach);
    box.setCurrentIndex(box.findData(current));
    box.setToolTip(box.currentText());
}

void showChoice(QComboBox& box, int choice) {
    const QSignalBlocker quiet(&box);
    box.setCurrentIndex(choice);
}

void showSwitch(QCheckBox& box, bool isOn, bool isOfUse) {
    const QSignalBlocker quiet(&box);
    box.setChecked(isOn);
    box.setEnabled(isOfUse);
}

} // namespace

ExploreBar::ExploreBar(Handlers& handlers, QWidget* parent)
    : QToolBar(parent),
      m_handlers(handlers),
      m_openMenu(new QMenu(this)),
      m_exportMenu(new QMenu(this)),
      m_open(new QAction("Open", this)) {
    setObjectName("barExplore");
    setWindowTitle("Tools");
    setIconSize(QSize(iconSide, iconSide));
    setContextMenuPolicy(Qt::PreventContextMenu);
    m_open->setToolTip("Open results files or a study (Ctrl+O)");
    m_open->setShortcut(QKeySequence::Open);
    addMenuButton("cmdOpen", m_open, m_openMenu);
    addGap();
    addWays();
    addGap();
    addLooks();
    addGap();
    addMoves();
    auto* spring = new QWidget(this);
    spring->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(spring);
    m_export = addMenuButton("cmdExport", new QAction("Export", this), m_exportMenu);
    m_export->setPopupMode(QToolButton::InstantPopup);
    m_export->defaultAction()->setToolTip("Hand on the picture, the table in front, a page or an atlas");
    setIcons();
    nameTheRest();
}

// What has no room stands behind a button of Qt's, which keys and screen readers would pass over.
void ExploreBar::nameTheRest() {
    auto* const rest = findChild<QToolButton*>("qt_toolbar_ext_button");
    if (rest == nullptr) return;
    rest->setFocusPolicy(Qt::TabFocus);
    rest->setAccessibleName("More tools");
    rest->setToolTip("More tools");
}

QToolButton* ExploreBar::addMenuButton(const char* name, QAction* action, QMenu* menu) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setAccessibleName(action->text());
    button->setDefaultAction(action);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::TabFocus);
    addWidget(button);
    return button;
}

QAction* ExploreBar::addTool(const char* name, const char* caption, const char* tip,
                             const QKeySequence& keys) {
    QAction* action = addAction(caption);
    action->setObjectName(name);
    action->setToolTip(tip);
    action->setShortcut(keys);
    return action;
}

QComboBox* ExploreBar::addChoice(const char* name, const QString& accessibleName, const QStringList& choices,
                                 int letters) {
    auto* box = new QComboBox(this);
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->addItems(choices);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(letters);
    addWidget(box);
    return box;
}

QCheckBox* ExploreBar::addSwitch(const char* name, const QString& caption, const QString& tip) {
    auto* box = new QCheckBox(caption, this);
    box->setObjectName(name);
    box->setToolTip(tip);
    addWidget(box);
    return box;
}

QLabel* ExploreBar::addLabel(const QString& text) {
    auto* label = new QLabel(text, this);
    label->setContentsMargins(gap / 2, 0, gap / 2, 0);
    addWidget(label);
    return label;
}

void ExploreBar::addGap() {
    auto* room = new QWidget(this);
    room->setFixedWidth(gap);
    addWidget(room);
}

void ExploreBar::addWays() {
    QLabel *from = addLabel("From"), *to = nullptr;
    m_from = addChoice("cboFrom", "From reach", {}, wayLetters);
    from->setBuddy(m_from);
    to = addLabel("to");
    m_to = addChoice("cboTo", "To reach", {}, wayLetters);
    to->setBuddy(m_to);
    for (QComboBox* box : {m_from, m_to})
        box->view()->setMinimumWidth(box->fontMetrics().averageCharWidth() * 2 * wayLetters);
    connect(m_from, &QComboBox::activated, this,
            m_handlers.guarded([this] { onFrom(m_from->currentData().toInt()); }));
    connect(m_to, &QComboBox::activated, this,
            m_handlers.guarded([this] { onTo(m_to->currentData().toInt()); }));
}

void ExploreBar::addLooks() {
    QLabel* show = addLabel("View");
    m_view = addChoice("cboView", "View", {"Values", "Change", "Ratio"}, 7);
    show->setBuddy(m_view);
    m_view->setToolTip("Values as they are, each run less the base, or values by their targets");
    QLabel* of = addLabel("of the");
    m_statistic = addChoice("cboStatistic", "Statistic", {}, 5);
    of->setBuddy(m_statistic);
    m_statistic->setToolTip("The mean, or a percentile");
    for (const Statistic each : allStatistics)
        m_statistic->addItem(shown(nameOf(each)));
    addGap();
    m_logarithmic =
        addSwitch("chkLogarithmic", "Log", "A logarithmic scale; it leaves out what is not above 0");
    m_fromZero = addSwitch("chkFromZero", "From 0", "Begin linear scales at 0");
    m_logarithmic->setAccessibleName("Logarithmic scale");
    m_fromZero->setAccessibleName("Scales from 0");
    connect(m_view, &QComboBox::activated, this,
            m_handlers.guarded([this](int view) { onView(static_cast<ExploreView>(view)); }));
    connect(m_statistic, &QComboBox::activated, this, m_handlers.guarded([this](int statistic) {
        onStatistic(allStatistics[static_cast<std::size_t>(statistic)]);
    }));
    connect(m_logarithmic, &QCheckBox::toggled, this, m_handlers.guarded([this](bool isOn) {
        onScale(isOn ? ScaleKind::logarithmic : ScaleKind::linear);
    }));
    connect(m_fromZero, &QCheckBox::toggled, this,
            m_handlers.guarded([this](bool isOn) { onFromZero(isOn); }));
}

void ExploreBar::addMoves() {
    m_zoomIn = addTool("actZoomIn", "Nearer", "Nearer (Ctrl++ or the wheel)", QKeySequence::ZoomIn);
    m_zoomIn->setShortcuts({QKeySequence("Ctrl++"), QKeySequence("Ctrl+=")});
    m_zoomOut = addTool("actZoomOut", "Farther", "Farther (Ctrl+- or the wheel)", QKeySequence::ZoomOut);
    m_showAll =
        addTool("actShowAll", "1:1", "The whole way (Ctrl+0 or a double click)", QKeySequence("Ctrl+0"));
    m_goBack = addTool("actGoBack", "Back", "What was seen before (Alt+Left)", QKeySequence("Alt+Left"));
}

void ExploreBar::setIcons() {
    m_open->setIcon(iconOf(Picture::open));
    m_zoomIn->setIcon(iconOf(Picture::zoomIn));
    m_zoomOut->setIcon(iconOf(Picture::zoomOut));
    m_showAll->setIcon(iconOf(Picture::showAll));
    m_goBack->setIcon(iconOf(Picture::goBack));
    m_export->defaultAction()->setIcon(iconOf(Picture::share));
}

void ExploreBar::showWays(const ExploreState& state) {
    if (state.isEmpty()) return m_from->clear(), m_to->clear();
    const RunFile& base = *state.study->base().file;
    showReaches(*m_from, base, base.reaches.numbers(), state.from);
    showReaches(*m_to, base, reachesFrom(base, *state.network, state.from), state.to);
}

void ExploreBar::show(const ExploreState& state) {
    const bool isThere = !state.isEmpty();
    showWays(state);
    for (QWidget* control : std::initializer_list<QWidget*>{m_from, m_to, m_view, m_statistic, m_export})
        control->setEnabled(isThere);
    for (QAction* action : {m_zoomIn, m_zoomOut, m_showAll, m_goBack})
        action->setEnabled(isThere);
    showChoice(*m_view, static_cast<int>(state.view));
    showChoice(*m_statistic, static_cast<int>(state.statistic));
    m_statistic->setEnabled(isThere && state.view != ExploreView::ratio); // a ratio has the judged one
    const bool isLogarithmic = state.scale == ScaleKind::logarithmic;
    showSwitch(*m_logarithmic, isLogarithmic, isThere && state.view != ExploreView::change);
    showSwitch(*m_fromZero, state.fromZero, isThere && state.view == ExploreView::values && !isLogarithmic);
}

} // namespace korvel
