#include "explore/rows/SourceRows.h"

#include "study/SeriesValues.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

namespace {

enum SourceColumn { kindColumn, nameColumn, reachColumn, distanceColumn };
constexpr int figures = 3; // of each run
const char* const lossKind = "loss";

int leadColumns(bool byKind) {
    return byKind ? 1 : 4;
}

std::vector<ShownColumn> sourceColumns(const std::vector<StudyRun>& runs, bool byKind) {
    std::vector<ShownColumn> columns = {{{"kind"}, "Kind"}};
    if (!byKind)
        columns.insert(columns.end(), {{{"name"}, "Name"},
                                       {{"reach"}, "Reach", CellLook::whole},
                                       {{"distance"}, "Distance", CellLook::exact}});
    for (const StudyRun& run : runs) {
        columns.push_back({{"load", run.name}, "Comes in\n" + run.name, CellLook::number, true});
        columns.push_back({{"arrives", run.name}, "Arrives\n" + run.name, CellLook::number, true});
        columns.push_back({{"share", run.name}, "Share %\n" + run.name, CellLook::share, true});
    }
    return columns;
}

std::string quantity(const StudyRun& base, int determinand) {
    return determinand == 0 ? "flow" : "load of " + determinandName(base.results(), determinand);
}

// As a contribution of no kind of its own, so that losses match as sources do.
std::vector<Contribution> asContributions(const std::vector<Loss>& losses) {
    std::vector<Contribution> contributions;
    for (const Loss& loss : losses)
        contributions.push_back({SourceKind::other, loss.name, loss.reach, loss.distance, loss.load, 0, {}});
    return contributions;
}

} // namespace

SourceRows::SourceRows(const TableScope& scope, const SourcesChoice& choice)
    : RowSource("sources", sourceColumns(scope.runs, choice.by == SourcesBy::kind)),
      m_runs(scope.runs),
      m_determinand(choice.determinand),
      m_byKind(choice.by == SourcesBy::kind) {
    m_series = choice.determinand == 0 ? 0 : scope.base.results().determinandCount + choice.determinand;
    find(scope, choice);
    if (m_sources.size() != m_runs.size() || m_sources.empty()) return;
    if (m_byKind) {
        takeKinds();
    } else {
        takeSources();
        takeLosses();
    }
    m_heading = headingFor(scope);
    for (const Row& row : m_rows)
        for (const Figures& run : row.runs)
            m_largestShare = std::max(m_largestShare, run.share.value_or(0));
}

void SourceRows::find(const TableScope& scope, const SourcesChoice& choice) {
    if (m_runs.empty()) {
        m_refusal = "Show a run to see where its loads come from.";
        return;
    }
    const std::optional<SourcePlace> place = placeFor(scope, choice);
    if (!place) return;
    for (const StudyRun& run : m_runs) {
        const Network network = networkOf(*run.file);
        if (const auto circles = circlesIn(network, *run.file)) {
            m_refusal = run.name + ": " + *circles;
            return;
        }
        try {
            m_sources.push_back(sourcesOf(*run.file, network, m_series, *place));
        } catch (const SourcesRefused& refused) {
            m_refusal = run.name + ": " + refused.what();
            return;
        }
    }
}

std::optional<SourcePlace> SourceRows::placeFor(const TableScope& scope, const SourcesChoice& choice) {
    if (choice.at) return SourcePlace{choice.at->reach, choice.at->distance};
    const Network network = networkOf(*scope.base.file);
    if (const auto circles = circlesIn(network, *scope.base.file)) {
        m_refusal = scope.base.name + ": " + *circles;
        return std::nullopt;
    }
    const auto mouth = largestMouth(*scope.base.file, network, m_series);
    if (!mouth) m_refusal = "There are no reaches in this file.";
    return mouth;
}

// Gives every contribution of a run its row, a new one where no run before it has the same.
void SourceRows::takeMatched(std::size_t run, const std::vector<Contribution>& found,
                             std::vector<Contribution>& rows, std::vector<std::size_t>& rowOf) {
    const std::vector<int> same = matchSources(found, rows);
    for (std::size_t k = 0; k < found.size(); ++k) {
        const Contribution& each = found[k];
        std::size_t row = 0;
        if (same[k] >= 0) {
            row = rowOf[static_cast<std::size_t>(same[k])];
        } else {
            row = m_rows.size();
            m_rows.push_back({std::string(nameOf(each.kind)), each.name, each.reach, each.distance,
                              std::vector<Figures>(m_runs.size())});
            rows.push_back(each);
            rowOf.push_back(row);
        }
        m_rows[row].runs[run] = {each.load, each.arrives, each.share};
    }
}

