#include "study/Study.h"
#include "fakes/FakePlatform.h"
#include "fakes/StudySample.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace korvel {

namespace {

ResultsFileBuilder river() {
    return ResultsFileBuilder()
        .determinand(1, "BOD", 1)
        .determinand(2, "Ammonia", 3)
        .reach(1, "Upper", 10, 3)
        .reach(2, "Side", 5, 3)
        .reach(3, "Lower", 8, 0)
        .point(1, 0, "Weir");
}

ResultsFileBuilder twoReaches(int first, int second, double length = 10, int next = 0) {
    return ResultsFileBuilder()
        .determinand(1, "BOD")
        .reach(first, "A", 10, 0)
        .reach(second, "B", length, next);
}

std::optional<std::string> refusal(const ResultsFileBuilder& base, const ResultsFileBuilder& later) {
    Study study;
    EXPECT_EQ(study.add(runOf(base, "Z:\\A.SGR")), std::nullopt);
    const auto refusal = study.add(runOf(later, "Z:\\B.SGR"));
    EXPECT_EQ(study.runs().size(), refusal ? 1u : 2u);
    return refusal;
}

} // namespace

TEST(Study, TakesRunsThatDifferInWhatMayDiffer) {
    const auto other = ResultsFileBuilder()
                           .title("Another")
                           .mode(2)
                           .determinand(1, "BOD", 6)
                           .determinand(2, "Ammonia", 1)
                           .reach(3, "Renamed", 8, 0) // another order, too
                           .reach(1, "Upper", 10, 3)
                           .reach(2, "Side", 5, 3)
                           .point(2, 1, "Mill")
                           .point(2, 2, "End");
    EXPECT_EQ(refusal(river(), other), std::nullopt);
}

TEST(Study, SaysInWhatRunsDifferFirst) {
    const auto oneDeterminand = [] { return ResultsFileBuilder().determinand(1, "BOD"); };
    const struct {
        ResultsFileBuilder base, later;
        const char* what;
    } cases[] = {
        {oneDeterminand().reach(1, "A"), river(), "the number of determinands (1 and 2)"},
        {river(), ResultsFileBuilder().determinand(1, "BOD").determinand(3, "Ammonia"), "determinand 2"},
        {river(), ResultsFileBuilder().determinand(1, "BOD.").determinand(2, "Ammonia"), "determinand 1"},
        {twoReaches(1, 2), oneDeterminand().reach(1, "A"), "reach 2 (only in A.SGR)"},
        {oneDeterminand().reach(1, "A"), twoReaches(1, 2), "reach 2 (only in B.SGR)"},
        {twoReaches(1, 2), twoReaches(1, 3), "reach 2 (only in A.SGR)"},
        {twoReaches(1, 2), twoReaches(1, 2, 11, 1), "the length of reach 2"},
        {twoReaches(1, 2), twoReaches(1, 2, 10, 1), "the next reach of reach 2"},
        // In the base's order, and what is missing in its turn.
        {twoReaches(2, 1), oneDeterminand().reach(1, "A", 11), "reach 2 (only in A.SGR)"},
        {twoReaches(1, 2), oneDeterminand().reach(1, "A", 11), "the length of reach 1"},
    };
    for (const auto& [base, later, what] : cases)
        EXPECT_EQ(refusal(base, later), std::string("A.SGR and B.SGR differ in ") + what);
}

TEST(Study, OfTwoLinesForAReachTakesTheLastAtTheFirstOnesPlace) {
    const auto twice = ResultsFileBuilder()
                           .determinand(1, "BOD")
                           .reach(1, "First", 99, 7)
                           .reach(2, "B", 10, 0)
                           .reach(1, "Last", 10, 0);
    EXPECT_EQ(refusal(twoReaches(1, 2), twice), std::nullopt);
    const SharedRun run = runOf(twice);
    EXPECT_EQ(run->reaches.numbers(), (std::vector<int>{1, 2}));
    EXPECT_EQ(run->reachName(1), "Last");
}

TEST(Study, NamesItsRunsAnewWithEachThatJoins) {
    Study study;
    study.add(runOf(river(), "Z:\\one\\A.SGR"));
    EXPECT_EQ(study.base().name, "A.SGR");
    study.add(runOf(river(), "Z:\\two\\A.SGR"));
    EXPECT_EQ(study.base().name, "one/A.SGR");
    const auto refusal = study.add(runOf(twoReaches(1, 2), "Z:\\A.SGR"));
    EXPECT_EQ(refusal, "one/A.SGR and /A.SGR differ in the number of determinands (2 and 1)");
    EXPECT_EQ(study.runs().size(), 2u);
}

TEST(LoadStudy, ReadsFilesInTheirOrder) {
    FakePlatform fake;
    std::vector<std::string> files;
    for (const char* name : {"a.sgr", "b.sgr", "c.sgr", "d.sgr", "e.sgr"}) {
        fake.putFile(name, river().title(name).text());
        files.push_back(fake.pathOf(name));
    }
    std::vector<double> shares;
    const LoadedStudy loaded =
        loadStudy(fake.platform().files, files, [&](double share) { shares.push_back(share); });
    EXPECT_EQ(loaded.refusal, std::nullopt);
    ASSERT_EQ(loaded.study.runs().size(), 5u);
    for (const StudyRun& run : loaded.study.runs())
        EXPECT_EQ(run.name, run.results().resultsTitle);
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_NEAR(shares.back(), 1, 1e-9);
}

TEST(LoadStudy, NamesTheFileThatCannotBeRead) {
    FakePlatform fake;
    fake.putFile("a.sgr", river().text());
    fake.putFile("b.sgr", "River\n");
    const LoadedStudy loaded = loadStudy(fake.platform().files, {fake.pathOf("a.sgr"), fake.pathOf("b.sgr")});
    ASSERT_TRUE(loaded.refusal);
    EXPECT_EQ(loaded.refusal->title, "Error");
    EXPECT_EQ(loaded.refusal->text.find("b.sgr: There is an error in reading the data for plotting."), 0u);
}

TEST(LoadStudy, RefusesRunsThatCannotStandTogether) {
    FakePlatform fake;
    fake.putFile("a.sgr", river().text());
    fake.putFile("b.sgr", twoReaches(1, 2).text());
    const LoadedStudy loaded = loadStudy(fake.platform().files, {fake.pathOf("a.sgr"), fake.pathOf("b.sgr")});
    EXPECT_EQ(loaded.refusal, (Message{"a.sgr and b.sgr differ in the number of determinands (2 and 1)",
                                       "Study", Icon::exclamation, Buttons::ok}));
}

} // namespace korvel
