#include "commands/CommandFixture.h"
#include "global/GLOBAL.h"
#include "results/ResultsDataSet.h"

#include <gtest/gtest.h>

#include <sstream>

namespace korvel {

namespace {

const std::string readError =
    "There is an error in reading the data for plotting. The file either does not exist, is incomplete, or "
    "is in the "
    "wrong format.  Or it may hold more plotting points than the set maximum of 59999.";

class Info : public CommandFixture {
  protected:
    Info() {
        GLOBAL = {};
        RESULTS = {};
    }
    ~Info() override {
        GLOBAL = {};
        RESULTS = {};
    }

    static ResultsFileBuilder river() {
        return ResultsFileBuilder()
            .title("Ri\"ver\\ \x80")
            .determinand(1, "BOD", 3)
            .reach(1, "Upper Mill", 12.5, 3)
            .point(1, 0, "U/S Weir", 10)
            .setAll(0.1);
    }

    int run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "info");
        return CommandFixture::run(arguments);
    }
};

} // namespace

TEST_F(Info, PrintsEverythingAsOneObject) {
    const std::string file = put("a.sgr", river());
    EXPECT_EQ(run({file, "--points", "--values", "--json"}), 0);
    EXPECT_EQ(errors, "");
    EXPECT_EQ(
        out,
        "{\"loads\": [{\"slot\": 0, \"file\": \"" + file +
            "\", \"loadFailed\": false, \"messages\": []}],\n"
            " \"resultsTitle\": \"Ri\\\"ver\\\\ \xE2\x82\xAC\", \"percentileMode\": 0, \"percentileLevel\": "
            "\"95\", \"percentileCaption\": \"95%-ile\", \"determinandCount\": 1,\n"
            " \"determinandTypes\": [1], \"determinandStatistics\": [3],\n"
            " \"seriesCount\": 2, \"seriesNames\": [\"Flow\", \"BOD (Conc)\", \"BOD (Load)\"],\n"
            " \"seriesMaximum\": [0.1, 0.1, 0.1],\n"
            " \"reachCount\": 1, \"reachOrder\": [1],\n"
            " \"reaches\": [{\"number\": 1, \"name\": \"Upper Mill      \", \"length\": 12.5, \"next\": "
            "3}],\n"
            " \"pointCount\": 1, \"hasInterpolatedPoints\": false, \"plotInterpolatedPoints\": false,\n"
            " \"points\": [[1, 1, 0, \"Weir\", \"U/S\", 10]],\n"
            " \"values\": {\"0\": {\"1\": {\"meanValue\": [0.1, 0.1, 0.1], \"meanLimit1\": [0, 0.1, 0.1], "
            "\"meanLimit2\": [0, 0.1, 0.1], \"observedMean\": [0.1, 0.1, 0.1], \"targetValue\": [0, 0.1, "
            "0.1], \"percentileValues\": [[0.1, 0.1, 0.1], [0.1, 0.1, 0.1], [0.1, 0.1, 0.1]], "
            "\"percentileLimit1\": [[0, 0, 0], [0.1, 0.1, 0.1], [0.1, 0.1, 0.1]], \"percentileLimit2\": "
            "[[0, 0, 0], [0.1, 0.1, 0.1], [0.1, 0.1, 0.1]], \"observedPercentiles\": [[0.1, 0.1, 0.1], "
            "[0.1, 0.1, 0.1], [0.1, 0.1, 0.1]]}}}}\n");
}

TEST_F(Info, LeavesOutPointsAndValuesThatWereNotAskedFor) {
    EXPECT_EQ(run({put("a.sgr", river()), "--json"}), 0);
    EXPECT_EQ(out.find("\"points\""), std::string::npos);
    EXPECT_EQ(out.find("\"values\""), std::string::npos);
}

TEST_F(Info, LoadsInTheOrderGiven) {
    const std::string a = put("a.sgr", river());
    const std::string b = put("b.sgr", river().mode(2));
    EXPECT_EQ(run({a, "--against", b, "--again", b, "--against", a, "--json"}), 0);
    expectHolds("{\"slot\": 0, \"file\": \"" + a +
                "\", \"loadFailed\": false, \"messages\": []}, "
                "{\"slot\": 1, \"file\": \"" +
                b +
                "\", \"loadFailed\": false, \"messages\": [{\"text\": \"2nd data set "
                "uses different percentile mode.\", \"icon\": \"exclamation\", \"title\": \"\"}]}, "
                "{\"slot\": 0, \"file\": \"" +
                b + "\"");
    expectHolds("\"percentileLevel\": \"90\"");
}

