#include "analysis/RunDatabase.h"

#include "study/Network.h"
#include "study/SeriesValues.h"

#include <array>
#include <map>
#include <set>

namespace korvel {

namespace {

const char* kindName(SeriesKind kind) {
    switch (kind) {
    case SeriesKind::flow: return "flow";
    case SeriesKind::concentration: return "concentration";
    case SeriesKind::load: break;
    }
    return "load";
}

// What is done again and again, ready to go.
struct Statements {
    using Statement = Database::Statement;

    explicit Statements(Database& database)
        : reach(database.statement("INSERT INTO reaches VALUES (?, ?, ?, ?, ?)")),
          point(database.statement("INSERT INTO points VALUES (?, ?, ?, ?, ?, ?, ?, ?)")),
          value(database.statement("INSERT INTO statistics VALUES (?, ?, ?, ?, ?, ?, ?)")),
          observed(database.statement("INSERT INTO observed VALUES (?, ?, ?, ?, ?)")),
          target(database.statement("INSERT INTO targets VALUES (?, ?, ?, ?)")) {}

    Statement reach, point, value, observed, target;
};

struct StoredColumn {
    SeriesValues values;
    int series = 0; // its id
    std::string_view statistic;
    bool isFirstOfSeries = false;
};

class RunStore {
  public:
    RunStore(Database& database, const StudyRun& run, const TidyRequest& request)
        : m_database(database),
          m_run(run),
          m_results(run.results()),
          m_request(request),
          m_network(networkOf(*run.file)) {}

    // `done` hears the share of the run.
    void store(const std::function<void(double)>& done);

  private:
    int takeName();
    int seriesId(int series, int before);
    void takeColumns();
    void storeReaches();
    void storePoint(int point);
    void storeValues(int point);

    Database& m_database;
    const StudyRun& m_run;
    const ResultsDataSet& m_results;
    const TidyRequest& m_request;
    Network m_network;
    Statements m_insert{m_database};
    int m_id = 0; // of the run
    std::vector<StoredColumn> m_columns;
};

void RunStore::store(const std::function<void(double)>& done) {
    constexpr int pointsBetween = 256;
    m_id = takeName();
    takeColumns();
    storeReaches();
    for (int point = 1; point <= m_results.pointCount; ++point) {
        if (point % pointsBetween == 0) done(static_cast<double>(point) / m_results.pointCount);
        if (!isInTidyTable(m_results, m_request, point)) continue;
        storePoint(point);
        storeValues(point);
    }
}

// A run of the same name goes, but for its id.
int RunStore::takeName() {
    const std::string_view name = m_run.name, title = m_results.resultsTitle;
    const auto found =
        m_database.statement("SELECT id FROM runs WHERE name = ?").run(std::array<Cell, 1>{name});
    if (!found) {
        m_database.statement("INSERT INTO runs (name, title, percentile_mode) VALUES (?, ?, ?)")
            .run(std::array<Cell, 3>{name, title, m_results.percentileMode});
        return static_cast<int>(m_database.lastId());
    }
    const int id = static_cast<int>(*found);
    for (const char* const sql : {"DELETE FROM statistics WHERE run = ?",
                                  "DELETE FROM observed WHERE run = ?", "DELETE FROM targets WHERE run = ?",
                                  "DELETE FROM points WHERE run = ?", "DELETE FROM reaches WHERE run = ?"})
        m_database.statement(sql).run(std::array<Cell, 1>{id});
    m_database.statement("UPDATE runs SET title = ?, percentile_mode = ? WHERE id = ?")
        .run(std::array<Cell, 3>{title, m_results.percentileMode, id});
    return id;
}

// Series are shared by the runs. Of several with one name in a file, the k-th is the k-th of that name.
int RunStore::seriesId(int series, int before) {
    const std::string& name = m_results.seriesNames[series];
    const auto found =
        m_database.statement("SELECT id FROM series WHERE name = ? ORDER BY id LIMIT 1 OFFSET ?")
            .run(std::array<Cell, 2>{std::string_view(name), before});
    if (found) return static_cast<int>(*found);
    const int number = m_results.determinandOf(series);
    const std::string determinand = number > 0 ? determinandName(m_results, number) : "";
    m_database.statement("INSERT INTO series (name, kind, determinand) VALUES (?, ?, ?)")
        .run(std::array<Cell, 3>{std::string_view(name), std::string_view(kindName(m_results.kindOf(series))),
                                 number > 0 ? Cell(std::string_view(determinand)) : Cell(Nothing())});
    return static_cast<int>(m_database.lastId());
}

void RunStore::takeColumns() {
    std::map<std::string, int> seen;
    for (const int series : m_request.series) {
        const int id = seriesId(series, seen[m_results.seriesNames[series]]++);
        bool isFirst = true;
        for (const Statistic statistic : m_request.statistics) {
            m_columns.push_back(
                {seriesValues(m_results, series, statistic), id, factsOf(statistic).columnName, isFirst});
            isFirst = false;
        }
    }
}

// All of them, so that the network stays whole; then those that only points name.
void RunStore::storeReaches() {
    for (const int number : m_run.reaches().numbers()) {
        const std::string name = m_run.file->reachName(number);
        m_insert.reach.run(std::array<Cell, 5>{m_id, number, std::string_view(name),
                                               m_results.reachLengths[number], m_results.reachNext[number]});
    }
    std::set<int> without;
    for (int point = 1; point <= m_results.pointCount; ++point)
        if (m_run.reaches().placeOf(m_results.pointReach[point]) < 0)
            without.insert(m_results.pointReach[point]);
    for (const int number : without)
        m_insert.reach.run(std::array<Cell, 5>{m_id, number, std::string_view(), Nothing(), Nothing()});
}

void RunStore::storePoint(int point) {
    m_insert.point.run(std::array<Cell, 8>{
        m_id, point, m_results.pointReach[point], m_results.pointDistance[point],
        cellOf(wayToMouth(m_run, m_network, point)), std::string_view(m_results.pointLabel[point]),
        std::string_view(m_results.pointSide[point]), m_results.pointFeatureType[point]});
}

void RunStore::storeValues(int point) {
    const auto at = SeriesValues::at(point);
    for (const StoredColumn& column : m_columns) {
        const SeriesValues& values = column.values;
        const bool hasLimits = values.hasLimits();
        m_insert.value.run(std::array<Cell, 7>{m_id, point, column.series, column.statistic, values.value[at],
                                               hasLimits ? Cell(values.low(point)) : Cell(Nothing()),
                                               hasLimits ? Cell(values.high(point)) : Cell(Nothing())});
        if (values.isObserved(point))
            m_insert.observed.run(
                std::array<Cell, 5>{m_id, point, column.series, column.statistic, values.observed[at]});
        if (column.isFirstOfSeries && values.hasTarget(point))
            m_insert.target.run(std::array<Cell, 4>{m_id, point, column.series, values.target[at]});
    }
}

} // namespace

DatabaseContent runDatabaseContent(const RunSequence& runs, const TidyRequest& request) {
    return {&runDatabase, [runs, request](Database& database, const Writing& writing) {
                const auto all = static_cast<double>(runs.count);
                for (std::size_t k = 0; k < runs.count; ++k) {
                    const StudyRun run = runs.run(k);
                    RunStore(database, run, request).store([&](double share) {
                        tellShare(writing, (static_cast<double>(k) + share) / all);
                    });
                    tellShare(writing, (static_cast<double>(k) + 1) / all);
                }
            }};
}

} // namespace korvel
