#include "explore/window/SidePanel.h"

#include "drawing/paint/Shown.h"
#include "explore/ExploreState.h"
#include "explore/Scene.h"
#include "explore/window/Icons.h"
#include "toolkit/desktop/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace korvel {

namespace {

constexpr int margin = 12; // pixels
constexpr int between = 6;
constexpr int betweenParts = 14;

} // namespace

SidePanel::SidePanel(Handlers& handlers, QWidget* parent)
    : QWidget(parent),
      m_handlers(handlers),
      m_switchRows(new QGridLayout),
      m_runs(new RunsList(handlers, this)),
      m_arrange(new QToolButton(this)),
      m_add(new QToolButton(this)),
      m_series(new QListWidget(this)) {
    makeSeries();
    makeRunButtons();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(between);
    column->addWidget(makeHeading("Runs", {m_arrange, m_add}));
    column->addWidget(m_runs, 1);
    column->addSpacing(betweenParts);
    column->addWidget(makeHeading("Series"));
    column->addWidget(m_series, 2);
    column->addSpacing(betweenParts);
    column->addWidget(makeHeading("Show"));
    makeSwitches();
    m_switchRows->setVerticalSpacing(between);
    for (int k = 0; k < static_cast<int>(m_switches.size()); ++k)
        m_switchRows->addWidget(m_switches[static_cast<std::size_t>(k)].box, k / 2, k % 2);
    column->addLayout(m_switchRows);
    for (QWidget* each : std::initializer_list<QWidget*>{m_runs, m_arrange, m_add, m_series})
        takeTab(*each);
    for (const Switch& each : m_switches)
        takeTab(*each.box);
}

// What the context menu of the list offers, for those who don't look for one.
void SidePanel::makeRunButtons() {
    m_add->setObjectName("cmdAddRun");
    m_add->setText("Add ...");
    m_add->setToolTip("Add results files to the runs (Ctrl+O)");
    m_arrange->setObjectName("cmdArrange");
    m_arrange->setText("Arrange");
    m_arrange->setToolTip("Make the chosen run the base, move or remove it");
    m_arrange->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(m_arrange);
    m_arrange->setMenu(menu);
    for (QToolButton* button : {m_arrange, m_add}) {
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
    }
    connect(menu, &QMenu::aboutToShow, this, m_handlers.guarded([this, menu] { m_runs->fillMenu(*menu); }));
    connect(m_add, &QToolButton::clicked, this, m_handlers.guarded([this] { onAddRun(); }));
}

void SidePanel::addChoice(const QString& caption, QComboBox& box) {
    auto* label = new QLabel(caption, this);
    label->setBuddy(&box);
    const int row = m_switchRows->rowCount();
    m_switchRows->addWidget(label, row, 0);
    m_switchRows->addWidget(&box, row, 1);
    takeTab(box);
}

// As the eye goes: from the last one to this.
void SidePanel::takeTab(QWidget& control) {
    if (m_lastControl) setTabOrder(m_lastControl, &control);
    m_lastControl = &control;
}

QWidget* SidePanel::makeHeading(const QString& text, const std::vector<QWidget*>& beside) {
    auto* row = new QWidget(this);
    auto* heading = new QLabel(text, row);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    auto* across = new QHBoxLayout(row);
    across->setContentsMargins(0, 0, 0, 0);
    across->addWidget(heading, 1);
    for (QWidget* each : beside)
        across->addWidget(each);
    return row;
}

void SidePanel::makeSeries() {
    m_series->setObjectName("lstSeries");
    m_series->setAccessibleName("Series");
    m_series->setFrameShape(QFrame::NoFrame);
    m_series->setTextElideMode(Qt::ElideMiddle); // the ending tells concentrations from loads
    m_series->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_series->setSpacing(1);
    m_series->viewport()->setAutoFillBackground(false);
    m_series->setContextMenuPolicy(Qt::CustomContextMenu);
    m_series->setToolTip("Ticked series are drawn; the context menu tells which are bad when they are low");
    connect(m_series, &QWidget::customContextMenuRequested, this,
            m_handlers.guarded([this](QPoint at) { showSeriesMenu(at); }));
    connect(m_series, &QListWidget::itemChanged, this,
            m_handlers.guarded([this] { onSeries(chosenSeries()); }));
}

void SidePanel::makeSwitches() {
    const auto add = [this](const char* name, const char* caption, bool ExploreState::*what,
                            const char* tip) {
        auto* box = new QCheckBox(caption, this);
        box->setObjectName(name);
        box->setToolTip(tip);
        connect(box, &QCheckBox::toggled, this,
                m_handlers.guarded([this, what](bool isOn) { onSwitched(what, isOn); }));
        m_switches.push_back({box, what});
    };
    add("chkLimits", "&Limits", &ExploreState::limits, "How sure a value is, as a band");
    add("chkTargets", "&Targets", &ExploreState::targets, "What a determinand shall not exceed");
    add("chkObserved", "&Observed", &ExploreState::observed, "What samples gave at stations");
    add("chkInterpolated", "&Interpolated", &ExploreState::interpolated,
        "Points that the engine adds between features");
}

void SidePanel::showSeriesMenu(QPoint at) {
    const int determinand = m_series->currentRow(); // the flow is the first line, the concentrations follow
    if (determinand < 1 || determinand > m_determinands) return;
    QMenu menu(m_series);
    QAction* low = menu.addAction("A low value is &bad");
    low->setCheckable(true);
    low->setChecked(m_lowIsBad.contains(determinand));
    connect(low, &QAction::toggled, this,
            m_handlers.guarded([this, determinand](bool isOn) { onLowIsBad(determinand, isOn); }));
    menu.exec(m_series->viewport()->mapToGlobal(at));
}

std::vector<int> SidePanel::chosenSeries() const {
    std::vector<int> chosen;
    for (int series = 0; series < m_series->count(); ++series)
        if (m_series->item(series)->checkState() == Qt::Checked) chosen.push_back(series);
    return chosen;
}

void SidePanel::show(const ExploreState& state, const std::vector<ListedRun>& runs, Theme theme) {
    const QPalette palette = listPaletteOf(theme);
    for (QListWidget* list : std::initializer_list<QListWidget*>{m_runs, m_series})
        if (list->palette() != palette) list->setPalette(palette);
    m_runs->show(runs, theme);
    showSeries(state);
    for (const Switch& each : m_switches) {
        const QSignalBlocker quiet(each.box);
        each.box->setChecked(state.*each.what);
    }
}

void SidePanel::showSeries(const ExploreState& state) {
    const QSignalBlocker quiet(m_series);
    m_lowIsBad = lowIsBadOf(state);
    m_determinands = state.isEmpty() ? 0 : state.study->base().results().determinandCount;
    const int count = state.isEmpty() ? 0 : state.study->base().results().seriesCount + 1;
    while (m_series->count() > count)
        delete m_series->takeItem(m_series->count() - 1);
    while (m_series->count() < count)
        m_series->addItem(QString());
    for (int series = 0; series < count; ++series) {
        QListWidgetItem& line = *m_series->item(series);
        line.setText(shown(state.study->base().results().seriesNames[series]));
        line.setToolTip(line.text() + '\n' + m_series->toolTip());
        const bool isChosen = std::ranges::find(state.series, series) != state.series.end();
        line.setCheckState(isChosen ? Qt::Checked : Qt::Unchecked);
    }
}

} // namespace korvel
