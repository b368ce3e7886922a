#include "commands/StudyLists.h"

#include "analysis/Judging.h"
#include "basic/Text.h"
#include "commands/CommandLine.h"
#include "commands/Words.h"
#include "study/SeriesValues.h"
#include "tables/Table.h"

#include <algorithm>

namespace korvel {

namespace {

// Takes what stands in the quotes at `at` and leaves `at` behind them.
std::string takeQuoted(const std::string& list, std::size_t& at) {
    std::string text;
    for (++at; at < list.size(); ++at) {
        if (list[at] != '"')
            text += list[at];
        else if (at + 1 < list.size() && list[at + 1] == '"')
            text += list[at++];
        else
            return ++at, text;
    }
    throw UsageError("the quotes in '" + list + "' don't close");
}

// By exact name, else by position from `first` on.
int entryNamed(const std::vector<std::string>& names, int first, const ListPart& part,
               const std::string& what) {
    for (std::size_t k = 0; k < names.size(); ++k)
        if (shownUtf8(names[k]) == part.text) return first + static_cast<int>(k);
    const auto position = part.quoted ? std::nullopt : wholeNumber(part.text);
    if (!position || *position < first || *position - first >= static_cast<int>(names.size()))
        throw UsageError("the results have no " + what + " '" + part.text + "'");
    return *position;
}

std::vector<std::string> determinandNames(const ResultsDataSet& results) {
    std::vector<std::string> names;
    for (int d = 1; d <= results.determinandCount; ++d)
        names.push_back(determinandName(results, d));
    return names;
}

} // namespace

std::vector<ListPart> listParts(const std::string& list) {
    std::vector<ListPart> parts;
    for (std::size_t at = 0;; ++at) {
        while (at < list.size() && list[at] == ' ')
            ++at;
        ListPart part;
        part.quoted = at < list.size() && list[at] == '"';
        if (part.quoted) part.text = takeQuoted(list, at);
        const std::size_t comma = std::min(list.find(',', at), list.size());
        const std::string rest = trim(list.substr(at, comma - at));
        if (part.quoted && !rest.empty()) throw UsageError("'" + rest + "' follows quotes in '" + list + "'");
        if (!part.quoted) part.text = rest;
        parts.push_back(std::move(part));
        at = comma;
        if (at == list.size()) return parts;
    }
}

std::vector<int> seriesChosen(const std::optional<std::string>& list, const ResultsDataSet& results) {
    if (!list) return allSeries(results);
    std::vector<std::string> names;
    for (const int c : allSeries(results))
        names.push_back(results.seriesNames[c]);
    std::set<int> series;
    for (const ListPart& part : listParts(*list))
        series.insert(entryNamed(names, 0, part, "series"));
    return {series.begin(), series.end()};
}

std::set<int> determinandsNamed(const std::string& list, const ResultsDataSet& results) {
    const std::vector<std::string> names = determinandNames(results);
    std::set<int> determinands;
    for (const ListPart& part : listParts(list))
        determinands.insert(entryNamed(names, 1, part, "determinand"));
    return determinands;
}

std::set<int> determinandsChosen(const std::optional<std::string>& list, const ResultsDataSet& results) {
    if (list) return determinandsNamed(*list, results);
    std::set<int> all;
    for (int d = 1; d <= results.determinandCount; ++d)
        all.insert(d);
    return all;
}

std::set<int> lowIsBadChosen(const std::optional<std::string>& list, const ResultsDataSet& results) {
    if (!list) return lowBadByName(results);
    return *list == "none" ? std::set<int>() : determinandsNamed(*list, results);
}

int determinandNamed(const std::string& typed, const ResultsDataSet& results) {
    const std::vector<std::string> names = determinandNames(results);
    const auto isTyped = [&](const std::string& name) { return shownUtf8(name) == typed; };
    if (std::ranges::any_of(names, isTyped)) return entryNamed(names, 1, {typed, true}, "determinand");
    const std::vector<ListPart> parts = listParts(typed);
    if (parts.size() > 1) throw UsageError("the results have no determinand '" + typed + "'");
    return entryNamed(names, 1, parts.front(), "determinand");
}

ReachChoice reachesChosen(const std::string& list, const ReachPoints& reaches) {
    if (list == "all") return {};
    if (list == "none") return ReachChoice(std::set<int>());
    std::set<int> numbers;
    for (const ListPart& part : listParts(list)) {
        const auto number = part.quoted ? std::nullopt : wholeNumber(part.text);
        if (!number || reaches.placeOf(*number) < 0)
            throw UsageError("the results have no reach '" + part.text + "'");
        numbers.insert(*number);
    }
    return ReachChoice(std::move(numbers));
}

std::vector<Statistic> statisticsChosen(const std::optional<std::string>& list) {
    std::set<Statistic> statistics;
    for (const ListPart& part : listParts(list.value_or(statisticNames())))
        statistics.insert(statisticTyped(part.text));
    return {statistics.begin(), statistics.end()};
}

Statistic statisticTyped(const std::string& word) {
    const auto statistic = statisticNamed(word);
    if (!statistic) throw UsageError("'" + word + "' is no statistic");
    return *statistic;
}

std::string seriesText(const std::vector<int>& series, const ResultsDataSet& results) {
    std::vector<std::string> names;
    for (const int each : series)
        names.push_back(results.seriesNames[each]);
    return joined(names);
}

std::string statisticsText(const std::vector<Statistic>& statistics) {
    std::vector<std::string> names;
    for (const Statistic each : statistics)
        names.emplace_back(nameOf(each));
    return joined(names);
}

} // namespace korvel
