#include "explore/rows/ComplianceRows.h"

#include "basic/Numbers.h"
#include "study/SeriesValues.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

enum ReachColumn { reachColumn, nameColumn };
constexpr int reachColumns = 2;

bool hasTargets(const StudyRun& run, const JudgedDeterminand& determinand) {
    const SeriesValues values = judgedValues(run.results(), determinand);
    for (int point = 1; point <= run.results().pointCount; ++point)
        if (values.hasTarget(point)) return true;
    return false;
}

// Those for which some run has a target.
std::set<int> targetedIn(const TableScope& scope) {
    std::set<int> targeted;
    for (const StudyRun& run : scope.runs)
        for (const JudgedDeterminand& each : judgedDeterminands(run.results(), scope.lowIsBad))
            if (!targeted.contains(each.number) && hasTargets(run, each)) targeted.insert(each.number);
    return targeted;
}

// 0 to 1, growing with the ratio; what has none is worst.
double badness(const WorstPoint& worst) {
    if (!worst.judgement.ratio) return 1;
    return std::isinf(*worst.judgement.ratio) ? 1 : *worst.judgement.ratio / (1 + *worst.judgement.ratio);
}

std::string worstNote(const ReachCompliance& reach, const StudyRun& run, const JudgedDeterminand& judged) {
    const PointJudgement& worst = reach.worst->judgement;
    const bool high = judged.side == BadSide::high;
    std::string text = "worst at " + pointTitle(run.results(), reach.worst->point) + ": " +
                       wordsOf(judged.statistic) + " " + shownFigures(worst.value) + ", target " +
                       shortestNumber(worst.target) + (high ? "" : ", bad when low");
    if (reach.needed.value_or(0) > 0)
        text += ", " + shownDecimals(*reach.needed, 0) + (high ? " % less" : " % more") + " is needed";
    else if (reach.headroom.value_or(0) > 0)
        text += ", room for " + shownDecimals(*reach.headroom, 0) + (high ? " % more" : " % less");
    return text;
}

} // namespace

Verdict shownVerdict(Verdict verdict, Verdict confident) {
    return confident == Verdict::none ? verdict : confident;
}

ComplianceRows::ComplianceRows(const TableScope& scope, std::shared_ptr<MatchedRuns> matched)
    : RowSource("compliance", {}), m_base(scope.base), m_matched(std::move(matched)) {
    const std::set<int> targeted = targetedIn(scope);
    m_determinands = targeted.size();
    for (const StudyRun& run : scope.runs) {
        std::vector<JudgedDeterminand> judged = judgedDeterminands(run.results(), scope.lowIsBad);
        std::erase_if(judged, [&](const JudgedDeterminand& each) { return !targeted.contains(each.number); });
        m_blocks.push_back({run, std::move(judged)});
    }
    for (const int number : m_base.reaches().numbers())
        m_reachNames.push_back(m_base.file->reachName(number));
    m_cells.resize(m_reachNames.size() * m_blocks.size() * m_determinands);
    addColumns();
}

void ComplianceRows::addColumns() {
    std::vector<ShownColumn> columns = {{{"reach"}, "Reach", CellLook::whole}, {{"reach_name"}, "Name"}};
    for (const Block& block : m_blocks) {
        columns.push_back(
            {{"overall", block.run.name}, "Overall\n" + block.run.name, CellLook::verdict, true});
        for (const JudgedDeterminand& each : block.judged) {
            const std::string name = determinandName(block.run.results(), each.number);
            columns.push_back(
                {{name, block.run.name}, name + "\n" + block.run.name, CellLook::verdict, true});
        }
    }
    setColumns(std::move(columns));
}

int ComplianceRows::rowCount() const {
    return m_determinands == 0 ? 0 : static_cast<int>(m_reachNames.size());
}

bool ComplianceRows::isVerdict(int column) const {
    return column >= reachColumns;
}

ComplianceRows::Shown ComplianceRows::shownIn(int column) const {
    const int perBlock = static_cast<int>(m_determinands) + 1, at = column - reachColumns;
    return {static_cast<std::size_t>(at / perBlock), at % perBlock - 1};
}

int ComplianceRows::runPlace(int row, const Block& block) const {
    return block.run.reaches().placeOf(m_base.reaches().number(row));
}

const ReachCompliance& ComplianceRows::judged(int row, std::size_t block, std::size_t determinand) const {
    const std::size_t index =
        (static_cast<std::size_t>(row) * m_blocks.size() + block) * m_determinands + determinand;
    Judged& cell = m_cells[index];
    if (!cell.isDone) {
        const Block& of = m_blocks[block];
        cell.reach = judgeReach(*of.run.file, runPlace(row, of), of.judged[determinand]);
        cell.isDone = true;
    }
    return cell.reach;
}

OverallVerdict ComplianceRows::overallAt(int row, std::size_t block) const {
    std::vector<DeterminandVerdict> verdicts;
    for (std::size_t each = 0; each < m_determinands; ++each) {
        const ReachCompliance& reach = judged(row, block, each);
        verdicts.push_back({m_blocks[block].judged[each].number, reach.verdict, reach.confident});
    }
    return overallVerdict(verdicts);
}

Verdict ComplianceRows::verdictAt(int row, const Shown& shown) const {
    if (shown.determinand < 0) {
        const OverallVerdict overall = overallAt(row, shown.block);
        return shownVerdict(overall.verdict, overall.confident);
    }
    const ReachCompliance& reach = judged(row, shown.block, static_cast<std::size_t>(shown.determinand));
    return shownVerdict(reach.verdict, reach.confident);
}

