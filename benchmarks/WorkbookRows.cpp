// How long a workbook takes against the library that writes it, given the same cells. Arguments: a folder for
// the files, the number of rounds.
#include "LargeResultsFile.h"
#include "Rows.h"
#include "analysis/TidyTable.h"
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"
#include "tables/Workbook.h"

#include <algorithm>
#include <cstdlib>
#include <variant>
#include <xlsxwriter.h>

namespace korvel {

namespace {

constexpr double target = 1.5;

using PlainCell = std::variant<std::monostate, double, std::string>;

// Every cell of a table.
class KeptCells : public RowTaker {
  public:
    void row(std::span<const Cell> cells) override {
        for (const Cell& cell : cells)
            keep(cell);
        ++rows;
    }
    ReadyCells ready(std::size_t, std::span<const Cell> cells) override {
        ReadyCells made;
        for (const Cell& cell : cells) {
            if (const auto* const text = std::get_if<std::string_view>(&cell))
                made.cells.emplace_back(std::string(*text));
            else if (const auto* const whole = std::get_if<int>(&cell))
                made.cells.emplace_back(*whole);
            else if (const auto* const number = std::get_if<double>(&cell))
                made.cells.emplace_back(*number);
            else
                made.cells.emplace_back(Nothing());
        }
        return made;
    }
    void row(const ReadyCells& first, const ReadyCells& second, std::span<const Cell> last) override {
        for (const ReadyCells* const part : {&first, &second})
            for (const OwnedCell& cell : part->cells)
                keep(viewOf(cell));
        row(last);
    }

    std::vector<PlainCell> cells;
    std::size_t rows = 0;

  private:
    void keep(const Cell& cell) {
        if (const auto* const text = std::get_if<std::string_view>(&cell))
            cells.emplace_back(std::string(*text));
        else if (const auto* const whole = std::get_if<int>(&cell))
            cells.emplace_back(static_cast<double>(*whole));
        else if (const auto* const number = std::get_if<double>(&cell))
            cells.emplace_back(*number);
        else
            cells.emplace_back();
    }
};

void writeByLibrary(const KeptCells& kept, std::size_t columns, const std::string& path) {
    std::string folder = path.substr(0, path.rfind('/'));
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    lxw_workbook* const workbook = workbook_new_opt(path.c_str(), &options);
    lxw_worksheet* const sheet = workbook_add_worksheet(workbook, "Rows");
    for (std::size_t k = 0; k < kept.cells.size(); ++k) {
        const auto row = static_cast<lxw_row_t>(k / columns);
        const auto column = static_cast<lxw_col_t>(k % columns);
        if (const auto* const number = std::get_if<double>(&kept.cells[k]))
            worksheet_write_number(sheet, row, column, *number, nullptr);
        else if (const auto* const text = std::get_if<std::string>(&kept.cells[k]))
            worksheet_write_string(sheet, row, column, text->c_str(), nullptr);
    }
    workbook_close(workbook);
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string folder = argv[1], path = folder + "/fixed.sgr", book = folder + "/bench.xlsx";
    const int rounds = std::max(std::atoi(argv[2]) / 3, 1);
    setenv("TMPDIR", folder.c_str(), 1);
    if (!std::filesystem::exists(path)) writeLargeResultsFile(path, ResultsForm::fixedWidth);
    DiskFiles files;
    StudyRun run{"fixed.sgr", readRun(files, modelNameOfHostPath(path)).run};
    if (!run.file) return 1;
    const Table table = tidyTable({1, [&](std::size_t) { return run; }},
                                  {{1, 2}, {allStatistics.begin(), allStatistics.end()}, {}, true});
    KeptCells kept;
    table.rows(kept);
    const auto ours = [&] {
        const auto file = files.create(modelNameOfHostPath(book));
        OutputBytes bytes([&](std::string_view part) { file->write(part); });
        writeWorkbook({{"All values", {{"Run", run.name}}}, {sheetOf(table)}}, {}, bytes);
        bytes.flush();
        file->commit();
    };
    const auto theirs = [&] { writeByLibrary(kept, table.columns.size(), book); };
    const Contest contest(rounds, {[&] { return costOf(ours); }, [&] { return costOf(theirs); }});
    printTimes("workbook, " + std::to_string(kept.rows) + " rows x 15", "the library, the same cells",
               contest, 1, target);
}
