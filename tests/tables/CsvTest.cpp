#include "tables/Csv.h"

#include "tables/TableSample.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(CsvText, IsQuotedAndKeptFromBeingAFormula) {
    const struct {
        const char *text, *csv;
    } cases[] = {
        {"Weir", "Weir"},
        {"", ""},
        {"a,b", "\"a,b\""},
        {"say \"no\"", "\"say \"\"no\"\"\""},
        {"a\nb", "\"a\nb\""},
        {"a\rb", "\"a\rb\""},
        {"=1+1", "'=1+1"},
        {"+1", "'+1"},
        {"-1", "'-1"},
        {"@x", "'@x"},
        {"\tx", "'\tx"},
        {"\rx", "\"'\rx\""},
        {" =1", " =1"},
        {"=a,b", "\"'=a,b\""},
        {"\xC9tang", "\xC3\x89tang"},
    };
    for (const auto& [text, csv] : cases)
        EXPECT_EQ(csvText(text), csv);
}

TEST(Csv, WritesOneHeadingAndALineARow) {
    const char* const expected = "name,count,worst_value,worst_feature,sure,names\r\n"
                                 "\"'=A, \"\"B\"\"\",2,0.25,Weir,true,BOD; Zinc\r\n"
                                 ",-3,,,,\r\n";
    EXPECT_EQ(written([](OutputBytes& out) { writeCsv(tableSample(), out); }), expected);
    EXPECT_EQ(written([](OutputBytes& out) { writeCsv(tableInParts(), out); }), expected);
}

TEST(Csv, BeginsRowsWithWhatHoldsForTheRun) {
    EXPECT_EQ(written([](OutputBytes& out) { writeCsv(reportSample(), out); }),
              "run,at_reach,at_distance,name,count,worst_value,worst_feature,sure,names\r\n"
              "b.sgr,3,,\"'=A, \"\"B\"\"\",2,0.25,Weir,true,BOD; Zinc\r\n"
              "b.sgr,3,,,-3,,,,\r\n"
              "c.sgr,3,,\"'=A, \"\"B\"\"\",2,0.25,Weir,true,BOD; Zinc\r\n"
              "c.sgr,3,,,-3,,,,\r\n");
}

TEST(Csv, TakesTheFlatTableWhereThereIsOne) {
    TableReport report = reportSample();
    report.runs.resize(1);
    report.runs[0].flat = Table{"flat", {{"x"}}, [](RowTaker& taker) { taker.row(std::array<Cell, 1>{7}); }};
    EXPECT_EQ(written([&](OutputBytes& out) { writeCsv(report, out); }),
              "run,at_reach,at_distance,x\r\nb.sgr,3,,7\r\n");
}

TEST(OutputBytes, PassOnWhateverIsWritten) {
    std::string expected;
    const std::string text = written([&](OutputBytes& out) {
        for (int k = 0; k < 100000; ++k) {
            out.append("abc");
            out.append(',');
            out.appendNumber(k);
            expected += "abc," + std::to_string(k);
        }
        const std::string large(1000000, 'x');
        out.append(large);
        expected += large;
    });
    EXPECT_TRUE(text == expected);
}

TEST(Csv, TellsNoNumberBeyondTheRangeOfDoubles) {
    EXPECT_EQ(written([](OutputBytes& out) { writeCsv(tableBeyondRange(), out); }), "a,b,c\r\n,,1\r\n");
    Table inParts = tableBeyondRange();
    inParts.rows = [](RowTaker& taker) {
        const ReadyCells none = taker.ready(1, std::array<Cell, 1>{tooLarge});
        for (const double value : {-tooLarge, -tooLarge, 2.0})
            taker.row(taker.ready(0, std::array<Cell, 1>{-tooLarge}), none, std::array<Cell, 1>{value});
    };
    EXPECT_EQ(written([&](OutputBytes& out) { writeCsv(inParts, out); }), "a,b,c\r\n,,\r\n,,\r\n,,2\r\n");
}

} // namespace korvel
