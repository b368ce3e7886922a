#include "platform/OwnInput.h"

#include "platform/DiskFiles.h"
#include "platform/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class OwnInput : public testing::Test {
  protected:
    OwnInput() {
        folder.put("river.sgr", "results");
        folder.put("other.sgr", "results");
        std::filesystem::create_symlink("river.sgr", folder.path("symbolic"));
        std::filesystem::create_hard_link(folder.path("river.sgr"), folder.path("hard"));
        std::filesystem::create_directory_symlink(folder.path(), folder.path("again"));
        std::filesystem::create_symlink("none.sgr", folder.path("loose"));
    }
    bool replaces(const std::string& output) {
        return replacesInput(files, output, {"", folder.model("river.sgr")});
    }

    TemporaryFolder folder;
    DiskFiles files;
};

} // namespace

TEST_F(OwnInput, IsFoundByEverySpellingAndLink) {
    for (const char* name : {"river.sgr", "RIVER.SGR", "symbolic", "hard", "again\\river.sgr"})
        EXPECT_TRUE(replaces(folder.model() + "\\" + name)) << name;
}

TEST_F(OwnInput, IsNoOtherFileAndNoneThatIsNotThere) {
    for (const char* name : {"other.sgr", "none.sgr", "loose", "again"})
        EXPECT_FALSE(replaces(folder.model() + "\\" + name)) << name;
    EXPECT_FALSE(replaces(""));
    EXPECT_FALSE(replacesInput(files, folder.model("none.sgr"), {folder.model("none.sgr")}));
}

TEST_F(OwnInput, IsToldInOneBox) {
    EXPECT_EQ(outputWouldReplaceInput(),
              (Message{"The output would replace the input.", "File name", Icon::exclamation, Buttons::ok}));
}

} // namespace korvel
