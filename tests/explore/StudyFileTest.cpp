#include "explore/StudyFile.h"
#include "explore/ThreeReaches.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

const char* const folder = "/home/ann/river";

StudyFile fullStudy() {
    StudyFile study;
    study.runs = {{"/home/ann/river/a.sgr", false}, {"/home/ann/other/b.sgr", true}};
    study.from = 2;
    study.to = 3;
    study.visible = ExploreStretch{1.5, 4};
    study.view = ExploreView::change;
    study.series = {"Flow", "BOD (Conc)"};
    study.statistic = Statistic::p95;
    study.scale = ScaleKind::logarithmic;
    study.fromZero = false;
    study.targets = false;
    study.interpolated = false;
    study.lowIsBad = {"DO"};
    return study;
}

StudyFile readBack(const std::string& text, const std::string& from = folder) {
    ReadStudyFile read = readStudyFile(text, from);
    EXPECT_EQ(read.problem, "");
    StudyFile study = read.study.value_or(StudyFile());
    study.origin = "{}";
    return study;
}

std::string problemOf(const std::string& text) {
    return readStudyFile(text, folder).problem;
}

} // namespace

TEST(StudyFile, IsReadBackAsItWasSaved) {
    EXPECT_EQ(readBack(studyFileText(fullStudy(), folder)), fullStudy());
    EXPECT_EQ(readBack(studyFileText(StudyFile(), folder)), StudyFile());
}

TEST(StudyFile, KeepsPathsRelativeSoThatItCanBeMovedWithItsRuns) {
    const std::string text = studyFileText(fullStudy(), folder);
    EXPECT_NE(text.find("\"a.sgr\""), std::string::npos) << text;
    EXPECT_NE(text.find("\"../other/b.sgr\""), std::string::npos) << text;
    const StudyFile moved = readBack(text, "/mnt/stick/river/");
    EXPECT_EQ(moved.runs.at(0).file, "/mnt/stick/river/a.sgr");
    EXPECT_EQ(moved.runs.at(1).file, "/mnt/stick/other/b.sgr");
}

TEST(StudyFile, KeepsWhatItDoesNotKnow) {
    const std::string text = R"({"korvel_study": 1, "author": "Ann", "path": {"from": 1, "to": 3, "via": 2},
        "runs": [{"file": "a.sgr", "note": "the best"}]})";
    StudyFile study = readStudyFile(text, folder).study.value();
    study.from = 2;
    const std::string saved = studyFileText(study, folder);
    for (const char* part : {"\"author\": \"Ann\"", "\"via\": 2", "\"note\": \"the best\"", "\"from\": 2"})
        EXPECT_NE(saved.find(part), std::string::npos) << part << " in " << saved;
}

TEST(StudyFile, TellsTheLineOfWhatIsWrong) {
    const std::string start = "{\"korvel_study\": 1,\n";
    const std::pair<std::string, std::string> cases[] = {
        {"", "line 1: this can't be read"},
        {start + "\"runs\": [\n", "line 3: this can't be read"},
        {start + "\n\"view\": \"sideways\"}", "line 3: \"sideways\" is no view"},
        {start + "\"runs\": 5}", "line 2: \"runs\" is not what it should be"},
        {start + "\"runs\": [{}]}", "line 2: a run has no file"},
        {start + "\"path\": {\"from\": \"here\"}}", "line 2: \"from\" is not what it should be"},
        {start + "\"path\": 3}", "line 2: \"path\" is not what it should be"},
        {start + "\"statistic\": \"98\"}", "line 2: there is no such statistic"},
        {start + "\"visible\": [3, 1]}", "line 2: \"visible\" is no stretch of the path"},
        {"{\n\"korvel_study\": 2}", "line 2: the study was saved by a later version of the program"},
        {"{}", "line 1: this is no study"},
        {"[]", "line 1: this is no study"},
    };
    for (const auto& [text, problem] : cases)
        EXPECT_EQ(problemOf(text), problem) << text;
}

TEST(StudyFile, RefusesMoreRunsThanAStudyHolds) {
    StudyFile study;
    study.runs.assign(13, {"/home/ann/river/a.sgr", false});
    EXPECT_EQ(problemOf(studyFileText(study, folder)), "line 3: there are more than 12 runs");
}

TEST(StudyFile, ShowsWhatWasShown) {
    ExploreState state = stateOf("ab");
    state.from = 2;
    state.visible = ExploreStretch{1, 3};
    state.view = ExploreView::ratio;
    state.series = {0, 2, 5};
    state.lowIsBad = std::set<int>{3};
    state.hidden = {1};
    state.limits = false;
    const StudyFile study = studyFileOf(state, "{}");
    EXPECT_EQ(study.runs, (std::vector<StudyFileRun>{{"/data/a.sgr", false}, {"/data/b.sgr", true}}));
    EXPECT_EQ(study.series, (std::vector<std::string>{"Flow", "Ammonia (Conc)", "BOD (Load)"}));
    EXPECT_EQ(study.lowIsBad, (std::vector<std::string>{"DO"}));

    ExploreState again = stateOf("ab");
    showAs(again, study);
    EXPECT_EQ(studyFileOf(again, "{}"), study);
}

TEST(StudyFile, LeavesOutWhatTheRunsDoNotHave) {
    StudyFile study;
    study.from = 77;
    study.to = 3;
    study.visible = ExploreStretch{1, 3};
    study.series = {"Zinc (Conc)"};
    ExploreState state = stateOf("a");
    showAs(state, study);
    EXPECT_EQ(state.from, 1);
    EXPECT_EQ(state.visible, std::nullopt);
    EXPECT_EQ(state.series, (std::vector<int>{0, 1, 2, 3}));
}

TEST(StudyFile, HidesTheRightRunsWhereOneIsMissing) {
    StudyFile study;
    study.runs = {
        {"/data/a.sgr", true}, {"/data/lost.sgr", true}, {"/data/b.sgr", false}, {"/data/c.sgr", true}};
    ExploreState state = stateOf("abc");
    showAs(state, study);
    EXPECT_EQ(lettersOf(state), "AbC");
}

TEST(StudyFile, IsKnownByItsExtension) {
    EXPECT_TRUE(isStudyFile("Alder.Korvel-Study"));
    EXPECT_FALSE(isStudyFile("alder.sgr"));
    EXPECT_FALSE(isStudyFile("korvel-study"));
}

} // namespace korvel
