#include "reports/Output.h"

#include "basic/DiskNames.h"
#include "fakes/FakePlatform.h"
#include "reports/ReportData.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class ReportOutput : public testing::Test {
  protected:
    OutputResult output(OutputMode mode, const ReportProgress& progress = {}) {
        const ReportSelection selection = river.choices.selection();
        return Output(platform, mode, outputRequest(mode, river.results, selection, resultsFile), progress);
    }
    std::vector<std::string> files() { return platform.platform().files.filesIn(platform.folder()); }

    FakePlatform platform;
    LoadedRiver river;
    std::string resultsFile = platform.pathOf("RIVER.SGR");
};

} // namespace

TEST_F(ReportOutput, WritesTheSpreadsheetBesideTheResults) {
    EXPECT_EQ(output(OutputMode::spreadsheet), OutputEnd::done);
    EXPECT_EQ(files(), std::vector<std::string>{"RIVER.csv"});
    EXPECT_TRUE(
        platform.fileText("RIVER.csv").starts_with("River Alder, base run\r\nReach,Feature,BOD,BOD,"));
    EXPECT_EQ(platform.takeTranscript(), "");
}

TEST_F(ReportOutput, WritesAWorkbookBesideTheResults) {
    EXPECT_EQ(output(OutputMode::workbook), OutputEnd::done);
    EXPECT_EQ(files(), std::vector<std::string>{"RIVER-report.xlsx"});
    EXPECT_TRUE(platform.fileText("RIVER-report.xlsx").starts_with("PK"));
}

TEST_F(ReportOutput, ReplacesTheSpreadsheetWhole) {
    platform.putFile("RIVER.csv", std::string(100000, 'x'));
    EXPECT_EQ(output(OutputMode::spreadsheet), OutputEnd::done);
    EXPECT_EQ(platform.fileText("RIVER.csv").find('x'), std::string::npos);
}

TEST_F(ReportOutput, SaysThatTheSpreadsheetIsOpenElsewhere) {
    platform.putFile("RIVER.csv", "old");
    platform.putFile(".~lock.RIVER.csv#", "");
    platform.willAnswer(Answer::ok);
    EXPECT_EQ(output(OutputMode::spreadsheet), OutputEnd::failed);
    EXPECT_EQ(platform.takeTranscript(),
              "box [information] File Open: {app}\\RIVER.csv is already open. Please close "
              "the file and try again. -> ok\n");
    EXPECT_EQ(platform.fileText("RIVER.csv"), "old");
}

TEST_F(ReportOutput, ShowsAnyOtherFailureOfTheFile) {
    resultsFile = platform.pathOf("none\\RIVER.SGR");
    platform.willAnswer(Answer::ok);
    EXPECT_EQ(output(OutputMode::spreadsheet), OutputEnd::failed);
    EXPECT_EQ(platform.takeTranscript(),
              "box [critical] KORVEL Error: Error number 76: Path not found -> ok\n");
}

TEST_F(ReportOutput, ShowsAFailureAmongTheResults) {
    ReportSelection selection = river.choices.selection();
    selection.determinands.push_back(21);
    platform.willAnswer(Answer::ok);
    EXPECT_EQ(Output(platform, OutputMode::spreadsheet,
                     outputRequest(OutputMode::spreadsheet, river.results, selection, resultsFile)),
              OutputEnd::failed);
    EXPECT_EQ(platform.takeTranscript(),
              "box [critical] KORVEL Error: Error number 9: Subscript out of range -> ok\n");
    EXPECT_TRUE(files().empty());
}

TEST_F(ReportOutput, LeavesNothingOfACancelledSpreadsheet) {
    platform.putFile("RIVER.csv", "old");
    EXPECT_EQ(output(OutputMode::spreadsheet, [](double) { return false; }), OutputEnd::cancelled);
    EXPECT_EQ(platform.fileText("RIVER.csv"), "old");
    EXPECT_EQ(files(), std::vector<std::string>{"RIVER.csv"});
}

TEST_F(ReportOutput, PrintsPagesWithTodaysDate) {
    river = LoadedRiver(smallRiver().points(200, 12, 1));
    std::vector<double> shares;
    EXPECT_EQ(output(OutputMode::print, [&](double share) { return shares.push_back(share), true; }),
              OutputEnd::done);
    EXPECT_EQ(platform.takeTranscript(), "print portrait \"RIVER.SGR\"\npage\npage\npage\npage\nfinish\n");
    ASSERT_EQ(platform.printed().size(), 1U);
    EXPECT_TRUE(platform.printed()[0].finished);
    EXPECT_EQ(platform.printed()[0].request.fallbackFile, platform.pathOf("RIVER-report.pdf"));
    EXPECT_EQ(std::get<DrawnText>(platform.printed()[0].pages[0].commands[2]).text, "05/11/2026");
    EXPECT_EQ(shares, (std::vector<double>{1, 1, 1, 1}));
}

