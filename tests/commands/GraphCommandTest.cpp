#include "basic/DiskNames.h"
#include "commands/CommandList.h"
#include "fakes/FakePlatform.h"
#include "fakes/ResultsFileBuilder.h"
#include "global/GLOBAL.h"
#include "results/ResultsDataSet.h"

#include <gtest/gtest.h>

#include <sstream>

namespace korvel {

namespace {

class GraphCommand : public testing::Test {
  protected:
    GraphCommand() {
        GLOBAL = {};
        RESULTS = {};
        fake.putFile("river.sgr", riverText());
        fake.putFile("other.sgr",
                     ResultsFileBuilder().determinand(1, "pH").reach(1, "A").point(1, 0, "a").text());
    }
    ~GraphCommand() override {
        GLOBAL = {};
        RESULTS = {};
    }

    static std::string riverText() {
        return ResultsFileBuilder()
            .title("River Alder")
            .determinand(1, "BOD", 1)
            .determinand(1, "Ch\xE9zy, N", 1)
            .reach(1, "Upper", 4, 2)
            .reach(2, "Lower", 3, 0)
            .reach(7, "Brook", 2, 2)
            .point(1, 0, "Head")
            .point(1, 4, "Weir")
            .point(2, 0, "Works", 3)
            .point(2, 3, "Mouth")
            .point(7, 0, "Spring")
            .point(7, 2, "Fall")
            .text();
    }

    std::string hostPath(const std::string& name) { return hostPathOf(fake.pathOf(name)); }

    int graph(std::vector<std::string> arguments, const std::string& output = "g.svg") {
        arguments.insert(arguments.begin(), {"graph", hostPath("river.sgr"), "--output", hostPath(output)});
        std::ostringstream out, errorStream;
        const int status = runCommand(arguments, fake.platform(), out, errorStream);
        EXPECT_EQ(out.str(), "");
        errors = errorStream.str();
        return status;
    }
    int run(std::vector<std::string> options) {
        options.insert(options.begin(), {"--from", "1", "--to", "2", "--series", "0,1"});
        return graph(options);
    }

    std::string svg() { return fake.fileText("g.svg"); }
    bool shows(const std::string& text) { return svg().find(text) != std::string::npos; }

