#include "reports/SpreadsheetReport.h"

#include "fakes/ExpectedFile.h"
#include "reports/ReportData.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class FileInMemory : public NewFile {
  public:
    void write(std::string_view bytes) override {
        text.append(bytes);
        largestBlock = std::max(largestBlock, bytes.size());
    }
    void commit() override { committed = true; }

    std::string text;
    std::size_t largestBlock = 0;
    bool committed = false;
};

std::string sheetOf(const LoadedRiver& river, const ReportSelection& selection) {
    FileInMemory file;
    EXPECT_EQ(writeSpreadsheet(file, river.results, selection), ReportEnd::done);
    EXPECT_FALSE(file.committed);
    return file.text;
}

} // namespace

TEST(SpreadsheetReport, LiesBesideTheResults) {
    EXPECT_EQ(spreadsheetFileName("Z:\\HOME\\RIVER.SGR"), "Z:\\HOME\\RIVER.csv");
    EXPECT_EQ(spreadsheetFileName("Z:\\home\\river.sgr"), "Z:\\home\\river.csv");
    EXPECT_EQ(spreadsheetFileName("Z:\\home\\river"), "Z:\\home\\ricsv");
}

TEST(SpreadsheetReport, HoldsHeadingsAndRowsByteForByte) {
    LoadedRiver river(ResultsFileBuilder()
                          .title("Alder, \"base\" run  ")
                          .determinand(1, "BOD")
                          .reach(1, "Mill, upper")
                          .pointLine("1,0,Weir \"A\"***,0,1")
                          .set(ValueField::meanValue, 1, 1234.5)
                          .set(ValueField::percentileValues, 1, 0.05, 1)
                          .set(ValueField::meanValue, 2, -5)
                          .set(ValueField::percentileValues, 2, 99.95, 1));
    EXPECT_EQ(sheetOf(river, river.choices.selection()),
              lines({"Alder, \"base\" run  ", "Reach,Feature,BOD,BOD,BOD,BOD,",
                     ",,(Conc),(Conc),(Load),(Load),", ",,Mean,95%-ile,Mean,95%-ile,", ",,,,,,",
                     "Mill, upper     ,\"Weir \"A\"\",1235,0.05000,-5.0000000,100.0,"}));
}

TEST(SpreadsheetReport, RepeatsTheStatisticOverItsCompanions) {
    LoadedRiver river(
        ResultsFileBuilder().determinand(1, "Flow speed").reach(1, "A").point(1, 0, "x").setAll(2));
    ReportSelection selection;
    selection.statistics = {Statistic::mean};
    selection.limits = selection.observed = selection.targets = true;
    selection.determinands = {2};
    selection.reaches = {1};
    EXPECT_EQ(sheetOf(river, selection),
              lines({"Test river", "Reach,Feature,Flow speed,Flow speed,Flow speed,Flow speed,Flow speed,",
                     ",,(Load),(Load),(Load),(Load),(Load),", ",,Mean,Mean,Mean,Target,Mean,",
                     ",,,LCL,UCL,,(Obs),", "A               ,\"x\",2.000,2.000,2.000,2.000,2.000,"}));
}

TEST(SpreadsheetReport, HoldsOnlyLabelsWithoutValueColumns) {
    LoadedRiver river;
    river.choices.chooseDeterminands({});
    river.choices.chooseReaches({true});
    river.choices.tick(ReportBox::upstream, true);
    EXPECT_EQ(sheetOf(river, river.choices.selection()),
              lines({"River Alder, base run", "Reach,Feature,", ",,", ",,", ",,",
                     "Upper Mill      ,\"U/S Head of Alder\",", "Upper Mill      ,\"U/S Mill Weir\",",
                     "Upper Mill      ,\"D/S Mill Weir\",", "Upper Mill      ,\"U/S Old Works\",",
                     "Upper Mill      ,\"Gauge by \"old\" mill\","}));
}

TEST(SpreadsheetReport, HoldsHeadingsOnlyWithoutRows) {
    LoadedRiver river;
    river.choices.chooseReaches({});
    river.choices.chooseDeterminands({true});
    EXPECT_EQ(sheetOf(river, river.choices.selection()),
              lines({"River Alder, base run", "Reach,Feature,BOD,BOD,", ",,(Conc),(Conc),", ",,Mean,90%-ile,",
                     ",,,,"}));
}

TEST(SpreadsheetReport, LooksAsItDidBefore) {
    LoadedRiver river;
    for (const ReportBox box : {ReportBox::percentiles95, ReportBox::percentiles99, ReportBox::targets,
                                ReportBox::observed, ReportBox::limits, ReportBox::upstream})
        river.choices.tick(box, true);
    expectSameAsFile(sheetOf(river, river.choices.selection()), "reports/small-river.csv");
}

TEST(SpreadsheetReport, GoesToTheFileInBlocksAndStopsWhenCancelled) {
    LoadedRiver river(smallRiver().points(5000, 12, 1));
    FileInMemory whole;
    std::vector<double> shares;
    EXPECT_EQ(writeSpreadsheet(whole, river.results, river.choices.selection(),
                               [&](double share) { return shares.push_back(share), true; }),
              ReportEnd::done);
    EXPECT_GT(whole.text.size(), 200000U);
    EXPECT_LT(whole.largestBlock, 100000U);
    EXPECT_EQ(shares, (std::vector<double>{0.5, 1, 1, 1, 1, 1}));

    FileInMemory cut;
    int asked = 0;
    EXPECT_EQ(
        writeSpreadsheet(cut, river.results, river.choices.selection(), [&](double) { return ++asked < 3; }),
        ReportEnd::cancelled);
    EXPECT_EQ(asked, 3);
    EXPECT_LT(cut.text.size(), whole.text.size());
}

TEST(SpreadsheetReport, CarriesTextsLongerThanABlock) {
    LoadedRiver river(ResultsFileBuilder()
                          .title(std::string(200000, 'T'))
                          .determinand(1, "BOD")
                          .reach(1, "A")
                          .point(1, 0, std::string(100000, 'L'))
                          .set(ValueField::meanValue, 1, 1e300));
    river.choices.chooseDeterminands({true});
    const std::string sheet = sheetOf(river, river.choices.selection());
    EXPECT_TRUE(sheet.starts_with(std::string(200000, 'T') + "\r\nReach,"));
    EXPECT_NE(sheet.find("\"" + std::string(100000, 'L') + "\",1" + std::string(300, '0') + ","),
              std::string::npos);
}

} // namespace korvel
