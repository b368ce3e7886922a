#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "commands/CommandLine.h"
#include "commands/CommandList.h"
#include "fakes/FakePlatform.h"
#include "fakes/ResultsFileBuilder.h"
#include "global/GLOBAL.h"
#include "results/ResultsDataSet.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace korvel {

namespace {

class ReportCommands : public testing::Test {
  protected:
    ReportCommands() {
        GLOBAL = {};
        RESULTS = {};
        fake.putFile("river.sgr", ResultsFileBuilder()
                                      .determinand(1, "BOD")
                                      .determinand(2, "Ch\xE9zy, N")
                                      .reach(1, "A")
                                      .reach(2, "B")
                                      .reach(7, "C")
                                      .point(1, 0, "a")
                                      .point(2, 0, "b")
                                      .point(7, 0, "U/S c")
                                      .point(7, 1, "d")
                                      .text());
    }
    ~ReportCommands() override {
        GLOBAL = {};
        RESULTS = {};
    }

    std::string hostPath(const std::string& name) { return hostPathOf(fake.pathOf(name)); }

    int csv(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"csv", hostPath("river.sgr")});
        return run(arguments);
    }

    int run(const std::vector<std::string>& arguments) {
        std::ostringstream out, errorStream;
        const int status = runCommand(arguments, fake.platform(), out, errorStream);
        EXPECT_EQ(out.str(), "");
        errors = errorStream.str();
        return status;
    }

    // As run() does, for commands that draw.
    int runDrawing(const Command& command, const std::vector<std::string>& arguments) {
        std::ostringstream out, errorStream;
        ConsoleDialogs dialogs(errorStream);
        Platform& services = fake.platform();
        Platform console{dialogs,          services.files, services.machine,
                         services.windows, services.paper, services.screenMetrics};
        CommandCall call{arguments, console, dialogs, out, errorStream};
        const int status = command.run(call);
        errors = errorStream.str();
        return status;
    }

    // The lines of the file, from 0.
    std::string line(int number, const std::string& file = "river.csv") {
        std::istringstream lines(fake.fileText(file));
        std::string text;
        for (int k = 0; k <= number; ++k)
            std::getline(lines, text);
        return text.substr(0, text.find('\r'));
    }

    int rowCount() {
        const std::string text = fake.fileText("river.csv");
        return static_cast<int>(std::count(text.begin(), text.end(), '\n')) - 5;
    }

    FakePlatform fake;
    std::string errors;
};

} // namespace

TEST_F(ReportCommands, CsvHoldsWhatTheFormTicksAfterALoad) {
    EXPECT_EQ(csv({}), 0);
    EXPECT_EQ(errors, "");
    EXPECT_EQ(line(1), "Reach,Feature,BOD,BOD,Ch\xE9zy, N,Ch\xE9zy, N,BOD,BOD,Ch\xE9zy, N,Ch\xE9zy, N,");
    EXPECT_EQ(line(3), ",,Mean,95%-ile,Mean,95%-ile,Mean,95%-ile,Mean,95%-ile,");
    EXPECT_EQ(rowCount(), 3);
    EXPECT_EQ(line(5), "A               ,\"a\",1010,1015,1020,1025,1030,1035,1040,1045,");
}

TEST_F(ReportCommands, CsvGoesWhereItIsTold) {
    EXPECT_EQ(csv({"--output", hostPath("other.txt")}), 0);
    EXPECT_FALSE(fake.hasFile("river.csv"));
    EXPECT_EQ(line(0, "other.txt"), "Test river");
}

TEST_F(ReportCommands, CsvHoldsTheReachesNamed) {
    EXPECT_EQ(csv({"--reaches", "2,5-9", "--determinands", "none"}), 0);
    EXPECT_EQ(rowCount(), 2);
    EXPECT_EQ(line(5), "B               ,\"b\",");
    EXPECT_EQ(csv({"--reaches", "none"}), 0);
    EXPECT_EQ(rowCount(), 0);
    EXPECT_EQ(csv({"--reaches=all", "--upstream"}), 0);
    EXPECT_EQ(rowCount(), 4);
    EXPECT_EQ(csv({"--reaches", "7", "--upstream", "--determinands", "none"}), 0);
    EXPECT_EQ(line(5), "C               ,\"U/S c\",");
}

