#include "engine/RunControl.h"

#include "engine/RunTypes.h"

#include <gtest/gtest.h>

#include <set>

namespace korvel {

using namespace engine;

namespace {

RunControl readControl(const std::string& text) {
    return std::get<RunControl>(parseRunControl(text));
}

} // namespace

TEST(RunControl, ReadsASingleRun) {
    const RunControl control = readControl("SINGLE\r\nZ:\\DATA\\\r\nZ:\\DATA\\TEST.DAT\r\n 3 \r\n");
    EXPECT_EQ(control.batchTitle, "");
    ASSERT_EQ(control.requests.size(), 1u);
    EXPECT_EQ(control.requests[0].dataFile, "Z:\\DATA\\TEST.DAT");
    EXPECT_EQ(control.requests[0].runType, 3);
}

TEST(RunControl, ReadsABatchToTheEndOfTheFile) {
    const RunControl control =
        readControl("My runs\r\nZ:\\D\\\r\nZ:\\D\\A.DAT\r\n 8 \r\nZ:\\D\\\r\nZ:\\D\\B.DAT\r\n 0 \r\n");
    EXPECT_EQ(control.batchTitle, "My runs");
    ASSERT_EQ(control.requests.size(), 2u);
    EXPECT_EQ(control.requests[1].dataFile, "Z:\\D\\B.DAT");
    EXPECT_EQ(control.requests[0].runType, 8);
}

TEST(RunControl, TakesABatchOfTheNameSingleForWhatItIs) {
    EXPECT_EQ(readControl("SINGLE\nF\nA.DAT\n0\nF\nB.DAT\n0\n").batchTitle, "SINGLE");
    EXPECT_EQ(readControl("SINGLE\nF\nA.DAT\n0\n\n \n\x1A").batchTitle, "");
}

TEST(RunControl, NamesTheLineThatIsWrong) {
    const std::pair<const char*, int> rows[] = {
        {"", 0},
        {"SINGLE\n", 1},
        {"SINGLE\nF\nA.DAT\n", 3},
        {"SINGLE\nF\n\n 0\n", 3},
        {"SINGLE\nF\nA.DAT\n 10 \n", 4},
        {"SINGLE\nF\nA.DAT\nx\n", 4},
        {"-\nF\nA.DAT\n 0 \nF\nB.DAT\n", 6},
    };
    for (const auto& [text, line] : rows) {
        const auto result = parseRunControl(text);
        ASSERT_TRUE(std::holds_alternative<DataError>(result)) << text;
        EXPECT_EQ(std::get<DataError>(result).line, line) << text;
    }
}

TEST(RunTypes, AreTenOfDifferentNames) {
    std::set<std::string> names;
    for (int type = 0; type <= 9; ++type)
        names.insert(runPlan(type).name);
    EXPECT_EQ(names.size(), 10u);
    const std::set<int> usingFlows{2, 3, 4, 7, 8, 9}, usingQualities{4, 7, 8, 9};
    for (int type = 0; type <= 9; ++type) {
        EXPECT_EQ(runPlan(type).usesKeptFlows, usingFlows.contains(type)) << type;
        EXPECT_EQ(runPlan(type).usesKeptQualities, usingQualities.contains(type)) << type;
        EXPECT_EQ(runPlan(type).standards.has_value(), type >= 7) << type;
    }
    EXPECT_THROW(runPlan(10), std::out_of_range);
}

} // namespace korvel
