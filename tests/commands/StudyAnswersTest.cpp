// What each command that looks at studies answers.
#include "commands/StudyCommandsFixture.h"

namespace korvel {

namespace {

using enum ValueField;

} // namespace

TEST_F(StudyCommands, TableWritesARowAPointSeriesAndStatistic) {
    expectOut({"table", a, "--series", "1,0", "--statistics", "mean", "--reaches", "1"},
              "run,reach,reach_name,distance,to_mouth,feature,side,type,series,statistic,value,low,high,"
              "observed,target\r\n"
              "a.sgr,1,\"Upper, Mill\",0,10,'=Head,,0,Flow,mean,2,,,,\r\n"
              "a.sgr,1,\"Upper, Mill\",0,10,'=Head,,0,BOD (Conc),mean,2,0,0,,4\r\n"
              "a.sgr,1,\"Upper, Mill\",4,6,Mill,,1,Flow,mean,2,,,,\r\n"
              "a.sgr,1,\"Upper, Mill\",4,6,Mill,,1,BOD (Conc),mean,6,5,7,5,4\r\n");
    expectOut({"table", a, b, "--series", "Flow", "--statistics", "99", "--reaches", "2", "--interpolated",
               "--format", "json"},
              "[\n{\"run\":\"a.sgr\",\"reach\":2,\"reach_name\":\"Lower\",\"distance\":0,\"to_mouth\":6,"
              "\"feature\":\"\","
              "\"side\":\"\",\"type\":99,\"series\":\"Flow\",\"statistic\":\"p99\",\"value\":0,\"low\":null,"
              "\"high\":null,"
              "\"observed\":null,\"target\":null},\n"
              "{\"run\":\"b.sgr\",\"reach\":2,\"reach_name\":\"Lower\",\"distance\":0,\"to_mouth\":6,"
              "\"feature\":\"\","
              "\"side\":\"\",\"type\":99,\"series\":\"Flow\",\"statistic\":\"p99\",\"value\":0,\"low\":null,"
              "\"high\":null,"
              "\"observed\":null,\"target\":null}]\n");
}

TEST_F(StudyCommands, TableLeavesTheWayToTheMouthEmptyInACircle) {
    const std::string circle = put("c.sgr", ResultsFileBuilder()
                                                .determinand(1, "BOD")
                                                .reach(1, "A", 5, 2)
                                                .reach(2, "B", 5, 1)
                                                .point(1, 0, "P", 1));
    EXPECT_EQ(run({"table", circle, "--series", "0", "--statistics", "mean"}), 0);
    expectHolds("c.sgr,1,A,0,,P,,1,Flow,mean,");
    EXPECT_EQ(errors, "[exclamation] Network: c.sgr: Reaches 1, 2 run in a circle; to_mouth stays empty.\n");
}

TEST_F(StudyCommands, ChangesTellEachReach) {
    expectOut({"changes", a, b, "--series", "BOD (Conc)", "--format", "json"},
              "{\"base\":\"a.sgr\",\"runs\":[\n{\"run\":\"b.sgr\",\"only_in_base\":0,\"only_in_run\":0,"
              "\n\"reaches\":[\n"
              "{\"reach\":1,\"series\":\"BOD "
              "(Conc)\",\"statistic\":\"mean\",\"base_mean\":4,\"run_mean\":2.5,\"change\":-1.5,"
              "\"percent\":-37.5,\"largest_rise\":null,\"largest_fall\":{\"value\":-3,\"distance\":4,"
              "\"feature\":\"Mill\"},"
              "\"clear_rises\":0,\"clear_falls\":1,\"points\":2},\n"
              "{\"reach\":2,\"series\":\"BOD "
              "(Conc)\",\"statistic\":\"mean\",\"base_mean\":1,\"run_mean\":1,\"change\":0,"
              "\"percent\":0,\"largest_rise\":null,\"largest_fall\":null,\"clear_rises\":0,\"clear_falls\":0,"
              "\"points\":1}]}]}\n");
    expectOut(
        {"changes", a, b, "--series", "1", "--by", "river", "--format", "csv"},
        "run,river,series,statistic,base_mean,run_mean,change,percent,largest_rise_value,largest_rise_reach,"
        "largest_rise_distance,largest_rise_feature,largest_fall_value,largest_fall_reach,largest_fall_"
        "distance,"
        "largest_fall_feature,clear_rises,clear_falls,points\r\n"
        "b.sgr,Lower,BOD (Conc),mean,4,2.5,-1.5,-37.5,,,,,-3,1,4,Mill,0,1,3\r\n");
    expectOut({"changes", a, b, "--series", "1", "--by", "point", "--format", "csv"},
              "run,reach,distance,side,feature,series,statistic,base,value,change,percent,clear\r\n"
              "b.sgr,1,0,,'=Head,BOD (Conc),mean,2,2,0,0,\r\n"
              "b.sgr,1,4,,Mill,BOD (Conc),mean,6,3,-3,-50,fall\r\n");
    EXPECT_EQ(run({"changes", a, b, "--series", "1", "--by", "point", "--interpolated", "--format", "csv"}),
              0);
    expectHolds("b.sgr,2,0,,,BOD (Conc),mean,1,1,0,0,\r\n");
}

TEST_F(StudyCommands, ComplianceTellsEachReach) {
    EXPECT_EQ(run({"compliance", a, b, "--determinands", "BOD", "--format", "json"}), 0);
    expectHolds(
        "{\"low_is_bad\":[],\"runs\":[\n{\"run\":\"a.sgr\",\n\"reaches\":[\n"
        "{\"reach\":1,\"determinand\":\"BOD\",\"statistic\":\"mean\",\"judged_length\":4,\"failing_length\":"
        "2,"
        "\"judged_points\":2,\"failing_points\":1,\"sure_fails\":1,\"sure_passes\":0,\"unsure\":0,"
        "\"verdict\":\"fail\","
        "\"confident_verdict\":\"fail\",\"worst\":{\"distance\":4,\"feature\":\"Mill\",\"value\":6,"
        "\"target\":4,"
        "\"ratio\":1.5},\"needed\":33.333333333333336,\"headroom\":0,\"change\":null},\n"
        "{\"reach\":2,\"determinand\":\"BOD\",\"statistic\":\"mean\",\"judged_length\":0,\"failing_length\":"
        "0,"
        "\"judged_points\":0,\"failing_points\":0,\"sure_fails\":0,\"sure_passes\":0,\"unsure\":0,"
        "\"verdict\":\"\","
        "\"confident_verdict\":\"\",\"worst\":null,\"needed\":null,\"headroom\":null,\"change\":null}],\n"
        "\"overall\":[\n{\"reach\":1,\"verdict\":\"fail\",\"confident_verdict\":\"fail\",\"failing\":["
        "\"BOD\"]},\n"
        "{\"reach\":2,\"verdict\":\"\",\"confident_verdict\":\"\",\"failing\":[]}]}");
    expectHolds("\"needed\":0,\"headroom\":33.333333333333336,\"change\":{\"verdict\":\"fail to pass\","
                "\"failing_length\":-2,\"deteriorated\":false}}");
    expectHolds("\"change\":{\"verdict\":\"same\",\"failing_length\":0,\"deteriorated\":null}}");
    EXPECT_EQ(run({"compliance", a, b, "--determinands", "1", "--format", "csv"}), 0);
    expectHolds(
        "run,reach,determinand,statistic,judged_length,failing_length,judged_points,failing_points,sure_"
        "fails,"
        "sure_passes,unsure,verdict,confident_verdict,worst_distance,worst_feature,worst_value,worst_target,"
        "worst_ratio,needed,headroom,change_verdict,change_failing_length,change_deteriorated\r\n");
    expectHolds("b.sgr,1,BOD,mean,4,0,2,0,0,1,0,pass,unsure,4,Mill,3,4,0.75,0,33.333333333333336,fail to "
                "pass,-2,false\r\n");
    expectHolds("b.sgr,2,BOD,mean,0,0,0,0,0,0,0,,,,,,,,,,same,0,\r\n");
}

TEST_F(StudyCommands, ComplianceListsReachesWhereNothingIsJudged) {
    ResultsFileBuilder file;
    file.determinand(4, "Caffeine", 1).reach(1, "Upper", 4, 2).reach(2, "Lower", 6, 0);
    file.point(1, 0, "Head", 0).setAll(1);
    expectOut({"compliance", put("c.sgr", file), "--format", "json"},
              "{\"low_is_bad\":[],\"runs\":[\n{\"run\":\"c.sgr\",\n\"reaches\":[],\n\"overall\":[\n"
              "{\"reach\":1,\"verdict\":\"\",\"confident_verdict\":\"\",\"failing\":[]},\n"
              "{\"reach\":2,\"verdict\":\"\",\"confident_verdict\":\"\",\"failing\":[]}]}]}\n");
}

TEST_F(StudyCommands, ComplianceAddsUpAndNamesPoints) {
    expectOut({"compliance", a, "--by", "determinand", "--format", "csv"},
              "run,determinand,statistic,judged_length,failing_length,judged_points,failing_points,sure_"
              "fails,sure_passes,"
              "unsure,reaches_failing,reaches_judged\r\n"
              "a.sgr,BOD,mean,4,2,2,1,1,0,0,1,1\r\n"
              "a.sgr,DO,mean,0,0,1,1,0,0,0,1,1\r\n");
    expectOut(
        {"compliance", a, "--by", "river", "--low-is-bad", "none", "--determinands", "DO", "--format",
         "json"},
        "{\"low_is_bad\":[],\"runs\":[\n{\"run\":\"a.sgr\",\n\"rivers\":[\n{\"river\":\"Lower\","
        "\"determinand\":\"DO\","
        "\"statistic\":\"mean\",\"judged_length\":0,\"failing_length\":0,\"judged_points\":1,\"failing_"
        "points\":0,"
        "\"sure_fails\":0,\"sure_passes\":0,\"unsure\":0,\"reaches_failing\":0,\"reaches_judged\":1}]}]}\n");
    expectOut({"compliance", a, "--by", "point", "--format", "csv"},
              "run,reach,distance,side,feature,determinand,statistic,value,low,high,target,ratio,verdict,"
              "confident\r\n"
              "a.sgr,1,0,,'=Head,BOD,mean,2,0,0,4,0.5,pass,\r\n"
              "a.sgr,1,4,,Mill,BOD,mean,6,5,7,4,1.5,fail,fail\r\n"
              "a.sgr,1,4,,Mill,DO,mean,8,0,0,10,1.25,fail,\r\n");
    expectOut({"compliance", a, "--by", "station", "--format", "json"},
              "{\"low_is_bad\":[\"DO\"],\"runs\":[\n{\"run\":\"a.sgr\",\n\"stations\":[\n{\"reach\":1,"
              "\"distance\":4,"
              "\"feature\":\"Mill\",\"determinand\":\"BOD\",\"statistic\":\"mean\",\"value\":6,\"observed\":"
              "5,\"target\":4,"
              "\"verdict\":\"fail\",\"observed_verdict\":\"fail\"}],"
              "\"agreement\":{\"pass\":0,\"fail\":1,\"model_only\":0,\"observed_only\":0}}]}\n");
}

TEST_F(StudyCommands, FitTellsWhatWasObserved) {
    const std::string figures =
        "\"series\":\"BOD (Conc)\",\"statistic\":\"mean\",\"n\":1,\"mean_error\":1,\"pbias\":20,"
        "\"mean_absolute_error\":1,\"rmse\":1,\"nse\":null,\"r2\":null,\"typical_factor\":1.2,"
        "\"within_limits\":1,\"bounded\":1}]}]}\n";
    expectOut({"fit", a, "--format", "json"}, "{\"runs\":[\n{\"run\":\"a.sgr\",\n\"series\":[\n{" + figures);
    expectOut({"fit", a, "--format", "json", "--by", "reach"},
              "{\"runs\":[\n{\"run\":\"a.sgr\",\n\"reaches\":[\n{\"reach\":1," + figures);
    expectOut({"fit", a, "--format", "json", "--by", "river"},
              "{\"runs\":[\n{\"run\":\"a.sgr\",\n\"rivers\":[\n{\"river\":\"Lower\"," + figures);
    expectOut({"fit", a, "--format", "csv", "--by", "point"},
              "run,reach,distance,feature,series,statistic,observed,value,low,high,error,percent\r\n"
              "a.sgr,1,4,Mill,BOD (Conc),mean,5,6,5,7,1,20\r\n");
    expectOut({"fit", a, "--format", "csv", "--reaches", "none"},
              "run,series,statistic,n,mean_error,pbias,mean_absolute_error,rmse,nse,r2,typical_factor,within_"
              "limits,bounded\r\n");
}

TEST_F(StudyCommands, SourcesTellWhereALoadComesFrom) {
    expectOut(
        {"sources", a, "--determinand", "BOD", "--format", "json"},
        "{\"runs\":[\n{\"run\":\"a.sgr\",\"determinand\":\"BOD\",\"at\":{\"reach\":2,\"distance\":0},"
        "\"load\":25,\n"
        "\"sources\":[\n{\"kind\":\"diffuse\",\"name\":\"Along Upper, "
        "Mill\",\"reach\":1,\"distance\":null,\"load\":15,"
        "\"arrives\":15,\"share\":60},\n"
        "{\"kind\":\"headwater\",\"name\":\"Head of Upper, Mill\",\"reach\":1,\"distance\":0,\"load\":10,"
        "\"arrives\":10,\"share\":40}],\n\"losses\":[]}]}\n");
    expectOut({"sources", a, "--determinand", "1", "--at", "1:3.9", "--by", "kind", "--format", "csv"},
              "run,determinand,at_reach,at_distance,kind,load,arrives,share\r\na.sgr,BOD,1,0,headwater,10,10,"
              "100\r\n");
    expectOut({"sources", a, "--determinand", "Flow", "--at", "1", "--format", "csv"},
              "run,determinand,at_reach,at_distance,kind,name,reach,distance,load,arrives,share\r\n"
              "a.sgr,Flow,1,4,headwater,\"Head of Upper, Mill\",1,0,2,2,100\r\n");
}

TEST_F(StudyCommands, SourcesListLossesBehindThem) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "A", 4, 0);
    file.point(1, 0, "P", 0).setAll(0).set(meanValue, 2, 10);
    file.point(1, 4, "Q", 0).setAll(0).set(meanValue, 2, 4);
    const std::string loss = put("loss.sgr", file);
    expectOut({"sources", loss, "--determinand", "BOD", "--format", "csv"},
              "run,determinand,at_reach,at_distance,kind,name,reach,distance,load,arrives,share\r\n"
              "loss.sgr,BOD,1,4,headwater,Head of A,1,0,10,4,100\r\n"
              "loss.sgr,BOD,1,4,loss,Along A,1,,6,,\r\n");
}

