// The commands that start the engine, against the run-control files that the forms write.
#include "basic/DiskNames.h"
#include "commands/CommandFixture.h"
#include "global/GLOBAL.h"
#include "runs/BatchRun.h"
#include "runs/RunModel.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace korvel {

namespace {

class RunCommands : public CommandFixture {
  protected:
    RunCommands() {
        GLOBAL = {};
        fake.putEngine();
    }
    ~RunCommands() override { GLOBAL = {}; }

    std::string put(const std::string& name) {
        fake.putFile(name, "");
        return hostPathOf(fake.pathOf(name));
    }
    std::string runControl() { return fake.fileText("RUNDAT.TMP"); }
    bool started() { return contains(fake.takeTranscript(), "engine"); }
    void removeEngine() { std::remove(hostPathOf(fake.pathOf("korvelf157.exe")).c_str()); }
};

const std::string notFound = "[critical] : Run-time error '53': File not found\n";

} // namespace

TEST_F(RunCommands, RunWritesWhatTheRunMenuWrites) {
    const std::string file = put("Alder two.dat");
    for (int type = 0; type <= 9; ++type) {
        GLOBAL = {};
        GLOBAL.RunType = type;
        fake.willChoose(fake.pathOf("Alder two.dat"));
        DataFiles dataFiles(fake, {[] {}, [] {}});
        RunModel(fake, dataFiles);
        const std::string ofMenu = runControl();
        GLOBAL = {};
        EXPECT_EQ(run({"run", file, "--type", std::to_string(type)}), 0);
        EXPECT_EQ(runControl(), ofMenu);
        EXPECT_TRUE(contains(ofMenu, "\\ALDER TWO.DAT\r\n " + std::to_string(type) + " \r\n"));
    }
    EXPECT_EQ(out + errors, "");
}

TEST_F(RunCommands, RunIsABasicRunWithoutAType) {
    EXPECT_EQ(run({"run", put("a.dat")}), 0);
    EXPECT_TRUE(runControl().ends_with("A.DAT\r\n 0 \r\n"));
    EXPECT_EQ(fake.takeTranscript(), "current folder {app}\ncurrent folder {app}\n"
                                     "start engine alone {app}\\korvelf157.exe\n");
}

TEST_F(RunCommands, RunWithWaitShowsTheEnginesOutputAndFollowsItsStatus) {
    fake.engineOutput = "KORVEL demonstration engine\nFinished.\n";
    EXPECT_EQ(run({"run", put("a.dat"), "--wait"}), 0);
    EXPECT_EQ(out, fake.engineOutput);
    EXPECT_TRUE(contains(fake.takeTranscript(), "run engine {app}\\korvelf157.exe"));
    fake.engineStatus = 3;
    EXPECT_EQ(run({"run", put("a.dat"), "--wait"}), 1);
    EXPECT_EQ(errors, "");
}

TEST_F(RunCommands, RunRefusesWhatTheOpenDialogsChecksRefuse) {
    const struct {
        std::string file;
        const char* line;
    } cases[] = {
        {"/data/a.txt", "[exclamation] Input data file: The input data file extension must be .DAT.\n"},
        {"/" + std::string(100, 'd') + "/a.dat",
         "[exclamation] Input Data File: File path name too long. Locate data file in higher level folder\n"},
        {"/" + std::string(27, 'f') + ".dat",
         "[exclamation] Input Data File: File name too long. Must be not more than 30 characters,\n"},
    };
    for (const auto& [file, line] : cases) {
        EXPECT_EQ(run({"run", file}), 1) << file;
        EXPECT_EQ(errors, line);
        EXPECT_FALSE(started());
    }
    EXPECT_EQ(run({"run", "/" + std::string(26, 'f') + ".dat"}), 0) << "30 characters";
}

TEST_F(RunCommands, RunRefusesANameThatTheEngineWouldNotFind) {
    const std::string file = put("twin.dat");
    std::ofstream(hostPathOf(fake.folder()) + "/TWIN.DAT") << "another file";
    EXPECT_EQ(run({"run", file}), 1);
    EXPECT_TRUE(errors.starts_with("[exclamation] File name: Another file or folder")) << errors;
    EXPECT_FALSE(started());
}

TEST_F(RunCommands, WithoutTheEngineAreTheRunTimesFailure) {
    removeEngine();
    const std::string file = put("a.dat");
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"run", file},
                                                      {"run", file, "--wait"},
                                                      {"batch", file},
                                                      {"batch", "--wait", file}}) {
        EXPECT_EQ(run(arguments), 1);
        EXPECT_EQ(errors, notFound);
    }
}

