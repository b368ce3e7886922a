#include "help/frmHelp.h"

#include "drawing/paint/Shown.h"
#include "drawing/paint/Twips.h"
#include "global/GLOBAL.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QVBoxLayout>

namespace korvel {

namespace {

constexpr Place designPlace = at(0, 0, 8400, 6150); // of the form with its frame, twips
constexpr double besideColumn = 300;                // of the grid's width, twips

// One column, without fixed ones, as wide as the grid allows.
class OneColumnGrid : public QTableWidget {
  public:
    explicit OneColumnGrid(QWidget* parent) : QTableWidget(0, 1, parent) {}

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QTableWidget::resizeEvent(event);
        setColumnWidth(0, width() - pixels(besideColumn));
    }
};

Place placeIn(const WorkArea& area) {
    const double width = designPlace.width * GLOBAL.ScaleX;
    const double height = designPlace.height * GLOBAL.ScaleY;
    return {area.left + (area.width - width) / 2, area.top + (area.height - height) / 2, width, height};
}

} // namespace

QTableWidget& frmHelp::grid() {
    auto* table = new OneColumnGrid(&client());
    table->setObjectName("grdHelp");
    table->setAccessibleName("Help page");
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setShowGrid(false);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->horizontalHeader()->hide();
    table->verticalHeader()->hide();
    return *table;
}

frmHelp::frmHelp(Platform& services) : Form(services, "frmHelp", "Help") {
    // Examples stand in columns, so that every character has the same width.
    const double size = scaledFontSize(looks::designText, fontFactor(GLOBAL.ScaleX, GLOBAL.ScaleY));
    grdHelp.setFont(looks::fixedFont(size));
    grdHelp.verticalHeader()->setMinimumSectionSize(1);
    grdHelp.verticalHeader()->setDefaultSectionSize(grdHelp.fontMetrics().height() + 2);
    layOut();
    new KeyWatch(grdHelp, [this](int key) {
        bool used = false;
        handlers().run([&] { used = keyInGrid(key); });
        return used;
    });
    setOuterPlace(placeIn(services.machine.workArea()));
}

void frmHelp::layOut() {
    setFontSize(lblPage, scaledFontSize(looks::designText, fontFactor(GLOBAL.ScaleX, GLOBAL.ScaleY)), false);
    auto* all = new QVBoxLayout(&client());
    all->addWidget(&grdHelp, 1);
    all->addWidget(&lblPage);
}

void frmHelp::load() {
    showRows(readHelpPage(services(), GLOBAL.helpPage));
}

void frmHelp::showRows(const std::vector<std::string>& rows) {
    grdHelp.setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < grdHelp.rowCount(); ++row)
        grdHelp.setItem(row, 0, new QTableWidgetItem(shown(rows[static_cast<std::size_t>(row)])));
    grdHelp.setCurrentCell(0, 0, QItemSelectionModel::NoUpdate);
    grdHelp.scrollToTop();
    lblPage.setText(shown("Page " + GLOBAL.helpPage +
                          ".  Page Up and Page Down scroll, and turn to the other pages; Esc closes."));
}

bool frmHelp::onKey(int key, Qt::KeyboardModifiers) {
    if (key != Qt::Key_Escape) return false;
    services().windows.close(*this);
    return true;
}

// A key scrolls first; at the page's end it turns.
bool frmHelp::keyInGrid(int key) {
    if (key != Qt::Key_PageUp && key != Qt::Key_PageDown) return false;
    const bool forth = key == Qt::Key_PageDown;
    QScrollBar& bar = *grdHelp.verticalScrollBar();
    if (bar.value() != (forth ? bar.maximum() : bar.minimum()))
        bar.setValue(bar.value() + (forth ? bar.pageStep() : -bar.pageStep()));
    else
        turn(forth ? PageTurn::forth : PageTurn::back);
    return true;
}

void frmHelp::turn(PageTurn direction) {
    const std::string page = turnedPage(helpPagesThere(services()), GLOBAL.helpPage, direction);
    if (page == GLOBAL.helpPage) return;
    GLOBAL.helpPage = page;
    load();
    if (direction == PageTurn::back) grdHelp.scrollToBottom();
}

} // namespace korvel