TEST_F(StudyCommands, NetworkTellsHowReachesRunTogether) {
    expectOut(
        {"network", a, "--format", "json"},
        "{\"reaches\":[\n{\"number\":1,\"name\":\"Upper, "
        "Mill\",\"length\":4,\"next\":2,\"to_mouth\":6,\"river\":0,\"points\":2},\n"
        "{\"number\":2,\"name\":\"Lower\",\"length\":6,\"next\":0,\"to_mouth\":0,\"river\":0,\"points\":1}],"
        "\"rivers\":[\n{\"name\":\"Lower\",\"reaches\":[1,2],\"joins\":null,\"length\":10}],\n\"mouths\":[2],"
        "\n\"heads\":[1]}\n");
    const std::string open = put("open.sgr", ResultsFileBuilder().determinand(1, "BOD").reach(1, "A", 5, 9));
    EXPECT_EQ(run({"network", open}), 0);
    EXPECT_EQ(errors, "[exclamation] Network: open.sgr: reach 1 runs into reach 9, which has no line; it is "
                      "taken for a mouth.\n");
}

TEST_F(StudyCommands, CheckTellsWhatLooksWrong) {
    EXPECT_EQ(run({"check", a, "--format", "json"}), 0);
    expectHolds("{\"run\":\"a.sgr\",\"findings\":[\n{\"kind\":\"mean_above_p99\",\"count\":8,\"places\":[\n"
                "{\"reach\":1,\"distance\":0,\"feature\":\"=Head\",\"series\":\"BOD (Conc)\",\"what\":\"the "
                "mean is 2, the 99 percentile 0\"},");
    expectHolds("{\"kind\":\"target_without_station\",\"count\":1,\"places\":[\n{\"reach\":1,\"distance\":"
                "null,\"feature\":null,"
                "\"series\":\"DO (Conc)\",\"what\":");
    const std::string clean =
        put("clean.sgr", ResultsFileBuilder().determinand(1, "BOD").reach(1, "A").point(1, 0, "P").setAll(0));
    expectOut({"check", clean, "--format", "json"}, "{\"run\":\"clean.sgr\",\"findings\":[]}\n");
}

