#include "study/RunNames.h"

#include <gtest/gtest.h>

namespace korvel {

using Names = std::vector<std::string>;

TEST(RunNames, AreShortAsLongAsTheyDiffer) {
    const struct {
        Names files;
        Names names;
    } cases[] = {
        {{"Z:\\r\\A.SGR"}, {"A.SGR"}},
        {{"Z:\\r\\A.SGR", "Z:\\r\\B.SGR"}, {"A.SGR", "B.SGR"}},
        {{"Z:\\r\\A.SGR", "Z:\\r\\a.sgr"}, {"A.SGR", "a.sgr"}},
        {{"Z:\\r\\one\\A.SGR", "Z:\\r\\two\\A.SGR", "Z:\\r\\B.SGR"}, {"one/A.SGR", "two/A.SGR", "B.SGR"}},
        {{"Z:\\p\\x\\A.SGR", "Z:\\q\\x\\A.SGR", "Z:\\q\\y\\A.SGR"}, {"p/x/A.SGR", "q/x/A.SGR", "y/A.SGR"}},
        // A folder whose name only ends alike is another one.
        {{"Z:\\1\\A.SGR", "Z:\\21\\A.SGR"}, {"1/A.SGR", "21/A.SGR"}},
        // One path is the end of the other.
        {{"Z:\\A.SGR", "Z:\\r\\A.SGR"}, {"/A.SGR", "r/A.SGR"}},
    };
    for (const auto& [files, names] : cases)
        EXPECT_EQ(runNames(files), names);
}

TEST(RunNames, CountTheSameFile) {
    EXPECT_EQ(runNames({"Z:\\A.SGR", "Z:\\A.SGR", "Z:\\A.SGR"}), (Names{"A.SGR", "A.SGR (2)", "A.SGR (3)"}));
    EXPECT_EQ(runNames({"Z:\\x\\A.SGR", "Z:\\y\\A.SGR", "Z:\\x\\A.SGR"}),
              (Names{"x/A.SGR", "y/A.SGR", "x/A.SGR (2)"}));
}

// A plan may stand for as many runs; file by file against all others took minutes.
TEST(RunNames, TellManyFilesApartSoon) {
    Names files, expected;
    for (int k = 0; k < 100'000; ++k) {
        const std::string folder = std::to_string(k);
        files.push_back("Z:\\runs\\" + folder + "\\A.SGR");
        expected.push_back(folder + "/A.SGR");
    }
    files.push_back(files.front());
    expected.push_back("0/A.SGR (2)");
    EXPECT_EQ(runNames(files), expected);
}

} // namespace korvel
