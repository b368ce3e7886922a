#include "explore/rows/ShownCells.h"
#include "ListedRows.h"
#include "tables/Csv.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

struct Shown {
    OwnedCell cell;
    CellLook look;
    std::string text;
    int decimals;
};

std::shared_ptr<ListedRows> sample() {
    return std::make_shared<ListedRows>(
        std::vector<ShownColumn>{{{"name"}, "Name"},
                                 {{"ALDER", "BOD"}, "BOD\nALDER", CellLook::number},
                                 {{"n"}, "n", CellLook::whole}},
        std::vector<std::vector<OwnedCell>>{{std::string("=1+1"), 1.0 / 3, 4},
                                            {std::string("a\tb"), Nothing(), -2},
                                            {std::string("M\xFChle"), -0.1, 0}});
}

} // namespace

TEST(ShownCells, ReadAsPeopleReadThem) {
    const std::vector<Shown> cases = {
        {12.3456, CellLook::number, "12.35", 2},
        {1234.5, CellLook::number, "1234", 0},
        {0.0, CellLook::number, "0", 0},
        {1e12, CellLook::number, "1.000E12", -1}, // lines up with nothing
        {24.3, CellLook::exact, "24.3", 1},
        {-35.04, CellLook::percent, "-35.0", 1},
        {66.66, CellLook::share, "66.7", 1},
        {7, CellLook::whole, "7", 0},
        {std::string("Weir"), CellLook::text, "Weir", -1},
        {std::string("12"), CellLook::text, "12", -1},
        {true, CellLook::text, "yes", -1},
        {std::vector<std::string>{"BOD", "Zinc"}, CellLook::text, "BOD; Zinc", -1},
        {Nothing(), CellLook::number, "", -1},
    };
    for (const Shown& each : cases) {
        const ShownCell shown = shownCell(viewOf(each.cell), each.look);
        EXPECT_EQ(shown.text, each.text);
        EXPECT_EQ(shown.decimals, each.decimals) << each.text;
    }
}

TEST(ShownCells, EveryVerdictHasASymbolOfItsOwn) {
    EXPECT_EQ(verdictSymbol("pass"), "\u2713");
    EXPECT_EQ(verdictSymbol("unsure"), "?");
    EXPECT_EQ(verdictSymbol("fail"), "\u2717");
    EXPECT_EQ(verdictSymbol(""), "");
}

TEST(ShownCells, AreCopiedWithHeadingsAndUnrounded) {
    const std::vector<int> rows = {2, 0}, columns = {0, 1};
    EXPECT_EQ(copiedRows(*sample(), rows, columns),
              "Name\tBOD ALDER\nM\xC3\xBChle\t-0.1\n'=1+1\t0.3333333333333333\n");
}

TEST(ShownCells, CopiedTextsBreakNoRow) {
    const std::vector<int> rows = {1}, columns = {0, 1, 2};
    EXPECT_EQ(copiedRows(*sample(), rows, columns), "Name\tBOD ALDER\tn\na b\t\t-2\n");
}

TEST(ShownCells, AreTablesForOtherPrograms) {
    std::string csv;
    OutputBytes bytes([&](std::string_view part) { csv += part; });
    auto source = sample();
    const Table table = tableOf(source, {2, 1});
    source.reset(); // the table keeps what it needs
    writeCsv(table, bytes);
    bytes.flush();
    EXPECT_EQ(table.name, "rows");
    EXPECT_EQ(csv, "name,BOD_ALDER,n\r\nM\xC3\xBChle,-0.1,0\r\na\tb,,-2\r\n");
}

} // namespace korvel
