#include "explore/tables/ExploreTables.h"

#include "drawing/paint/Shown.h"
#include "explore/rows/ChangeRows.h"
#include "explore/rows/ComplianceRows.h"
#include "explore/rows/ShownCells.h"
#include "explore/rows/ValueRows.h"
#include "study/SeriesValues.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>

namespace korvel {

namespace {

constexpr int restMilliseconds = 80;
constexpr int margin = 6;
constexpr int leastLetters = 10; // of a box of choices

bool hasSameRuns(const ExploreState& a, const ExploreState& b) {
    return a.study == b.study && a.network == b.network && a.hidden == b.hidden;
}

bool hasSamePath(const ExploreState& a, const ExploreState& b) {
    return a.from == b.from && a.to == b.to && a.interpolated == b.interpolated;
}

bool hasSameValues(const ExploreState& a, const ExploreState& b) {
    return a.series == b.series && a.statistic == b.statistic;
}

QWidget* pageOf(QLayout* layout) {
    auto* page = new QWidget;
    layout->setContentsMargins(0, margin, 0, 0);
    layout->setSpacing(margin);
    page->setLayout(layout);
    return page;
}

QHBoxLayout* choicesRow() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(margin, 0, margin, 0);
    return row;
}

} // namespace

ExploreTables::ExploreTables(Handlers& handlers, QWidget* parent)
    : QWidget(parent), m_handlers(handlers), m_tabs(new QTabWidget(this)) {
    m_tabs->setObjectName("tabTables");
    m_tabs->setAccessibleName(tr("Tables"));
    m_tabs->setDocumentMode(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
    addPages();
    addFilter();
    connect(m_tabs, &QTabWidget::currentChanged, this, m_handlers.guarded([this] { bringUpToDate(); }));
    m_cursorRest.setSingleShot(true);
    m_cursorRest.setInterval(restMilliseconds);
    connect(&m_cursorRest, &QTimer::timeout, this, m_handlers.guarded([this] { makeOld(sources); }));
}

RowsView& ExploreTables::addView(Tab tab, const char* name, const QString& caption) {
    auto* view = new RowsView(name, caption, m_handlers, this);
    page(tab).view = view;
    connect(view, &RowsView::placeChosen, this,
            m_handlers.guarded([this, tab](int reach, double distance, const QString& side) {
                tell(tab, reach, distance, side);
            }));
    connect(view, &RowsView::cellTaken, this,
            m_handlers.guarded([this, tab](int row, int column) { take(tab, row, column); }));
    return *view;
}

void ExploreTables::addPages() {
    m_tabs->addTab(&addView(values, "tblValues", tr("Values")), tr("Values"));
    m_tabs->addTab(&addView(changes, "tblChanges", tr("Changes")), tr("Changes"));
    m_tabs->addTab(makeCompliancePage(), tr("Compliance"));
    m_tabs->addTab(makeFitPage(), tr("Fit"));
    m_tabs->addTab(makeSourcesPage(), tr("Sources"));
}

QComboBox& ExploreTables::choiceBox(const char* name, const QString& accessibleName,
                                    const QStringList& choices) {
    auto* box = new QComboBox(this);
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->addItems(choices);
    box->setMinimumWidth(leastLetters * box->fontMetrics().averageCharWidth()); // where there is little room
    return *box;
}

// Of a box Qt tells screen readers the choice as its name, and what it is for by the label that belongs to
// it.
QLabel& ExploreTables::caption(const QString& text, QComboBox& box) {
    auto* label = new QLabel(text, this);
    label->setBuddy(&box);
    return *label;
}

QWidget* ExploreTables::makeCompliancePage() {
    RowsView& view = addView(compliance, "tblCompliance", tr("Compliance"));
    m_lowIsBad = new LowIsBadButton(m_handlers, this);
    m_lowIsBad->onChosen = [this](int determinand, bool isLow) { emit lowIsBadChosen(determinand, isLow); };
    auto* words =
        new WrappedNote("lblCompliance",
                        tr("Judged by the statistic that each target is for, as surely as the limits "
                           "allow. A double click shows a reach and determinand above."),
                        this);
    auto* choices = choicesRow();
    choices->addWidget(m_lowIsBad);
    choices->addWidget(words, 1);
    auto* layout = new QVBoxLayout;
    layout->addLayout(choices);
    layout->addWidget(&view, 1);
    return pageOf(layout);
}

QWidget* ExploreTables::makeFitPage() {
    RowsView& view = addView(fit, "tblFit", tr("Fit"));
    m_fitBy = &choiceBox("cboFitBy", tr("Fit over"), {tr("Whole file"), tr("Rivers"), tr("Reaches")});
    m_fitLogarithmic = new QCheckBox(tr("Logarithmic"), this);
    m_fitLogarithmic->setObjectName("chkFitLogarithmic");
    auto* caution =
        new WrappedNote("lblFit",
                        tr("Across places, not over time; stations that the model was calibrated to "
                           "are no independent test."),
                        this);
    auto* choices = choicesRow();
    choices->addWidget(&caption(tr("Fit over"), *m_fitBy));
    choices->addWidget(m_fitBy);
    choices->addWidget(m_fitLogarithmic);
    choices->addWidget(caution, 1);
    m_scatter = new ScatterPicture(m_handlers, this);
    auto* parts = new QSplitter(this);
    parts->setChildrenCollapsible(false);
    parts->addWidget(&view);
    parts->addWidget(m_scatter);
    parts->setStretchFactor(0, 3);
    parts->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout;
    layout->addLayout(choices);
    layout->addWidget(parts, 1);
    connect(m_fitBy, &QComboBox::currentIndexChanged, this, m_handlers.guarded([this] { makeOld(fit); }));
    connect(m_fitLogarithmic, &QCheckBox::toggled, this, m_handlers.guarded([this](bool on) {
        m_scatter->setScale(on ? ScaleKind::logarithmic : ScaleKind::linear);
    }));
    connect(&view, &RowsView::cellChosen, this,
            m_handlers.guarded([this](int row, int) { showScatter(row); }));
    connect(m_scatter, &ScatterPicture::placeChosen, this, &ExploreTables::placeChosen);
    return pageOf(layout);
}

QWidget* ExploreTables::makeSourcesPage() {
    RowsView& view = addView(sources, "tblSources", tr("Sources"));
    m_sourcesOf = &choiceBox("cboSourcesOf", tr("Sources of"), {});
    m_sourcesAt = &choiceBox("cboSourcesAt", tr("Sources at"), {tr("At the mouth"), tr("At the cursor")});
    m_sourcesBy = &choiceBox("cboSourcesBy", tr("Listed"), {tr("By source"), tr("By kind")});
    m_sourcesHeading = new WrappedNote("lblSources", "", this);
    auto* choices = choicesRow();
    choices->addWidget(&caption(tr("Sources of"), *m_sourcesOf));
    QLabel &at = caption(tr("Place"), *m_sourcesAt), &by = caption(tr("Listed"), *m_sourcesBy);
    for (QLabel* unseen : {&at, &by}) { // the choices themselves say it to those who see them
        choices->addWidget(unseen);
        unseen->hide();
    }
    for (QComboBox* box : {m_sourcesOf, m_sourcesAt, m_sourcesBy}) {
        choices->addWidget(box);
        connect(box, &QComboBox::currentIndexChanged, this, m_handlers.guarded([this] { makeOld(sources); }));
    }
    choices->addWidget(m_sourcesHeading, 1);
    auto* layout = new QVBoxLayout;
    layout->addLayout(choices);
    layout->addWidget(&view, 1);
    return pageOf(layout);
}

void ExploreTables::addFilter() {
    m_filter = new QLineEdit(this);
    m_filter->setObjectName("txtFilter");
    m_filter->setAccessibleName(tr("Filter"));
    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setClearButtonEnabled(true);
    m_filter->setMaximumWidth(24 * m_filter->fontMetrics().averageCharWidth());
    auto* corner = new QWidget(this); // keeps it off the window's edge and the tables
    auto* room = new QHBoxLayout(corner);
    room->setContentsMargins(margin, margin / 2, margin, margin / 2);
    room->addWidget(m_filter);
    m_tabs->setCornerWidget(corner, Qt::TopRightCorner);
    connect(m_filter, &QLineEdit::textChanged, this, m_handlers.guarded([this](const QString& words) {
        page(front()).view->setFilter(typed(words));
    }));
}

void ExploreTables::show(const ExploreState& state) {
    markOld(state);
    const bool newStudy = state.study != m_state.study;
    const std::optional<ExplorePlace> cursor = m_state.cursor;
    m_state = state;
    m_state.cursor = cursor; // until it is followed
    if (!state.isEmpty()) m_lowIsBad->show(state);
    if (newStudy && !state.isEmpty()) {
        m_matched->keepOnly(state.study->base(), state.study->runs());
        listDeterminands();
    }
    bringUpToDate();
    followCursor(state.cursor);
}

// What each table depends on.
void ExploreTables::markOld(const ExploreState& state) {
    const bool runs = !hasSameRuns(m_state, state), shownSeries = m_state.series != state.series;
    const bool low = m_state.lowIsBad != state.lowIsBad;
    const std::array<bool, tabs> changed = {
        runs || !hasSamePath(m_state, state) || !hasSameValues(m_state, state),
        runs || !hasSameValues(m_state, state), runs || low, runs || shownSeries, runs};
    for (std::size_t tab = 0; tab < m_pages.size(); ++tab)
        m_pages[tab].isOld = m_pages[tab].isOld || changed[tab];
}

void ExploreTables::makeOld(Tab tab) {
    page(tab).isOld = true;
    bringUpToDate();
}

void ExploreTables::bringUpToDate() {
    Page& shown = page(front());
    shown.view->setFilter(typed(m_filter->text()));
    if (!shown.isOld) return;
    shown.isOld = false;
    shown.view->setSource(m_state.isEmpty() ? nullptr : rowsOf(front()));
    if (front() == fit) showScatter(-1);
    if (m_state.cursor) shown.view->follow(*m_state.cursor);
}

std::shared_ptr<const RowSource> ExploreTables::rowsOf(Tab tab) {
    const TableScope scope = scopeOf(m_state);
    switch (tab) {
    case values: return std::make_shared<ValueRows>(scope);
    case changes: return std::make_shared<ChangeRows>(scope, *m_matched);
    case compliance: return std::make_shared<ComplianceRows>(scope, m_matched);
    case fit: return std::make_shared<FitRows>(scope, static_cast<FitBy>(m_fitBy->currentIndex()));
    default: return sourceRows(scope);
    }
}

std::shared_ptr<const RowSource> ExploreTables::sourceRows(const TableScope& scope) {
    auto rows = std::make_shared<SourceRows>(scope, sourcesChoice());
    m_sourcesHeading->setText(shown(rows->heading()));
    return rows;
}

bool ExploreTables::sourcesAreAtCursor() const {
    return m_sourcesAt->currentIndex() == 1;
}

SourcesChoice ExploreTables::sourcesChoice() const {
    SourcesChoice choice;
    choice.determinand = std::max(0, m_sourcesOf->currentIndex());
    choice.by = static_cast<SourcesBy>(m_sourcesBy->currentIndex());
    if (sourcesAreAtCursor()) choice.at = m_state.cursor;
    return choice;
}

// The flow, then the determinands; the first determinand where there is one. What was chosen stays.
void ExploreTables::listDeterminands() {
    const ResultsDataSet& results = m_state.study->base().results();
    const int chosen = m_sourcesOf->currentIndex();
    const QSignalBlocker quiet(m_sourcesOf);
    m_sourcesOf->clear();
    m_sourcesOf->addItem(tr("Flow"));
    for (int d = 1; d <= results.determinandCount; ++d)
        m_sourcesOf->addItem(korvel::shown(determinandName(results, d)));
    m_sourcesOf->setCurrentIndex(chosen >= 0 && chosen < m_sourcesOf->count() ? chosen
                                                                              : m_sourcesOf->count() > 1);
}

// Of the current row, or the first.
void ExploreTables::showScatter(int sourceRow) {
    const RowsModel& model = page(fit).view->rows();
    const auto* rows = dynamic_cast<const FitRows*>(model.source());
    if (sourceRow < 0 && model.rowCount() > 0) {
        const QModelIndex current = page(fit).view->currentIndex();
        sourceRow = model.sourceRow(current.isValid() ? current.row() : 0);
    }
    if (rows == nullptr || sourceRow < 0)
        m_scatter->setPoints(std::nullopt);
    else
        m_scatter->setPoints(rows->pointsOf(sourceRow));
}

void ExploreTables::followCursor(const std::optional<ExplorePlace>& cursor) {
    const bool moved = cursor != m_state.cursor;
    m_state.cursor = cursor;
    if (moved && sourcesAreAtCursor()) {
        page(sources).isOld = true;
        if (front() == sources) m_cursorRest.start();
    }
    if (cursor && !page(front()).isOld) page(front()).view->follow(*cursor);
}

// Where the sources are those at the cursor, a row that is looked at must not move the cursor.
void ExploreTables::tell(Tab tab, int reach, double distance, const QString& side) {
    if (tab == sources && sourcesAreAtCursor()) return;
    emit placeChosen(reach, distance, side);
}

void ExploreTables::take(Tab tab, int sourceRow, int column) {
    const RowSource& rows = *page(tab).view->rows().source();
    if (const auto series = rows.series(sourceRow, column)) emit seriesChosen(*series);
    if (const auto place = rows.place(sourceRow, column))
        emit placeChosen(place->reach, place->distance, korvel::shown(place->side));
}

std::optional<Table> ExploreTables::tableInFront() const {
    const RowsView& view = *m_pages[static_cast<std::size_t>(front())].view;
    return view.rows().sharedSource() ? std::optional(tableOf(view.rows().sharedSource(), view.rows().rows()))
                                      : std::nullopt;
}

QString ExploreTables::nameInFront() const {
    return m_tabs->tabText(m_tabs->currentIndex());
}

void ExploreTables::showInFront(const QString& name) {
    for (int tab = 0; tab < m_tabs->count(); ++tab)
        if (m_tabs->tabText(tab) == name) m_tabs->setCurrentIndex(tab);
}

} // namespace korvel
