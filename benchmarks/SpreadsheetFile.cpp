// How long the spreadsheet file takes against writing the same bytes, and against a general number formatter.
// The file is left to the page cache. Arguments: a folder, the number of rounds.
#include "Rows.h"
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"
#include "reports/ReportColumns.h"
#include "reports/ReportRows.h"
#include "reports/SpreadsheetReport.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <vector>

namespace korvel {

namespace {

constexpr int points = 59999;
constexpr std::size_t blockSize = std::size_t{64} * 1024;

void fillResults() {
    RESULTS.resultsTitle = "A made-up catchment";
    RESULTS.seriesCount = MaxSeries;
    RESULTS.reachNames.set(1, "Long Water      ");
    RESULTS.reachOrder = {1};
    RESULTS.pointCount = points;
    for (int i = 1; i <= points; ++i) {
        RESULTS.pointReach.set(i, 1);
        RESULTS.pointLabel.set(i, "Weir number " + std::to_string(i));
    }
    for (int series = 1; series <= MaxSeries; ++series)
        RESULTS.seriesNames[series] = "Substance " + std::to_string(series) + " (Conc)";
}

// Six decimals, as the engine writes them.
void fillValues(const ReportColumns& columns) {
    std::mt19937 random(1);
    std::lognormal_distribution<double> amount(1.0, 2.0);
    for (const ReportColumn& each : columns.columns)
        for (double& value : RESULTS.values[0].column(each.field, each.series, each.level))
            value = std::round(amount(random) * 1e6) / 1e6;
}

ReportSelection everyColumnOf(int determinands) {
    ReportSelection selection;
    selection.targets = selection.observed = selection.limits = selection.upstream = true;
    selection.statistics = {allStatistics.begin(), allStatistics.end()};
    selection.reaches = {1};
    for (int series = 1; series <= determinands; ++series)
        selection.determinands.push_back(series);
    return selection;
}

class Kept : public NewFile {
  public:
    void write(std::string_view bytes) override { text.append(bytes); }
    void commit() override {}
    std::string text;
};

void writeBytes(NewFile& file, std::string_view bytes) {
    for (; !bytes.empty(); bytes.remove_prefix(std::min(blockSize, bytes.size())))
        file.write(bytes.substr(0, blockSize));
}

constexpr double bounds[] = {999.9, 99.9, 9.9, 0.9, 0.09, 0.009, 0.0009};

// The cells of the same rows with the general formatter of the standard library.
void writeGenerally(NewFile& file, const ReportSelection& selection) {
    const auto values = valueColumns(RESULTS, reportColumns(RESULTS, selection));
    std::vector<char> block(blockSize + 64);
    char* at = block.data();
    for (ReportRows rows(RESULTS, selection); !rows.atEnd(); rows.next()) {
        const auto point = static_cast<std::size_t>(rows.row().point);
        for (const ValueColumn& column : values) {
            const double value = column[point];
            const int decimals =
                static_cast<int>(std::ranges::count_if(bounds, [&](double b) { return value < b; }));
            at = std::to_chars(at, at + 48, value, std::chars_format::fixed, decimals).ptr;
            *at++ = ',';
            if (at < block.data() + blockSize) continue;
            file.write({block.data(), static_cast<std::size_t>(at - block.data())});
            at = block.data();
        }
    }
}

void measure(DiskFiles& files, const std::string& name, int determinands, int rounds) {
    const ReportSelection selection = everyColumnOf(determinands);
    fillValues(reportColumns(RESULTS, selection));
    Kept kept;
    writeSpreadsheet(kept, RESULTS, selection);
    const auto way = [&](auto write) {
        return [&, write] { return costOf([&] { write(*files.create(name)); }); };
    };
    const Contest contest(rounds, {way([&](NewFile& file) { writeSpreadsheet(file, RESULTS, selection); }),
                                   way([&](NewFile& file) { writeBytes(file, kept.text); }),
                                   way([&](NewFile& file) { writeGenerally(file, selection); })});
    const std::string job = "spreadsheet, 59999 rows x " + std::to_string(CountCols(selection)) + " columns";
    printTimes(job, "writing the same bytes", contest, 1, 4);
    printTimes(job, "writer with to_chars", contest, 2, 0.5);
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): what fails here may end the benchmark

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string name = modelNameOfHostPath(argv[1] + std::string("/bench.csv"));
    DiskFiles files;
    fillResults();
    for (const int determinands : {1, 10})
        measure(files, name, determinands, std::atoi(argv[2]));
}