TEST_F(Info, PrintsTheValuesOfBothSlots) {
    const std::string a = put("a.sgr", river());
    EXPECT_EQ(run({a, "--against", a, "--json", "--values"}), 0);
    expectHolds("\"values\": {\"0\": {\"1\": {");
    expectHolds("\"1\": {\"1\": {\"meanValue\"");
}

TEST_F(Info, WritesMessagesToTheErrorsAndFollowsTheLastLoad) {
    const std::string a = put("a.sgr", river());
    EXPECT_EQ(run({"/no/such.sgr", "--json"}), 1);
    EXPECT_EQ(errors, "[exclamation] Error: " + readError + "\n");
    expectHolds("\"loadFailed\": true, \"messages\": [{\"text\": \"" + readError +
                "\", \"icon\": \"exclamation\", \"title\": \"Error\"}]");
    EXPECT_EQ(run({"/no/such.sgr", "--again", a, "--json"}), 0);
    EXPECT_EQ(run({a, "--again", "/no/such.sgr", "--json"}), 1);
}

TEST_F(Info, ShowsTheSequenceAfterAnAbandonedSecondFile) {
    const std::string a = put("a.sgr", river());
    const std::string b = put("b.sgr", river().determinand(1, "Other"));
    EXPECT_EQ(run({a, "--against", b, "--again", a, "--again", a}), 0);
    EXPECT_EQ(errors,
              "[exclamation] : 2nd data set has wrong number of determinands.\n[exclamation] Error: " +
                  readError + "\n");
}

TEST_F(Info, PrintsWhatIsThereAfterElevenDeterminands) {
    ResultsFileBuilder file;
    for (int d = 1; d <= 11; ++d)
        file.determinand(d, "D");
    EXPECT_EQ(run({put("eleven.sgr", file), "--json"}), 1);
    expectHolds("\"determinandCount\": 11");
    expectHolds("\"determinandTypes\": [1, 2, 3, 4, 5, 6, 7, 8, 9, 10]");
}

TEST_F(Info, RefusesANameThatIsNoModelName) {
    EXPECT_EQ(run({"a\\b.sgr"}), 1);
    EXPECT_TRUE(errors.starts_with("[exclamation] File name: ")) << errors;
}

TEST_F(Info, PrintsASummaryForAPerson) {
    const std::string file = put("a.sgr", river().title("River").point(1, 2, "Works", 3).setAll(0.25));
    EXPECT_EQ(run({file, "--points", "--values"}), 0);
    EXPECT_EQ(out, "Data file 1  " + file + R"(

River
1 determinand, 1 reach, 2 plotting points; level 95%-ile

Reach  Name        Length  Next  Points
    1  Upper Mill    12.5     3       2

No  Series      Largest value
 0  Flow                 0.25
 1  BOD (Conc)           0.25
 2  BOD (Load)           0.25

Point  Reach  Distance  Side  Type  Label
    1      1         0  U/S     10  Weir
    2      1         2           3  Works

Values of data file 1
Point  Series      Mean    90    95    99  Observed  Target
    1  Flow         0.1   0.1   0.1   0.1       0.1
    1  BOD (Conc)   0.1   0.1   0.1   0.1       0.1     0.1
    1  BOD (Load)   0.1   0.1   0.1   0.1       0.1     0.1
    2  Flow        0.25  0.25  0.25  0.25      0.25
    2  BOD (Conc)  0.25  0.25  0.25  0.25      0.25    0.25
    2  BOD (Load)  0.25  0.25  0.25  0.25      0.25    0.25

)");
}

TEST_F(Info, PrintsNoSummaryOfAFileThatFailed) {
    EXPECT_EQ(run({"/no/such.sgr"}), 1);
    EXPECT_EQ(out, "Data file 1  /no/such.sgr  (failed)\n\n");
}

} // namespace korvel
