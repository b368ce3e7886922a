#include "toolkit/process/ToolCalls.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

TEST(ToolCalls, TellsStatusOutputAndErrors) {
    const auto end = ToolCalls().run({"sh", "-c", "echo \"$1\"; echo bad >&2; exit 3", "sh", "a b"});
    ASSERT_TRUE(end);
    EXPECT_EQ(end->status, 3);
    EXPECT_EQ(end->output, "a b\n");
    EXPECT_EQ(end->errors, "bad\n");
}

TEST(ToolCalls, TakesMuchOutputOfBothKinds) {
    const auto end = ToolCalls().run({"sh", "-c", "head -c 300000 /dev/zero >&2; head -c 200000 /dev/zero"});
    ASSERT_TRUE(end);
    EXPECT_EQ(end->output.size(), 200000U);
    EXPECT_EQ(end->errors.size(), 300000U);
}

TEST(ToolCalls, KnowsThatThereIsNoSuchProgram) {
    EXPECT_FALSE(ToolCalls().run({"no-program-of-this-name"}));
}

} // namespace

} // namespace korvel
