// Lists that choose from a study: series, determinands, reaches, statistics.
#pragma once

#include "results/Statistics.h"
#include "study/ReachChoice.h"
#include "study/RunFile.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace korvel {

struct ListPart {
    std::string text; // UTF-8, as typed
    bool quoted = false;
};

// Parted by commas, without the blanks around the parts. A part in double quotes may hold commas, and two
// double quotes for one. UsageError where quotes don't close.
std::vector<ListPart> listParts(const std::string& list);

// By exact name, or by position from 0. In the file's order, each once. UsageError for an unknown one.
// All where no list is given.
std::vector<int> seriesChosen(const std::optional<std::string>& list, const ResultsDataSet& results);

// By exact name, or by number from 1.
std::set<int> determinandsNamed(const std::string& list, const ResultsDataSet& results);
std::set<int> determinandsChosen(const std::optional<std::string>& list, const ResultsDataSet& results);
// Those whose bad side is low: "none", or as above; where no list is given those whose names say so.
std::set<int> lowIsBadChosen(const std::optional<std::string>& list, const ResultsDataSet& results);
// One that is no part of a list, so that its name may hold commas.
int determinandNamed(const std::string& typed, const ResultsDataSet& results);

// "all", "none" or numbers.
ReachChoice reachesChosen(const std::string& list, const ReachPoints& reaches);

// In the order mean, 90, 95, 99, each once.
std::vector<Statistic> statisticsChosen(const std::optional<std::string>& list);
// Their names in a line.
std::string seriesText(const std::vector<int>& series, const ResultsDataSet& results);
std::string statisticsText(const std::vector<Statistic>& statistics);
Statistic statisticTyped(const std::string& word);

} // namespace korvel