    FakePlatform fake;
    std::string errors;
};

} // namespace

TEST_F(GraphCommand, DrawsSeriesAlongARunOfReaches) {
    EXPECT_EQ(run({}), exitStatus::done) << errors;
    for (const char* text : {"River Alder", "KORVEL RESULTS", "KEY:", "Mean values", "Observed values",
                             "Flow", "BOD", "Upper", "Lower", "Mouth (7.0km)"})
        EXPECT_TRUE(shows(text)) << text;
    EXPECT_FALSE(shows("Brook"));
}

TEST_F(GraphCommand, DrawsOneSeriesInSeveralReaches) {
    EXPECT_EQ(graph({"--reaches", "1,7", "--series", "BOD (Load)"}), exitStatus::done) << errors;
    EXPECT_TRUE(shows("BOD (Load) - Upper reach"));
    EXPECT_TRUE(shows("BOD (Load) - Brook reach"));
}

TEST_F(GraphCommand, TakesSeriesByNamesThatHoldCommas) {
    EXPECT_EQ(graph({"--from", "7", "--to", "2", "--series", "Ch\xC3\xA9zy, N (Conc),Flow"}),
              exitStatus::done)
        << errors;
    EXPECT_EQ(GLOBAL.selectedDeterminands, (std::vector<int>{0, 2}));
    EXPECT_EQ(GLOBAL.graphReaches, (std::vector<int>{7, 2}));
}

TEST_F(GraphCommand, TakesTheOptionsOfTheSetUp) {
    EXPECT_EQ(run({"--plot", "mean,percentile", "--level", "90", "--limits", "--labels", "3", "--title",
                   "Mine", "--subtitle", "below", "--small-text"}),
              exitStatus::done)
        << errors;
    for (const char* text :
         {"Mean values", "90% values (95% flows)", "Confidence limits", "Mine", "below", "Works (4.0km)"})
        EXPECT_TRUE(shows(text)) << text;
    EXPECT_FALSE(shows("Mouth"));
    EXPECT_EQ(GLOBAL.LargeTextMode, 0);
}

TEST_F(GraphCommand, LabelsNothingWhenAsked) {
    EXPECT_EQ(run({"--labels", "none", "--no-observed"}), exitStatus::done) << errors;
    EXPECT_FALSE(shows("Mouth"));
    EXPECT_FALSE(shows("Observed values"));
}

TEST_F(GraphCommand, ComparesTwoResultsFiles) {
    fake.putFile("second.sgr", riverText());
    EXPECT_EQ(run({"--compare", hostPath("second.sgr")}), exitStatus::done) << errors;
    EXPECT_TRUE(shows("Mean values for Set 1"));
    EXPECT_TRUE(shows("Mean values for Set 2"));
}

TEST_F(GraphCommand, FailsWithASecondFileOfAnotherKind) {
    EXPECT_EQ(run({"--compare", hostPath("other.sgr")}), exitStatus::failed);
    EXPECT_EQ(errors, "[exclamation] : 2nd data set has wrong number of determinands.\n");
    EXPECT_FALSE(fake.hasFile("g.svg"));
}

TEST_F(GraphCommand, ZoomsAndScrolls) {
    EXPECT_EQ(run({"--zoom", "0.5", "--scroll", "1,-2", "--size", "800x400"}), exitStatus::done) << errors;
    EXPECT_EQ(GLOBAL.ZoomFactor, 0.5);
    EXPECT_EQ(GLOBAL.ScrollOffsetX, 0.5 * 800 * 15 / 4);
    EXPECT_EQ(GLOBAL.ScrollOffsetY, -2 * 0.5 * 400 * 15 / 4);
    EXPECT_EQ(GLOBAL.ScaleX, 800 / 640.0);
    EXPECT_EQ(GLOBAL.ScaleY, 400 / 452.0);
}

TEST_F(GraphCommand, WritesTheFormatOfTheName) {
    const std::pair<const char*, const char*> formats[] = {
        {"g.png", "\x89PNG"}, {"g.bmp", "BM"}, {"g.PDF", "%PDF-"}, {"g.svg", "<?xml"}};
    for (const auto& [name, start] : formats) {
        EXPECT_EQ(graph({"--from", "1", "--to", "1", "--series", "0"}, name), exitStatus::done) << errors;
        EXPECT_TRUE(fake.fileText(name).starts_with(start)) << name;
    }
}

TEST_F(GraphCommand, RefusesWordsThatMeanNothing) {
    const std::vector<std::string> cases[] = {
        {"--from", "1", "--to", "2"},
        {"--to", "2", "--series", "0"},
        {"--from", "5", "--to", "2", "--series", "0"},
        {"--from", "2", "--to", "1", "--series", "0"},
        {"--from", "1", "--to", "2", "--series", "5"},
        {"--from", "1", "--to", "2", "--series", "nothing"},
        {"--reaches", "1", "--from", "1", "--series", "0"},
        {"--reaches", "3", "--series", "0"},
        {"--reaches", "1", "--series", "0,1"},
        {"--reaches", "1", "--series", "0", "--level", "92"},
        {"--reaches", "1", "--series", "0", "--plot", "median"},
        {"--reaches", "1", "--series", "0", "--labels", "6"},
        {"--reaches", "1", "--series", "0", "--zoom", "3"},
        {"--reaches", "1", "--series", "0", "--scroll", "1"},
        {"--reaches", "1", "--series", "0", "--scroll", "2147483647,0"},
        {"--reaches", "1", "--series", "0", "--scroll", "1,--0"},
        {"--reaches", "1", "--series", "0", "--size", "0x100"},
        {"--reaches", "1", "--series", "0", "--size", "big"},
    };
    for (const auto& arguments : cases) {
        EXPECT_EQ(graph(arguments), exitStatus::wrongUsage) << arguments[1] << arguments.back();
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
    }
    EXPECT_EQ(graph({"--reaches", "1", "--series", "0"}, "g.gif"), exitStatus::wrongUsage);
}

TEST_F(GraphCommand, ShowsWhatTheFormWouldShow) {
    EXPECT_EQ(graph({"--reaches", "none", "--series", "0"}), exitStatus::failed);
    EXPECT_EQ(errors, "[exclamation] Missing data: You must select one or more reaches.\n");
}

TEST_F(GraphCommand, LeavesControlCharactersOutOfPictures) {
    EXPECT_EQ(run({"--title", "A\x1B[2J\x01 title"}), exitStatus::done) << errors;
    EXPECT_TRUE(shows("A[2J title"));
    EXPECT_FALSE(shows("\x1B") || shows("\x01"));
}

TEST_F(GraphCommand, RefusesPicturesBeyondAllMeasure) {
    for (const char* size : {"16384x16384", "10001x10000"}) {
        EXPECT_EQ(run({"--size", size}), exitStatus::wrongUsage);
        EXPECT_EQ(errors, std::string("korvel graph: the size ") + size +
                              " is beyond 100 million pixels (read 'korvel graph --help')\n");
    }
    EXPECT_EQ(run({"--size", "16384x6000"}), exitStatus::done) << errors;
}

} // namespace korvel
