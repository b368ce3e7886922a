#include "publish/PageTables.h"

#include <algorithm>
#include <memory>

namespace korvel {

namespace {

std::vector<Column> columnsOf(std::initializer_list<const char*> names, const std::string& group = "") {
    std::vector<Column> columns;
    for (const char* name : names)
        columns.push_back({name, group});
    return columns;
}

void append(std::vector<Column>& columns, const std::vector<Column>& more) {
    columns.insert(columns.end(), more.begin(), more.end());
}

bool isWorse(const ComplianceRow* a, const ComplianceRow* b) {
    if (a->reach.verdict != b->reach.verdict) return a->reach.verdict > b->reach.verdict;
    if (!a->reach.worst || !b->reach.worst) return false;
    return a->reach.worst->judgement.isWorseThan(b->reach.worst->judgement);
}

std::vector<const ComplianceRow*> worstFirst(const PageRun& run) {
    std::vector<const ComplianceRow*> rows;
    for (const ComplianceRow& row : run.compliance)
        if (row.reach.verdict != Verdict::none) rows.push_back(&row);
    std::ranges::stable_sort(rows, isWorse);
    return rows;
}

void addWorst(std::vector<Cell>& cells, const ResultsDataSet& results,
              const std::optional<WorstPoint>& worst) {
    if (worst)
        addCells(cells, {worst->judgement.value, worst->judgement.target, results.pointDistance[worst->point],
                         std::string_view(results.pointLabel[worst->point])});
    else
        cells.insert(cells.end(), 4, Nothing());
}

void giveRow(const ComplianceRow& row, const StudyRun& run, RowTaker& taker) {
    const int number = run.reaches().number(row.place);
    const std::string reach = run.file->reachName(number);
    const std::string determinand = determinandName(run.results(), row.determinand.number);
    const ReachCompliance& result = row.reach;
    std::vector<Cell> cells = {std::string_view(determinand), number,
                               std::string_view(reach),       nameOf(row.determinand.statistic),
                               nameOf(result.verdict),        nameOf(result.confident)};
    addCells(cells, {result.sums.failingLength, result.sums.judgedLength, result.sums.failingPoints,
                     result.sums.judgedPoints, result.sums.sureFails, result.sums.unsure});
    addWorst(cells, run.results(), result.worst);
    addCells(cells, {cellOf(result.needed), cellOf(result.headroom)});
    const std::string words = row.change ? row.change->words() : "";
    if (row.change)
        addCells(cells,
                 {std::string_view(words), row.change->failingLength, cellOf(row.change->deteriorated)});
    taker.row(cells);
}

} // namespace

Table worstComplianceTable(const PageRun& run) {
    std::vector<Column> columns = columnsOf({"determinand", "reach", "reach_name", "statistic", "verdict",
                                             "confident_verdict", "failing_length", "judged_length",
                                             "failing_points", "judged_points", "sure_fails", "unsure"});
    append(columns, columnsOf({"value", "target", "distance", "feature"}, "worst"));
    append(columns, columnsOf({"needed", "headroom"}));
    const bool isCompared = !run.compliance.empty() && run.compliance.front().change.has_value();
    if (isCompared) append(columns, columnsOf({"verdict", "failing_length", "deteriorated"}, "change"));
    return {"reaches", columns, [&run](RowTaker& taker) {
                for (const ComplianceRow* row : worstFirst(run))
                    giveRow(*row, run.run, taker);
            }};
}

namespace {

void addLargest(std::vector<Cell>& cells, const ResultsDataSet& base,
                const std::optional<LargestChange>& largest) {
    if (largest)
        addCells(cells, {largest->value, base.pointDistance[largest->point],
                         std::string_view(base.pointLabel[largest->point])});
    else
        cells.insert(cells.end(), 3, Nothing());
}

} // namespace

Table pageChangesTable(const PageStudy& study, const PageRun& run) {
    std::vector<Column> columns =
        columnsOf({"series", "reach", "reach_name", "base_mean", "run_mean", "change", "percent"});
    for (const char* group : {"largest_rise", "largest_fall"})
        append(columns, columnsOf({"value", "distance", "feature"}, group));
    append(columns, columnsOf({"clear_rises", "clear_falls", "points"}));
    return {"changes", columns, [&study, &run](RowTaker& taker) {
                const ResultsDataSet& base = study.base().results();
                for (const ChangeRow& row : run.changes) {
                    const std::string reach = study.base().file->reachName(row.group.reach);
                    const ChangeSummary& summary = row.summary;
                    std::vector<Cell> cells = {std::string_view(base.seriesNames[row.series]),
                                               row.group.reach, std::string_view(reach)};
                    addCells(cells, {cellOf(summary.baseMean), cellOf(summary.runMean),
                                     cellOf(summary.change), cellOf(summary.percent)});
                    addLargest(cells, base, summary.largestRise);
                    addLargest(cells, base, summary.largestFall);
                    addCells(cells, {summary.clearRises, summary.clearFalls, summary.points});
                    taker.row(cells);
                }
            }};
}

namespace {

std::vector<ComparedSource> comparedSources(const PageSources& sources) {
    std::vector<std::span<const Contribution>> runs;
    for (const LoadSources& run : sources.runs)
        runs.emplace_back(run.contributions);
    return compareSources(runs);
}

void addRunColumns(std::vector<Column>& columns, const PageStudy& study) {
    for (const PageRun& run : study.runs())
        append(columns, columnsOf({"load", "arrives", "share"}, study.runs().size() > 1 ? run.run.name : ""));
}

template <typename Part>
void addPart(std::vector<Cell>& cells, const Part* part) {
    if (part)
        addCells(cells, {part->load, part->arrives, cellOf(part->share)});
    else
        cells.insert(cells.end(), 3, Nothing());
}

} // namespace

Table comparedSourcesTable(const PageStudy& study, const PageSources& sources) {
    std::vector<Column> columns = columnsOf({"name", "kind", "reach", "reach_name", "distance"});
    addRunColumns(columns, study);
    return {"sources", columns, [&study, &sources](RowTaker& taker) {
                for (const ComparedSource& source : comparedSources(sources)) {
                    const Contribution& any = source.any();
                    const std::string reach = study.base().file->reachName(any.reach);
                    std::vector<Cell> cells = {std::string_view(any.name), nameOf(any.kind), any.reach,
                                               std::string_view(reach), cellOf(any.distance)};
                    for (const Contribution* each : source.runs)
                        addPart(cells, each);
                    taker.row(cells);
                }
            }};
}

namespace {

// Losses as if they were sources, so that those of runs are matched as sources are.
PageSources lossesAsSources(const PageSources& sources) {
    PageSources losses;
    for (const LoadSources& run : sources.runs) {
        LoadSources lost;
        for (const Loss& loss : run.losses) {
            const bool atStart = !loss.distance && loss.name.starts_with("Start of ");
            lost.contributions.push_back({atStart ? SourceKind::startOfReach : SourceKind::other, loss.name,
                                          loss.reach, loss.distance, loss.load, 0, std::nullopt});
        }
        losses.runs.push_back(std::move(lost));
    }
    return losses;
}

void sortByBase(std::vector<ComparedSource>& losses) {
    std::ranges::stable_sort(losses, std::ranges::greater(), [](const ComparedSource& each) {
        return each.runs.front() ? each.runs.front()->load : 0;
    });
}

} // namespace

Table comparedLossesTable(const PageStudy& study, const PageSources& sources) {
    std::vector<Column> columns = columnsOf({"name", "reach", "reach_name", "distance"});
    for (const PageRun& run : study.runs())
        append(columns, columnsOf({"lost"}, study.runs().size() > 1 ? run.run.name : ""));
    return {"losses", columns, [&study, &sources](RowTaker& taker) {
                const PageSources asSources = lossesAsSources(sources);
                std::vector<ComparedSource> losses = comparedSources(asSources);
                sortByBase(losses);
                for (const ComparedSource& loss : losses) {
                    const Contribution& any = loss.any();
                    const std::string reach = study.base().file->reachName(any.reach);
                    std::vector<Cell> cells = {std::string_view(any.name), any.reach, std::string_view(reach),
                                               cellOf(any.distance)};
                    for (const Contribution* each : loss.runs)
                        cells.push_back(each ? Cell(each->load) : Cell(Nothing()));
                    taker.row(cells);
                }
            }};
}

Table comparedKindsTable(const PageStudy& study, const PageSources& sources) {
    std::vector<Column> columns = columnsOf({"kind"});
    addRunColumns(columns, study);
    return {"kinds", columns, [&sources](RowTaker& taker) {
                std::vector<std::vector<KindSum>> runs;
                for (const LoadSources& run : sources.runs)
                    runs.push_back(sourcesByKind(run));
                for (int k = 0; k < sourceKinds; ++k) {
                    std::vector<Cell> cells = {nameOf(static_cast<SourceKind>(k))};
                    bool any = false;
                    for (const std::vector<KindSum>& sums : runs) {
                        const auto found =
                            std::ranges::find(sums, static_cast<SourceKind>(k), &KindSum::kind);
                        addPart(cells, found == sums.end() ? nullptr : &*found);
                        any |= found != sums.end();
                    }
                    if (any) taker.row(cells);
                }
            }};
}

namespace {

// The mean and what the series is judged by.
std::vector<Statistic> fittedStatistics(const PageStudy& study, const PageRun& run, int series) {
    std::vector<Statistic> statistics = {Statistic::mean};
    for (const JudgedDeterminand& each : judgedBy(run.run, study.judging()))
        if (each.number == series && each.statistic != Statistic::mean) statistics.push_back(each.statistic);
    return statistics;
}

} // namespace

std::vector<FitRow> pageFitRows(const PageStudy& study, const PageRun& run) {
    const std::vector<ReachGroup> whole = {wholeGroup(*run.run.file, {})};
    std::vector<FitRow> rows;
    for (const int series : study.request().series) {
        if (isLoad(run.run.results(), series)) continue;
        FitRequest request;
        request.series = {series};
        request.statistics = fittedStatistics(study, run, series);
        std::ranges::move(fitRows(run.run, whole, request), std::back_inserter(rows));
    }
    return rows;
}

Table pageFitTable(const PageStudy& study, const PageRun& run) {
    const std::vector<Column> columns =
        columnsOf({"series", "statistic", "n", "mean_error", "pbias", "mean_absolute_error", "rmse", "nse",
                   "r2", "typical_factor", "within_limits", "bounded"});
    return {"fit", columns, [&study, &run](RowTaker& taker) {
                const ResultsDataSet& results = run.run.results();
                for (const FitRow& row : pageFitRows(study, run)) {
                    const FitFigures& fit = row.figures;
                    std::vector<Cell> cells = {std::string_view(results.seriesNames[row.series]),
                                               nameOf(row.statistic), fit.n};
                    addCells(cells, {fit.meanError, cellOf(fit.percentBias), fit.meanAbsoluteError,
                                     fit.rootMeanSquareError, cellOf(fit.efficiency), cellOf(fit.rSquared),
                                     cellOf(fit.typicalFactor), fit.withinLimits, fit.bounded});
                    taker.row(cells);
                }
            }};
}

namespace {

// Passes rows on, with a name behind the number in one column.
class NamingRows : public RowTaker {
  public:
    NamingRows(RowTaker& taker, std::size_t column, const StudyRun& run)
        : m_taker(taker), m_column(column), m_run(run) {}

    void row(std::span<const Cell> cells) override {
        std::vector<Cell> more(cells.begin(), cells.end());
        const std::string name = m_run.file->reachName(std::get<int>(cells[m_column]));
        more.insert(more.begin() + static_cast<std::ptrdiff_t>(m_column) + 1, std::string_view(name));
        m_taker.row(more);
    }
    ReadyCells ready(std::size_t, std::span<const Cell>) override { return {}; }
    void row(const ReadyCells&, const ReadyCells&, std::span<const Cell> last) override { row(last); }

  private:
    RowTaker& m_taker;
    std::size_t m_column;
    const StudyRun& m_run;
};

} // namespace

Table withReachNames(const Table& table, const StudyRun& run) {
    const auto reach = std::ranges::find_if(
        table.columns, [](const Column& column) { return column.flatName() == "reach"; });
    const auto column = static_cast<std::size_t>(reach - table.columns.begin());
    Table named = table;
    named.columns.insert(named.columns.begin() + static_cast<std::ptrdiff_t>(column) + 1,
                         Column{"reach_name"});
    named.rows = [table, column, run](RowTaker& taker) {
        NamingRows rows(taker, column, run);
        table.rows(rows);
    };
    return named;
}

} // namespace korvel
