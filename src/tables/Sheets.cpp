#include "tables/Sheets.h"

#include "tables/ShortNumber.h"

#include <algorithm>
#include <array>

namespace korvel {

namespace {

std::string inWords(std::string name) {
    std::ranges::replace(name, '_', ' ');
    if (!name.empty() && name[0] >= 'a' && name[0] <= 'z') name[0] = static_cast<char>(name[0] - 'a' + 'A');
    return name;
}

std::vector<std::string> headingsOf(const std::vector<Fact>& lead, const std::vector<Column>& columns) {
    std::vector<std::string> headings;
    for (const Fact& fact : lead)
        headings.push_back(fact.column.flatName());
    for (const Column& column : columns)
        headings.push_back(column.flatName());
    return headings;
}

std::string textOf(const OwnedCell& cell) {
    if (const auto* const text = std::get_if<std::string>(&cell)) return *text;
    if (const auto* const names = std::get_if<std::vector<std::string>>(&cell))
        return names->empty() ? "none" : joined(*names);
    if (const auto* const count = std::get_if<int>(&cell)) return std::to_string(*count);
    if (const auto* const truth = std::get_if<bool>(&cell)) return *truth ? "yes" : "no";
    std::array<char, longestNumber> digits;
    if (const auto* const number = std::get_if<double>(&cell))
        return {digits.data(), writeShortest(digits.data(), *number)};
    return "none";
}

void addFacts(Taken& taken, const std::string& before, const std::vector<Fact>& facts) {
    for (const Fact& fact : facts)
        if (!fact.inRows)
            taken.facts.push_back({before + inWords(fact.column.flatName()), textOf(fact.value)});
}

// The table that the rows are for, and the other lists; one that stands for lists stands alone.
std::vector<const Table*> tablesOf(const RunTables& run) {
    std::vector<const Table*> tables = {&rowsOf(run)};
    if (!run.flat)
        for (std::size_t k = 1; k < run.lists.size(); ++k)
            tables.push_back(&run.lists[k]);
    return tables;
}

void addRun(std::vector<Sheet>& sheets, const RunTables& run) {
    const std::vector<Fact> lead = factsInRows(run);
    const std::vector<const Table*> tables = tablesOf(run);
    for (std::size_t k = 0; k < tables.size(); ++k) {
        const Table& table = *tables[k];
        if (k == sheets.size()) sheets.push_back({inWords(table.name), headingsOf(lead, table.columns), {}});
        sheets[k].parts.push_back({lead, table});
    }
}

std::string nameOf(const RunTables& run) {
    return run.facts.empty() ? "" : textOf(run.facts.front().value) + ": ";
}

} // namespace

Sheet sheetOf(const Table& table) {
    return {inWords(table.name), headingsOf({}, table.columns), {{{}, table}}};
}

std::vector<Sheet> sheetsOf(const TableReport& report, Taken& taken) {
    addFacts(taken, "", report.facts);
    std::vector<Sheet> sheets;
    for (const RunTables& run : report.runs) {
        addFacts(taken, nameOf(run), run.facts);
        addFacts(taken, nameOf(run), run.factsBelow);
        addRun(sheets, run);
    }
    return sheets;
}

} // namespace korvel
