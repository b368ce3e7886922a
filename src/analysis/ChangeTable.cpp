#include "analysis/ChangeTable.h"

#include <array>

namespace korvel {

namespace {

enum class GroupKind { reach, river };

std::vector<Column> changeColumns(GroupKind kind) {
    std::vector<Column> columns = {{kind == GroupKind::reach ? "reach" : "river"},
                                   {"series"},
                                   {"statistic"},
                                   {"base_mean"},
                                   {"run_mean"},
                                   {"change"},
                                   {"percent"}};
    for (const char* group : {"largest_rise", "largest_fall"}) {
        columns.push_back({"value", group});
        if (kind == GroupKind::river) columns.push_back({"reach", group});
        columns.push_back({"distance", group});
        columns.push_back({"feature", group});
    }
    for (const char* name : {"clear_rises", "clear_falls", "points"})
        columns.push_back({name});
    return columns;
}

void addLargest(std::vector<Cell>& cells, const ResultsDataSet& base,
                const std::optional<LargestChange>& largest, GroupKind kind) {
    if (!largest) {
        cells.insert(cells.end(), kind == GroupKind::river ? 4 : 3, Nothing());
        return;
    }
    cells.emplace_back(largest->value);
    if (kind == GroupKind::river) cells.emplace_back(base.pointReach[largest->point]);
    cells.emplace_back(base.pointDistance[largest->point]);
    cells.emplace_back(std::string_view(base.pointLabel[largest->point]));
}

std::vector<Cell> cellsOf(const ChangeRow& row, const ResultsDataSet& base, Statistic statistic,
                          GroupKind kind) {
    const ChangeSummary& summary = row.summary;
    std::vector<Cell> cells;
    cells.push_back(kind == GroupKind::reach ? Cell(row.group.reach)
                                             : Cell(std::string_view(row.group.river)));
    cells.emplace_back(std::string_view(base.seriesNames[row.series]));
    cells.emplace_back(nameOf(statistic));
    for (const auto& value : {summary.baseMean, summary.runMean, summary.change, summary.percent})
        cells.push_back(cellOf(value));
    addLargest(cells, base, summary.largestRise, kind);
    addLargest(cells, base, summary.largestFall, kind);
    for (const int count : {summary.clearRises, summary.clearFalls, summary.points})
        cells.emplace_back(count);
    return cells;
}

Table tableOf(const ComparedRun& run, std::vector<ReachGroup> groups, const ChangeRequest& request,
              GroupKind kind) {
    const auto rows = [run, groups = std::move(groups), request, kind](RowTaker& taker) {
        for (const ChangeRow& row : changeRows(run, groups, request))
            taker.row(cellsOf(row, run.base.results(), request.statistic, kind));
    };
    return {kind == GroupKind::reach ? "reaches" : "rivers", changeColumns(kind), rows};
}

class PointRows {
  public:
    PointRows(const ComparedRun& run, const ChangeRequest& request) : m_run(run), m_request(request) {
        for (const int series : request.series)
            m_columns.push_back({series, seriesValues(run.base.results(), series, request.statistic),
                                 seriesValues(run.run.results(), series, request.statistic)});
    }

    void give(RowTaker& taker) const {
        const ResultsDataSet& base = m_run.base.results();
        for (int point = 1; point <= base.pointCount; ++point) {
            const int partner = m_run.change->match().ofBase[SeriesValues::at(point)];
            if (partner == 0 || !m_request.reaches.holds(base.pointReach[point])) continue;
            const bool between = base.pointFeatureType[point] == InterpolatedPointType;
            if (!between || m_request.interpolated) givePoint(taker, point, partner);
        }
    }

  private:
    struct Columns {
        int series;
        SeriesValues base, run;
    };

    void givePoint(RowTaker& taker, int point, int partner) const {
        const ResultsDataSet& base = m_run.base.results();
        for (const auto& [series, before, after] : m_columns) {
            const PointChange change = changeAt(before, point, after, partner);
            const std::array<Cell, 11> cells = {base.pointReach[point],
                                                base.pointDistance[point],
                                                std::string_view(base.pointSide[point]),
                                                std::string_view(base.pointLabel[point]),
                                                std::string_view(base.seriesNames[series]),
                                                nameOf(m_request.statistic),
                                                change.base,
                                                change.value,
                                                change.change,
                                                cellOf(change.percent),
                                                change.clear ? Cell(nameOf(*change.clear)) : Cell(Nothing())};
            taker.row(cells);
        }
    }

    const ComparedRun& m_run;
    const ChangeRequest& m_request;
    std::vector<Columns> m_columns;
};

} // namespace

ComparedRun compared(const StudyRun& base, const StudyRun& run) {
    return {base, run, std::make_shared<RunChange>(*base.file, *run.file)};
}

std::vector<ChangeRow> changeRows(const ComparedRun& run, const std::vector<ReachGroup>& groups,
                                  const ChangeRequest& request) {
    std::vector<ChangeRow> rows;
    for (const ReachGroup& group : groups)
        for (const int series : request.series)
            rows.push_back({group, series, run.change->over(group.places, series, request.statistic)});
    return rows;
}

Table changesByReach(const ComparedRun& run, const ChangeRequest& request) {
    return tableOf(run, groupsByReach(*run.base.file, request.reaches), request, GroupKind::reach);
}

Table changesByRiver(const ComparedRun& run, const Network& ofBase, const ChangeRequest& request) {
    return tableOf(run, groupsByRiver(*run.base.file, ofBase, request.reaches), request, GroupKind::river);
}

Table changesByPoint(const ComparedRun& run, const ChangeRequest& request) {
    const auto rows = [run, request](RowTaker& taker) { PointRows(run, request).give(taker); };
    std::vector<Column> columns;
    for (const char* name : {"reach", "distance", "side", "feature", "series", "statistic", "base", "value",
                             "change", "percent", "clear"})
        columns.push_back({name});
    return {"points", columns, rows};
}

std::string_view nameOf(ClearChange change) {
    static constexpr std::array<std::string_view, 3> names = {"rise", "fall", "unclear"};
    return names[static_cast<std::size_t>(change)];
}

} // namespace korvel
