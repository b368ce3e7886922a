#include "results/PointLabels.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

PointLabel made(const std::string& label) {
    return makePointLabel(label, [] { return std::string("  Upper Mill      "); });
}

} // namespace

TEST(PointLabels, DropsTheLastThreeCharactersAlways) {
    EXPECT_EQ(labelInFile("Weir 123"), "Weir ");
    EXPECT_EQ(labelInFile("abc"), "");
    EXPECT_EQ(labelInFile("abcd"), "a");
}

TEST(PointLabels, MakesALabelOfFewerThanThreeCharactersEmpty) {
    EXPECT_EQ(labelInFile("ab"), "");
    EXPECT_EQ(labelInFile(""), "");
}

TEST(PointLabels, TakesTheSideOffTheLabel) {
    EXPECT_EQ(made("U/S Weir"), (PointLabel{"Weir", "U/S"}));
    EXPECT_EQ(made("D/S Weir"), (PointLabel{"Weir", "D/S"}));
    EXPECT_EQ(made("  U/SWeir  "), (PointLabel{"Weir", "U/S"}));
    EXPECT_EQ(made("U/S"), (PointLabel{"", "U/S"}));
    EXPECT_EQ(made("U/S D/S Weir"), (PointLabel{"D/S Weir", "U/S"}));
}

TEST(PointLabels, KnowsTheSideInExactCaseOnly) {
    EXPECT_EQ(made("u/s Weir"), (PointLabel{"u/s Weir", ""}));
    EXPECT_EQ(made("Weir U/S"), (PointLabel{"Weir U/S", ""}));
}

TEST(PointLabels, NamesTheReachAtItsEnds) {
    EXPECT_EQ(made("end of reach"), (PointLabel{"End of reach Upper Mill", ""}));
    EXPECT_EQ(made("END OF REACH 12 and more"), (PointLabel{"End of reach Upper Mill", ""}));
    EXPECT_EQ(made("Start of Reach 12"), (PointLabel{"Start of reach Upper Mill", ""}));
    EXPECT_EQ(made("D/S End of reaches"), (PointLabel{"End of reach Upper Mill", "D/S"}));
}

TEST(PointLabels, AsksForTheReachOnlyWhereTheLabelNamesIt) {
    const auto never = []() -> std::string { throw std::logic_error("asked"); };
    for (const char* label : {"end of reac", "Start of reac", "the end of reach", "Weir", ""})
        EXPECT_EQ(makePointLabel(label, never).text, label);
}

} // namespace korvel
