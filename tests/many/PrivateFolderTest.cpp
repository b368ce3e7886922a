#include "many/PrivateFolder.h"

#include "basic/RunTimeError.h"
#include "platform/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class PrivateFolder : public testing::Test {
  protected:
    template <typename Action>
    static int errorOf(Action&& action) {
        try {
            action();
        } catch (const RunTimeError& error) {
            return error.number;
        }
        return 0;
    }

    TemporaryFolder folder;
    EngineRules rules{{}, {}, "RUNDAT.TMP", "korvelf157.exe"};
};

} // namespace

TEST_F(PrivateFolder, HoldsLinksAndARunControlFileOfItsOwn) {
    folder.put("app/engine", "the engine");
    folder.put("run/old", "of an earlier run");
    makePrivateFolder(folder.path("run"), {folder.path("app/engine")}, "RUNDAT.TMP", "SINGLE\r\n");
    EXPECT_EQ(folder.textOf("run/engine"), "the engine");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("run/engine")));
    EXPECT_EQ(folder.textOf("run/RUNDAT.TMP"), "SINGLE\r\n");
    EXPECT_FALSE(std::filesystem::exists(folder.path("run/old")));
    removePrivateFolder(folder.path("run"));
    EXPECT_FALSE(std::filesystem::exists(folder.path("run")));
    EXPECT_EQ(folder.textOf("app/engine"), "the engine");
}

TEST_F(PrivateFolder, FailsWhereAFileOfItCannotBeMade) {
    EXPECT_EQ(errorOf([&] { makePrivateFolder(folder.path("run"), {}, "gone/RUNDAT.TMP", "text"); }),
              errors::fileNotFound);
    const std::string file = folder.path("engine");
    EXPECT_EQ(errorOf([&] {
                  makePrivateFolder(folder.path("run"), {file, file}, "RUNDAT.TMP", "");
              }),
              errors::pathFileAccessError);
    folder.put("file");
    EXPECT_EQ(errorOf([&] { makePrivateFolder(folder.path("file/run"), {}, "RUNDAT.TMP", ""); }),
              errors::pathNotFound);
}

TEST_F(PrivateFolder, LinksWhatLiesBesideTheEngineButIsNotTheFrontEnds) {
    for (const std::string& name :
         {rules.engineFile, rules.runControlFile, std::string("korvel"), std::string("MISC.TXT"),
          std::string("kordat4.txt"), std::string("KORDAT4.OLD"), std::string("NOTES.TXT"),
          std::string(".korvel-1"), std::string("COEFFS.DAT")})
        folder.put(name);
    std::vector<std::string> expected;
    for (const std::string& name :
         {std::string("COEFFS.DAT"), std::string("KORDAT4.OLD"), std::string("NOTES.TXT"), rules.engineFile})
        expected.push_back(folder.path(name));
    EXPECT_EQ(filesOfEngine(folder.path(), rules), expected);
    std::filesystem::remove(folder.path(rules.engineFile));
    EXPECT_EQ(errorOf([&] { filesOfEngine(folder.path(), rules); }), errors::fileNotFound);
}

} // namespace korvel
