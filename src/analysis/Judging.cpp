#include "analysis/Judging.h"

#include "basic/FieldCharacters.h"
#include "basic/Text.h"

namespace korvel {

namespace {

bool isOfAWord(char c) {
    return (c >= 'a' && c <= 'z') || isDigit(c) || static_cast<unsigned char>(c) >= 0x80;
}

bool holdsWord(std::string_view text, std::string_view word) {
    for (auto at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        const bool begins = at == 0 || !isOfAWord(text[at - 1]);
        if (begins && (end == text.size() || !isOfAWord(text[end]))) return true;
    }
    return false;
}

Statistic statisticOfLevel(const std::string& level) {
    return statisticNamed(level).value_or(Statistic::p95);
}

} // namespace

bool isLowBadByName(std::string_view name) {
    const std::string lower = lowerCase(name);
    if (holdsWord(lower, "do") || holdsWord(lower, "d.o.")) return true;
    return contains(lower, "oxygen") && !contains(lower, "demand");
}

std::set<int> lowBadByName(const ResultsDataSet& results) {
    std::set<int> low;
    for (int d = 1; d <= results.determinandCount; ++d)
        if (isLowBadByName(results.determinandNames[d])) low.insert(d);
    return low;
}

Statistic judgedStatistic(const ResultsDataSet& results, int determinand) {
    const auto statistic = statisticOfStandard(results.determinandStatistics[determinand]);
    return statistic ? *statistic : statisticOfLevel(results.percentileLevel);
}

std::vector<JudgedDeterminand> judgedDeterminands(const ResultsDataSet& results,
                                                  const std::set<int>& lowIsBad) {
    std::vector<JudgedDeterminand> judged;
    for (int d = 1; d <= results.determinandCount; ++d) {
        if (results.determinandTypes[d] == UnjudgedDeterminandType) continue;
        judged.push_back(
            {d, judgedStatistic(results, d), lowIsBad.contains(d) ? BadSide::low : BadSide::high});
    }
    return judged;
}

SeriesValues judgedValues(const ResultsDataSet& results, const JudgedDeterminand& determinand) {
    return seriesValues(results, determinand.number, determinand.statistic);
}

std::vector<int> judgedPointsOf(const RunFile& run, int place, const SeriesValues& values) {
    std::vector<int> points;
    forJudgedPoints(run, place, values, [&](int point) { points.push_back(point); });
    return points;
}

} // namespace korvel