Cell ComplianceRows::cell(int row, int column) const {
    if (column == reachColumn) return m_base.reaches().number(row);
    if (column == nameColumn) return std::string_view(m_reachNames[static_cast<std::size_t>(row)]);
    return nameOf(verdictAt(row, shownIn(column)));
}

// By verdict, among equal ones by the worst ratio.
Cell ComplianceRows::sortedBy(int row, int column) const {
    if (!isVerdict(column)) return cell(row, column);
    const Shown shown = shownIn(column);
    const Verdict verdict = verdictAt(row, shown);
    if (verdict == Verdict::none) return Nothing();
    double worst = 0;
    for (std::size_t each = 0; each < m_determinands; ++each) {
        if (shown.determinand >= 0 && static_cast<int>(each) != shown.determinand) continue;
        const ReachCompliance& reach = judged(row, shown.block, each);
        if (reach.worst) worst = std::max(worst, badness(*reach.worst));
    }
    return 2 * static_cast<double>(verdict) + worst;
}

std::string ComplianceRows::note(int row, int column) const {
    if (!isVerdict(column)) return {};
    const Shown shown = shownIn(column);
    return shown.determinand < 0 ? overallNote(row, shown) : determinandNote(row, shown);
}

std::string ComplianceRows::overallNote(int row, const Shown& shown) const {
    const Block& block = m_blocks[shown.block];
    const OverallVerdict overall = overallAt(row, shown.block);
    const std::string where =
        block.run.name + ", reach " + reachTitle(*m_base.file, m_base.reaches().number(row));
    if (overall.verdict == Verdict::none) return where + ": no targets";
    std::string failing;
    for (const int number : overall.failing)
        failing += (failing.empty() ? "" : ", ") + determinandName(block.run.results(), number);
    return where + ": " + (failing.empty() ? "nothing fails" : failing + " fails") + " by the values" +
           (overall.confident == Verdict::none
                ? ", which have no limits"
                : "; with confidence: " + std::string(nameOf(overall.confident)));
}

std::string ComplianceRows::determinandNote(int row, const Shown& shown) const {
    const Block& block = m_blocks[shown.block];
    const JudgedDeterminand& determinand = block.judged[static_cast<std::size_t>(shown.determinand)];
    const ReachCompliance& reach = judged(row, shown.block, static_cast<std::size_t>(shown.determinand));
    std::string text = determinandName(block.run.results(), determinand.number) + ", " + block.run.name +
                       ", reach " + reachTitle(*m_base.file, m_base.reaches().number(row)) + ": ";
    if (!reach.worst) return text + "no target";
    text +=
        std::string(nameOf(reach.verdict)) + " by the values at " +
        std::to_string(reach.verdict == Verdict::fail ? reach.sums.failingPoints
                                                      : reach.sums.judgedPoints - reach.sums.failingPoints) +
        " of " + counted(reach.sums.judgedPoints, "point", "points");
    if (reach.confident != Verdict::none)
        text += "; sure pass " + std::to_string(reach.sums.surePasses) + ", unsure " +
                std::to_string(reach.sums.unsure) + ", sure fail " + std::to_string(reach.sums.sureFails);
    text += "\n" + worstNote(reach, block.run, determinand);
    if (reach.sums.judgedLength > 0)
        text += "\n" + shownDecimals(reach.sums.failingLength, 1) + " of " +
                shownDecimals(reach.sums.judgedLength, 1) + " km fail";
    return text + changeNote(row, shown);
}

std::string ComplianceRows::changeNote(int row, const Shown& shown) const {
    const Block& block = m_blocks[shown.block];
    if (block.run.name == m_base.name) return {};
    const JudgedDeterminand& determinand = block.judged[static_cast<std::size_t>(shown.determinand)];
    JudgedDeterminand before = determinand;
    before.statistic = judgedStatistic(m_base.results(), before.number);
    ComplianceChange change;
    change.before = judgeReach(*m_base.file, row, before).verdict;
    change.after = judged(row, shown.block, static_cast<std::size_t>(shown.determinand)).verdict;
    const auto matched = m_matched->between(m_base, block.run);
    const bool worse = hasDeteriorated(*m_base.file, *block.run.file, matched->match(), runPlace(row, block),
                                       determinand, DefaultDeterioration)
                           .value_or(false);
    return "\nAgainst " + m_base.name + ": " + change.words() +
           (worse ? ", worse by more than " + shownDecimals(DefaultDeterioration, 0) + " % somewhere" : "");
}

std::optional<ExplorePlace> ComplianceRows::place(int row, int column) const {
    if (isVerdict(column) && shownIn(column).determinand >= 0) {
        const Shown shown = shownIn(column);
        const ReachCompliance& reach = judged(row, shown.block, static_cast<std::size_t>(shown.determinand));
        if (reach.worst) return placeOf(m_blocks[shown.block].run.results(), reach.worst->point);
    }
    return placeOfReach(*m_base.file, m_base.reaches().number(row));
}

std::optional<int> ComplianceRows::series(int, int column) const {
    if (!isVerdict(column) || shownIn(column).determinand < 0) return std::nullopt;
    const Shown shown = shownIn(column);
    return m_blocks[shown.block].judged[static_cast<std::size_t>(shown.determinand)].number;
}

std::vector<int> ComplianceRows::rowsAt(const ExplorePlace& place) const {
    const int row = m_base.reaches().placeOf(place.reach);
    return row < 0 || row >= rowCount() ? std::vector<int>() : std::vector<int>{row};
}

std::string ComplianceRows::whyEmpty() const {
    if (m_blocks.empty()) return "Show a run to see whether it meets its targets.";
    return m_blocks.size() == 1 ? "No targets in this file." : "No targets in these files.";
}

} // namespace korvel
