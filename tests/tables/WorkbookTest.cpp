#include "tables/Workbook.h"

#include "basic/RunTimeError.h"
#include "basic/ScratchFile.h"
#include "fakes/ResourceLimits.h"
#include "tables/TableFormats.h"
#include "tables/TableSample.h"
#include "tables/XlsxLibrary.h"
#include "tables/ZipParts.h"

#include <array>
#include <gtest/gtest.h>
#include <unistd.h>

namespace korvel {

namespace {

Table manyRows(std::size_t count) {
    return {"rows", {{"number"}}, [count](RowTaker& taker) {
                for (std::size_t k = 0; k < count; ++k)
                    taker.row(std::array<Cell, 1>{static_cast<int>(k)});
            }};
}

std::string workbook(const WorkbookContent& content, const Writing& writing = {}) {
    return written([&](OutputBytes& out) { writeWorkbook(content, writing, out); });
}

std::map<std::string, std::uint64_t> partsOf(const std::string& bytes) {
    const ScratchFile file(scratchFolder());
    EXPECT_EQ(pwrite(file.descriptor(), bytes.data(), bytes.size(), 0), static_cast<ssize_t>(bytes.size()));
    return zipPartSizes(file.descriptor());
}

int failureWithFilesUpTo(rlim_t most, const WorkbookContent& content) {
    const SizeLimit limit(most);
    try {
        workbook(content);
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

} // namespace

TEST(Sheets, HoldTheRowsOfAllRuns) {
    Taken taken{"Samples", {}};
    const std::vector<Sheet> sheets = sheetsOf(reportSample(), taken);
    ASSERT_EQ(sheets.size(), 1U);
    EXPECT_EQ(sheets[0].name, "Rows");
    EXPECT_EQ(sheets[0].headings,
              (std::vector<std::string>{"run", "at_reach", "at_distance", "name", "count", "worst_value",
                                        "worst_feature", "sure", "names"}));
    ASSERT_EQ(sheets[0].parts.size(), 2U);
    EXPECT_EQ(std::get<std::string>(sheets[0].parts[1].lead[0].value), "c.sgr");
}

TEST(Sheets, TellWhatNoRowRepeats) {
    Taken taken{"Samples", {}};
    sheetsOf(reportSample(), taken);
    std::string told;
    for (const Taken::Fact& fact : taken.facts)
        told += fact.name + "=" + fact.value + "\n";
    EXPECT_EQ(told, "Base=a.sgr\n"
                    "b.sgr: Load=1.5\nb.sgr: Agreement pass=1\nb.sgr: Agreement fail=2\n"
                    "c.sgr: Load=1.5\nc.sgr: Agreement pass=1\nc.sgr: Agreement fail=2\n");
}

TEST(Sheets, AreAsManyAsThereAreLists) {
    TableReport report = reportSample();
    report.runs[0].lists.push_back(manyRows(1));
    report.runs[0].lists.back().name = "other_rows";
    Taken taken;
    EXPECT_EQ(sheetsOf(report, taken).back().name, "Other rows");
    report.runs[0].flat = manyRows(2);
    EXPECT_EQ(sheetsOf(report, taken).size(), 1U);
}

TEST(Workbook, IsTheSameForTheSameContent) {
    const WorkbookContent content{{"Samples", {{"Runs", "a.sgr"}}}, {sheetOf(tableSample())}};
    EXPECT_TRUE(workbook(content) == workbook(content));
    EXPECT_TRUE(workbook(content) == workbook({content.taken, {sheetOf(tableInParts())}}));
}

TEST(Workbook, HasAFirstSheetWhereThereIsSomethingToTell) {
    EXPECT_EQ(partsOf(workbook({{"Samples", {{"Run", "a"}}}, {sheetOf(tableSample())}}))
                  .count("xl/worksheets/sheet2.xml"),
              1U);
    EXPECT_EQ(
        partsOf(workbook({{"Samples", {}}, {sheetOf(tableSample())}})).count("xl/worksheets/sheet2.xml"), 0U);
}

TEST(Workbook, DrawsALineForEachTextOfTheFirstColumn) {
    Sheet sheet = sheetOf(tableSample());
    sheet.chart = LineChart{"Title", "km", "BOD", 1, 2};
    EXPECT_EQ(partsOf(workbook({{}, {sheet}})).count("xl/charts/chart1.xml"), 1U);
    sheet.parts.clear();
    EXPECT_EQ(partsOf(workbook({{}, {sheet}})).count("xl/charts/chart1.xml"), 0U);
}

TEST(Workbook, NeedsALibrary) {
    try {
        const XlsxLibrary library("libnobodyhas.so.1");
        ADD_FAILURE() << "it was found";
    } catch (const TableRefused& refused) {
        EXPECT_STREQ(
            refused.what(),
            "The library that writes workbooks can't be loaded (libnobodyhas.so.1: cannot open shared "
            "object file: No such file or directory). Install libxlsxwriter, or write a CSV file.");
    }
}

TEST(Workbook, RefusesMoreRowsThanASheetHoldsBeforeAnythingIsWritten) {
    std::string text;
    OutputBytes bytes([&](std::string_view part) { text += part; });
    try {
        writeWorkbook({{}, {sheetOf(manyRows(mostSheetRows + 1))}}, {}, bytes);
        ADD_FAILURE() << "it was written";
    } catch (const TableRefused& refused) {
        EXPECT_STREQ(
            refused.what(),
            "A sheet of a workbook holds 1048575 rows at most, but there are 1048576. A database or a CSV "
            "file holds them all.");
    }
    bytes.flush();
    EXPECT_EQ(text, "");
}

TEST(Workbook, StopsWhenItIsNotWantedAnyMore) {
    double last = 0;
    const Writing writing{{}, [&](double share) {
                              EXPECT_GT(share, last);
                              last = share;
                              return share < 0.5;
                          }};
    EXPECT_THROW(workbook({{}, {sheetOf(manyRows(20000))}}, writing), WritingStopped);
    EXPECT_NEAR(last, 0.6, 0.1);
}

// Wherever in the making the disk is full: the library itself loses rows without a word.
TEST(Workbook, FailsWhereItsFilesFindNoRoom) {
    const WorkbookContent content{{}, {sheetOf(manyRows(30000))}};
    const auto sheetSize = partsOf(workbook(content)).at("xl/worksheets/sheet1.xml");
    for (const double share : {0.01, 0.5, 0.9, 0.99})
        EXPECT_EQ(failureWithFilesUpTo(static_cast<rlim_t>(share * static_cast<double>(sheetSize)), content),
                  61)
            << share;
    EXPECT_EQ(failureWithFilesUpTo(sheetSize - 100, content), 61);
    EXPECT_EQ(failureWithFilesUpTo(2 * sheetSize, content), 0);
}

TEST(ZipParts, AreNoneOfAFileThatIsNoZip) {
    EXPECT_TRUE(partsOf("").empty());
    EXPECT_TRUE(partsOf(std::string(100, 'P')).empty());
}

TEST(TableFormats, AreTakenByWhatTheyAreFor) {
    EXPECT_EQ(formatNames(TableUse::analysis), "text, csv, json or xlsx");
    EXPECT_EQ(formatNames(TableUse::allValues), "csv, json, xlsx or sqlite");
    EXPECT_EQ(formatOfExtension("A.XLSX")->name, "xlsx");
}

} // namespace korvel