void SourceRows::takeSources() {
    std::vector<Contribution> rows;
    std::vector<std::size_t> rowOf;
    for (std::size_t run = 0; run < m_runs.size(); ++run)
        takeMatched(run, m_sources[run].contributions, rows, rowOf);
}

void SourceRows::takeLosses() {
    std::vector<Contribution> rows;
    std::vector<std::size_t> rowOf;
    const std::size_t first = m_rows.size();
    for (std::size_t run = 0; run < m_runs.size(); ++run)
        takeMatched(run, asContributions(m_sources[run].losses), rows, rowOf);
    for (std::size_t row = first; row < m_rows.size(); ++row) {
        m_rows[row].kind = lossKind;
        for (Figures& each : m_rows[row].runs)
            each.arrives = each.share = std::nullopt;
    }
}

void SourceRows::takeKinds() {
    std::vector<std::vector<KindSum>> sums;
    for (const LoadSources& sources : m_sources)
        sums.push_back(sourcesByKind(sources));
    for (int kind = 0; kind < sourceKinds; ++kind) {
        Row row{std::string(nameOf(static_cast<SourceKind>(kind))),
                "",
                0,
                {},
                std::vector<Figures>(m_runs.size())};
        bool isThere = false;
        for (std::size_t run = 0; run < sums.size(); ++run)
            for (const KindSum& sum : sums[run]) {
                if (static_cast<int>(sum.kind) != kind) continue;
                row.runs[run] = {sum.load, sum.arrives, sum.share};
                isThere = true;
            }
        if (isThere) m_rows.push_back(std::move(row));
    }
}

std::string SourceRows::headingFor(const TableScope& scope) const {
    const LoadSources& first = m_sources.front();
    std::string text = "Mean " + quantity(scope.base, m_determinand) + " at reach " +
                       reachTitle(*scope.base.file, first.reach) +
                       (first.distance ? ", " + shownKm(*first.distance) : "") + ": ";
    for (std::size_t run = 0; run < m_runs.size(); ++run)
        text += (run == 0 ? "" : "; ") + shownNumber(m_sources[run].load) + " (" + m_runs[run].name + ")";
    return text +
           ".\nAn estimate: losses are shared by all that has come in above them, and what comes in and is "
           "lost between two points is seen as one.";
}

Cell SourceRows::cell(int row, int column) const {
    const Row& at = m_rows[static_cast<std::size_t>(row)];
    const int lead = leadColumns(m_byKind);
    if (column >= lead) {
        const Figures& run = at.runs[static_cast<std::size_t>((column - lead) / figures)];
        const std::optional<double> parts[figures] = {run.load, run.arrives, run.share};
        return cellOf(parts[(column - lead) % figures]);
    }
    switch (column) {
    case kindColumn: return std::string_view(at.kind);
    case nameColumn: return std::string_view(at.name);
    case reachColumn: return at.reach;
    default: return cellOf(at.distance);
    }
}

// The largest share of any run has the longest bar.
double SourceRows::bar(int row, int column) const {
    const Cell share = cell(row, column);
    const auto* percent = std::get_if<double>(&share);
    return percent == nullptr || m_largestShare <= 0 ? 0 : std::clamp(*percent / m_largestShare, 0.0, 1.0);
}

std::optional<ExplorePlace> SourceRows::place(int row, int) const {
    const Row& at = m_rows[static_cast<std::size_t>(row)];
    if (at.reach == 0) return std::nullopt;
    return ExplorePlace{at.reach, at.distance.value_or(0), ""};
}

std::optional<int> SourceRows::series(int, int) const {
    return m_series;
}

std::vector<int> SourceRows::rowsAt(const ExplorePlace& place) const {
    std::vector<int> rows;
    for (int row = 0; row < rowCount() && !m_byKind; ++row) {
        const Row& at = m_rows[static_cast<std::size_t>(row)];
        if (at.reach == place.reach && at.distance == place.distance) rows.push_back(row);
    }
    return rows;
}

} // namespace korvel
