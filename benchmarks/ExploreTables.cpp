#include "ExploreTables.h"

#include "Rows.h"
#include "explore/tables/ExploreTables.h"

#include <QApplication>

#include <cstdlib>

namespace korvel {

namespace {

constexpr double mostSeconds = 0.150;
constexpr double mostOfCursor = 0.004;

class NoWindows : public Windows {
  public:
    void showModal(ShownForm&) override {}
    void showModeless(ShownForm&) override {}
    void close(ShownForm&) override {}
    void endProgram() override {}
    void failProgram(const RunTimeError&) override { std::exit(1); }
    void updateScreen() override {}
    void passEvents() override {}
};

class Bench {
  public:
    Bench(ExploreState state, int rounds) : m_state(std::move(state)), m_rounds(rounds) {
        m_tables.resize(1900, 400);
        m_tables.show(m_state);
        m_tables.show();
        QApplication::processEvents();
    }

    // Made anew by a change that each of them takes for one.
    void measureTabs() {
        auto& tabs = *m_tables.findChild<QTabWidget*>("tabTables");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            tabs.setCurrentIndex(tab);
            measure("Explorer's table " + tabs.tabText(tab).toStdString() + ", 12 runs", mostSeconds, [this] {
                m_state.series = m_state.series.size() == 5 ? std::vector<int>{0, 1, 2, 3, 4, 5}
                                                            : std::vector<int>{0, 1, 2, 3, 4};
                m_state.lowIsBad = m_state.lowIsBad ? std::nullopt : std::optional(std::set<int>{1});
                m_state.network = std::make_shared<Network>(*m_state.network);
                m_tables.show(m_state);
                m_tables.grab();
            });
        }
        tabs.setCurrentIndex(0);
    }

    void measureRows() {
        auto& view = *m_tables.findChild<RowsView*>("tblValues");
        auto& filter = *m_tables.findChild<QLineEdit*>("txtFilter");
        const std::string rows = std::to_string(view.rows().rowCount()) + " rows";
        measure("sorting " + rows, mostSeconds, [&] {
            view.stepSorting(8);
            m_tables.grab();
        });
        measure("filtering " + rows, mostSeconds, [&] {
            filter.setText(filter.text() == "1" ? "12" : "1");
            m_tables.grab();
        });
        filter.clear();
        int row = 0;
        measure("following the cursor in " + rows, mostOfCursor, [&] {
            row = (row + 7919) % view.rows().source()->rowCount();
            const QModelIndex before = view.currentIndex();
            m_tables.followCursor(view.rows().source()->place(row, 0));
            if (view.currentIndex() == before) std::exit(1); // nothing was followed
        });
    }

  private:
    void measure(const std::string& job, double most, const std::function<void()>& work) {
        const Contest contest(m_rounds, {[&] { return costOf(work); }});
        printTimeBound(job, contest.medianOf(0).processor, "bound", most);
    }

    NoWindows m_windows;
    Handlers m_handlers{m_windows};
    ExploreState m_state;
    ExploreTables m_tables{m_handlers};
    int m_rounds;
};

} // namespace

void measureExploreTables(const ExploreState& state, int rounds) {
    Bench bench(state, rounds);
    bench.measureTabs();
    bench.measureRows();
}

} // namespace korvel