TEST_F(ReportCommands, CsvHoldsTheDeterminandsNamed) {
    EXPECT_EQ(csv({"--determinands", "3, BOD (Conc)", "--statistics", "mean"}), 0);
    EXPECT_EQ(line(2), ",,(Conc),(Load),");
    EXPECT_EQ(line(5), "A               ,\"a\",1010,1030,");
    EXPECT_EQ(csv({"--determinands", "1,Ch\xC3\xA9zy, N (Load), 3", "--statistics", "mean"}), 0);
    EXPECT_EQ(line(5), "A               ,\"a\",1010,1030,1040,");
}

TEST_F(ReportCommands, CsvHoldsTheStatisticsNamed) {
    EXPECT_EQ(csv({"--determinands", "1", "--statistics", "99,90"}), 0);
    EXPECT_EQ(line(3), ",,90%-ile,99%-ile,");
    EXPECT_EQ(csv({"--determinands", "1", "--statistics", "none", "--targets"}), 0);
    EXPECT_EQ(line(3), ",,Target,");
    EXPECT_EQ(csv({"--determinands", "1", "--statistics", "mean", "--observed", "--limits"}), 0);
    EXPECT_EQ(line(3), ",,Mean,Mean,Mean,Mean,");
    EXPECT_EQ(line(4), ",,,LCL,UCL,(Obs),");
}

TEST_F(ReportCommands, CsvRefusesWordsThatMeanNothing) {
    const std::pair<std::vector<std::string>, const char*> wrong[] = {
        {{"--reaches", "3"}, "korvel csv: the results have no reach 3 (read 'korvel csv --help')\n"},
        {{"--reaches", "2-1"}, "korvel csv: '2-1' is no reach number or range (read 'korvel csv --help')\n"},
        {{"--reaches", "1,,2"}, "korvel csv: '' is no reach number or range (read 'korvel csv --help')\n"},
        {{"--reaches", "x"}, "korvel csv: 'x' is no reach number or range (read 'korvel csv --help')\n"},
        {{"--determinands", "5"},
         "korvel csv: the results have no determinand '5' (read 'korvel csv --help')\n"},
        {{"--determinands", "BOD"},
         "korvel csv: the results have no determinand 'BOD' (read 'korvel csv --help')\n"},
        {{"--statistics", "98"}, "korvel csv: '98' is no statistic (read 'korvel csv --help')\n"},
        {{"--unknown"}, "korvel csv: unknown option '--unknown' (read 'korvel csv --help')\n"}};
    for (const auto& [arguments, message] : wrong) {
        EXPECT_EQ(csv(arguments), 2);
        EXPECT_EQ(errors, message);
    }
    EXPECT_FALSE(fake.hasFile("river.csv"));
}

TEST_F(ReportCommands, CsvFailsWithTheFormsMessages) {
    EXPECT_EQ(run({"csv", hostPath("none.sgr")}), 1);
    EXPECT_TRUE(errors.starts_with("[exclamation] Error: There is an error in reading the data")) << errors;
    fake.putFile(".~lock.river.csv#", "");
    EXPECT_EQ(csv({}), 1);
    EXPECT_EQ(errors, "[information] File Open: " + fake.pathOf("river.csv") +
                          " is already open. Please close the file and try again.\n");
    EXPECT_EQ(csv({"--output", hostPath("none/river.csv")}), 1);
    EXPECT_EQ(errors, "[critical] KORVEL Error: Error number 76: Path not found\n");
}

TEST_F(ReportCommands, ReportPrintsPagesToTheFileBesideTheResults) {
    EXPECT_EQ(runDrawing(reportCommand, {hostPath("river.sgr")}), 0);
    EXPECT_EQ(fake.takeTranscript(), "print portrait \"river.sgr\"\npage\nfinish\n");
    EXPECT_EQ(fake.printed().at(0).request.fallbackFile, fake.pathOf("river-report.pdf"));
    EXPECT_EQ(runDrawing(reportCommand, {hostPath("river.sgr"), "--limits", "--determinands", "1,2",
                                         "--output", hostPath("x.pdf")}),
              0);
    EXPECT_EQ(fake.takeTranscript(), "print landscape \"river.sgr\"\npage\nfinish\n");
    EXPECT_EQ(fake.printed().at(1).request.fallbackFile, fake.pathOf("x.pdf"));
}

