// What the Explorer's tables take, made anew and painted, of twelve runs as large as they can be, with five
// series. Arguments: a folder for the file, the number of rounds.
#include "explore/tables/ExploreTables.h"
#include "LargeResultsFile.h"
#include "Rows.h"
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"

#include <QApplication>

#include <cstdlib>

namespace korvel {

namespace {

constexpr std::size_t runs = 12;
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

ExploreState largeState(const std::string& name) {
    DiskFiles files;
    const auto study = std::make_shared<Study>(loadStudy(files, std::vector<std::string>(runs, name)).study);
    ExploreState state;
    state.study = study;
    state.network = std::make_shared<Network>(networkOf(*study->base().file));
    state.from = study->base().reaches().number(state.network->rivers.front().reaches.front());
    state.to = study->base().reaches().number(state.network->rivers.front().reaches.back());
    state.series = {0, 1, 2, 3, 4};
    return state;
}

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
            m_tables.followCursor(view.rows().source()->place(row, 0));
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

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const std::string path = std::string(argv[1]) + "/fixed.sgr";
    if (!std::filesystem::exists(path)) writeLargeResultsFile(path, ResultsForm::fixedWidth);
    Bench bench(largeState(modelNameOfHostPath(path)), std::atoi(argv[2]));
    bench.measureTabs();
    bench.measureRows();
}
