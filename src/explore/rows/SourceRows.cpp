#include "explore/rows/SourceRows.h"

#include "study/SeriesValues.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

namespace {

enum SourceColumn { kindColumn, nameColumn, reachColumn, distanceColumn };
constexpr int figures = 3;           // of each run
constexpr std::size_t mostNamed = 3; // runs in the heading
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

} // namespace

SourceRows::SourceRows(const TableScope& scope, const SourcesChoice& choice)
    : RowSource("sources", sourceColumns(scope.runs, choice.by == SourcesBy::kind)),
      m_runs(scope.runs),
      m_determinand(choice.determinand),
      m_byKind(choice.by == SourcesBy::kind) {
    m_series = scope.base.results().loadOf(choice.determinand);
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

void SourceRows::takeCompared(const std::vector<std::span<const Contribution>>& runs) {
    for (const ComparedSource& source : compareSources(runs)) {
        const Contribution& any = source.any();
        Row row{std::string(nameOf(any.kind)), any.name, any.reach, any.distance, {}};
        for (const Contribution* each : source.runs)
            row.runs.push_back(each ? Figures{each->load, each->arrives, each->share} : Figures());
        m_rows.push_back(std::move(row));
    }
}

void SourceRows::takeSources() {
    std::vector<std::span<const Contribution>> runs;
    for (const LoadSources& sources : m_sources)
        runs.emplace_back(sources.contributions);
    takeCompared(runs);
}

void SourceRows::takeLosses() {
    std::vector<std::vector<Contribution>> losses;
    for (const LoadSources& sources : m_sources)
        losses.push_back(asContributions(sources.losses));
    const std::size_t first = m_rows.size();
    takeCompared({losses.begin(), losses.end()});
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

// Of each run, or of many the least and the most.
std::string SourceRows::loadsText() const {
    std::string text;
    if (m_runs.size() > mostNamed) {
        const auto [least, most] = std::ranges::minmax_element(m_sources, {}, &LoadSources::load);
        return shownFigures(least->load) + " to " + shownFigures(most->load) + " in " +
               std::to_string(m_runs.size()) + " runs";
    }
    for (std::size_t run = 0; run < m_runs.size(); ++run)
        text += (run == 0 ? "" : "; ") + shownFigures(m_sources[run].load) + " (" + m_runs[run].name + ")";
    return text;
}

std::string SourceRows::headingFor(const TableScope& scope) const {
    const LoadSources& first = m_sources.front();
    std::string text = "Mean " + quantity(scope.base, m_determinand) + " at reach " +
                       reachTitle(*scope.base.file, first.reach) +
                       (first.distance ? ", " + shownKm(*first.distance) : "") + ": ";
    return text + loadsText() +
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