TEST_F(ReportOutput, PrintsWideTablesInLandscape) {
    river.choices.tick(ReportBox::observed, true);
    EXPECT_EQ(output(OutputMode::print), OutputEnd::done);
    EXPECT_EQ(platform.takeTranscript(), "print landscape \"RIVER.SGR\"\npage\nfinish\n");
}

TEST_F(ReportOutput, SaysWhereThePagesWentWithoutAPrinter) {
    platform.printedTo = platform.pathOf("RIVER-report.pdf");
    platform.willAnswer(Answer::ok);
    EXPECT_EQ(output(OutputMode::print), OutputEnd::done);
    EXPECT_EQ(platform.takeTranscript(), "print portrait \"RIVER.SGR\"\npage\nfinish\nbox [information] "
                                         "Printer: There is no printer, so the pages were written to " +
                                             hostPathOf(platform.pathOf("RIVER-report.pdf")) + ". -> ok\n");
}

TEST_F(ReportOutput, EndsWhereThePrinterRefuses) {
    for (const PrintStep step : {PrintStep::begin, PrintStep::page, PrintStep::finish}) {
        platform.willFailPrinting(step);
        platform.willAnswer(Answer::ok);
        EXPECT_EQ(output(OutputMode::print), OutputEnd::failed);
        const std::string transcript = platform.takeTranscript();
        EXPECT_NE(
            transcript.find("box [information] Printer: Your printer is offline or out of paper. -> ok\n"),
            std::string::npos)
            << transcript;
        platform.expectDone();
    }
}

TEST_F(ReportOutput, ShowsAnyOtherFailureOfPrinting) {
    platform.willFailPrinting(PrintStep::finish, RunTimeError(errors::diskFull));
    platform.willAnswer(Answer::ok);
    EXPECT_EQ(output(OutputMode::print), OutputEnd::failed);
    EXPECT_EQ(platform.takeTranscript(), "print portrait \"RIVER.SGR\"\npage\nfinish\n"
                                         "box [critical] KORVEL Error: Error number 61: Disk full -> ok\n");
}

TEST_F(ReportOutput, FinishesNothingThatIsCancelled) {
    EXPECT_EQ(output(OutputMode::print, [](double) { return false; }), OutputEnd::cancelled);
    EXPECT_EQ(platform.takeTranscript(), "print portrait \"RIVER.SGR\"\npage\n");
    EXPECT_FALSE(platform.printed()[0].finished);
}

TEST(OutputNames, ComeFromTheResultsFile) {
    const ResultsDataSet results;
    const ReportSelection selection;
    const auto nameOf = [&](const std::string& file) {
        return outputRequest(OutputMode::print, results, selection, file).outputFile;
    };
    EXPECT_EQ(nameOf("Z:\\A.B\\RIVER.SGR"), "Z:\\A.B\\RIVER-report.pdf");
    EXPECT_EQ(nameOf("Z:\\A.B\\RIVER"), "Z:\\A.B\\RIVER-report.pdf");
    EXPECT_EQ(nameOf("Z:\\R.1.SGR"), "Z:\\R.1-report.pdf");
}

TEST(PrintFile, PrintsTheFileOnPortraitPages) {
    FakePlatform platform;
    platform.putFile("RIVER.OUT", std::string(200, '\n') + "end");
    EXPECT_EQ(PrintFile(platform, platform.pathOf("RIVER.OUT")), OutputEnd::done);
    EXPECT_EQ(platform.takeTranscript(), "print portrait \"RIVER.OUT\"\npage\npage\npage\nfinish\n");
    EXPECT_EQ(platform.printed()[0].request.fallbackFile, platform.pathOf("RIVER.OUT.pdf"));
}

TEST(PrintFile, EndsOnFailures) {
    FakePlatform platform;
    platform.willAnswer(Answer::ok);
    EXPECT_EQ(PrintFile(platform, platform.pathOf("RIVER.OUT")), OutputEnd::failed);
    EXPECT_EQ(platform.takeTranscript(),
              "box [critical] KORVEL Error: Error number 53: File not found -> ok\n");
    platform.putFile("RIVER.OUT", "text");
    platform.willFailPrinting(PrintStep::begin);
    platform.willAnswer(Answer::ok);
    EXPECT_EQ(PrintFile(platform, platform.pathOf("RIVER.OUT")), OutputEnd::failed);
    EXPECT_EQ(platform.takeTranscript(),
              "print portrait \"RIVER.OUT\"\nbox [information] Printer: Your printer is "
              "offline or out of paper. -> ok\n");
}

} // namespace korvel
