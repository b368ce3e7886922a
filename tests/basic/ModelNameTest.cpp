#include "basic/ModelName.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

TEST(ModelName, OfAHostPathIsOnDriveZ) {
    EXPECT_EQ(modelNameOfHostPath("/home/ann/a.sgr"), "Z:\\home\\ann\\a.sgr");
    EXPECT_EQ(modelNameOfHostPath("/"), "Z:\\");
    EXPECT_EQ(modelNameOfHostPath("/a b/c.d.e"), "Z:\\a b\\c.d.e");
}

TEST(ModelName, SplitsAtTheLastBackslash) {
    const struct {
        const char* name;
        const char* folder;
        const char* file;
    } rows[] = {
        {"Z:\\HOME\\TEST.DAT", "Z:\\HOME\\", "TEST.DAT"},
        {"Z:\\TEST.DAT", "Z:\\", "TEST.DAT"},
        {"TEST.DAT", "", "TEST.DAT"},
        {"Z:\\HOME\\", "Z:\\HOME\\", ""},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(folderOf(row.name), row.folder) << row.name;
        EXPECT_EQ(fileOf(row.name), row.file) << row.name;
    }
}

TEST(ModelName, InAFolderHasOneBackslashBetween) {
    EXPECT_EQ(inFolder("Z:\\HOME", "A.DAT"), "Z:\\HOME\\A.DAT");
    EXPECT_EQ(inFolder("Z:\\HOME\\", "A.DAT"), "Z:\\HOME\\A.DAT");
    EXPECT_EQ(inFolder("Z:\\", "A.DAT"), "Z:\\A.DAT");
    EXPECT_EQ(inFolder("Z:\\\\", "A.DAT"), "Z:\\A.DAT");
    EXPECT_EQ(inFolder("\\", "A.DAT"), "\\A.DAT");
    EXPECT_EQ(inFolder("", "A.DAT"), "A.DAT");
}

} // namespace

} // namespace korvel
