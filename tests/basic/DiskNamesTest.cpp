#include "basic/DiskNames.h"

#include "basic/Text.h"
#include "platform/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

namespace korvel {

namespace {

const std::string lineEndRefusal =
    "The name holds a line end, which a model name can't hold. Rename the file or folder.";
const std::string backslashRefusal =
    "The name holds a backslash, which a model name can't hold. Rename the file or folder.";
const std::string twinRefusal =
    "Another file or folder has the same name but for upper and lower case. Rename one of them.";

TEST(DiskNames, PutsDriveZAtTheRootFolder) {
    EXPECT_EQ(hostPathOf("Z:\\"), "/");
    EXPECT_EQ(hostPathOf("Z:"), "/");
    EXPECT_EQ(hostPathOf("z:\\"), "/");
    EXPECT_EQ(hostPathOf("Z:\\nowhere at all\\x.dat"), "/nowhere at all/x.dat");
}

TEST(DiskNames, LeavesOtherNamesAsTheyStand) {
    for (const char* name : {"C:\\DATA\\A.DAT", "RUNDAT.TMP", "", "Z", "ZZ:\\A", "Z:A.DAT", "\\A", "/home/a"})
        EXPECT_EQ(hostPathOf(name), name);
}

TEST(DiskNames, PrefersTheExactSpelling) {
    const TemporaryFolder folder;
    for (const char* name : {"TEST.DAT", "Test.dat", "test.dat"})
        folder.put(name);
    for (const char* name : {"TEST.DAT", "Test.dat", "test.dat"})
        EXPECT_EQ(hostPathOf(folder.model(name)), folder.path(name));
}

TEST(DiskNames, TakesTheFirstInByteOrderThatDiffersInCaseOnly) {
    const TemporaryFolder folder;
    for (const char* name : {"test.dat", "tEST.dat", "tesT.DAT", "tesu.dat"})
        folder.put(name);
    EXPECT_EQ(hostPathOf(folder.model("TEST.DAT")), folder.path("tEST.dat"));
}

TEST(DiskNames, LooksAtEachComponentByItself) {
    const TemporaryFolder folder;
    folder.put("Rivers/North/a.dat");
    folder.put("rivers/north/b.dat");
    EXPECT_EQ(hostPathOf(folder.model("RIVERS/NORTH/A.DAT")), folder.path("Rivers/North/a.dat"));
    // Kept so: the folder is settled before the file is looked for.
    EXPECT_EQ(hostPathOf(folder.model("RIVERS/NORTH/B.DAT")), folder.path("Rivers/North/B.DAT"));
    EXPECT_EQ(hostPathOf(folder.model("rivers/NORTH/B.DAT")), folder.path("rivers/north/b.dat"));
}

TEST(DiskNames, LeavesWhatIsNotThereAsItStands) {
    const TemporaryFolder folder;
    folder.makeFolder("Rivers");
    EXPECT_EQ(hostPathOf(folder.model("RIVERS/New.dat")), folder.path("Rivers/New.dat"));
    EXPECT_EQ(hostPathOf(folder.model("LAKES/New.dat")), folder.path("LAKES/New.dat"));
}

TEST(DiskNames, TakesDoubledAndClosingBackslashesAsOne) {
    const TemporaryFolder folder;
    folder.put("a.dat");
    EXPECT_EQ(hostPathOf(folder.model() + "\\\\A.DAT"), folder.path("a.dat"));
    EXPECT_EQ(hostPathOf(folder.model() + "\\"), folder.path());
    EXPECT_EQ(hostPathOf("Z:\\\\"), "/");
}

TEST(DiskNames, CaseMeansTheTwentySixLettersAlone) {
    const TemporaryFolder folder;
    folder.put("caf\xC3\xA9.dat");
    EXPECT_EQ(hostPathOf(folder.model("CAF\xC3\xA9.DAT")), folder.path("caf\xC3\xA9.dat"));
    EXPECT_EQ(hostPathOf(folder.model("CAF\xC3\x89.DAT")), folder.path("CAF\xC3\x89.DAT"));
}

TEST(DiskNames, FindsADanglingLinkByItsName) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("nowhere", folder.path("link.dat"));
    folder.put("LINK.dat");
    EXPECT_EQ(hostPathOf(folder.model("link.dat")), folder.path("link.dat"));
}

TEST(DiskNames, RefusesABackslash) {
    const TemporaryFolder folder;
    folder.put("a\\b.dat");
    folder.put("c\\d/e.dat");
    for (const NameUse use : {NameUse::asChosen, NameUse::inUpperCase}) {
        EXPECT_EQ(whyNotAModelName(folder.path("a\\b.dat"), use), backslashRefusal);
        EXPECT_EQ(whyNotAModelName(folder.path("c\\d/e.dat"), use), backslashRefusal);
        EXPECT_EQ(whyNotAModelName(folder.path("a\nb.dat"), use), lineEndRefusal);
        EXPECT_EQ(whyNotAModelName(folder.path("c\rd/e.dat"), use), lineEndRefusal);
    }
}

TEST(DiskNames, AcceptsANameThatIsFoundAgain) {
    const TemporaryFolder folder;
    folder.put("Rivers/test.dat");
    folder.put("Rivers/other.dat");
    for (const NameUse use : {NameUse::asChosen, NameUse::inUpperCase}) {
        EXPECT_EQ(whyNotAModelName(folder.path("Rivers/test.dat"), use), std::nullopt);
        EXPECT_EQ(whyNotAModelName(folder.path("Rivers/new one.dat"), use), std::nullopt);
        EXPECT_EQ(whyNotAModelName("/", use), std::nullopt);
    }
}

TEST(DiskNames, AcceptsATwinWhoseSpellingIsFoundExactly) {
    const TemporaryFolder folder;
    folder.put("test.dat");
    folder.put("TEST.DAT");
    EXPECT_EQ(whyNotAModelName(folder.path("test.dat"), NameUse::asChosen), std::nullopt);
    EXPECT_EQ(whyNotAModelName(folder.path("TEST.DAT"), NameUse::asChosen), std::nullopt);
    EXPECT_EQ(whyNotAModelName(folder.path("TEST.DAT"), NameUse::inUpperCase), std::nullopt);
}

TEST(DiskNames, RefusesATwinThatWouldBeFoundInstead) {
    const TemporaryFolder folder;
    for (const char* name : {"test.dat", "TEST.DAT", "lake.dat", "Lake.dat", "rivers/a.dat", "RIVERS/a.dat"})
        folder.put(name);
    EXPECT_EQ(whyNotAModelName(folder.path("test.dat"), NameUse::inUpperCase), twinRefusal);
    EXPECT_EQ(whyNotAModelName(folder.path("lake.dat"), NameUse::inUpperCase), twinRefusal);
    EXPECT_EQ(whyNotAModelName(folder.path("Lake.dat"), NameUse::inUpperCase), std::nullopt);
    EXPECT_EQ(whyNotAModelName(folder.path("rivers/a.dat"), NameUse::inUpperCase), twinRefusal);
    EXPECT_EQ(whyNotAModelName(folder.path("rivers/new.dat"), NameUse::inUpperCase), twinRefusal);
    EXPECT_EQ(whyNotAModelName(folder.path("rivers/a.dat"), NameUse::asChosen), std::nullopt);
}

TEST(DiskNames, RefusesANewNameThatWouldFindAnOldFile) {
    const TemporaryFolder folder;
    folder.put("Test.dat");
    EXPECT_EQ(whyNotAModelName(folder.path("TEST.dat"), NameUse::asChosen), twinRefusal);
    EXPECT_EQ(whyNotAModelName(folder.path("test.dat"), NameUse::inUpperCase), twinRefusal);
}

TEST(DiskNames, RefusesDataFilesWhoseBlanksAreLost) {
    const TemporaryFolder folder;
    for (const char* name : {"A.DAT ", " A.DAT", "A .DAT"}) {
        folder.put(name);
        EXPECT_EQ(
            whyNotAModelName(folder.path(name), NameUse::inUpperCase),
            "The name begins or ends with a blank, so that the model would not find the file. Rename it.");
        EXPECT_EQ(whyNotAModelName(folder.path(name), NameUse::asChosen), std::nullopt);
    }
    for (const char* name : {"A B.DAT", "A .B.DAT"}) {
        folder.put(name);
        EXPECT_EQ(whyNotAModelName(folder.path(name), NameUse::inUpperCase), std::nullopt) << name;
    }
    EXPECT_EQ(whyNotAModelName(folder.path("NEW.DAT "), NameUse::inUpperCase), std::nullopt);
}

TEST(DiskNames, FindsEveryAcceptedNameAgain) {
    const TemporaryFolder folder;
    const std::string names[] = {"a.dat", "A.dat", "b.DAT", "c/d.dat", "C/d.dat", "c/D.dat", "e/f.dat"};
    for (const std::string& name : names)
        folder.put(name);
    for (const std::string& name : names) {
        const std::string path = folder.path(name);
        EXPECT_EQ(whyNotAModelName(path, NameUse::asChosen), std::nullopt);
        EXPECT_EQ(hostPathOf(modelNameOfHostPath(path)), path);
        const bool accepted = !whyNotAModelName(path, NameUse::inUpperCase).has_value();
        EXPECT_EQ(hostPathOf(upperCase(modelNameOfHostPath(path))) == path, accepted) << path;
    }
}

TEST(DiskNames, AreFoundTheSameWhereFoldersAreRemembered) {
    const TemporaryFolder folder;
    for (const char* name :
         {"Rivers/North/a.dat", "Rivers/North/A.DAT", "Rivers/North/b.dat", "Rivers/c.DAT"})
        folder.put(name);
    KnownFolders known;
    for (const char* name : {"Rivers/North/a.dat", "Rivers/North/A.DAT", "Rivers/North/b.dat", "Rivers/c.DAT",
                             "Rivers/d.dat", "Nowhere/a.dat", "Rivers/e\\f"})
        for (const NameUse use : {NameUse::asChosen, NameUse::inUpperCase})
            EXPECT_EQ(whyNotAModelName(folder.path(name), use, known),
                      whyNotAModelName(folder.path(name), use))
                << name;
    EXPECT_EQ(known.spellingOnDisk(folder.path("Rivers"), "C.dat"), "c.DAT");
    EXPECT_EQ(known.spellingOnDisk(folder.path("Rivers"), "x"), "x");
}

} // namespace

} // namespace korvel
