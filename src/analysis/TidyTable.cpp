#include "analysis/TidyTable.h"

#include "study/Network.h"
#include "study/SeriesValues.h"

#include <array>

namespace korvel {

namespace {

constexpr std::size_t pointColumns = 8; // the first ones, the same in all rows of a point

std::vector<Column> columns() {
    std::vector<Column> columns;
    for (const char* name : {"run", "reach", "reach_name", "distance", "to_mouth", "feature", "side", "type",
                             "series", "statistic", "value", "low", "high", "observed", "target"})
        columns.push_back({name});
    return columns;
}

// One series and statistic of a run.
struct ValueColumns {
    SeriesValues values;
    ReadyCells names;
};

class TidyRun {
  public:
    TidyRun(const StudyRun& run, const TidyRequest& request, RowTaker& taker)
        : m_run(run), m_request(request), m_taker(taker), m_network(networkOf(*run.file)) {
        const ResultsDataSet& results = run.results();
        for (const int series : request.series) {
            for (const Statistic statistic : request.statistics) {
                const std::array<Cell, 2> names = {std::string_view(results.seriesNames[series]),
                                                   std::string_view(factsOf(statistic).columnName)};
                m_columns.push_back(
                    {seriesValues(results, series, statistic), taker.ready(pointColumns, names)});
            }
        }
    }

    void write() {
        for (int point = 1; point <= m_run.results().pointCount; ++point)
            if (isInTidyTable(m_run.results(), m_request, point)) writePoint(point);
    }

  private:
    ReadyCells pointCells(int point) const;
    void writePoint(int point);

    const StudyRun& m_run;
    const TidyRequest& m_request;
    RowTaker& m_taker;
    Network m_network;
    std::vector<ValueColumns> m_columns;
};

ReadyCells TidyRun::pointCells(int point) const {
    const ResultsDataSet& results = m_run.results();
    const int reach = results.pointReach[point];
    const std::string reachName = m_run.file->reachName(reach);
    const std::array<Cell, pointColumns> cells = {std::string_view(m_run.name),
                                                  reach,
                                                  std::string_view(reachName),
                                                  results.pointDistance[point],
                                                  cellOf(wayToMouth(m_run, m_network, point)),
                                                  std::string_view(results.pointLabel[point]),
                                                  std::string_view(results.pointSide[point]),
                                                  results.pointFeatureType[point]};
    return m_taker.ready(0, cells);
}

void TidyRun::writePoint(int point) {
    const ReadyCells pointPart = pointCells(point);
    std::array<Cell, 5> cells;
    for (const auto& [values, names] : m_columns) {
        const bool hasLimits = values.hasLimits();
        cells[0] = values.value[SeriesValues::at(point)];
        cells[1] = hasLimits ? Cell(values.low(point)) : Cell(Nothing());
        cells[2] = hasLimits ? Cell(values.high(point)) : Cell(Nothing());
        cells[3] =
            values.isObserved(point) ? Cell(values.observed[SeriesValues::at(point)]) : Cell(Nothing());
        cells[4] = values.hasTarget(point) ? Cell(values.target[SeriesValues::at(point)]) : Cell(Nothing());
        m_taker.row(pointPart, names, cells);
    }
}

} // namespace

bool isInTidyTable(const ResultsDataSet& results, const TidyRequest& request, int point) {
    if (!request.interpolated && results.pointFeatureType[point] == InterpolatedPointType) return false;
    return request.reaches.holds(results.pointReach[point]);
}

std::optional<double> wayToMouth(const StudyRun& run, const Network& network, int point) {
    const ResultsDataSet& results = run.results();
    const int reach = results.pointReach[point];
    const int place = run.reaches().placeOf(reach);
    if (place < 0 || network.hasCircles()) return std::nullopt;
    return network.toMouth[static_cast<std::size_t>(place)] + results.reachLengths[reach] -
           results.pointDistance[point];
}

RunSequence sequenceOf(const Study& study) {
    return {study.runs().size(), [runs = study.runs()](std::size_t k) { return runs[k]; }};
}

Table tidyTable(const RunSequence& runs, const TidyRequest& request) {
    return {"rows", columns(), [runs, request](RowTaker& taker) {
                for (std::size_t k = 0; k < runs.count; ++k) {
                    const StudyRun run = runs.run(k);
                    TidyRun(run, request, taker).write();
                }
            }};
}

} // namespace korvel
