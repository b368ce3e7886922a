// How long a run of the largest size takes on its way into a database against bare inserts of the same rows
// into the same tables in one transaction. Arguments: a folder for the files, the number of rounds.
#include "LargeResultsFile.h"
#include "Rows.h"
#include "analysis/RunDatabase.h"
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"
#include "study/SeriesValues.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <sqlite3.h>

namespace korvel {

namespace {

constexpr double target = 1.5;

struct StoredValue {
    int point, series;
    const char* statistic;
    double value, low, high, observed, target;
    bool hasLimits, isObserved, hasTarget;
};

std::vector<StoredValue> valuesOf(const StudyRun& run, const TidyRequest& request) {
    std::vector<StoredValue> all;
    for (int point = 1; point <= run.results().pointCount; ++point) {
        const auto at = SeriesValues::at(point);
        for (const int series : request.series) {
            for (const Statistic statistic : request.statistics) {
                const SeriesValues values = seriesValues(run.results(), series, statistic);
                const bool hasLimits = values.hasLimits();
                const bool hasTarget = statistic == Statistic::mean && values.hasTarget(point);
                all.push_back({point, series + 1, factsOf(statistic).columnName, values.value[at],
                               hasLimits ? values.low(point) : 0, hasLimits ? values.high(point) : 0,
                               values.observed[at], hasTarget ? values.target[at] : 0, hasLimits,
                               values.isObserved(point), hasTarget});
            }
        }
    }
    return all;
}

class BareInserts {
  public:
    explicit BareInserts(const std::string& path) {
        std::filesystem::remove(path);
        sqlite3_open(path.c_str(), &m_database);
        for (const char* const sql :
             {"PRAGMA cache_size = -65536", "PRAGMA journal_mode = OFF", "PRAGMA synchronous = OFF",
              "PRAGMA locking_mode = EXCLUSIVE", "BEGIN", runDatabase.schema})
            sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr);
    }
    ~BareInserts() {
        sqlite3_exec(m_database, "COMMIT", nullptr, nullptr, nullptr);
        sqlite3_close(m_database);
    }
    BareInserts(const BareInserts&) = delete;
    BareInserts& operator=(const BareInserts&) = delete;

    void insert(const std::vector<StoredValue>& values) {
        sqlite3_stmt* const value = prepared("INSERT INTO statistics VALUES (?, ?, ?, ?, ?, ?, ?)");
        sqlite3_stmt* const observed = prepared("INSERT INTO observed VALUES (?, ?, ?, ?, ?)");
        sqlite3_stmt* const targets = prepared("INSERT INTO targets VALUES (?, ?, ?, ?)");
        for (const StoredValue& each : values) {
            bindPlace(value, each);
            sqlite3_bind_text(value, 4, each.statistic, -1, SQLITE_STATIC);
            sqlite3_bind_double(value, 5, each.value);
            each.hasLimits ? sqlite3_bind_double(value, 6, each.low) : sqlite3_bind_null(value, 6);
            each.hasLimits ? sqlite3_bind_double(value, 7, each.high) : sqlite3_bind_null(value, 7);
            step(value);
            if (each.isObserved) {
                bindPlace(observed, each);
                sqlite3_bind_text(observed, 4, each.statistic, -1, SQLITE_STATIC);
                sqlite3_bind_double(observed, 5, each.observed);
                step(observed);
            }
            if (each.hasTarget) {
                bindPlace(targets, each);
                sqlite3_bind_double(targets, 4, each.target);
                step(targets);
            }
        }
        for (sqlite3_stmt* const statement : {value, observed, targets})
            sqlite3_finalize(statement);
    }

  private:
    sqlite3_stmt* prepared(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr);
        return statement;
    }
    static void bindPlace(sqlite3_stmt* statement, const StoredValue& value) {
        sqlite3_bind_int(statement, 1, 1);
        sqlite3_bind_int(statement, 2, value.point);
        sqlite3_bind_int(statement, 3, value.series);
    }
    static void step(sqlite3_stmt* statement) {
        sqlite3_step(statement);
        sqlite3_reset(statement);
    }

    sqlite3* m_database = nullptr;
};

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string folder = argv[1], path = folder + "/fixed.sgr";
    const int rounds = std::max(std::atoi(argv[2]) / 3, 1);
    if (!std::filesystem::exists(path)) writeLargeResultsFile(path, ResultsForm::fixedWidth);
    DiskFiles files;
    StudyRun run{"fixed.sgr", readRun(files, modelNameOfHostPath(path)).run};
    if (!run.file) return 1;
    TidyRequest request{{}, {allStatistics.begin(), allStatistics.end()}, {}, true};
    request.series.resize(2 * largeDeterminands + 1);
    std::iota(request.series.begin(), request.series.end(), 0);
    const std::vector<StoredValue> values = valuesOf(run, request);
    const std::string database = folder + "/bench.sqlite";
    const auto ours = [&] {
        std::filesystem::remove(database);
        writeDatabase(runDatabaseContent({1, [&](std::size_t) { return run; }}, request), {}, files,
                      modelNameOfHostPath(database));
    };
    const auto theirs = [&] { BareInserts(database).insert(values); };
    const Contest contest(rounds, {[&] { return costOf(ours); }, [&] { return costOf(theirs); }});
    printTimes("database, one run, " + std::to_string(values.size()) + " values", "bare inserts", contest, 1,
               target);
}