// Birch Beck of the sample catchment, as a results file holds it: zinc's 95 percentile against its target of
// 0.075 from the head (0 km) to the end (8.4 km), with the plating works at 7.14 km.
TEST_F(StudyCommands, BirchBeckWorkedThroughByHand) {
    const struct {
        double km, value, low, high;
        const char* label;
    } points[] = {
        {0, 0.0425876, 0.0348984, 0.0519711, "Head of Birch Beck"},
        {0.59, 0.0408082, 0.0339471, 0.0490561, "U/S Norwick Storm Overflow"},
        {0.59, 0.0449678, 0.0371982, 0.0543601, "D/S Norwick Storm Overflow"},
        {2.29, 0.0410879, 0.0357017, 0.0472867, "D/S Ulstead STW"},
        {4.55, 0.0393314, 0.0342908, 0.0451129, "D/S Wendgate Storm Overflow"},
        {6.01, 0.0381797, 0.033393, 0.0436526, "Bramby Gauge"},
        {7.14, 0.0379023, 0.0331959, 0.0432759, "U/S Bramton Plating Works"},
        {7.14, 0.107643, 0.0872714, 0.13277, "D/S Bramton Plating Works"},
        {7.91, 0.104769, 0.0850641, 0.129039, "Birch Beck at Kelwick"},
        {8.4, 0.10269, 0.0834539, 0.126361, "End of reach"},
    };
    ResultsFileBuilder file;
    file.determinand(1, "Zinc", 2).reach(11, "Birch Beck", 8.4, 0); // code 2: the 95 percentile is judged
    for (const auto& point : points) {
        file.point(11, point.km, point.label, 1).setAll(0).set(targetValue, 1, 0.075);
        file.set(percentileValues, 1, point.value, 1);
        file.set(percentileLimit1, 1, point.low, 1).set(percentileLimit2, 1, point.high, 1);
    }
    EXPECT_EQ(run({"compliance", put("beck.sgr", file), "--format", "json"}), 0) << errors;

    // Every interval begins at a point with a target, so that all 8.4 km are judged. Down to 7.14 km every
    // value is below 0.075, and the step at the works has no length; from there to the end every value is
    // above: 8.4 - 7.14 = 1.26 km fail.
    EXPECT_NEAR(numberAfter("judged_length"), 8.4, 1e-12);
    EXPECT_NEAR(numberAfter("failing_length"), 1.26, 1e-12);
    // Three of the ten points lie above. Their lower limits, 0.0835 and more, do too: sure fails. The upper
    // limits of the others, 0.0544 at most, lie below: sure passes.
    EXPECT_EQ(numberAfter("judged_points"), 10);
    EXPECT_EQ(numberAfter("failing_points"), 3);
    EXPECT_EQ(numberAfter("sure_fails"), 3);
    EXPECT_EQ(numberAfter("sure_passes"), 7);
    EXPECT_EQ(numberAfter("unsure"), 0);
    // The worst is the works' own: 0.107643 / 0.075 = 1.43524. It must fall by 0.032643 of 0.107643, which is
    // 30.325 %.
    expectHolds("\"worst\":{\"distance\":7.14,\"feature\":\"Bramton Plating "
                "Works\",\"value\":0.107643,\"target\":0.075,");
    EXPECT_NEAR(numberAfter("ratio"), 1.43524, 1e-9);
    EXPECT_NEAR(numberAfter("needed"), 30.325, 0.0005);
    EXPECT_EQ(numberAfter("headroom"), 0);
    expectHolds("\"verdict\":\"fail\",\"confident_verdict\":\"fail\"");
}