TEST_F(RunCommands, AnswerWrongUsageWithStatus2) {
    const struct {
        std::vector<std::string> arguments;
        const char* line;
    } cases[] = {
        {{"run"}, "korvel run: no data file given (read 'korvel run --help')\n"},
        {{"run", "a.dat", "--type", "10"}, "korvel run: no run type '10' here (read 'korvel run --help')\n"},
        {{"run", "a.dat", "--type="}, "korvel run: no run type '' here (read 'korvel run --help')\n"},
        {{"batch"}, "korvel batch: no data file given (read 'korvel batch --help')\n"},
        {{"batch", "a.dat", "--type", "5"},
         "korvel batch: no run type '5' here (read 'korvel batch --help')\n"},
        {{"batch", "/a/a.dat", "/b/b.dat"},
         "korvel batch: the data files lie in more than one folder (read 'korvel batch --help')\n"},
        {{"help-page"}, "korvel help-page: no page number given (read 'korvel help-page --help')\n"},
        {{"help-page", "../4"},
         "korvel help-page: no page number: '../4' (read 'korvel help-page --help')\n"},
    };
    for (const auto& [arguments, line] : cases) {
        EXPECT_EQ(run(arguments), 2) << line;
        EXPECT_EQ(errors, line);
        EXPECT_FALSE(started());
    }
}

TEST_F(RunCommands, BatchWritesWhatTheBatchFormWrites) {
    const std::vector<std::string> files = {put("b.dat"), put("A.DAT")};
    for (int option = 0; option < BatchOptions; ++option) {
        GLOBAL = {};
        BatchRun form(fake, [] {});
        fake.willChoose(fake.pathOf("b.dat"));
        form.takeStep();
        form.state().names = {"B.DAT", "A.DAT"};
        form.state().title = "A title";
        form.chooseOption(option);
        form.takeStep();
        const std::string ofForm = runControl();
        GLOBAL = {};
        const std::string type = std::to_string(batchRunType(option));
        EXPECT_EQ(run({"batch", "--title", "A title", "--type", type, files[0], files[1]}), 0);
        EXPECT_EQ(runControl(), ofForm);
    }
    EXPECT_EQ(std::ranges::count(runControl(), '\n'), 7);
}

TEST_F(RunCommands, BatchWithoutATitleWritesADash) {
    EXPECT_EQ(run({"batch", put("a.dat")}), 0);
    EXPECT_EQ(runControl(), "-\r\n" + fake.folder() + "\\\r\n" + fake.folder() + "\\A.DAT\r\n 0 \r\n");
    EXPECT_TRUE(contains(fake.takeTranscript(), "start engine alone {app}\\korvelf157.exe \n"));
}

TEST_F(RunCommands, BatchDeletesThePolicyDataOfEarlierRuns) {
    put("GlobalPolicyData.gpd");
    EXPECT_EQ(run({"batch", put("a.dat")}), 0);
    EXPECT_FALSE(fake.hasFile("GlobalPolicyData.gpd"));
}

TEST_F(RunCommands, BatchRefusesAFileThatTheFormWouldNotList) {
    EXPECT_EQ(run({"batch", put("a.dat"), put("notes.txt")}), 1);
    EXPECT_EQ(errors, "[exclamation] Input data file: The input data file extension must be .DAT.\n");
    EXPECT_FALSE(started());
    EXPECT_EQ(run({"batch", put("a.dat.bak")}), 0);
}

TEST_F(RunCommands, BatchRunsThreeHundredFilesAndFailsOnOneMore) {
    std::vector<std::string> arguments = {"batch", "--wait"};
    for (int k = 1; k <= 300; ++k)
        arguments.push_back(hostPathOf(fake.folder()) + "/f" + std::to_string(k) + ".dat");
    EXPECT_EQ(run(arguments), 0);
    EXPECT_EQ(std::ranges::count(runControl(), '\n'), 1 + 3 * 300);
    fake.takeTranscript();
    arguments.push_back(hostPathOf(fake.folder()) + "/f301.dat");
    EXPECT_EQ(run(arguments), 1);
    EXPECT_EQ(errors, "[critical] : Run-time error '9': Subscript out of range\n");
    EXPECT_FALSE(started());
}

TEST_F(RunCommands, HelpPagePrintsTheRowsOfThePage) {
    fake.putFile("KORDAT7.TXT", "1\r\n2\r\n3\r\n4\r\nFEATURES\r\n  a, \"b\"\r\nEND\r\n");
    EXPECT_EQ(run({"help-page", "7"}), 0);
    EXPECT_EQ(out, "FEATURES\n  a, \"b\"\n");
    fake.putFile("KORDAT12.TXT", "\xC9tang\r\n");
    EXPECT_EQ(run({"help-page", "12"}), 0);
    EXPECT_EQ(out, "\xC3\x89tang\n");
}

TEST_F(RunCommands, HelpPageFailsAsTheFormDoes) {
    EXPECT_EQ(run({"help-page", "4"}), 1);
    EXPECT_EQ(errors, notFound);
    fake.putFile("KORDAT4.TXT", "1\r\n2\r\n");
    EXPECT_EQ(run({"help-page", "4"}), 1);
    EXPECT_EQ(errors, "[critical] : Run-time error '62': Input past end of file\n");
}

} // namespace korvel