TEST_F(ReportCommands, ReportRefusesTablesTooWideToPrint) {
    EXPECT_EQ(runDrawing(reportCommand, {hostPath("river.sgr"), "--limits"}), 1);
    EXPECT_EQ(errors,
              "[exclamation] Korvel Reports: Number of columns selected for printing =  24. Too wide to "
              "print.\n");
    EXPECT_EQ(fake.takeTranscript(), "");
}

TEST_F(ReportCommands, ReportFailsWithThePrintersMessage) {
    fake.willFailPrinting(PrintStep::finish);
    EXPECT_EQ(runDrawing(reportCommand, {hostPath("river.sgr")}), 1);
    EXPECT_EQ(errors, "[information] Printer: Your printer is offline or out of paper.\n");
}

TEST_F(ReportCommands, ListingPrintsTheFileToOneBesideIt) {
    fake.putFile("river.out", "text");
    EXPECT_EQ(runDrawing(listingCommand, {hostPath("river.out")}), 0);
    EXPECT_EQ(fake.takeTranscript(), "print portrait \"river.out\"\npage\nfinish\n");
    EXPECT_EQ(fake.printed().at(0).request.fallbackFile, fake.pathOf("river.out.pdf"));
    EXPECT_EQ(runDrawing(listingCommand, {hostPath("river.out"), "--output", hostPath("x.pdf")}), 0);
    EXPECT_EQ(fake.printed().at(1).request.fallbackFile, fake.pathOf("x.pdf"));
    EXPECT_EQ(runDrawing(listingCommand, {hostPath("none.out")}), 1);
    EXPECT_EQ(errors, "[critical] KORVEL Error: Error number 53: File not found\n");
}

TEST_F(ReportCommands, RefuseToReplaceTheirInputBeforeItIsRead) {
    const std::string text = fake.fileText("river.sgr");
    std::filesystem::create_symlink(hostPath("river.sgr"), hostPath("link.csv"));
    std::filesystem::create_hard_link(hostPath("river.sgr"), hostPath("link.pdf"));
    std::filesystem::create_hard_link(hostPath("river.sgr"), hostPath("link.png"));
    fake.putFile("broken.csv", "no results");
    const std::string river = hostPath("river.sgr"), broken = hostPath("broken.csv");
    const std::vector<std::string> calls[] = {
        {"csv", river, "--output", river},
        {"csv", river, "--output", hostPath("") + "/../" + fileOf(fake.folder()) + "/river.sgr"},
        {"csv", river, "--output", hostPath("link.csv")},
        {"csv", broken},
        {"csv", broken, "--output", broken},
        {"report", river, "--output", hostPath("link.pdf")},
        {"listing", river, "--output", hostPath("link.pdf")},
        {"graph", river, "--from", "1", "--to", "1", "--series", "0", "--output", hostPath("link.png")},
        {"graph", hostPath("none"), "--compare", river, "--from", "1", "--to", "1", "--series", "0",
         "--output", hostPath("link.png")}};
    for (const std::vector<std::string>& call : calls) {
        EXPECT_EQ(run(call), 1) << call[0];
        EXPECT_EQ(errors, "[exclamation] File name: The output would replace the input.\n") << call[0];
    }
    EXPECT_EQ(fake.fileText("river.sgr"), text);
    EXPECT_EQ(fake.fileText("broken.csv"), "no results");
}

TEST_F(ReportCommands, ReportIsAWorkbookByTheNameOfItsFile) {
    for (const char* const name : {"R.xlsx", "R.XLSX"}) {
        EXPECT_EQ(run({"report", hostPath("river.sgr"), "--output", hostPath(name)}), 0) << errors;
        EXPECT_TRUE(fake.fileText(name).starts_with("PK"));
    }
    EXPECT_EQ(run({"report", hostPath("river.sgr"), "--statistics", "mean,90,95,99", "--limits", "--observed",
                   "--targets", "--output", hostPath("wide.xlsx")}),
              0)
        << "a sheet is never too narrow: " << errors;
}

} // namespace korvel