TEST_F(StudyCommands, TellTheReachOfARiversLargestChange) {
    EXPECT_EQ(run({"changes", a, b, "--by", "river", "--series", "1"}), 0);
    expectHolds("-3.000 at reach 1, 4 km, Mill");
    EXPECT_EQ(run({"changes", a, b, "--series", "1"}), 0);
    expectHolds("-3.000 at 4 km, Mill");
}

TEST_F(StudyCommands, NameReach0AsAReach) {
    const auto file = [](double bod) {
        return ResultsFileBuilder()
            .determinand(1, "BOD", 1)
            .reach(0, "Zero", 4)
            .point(0, 0, "P")
            .set(meanValue, 1, bod);
    };
    EXPECT_EQ(run({"changes", put("c.sgr", file(1)), put("d.sgr", file(2)), "--series", "1"}), 0);
    expectHolds("0 Zero  BOD (Conc)");
}

TEST_F(StudyCommands, SayWhatPercentilesOfFlowAre) {
    const std::string words = "Percentiles of flow are the file's as they stand";
    EXPECT_EQ(run({"fit", a}), 0);
    expectHolds(words);
    for (const std::vector<std::string>& call :
         {std::vector<std::string>{"fit", a, "--statistics", "mean"}, {"fit", a, "--series", "1"}}) {
        EXPECT_EQ(run(call), 0);
        EXPECT_EQ(out.find(words), std::string::npos);
    }
}

TEST_F(StudyCommands, SayWhosePercentileIsJudgedWhereLowIsBad) {
    const std::string words = "of whichever tail the engine wrote";
    EXPECT_EQ(run({"compliance", put("c.sgr", ResultsFileBuilder().determinand(1, "DO", 3).reach(1, "A"))}),
              0);
    expectHolds(words);
    EXPECT_EQ(run({"compliance", a}), 0); // by its mean
    EXPECT_EQ(out.find(words), std::string::npos);
}

TEST_F(StudyCommands, HeadSourcesOfFlowByFlow) {
    EXPECT_EQ(run({"sources", a, "--determinand", "Flow"}), 0);
    expectHolds("distance   flow  arrives");
    EXPECT_EQ(run({"sources", a, "--determinand", "BOD"}), 0);
    expectHolds("load  arrives");
    EXPECT_EQ(run({"sources", a, "--determinand", "Flow", "--format", "csv"}), 0);
    expectHolds("distance,load,arrives");
}

} // namespace korvel
