#include "runs/DataFileName.h"

#include <gtest/gtest.h>

#include <string>

namespace korvel {

namespace {

DataFileNames namesOf(const DataFileVerdict& verdict) {
    EXPECT_TRUE(std::holds_alternative<DataFileNames>(verdict));
    return std::get<DataFileNames>(verdict);
}

Message refusalOf(const DataFileVerdict& verdict) {
    EXPECT_TRUE(std::holds_alternative<Message>(verdict));
    return std::get<Message>(verdict);
}

const Message wrongExtension{"The input data file extension must be .DAT.", "Input data file",
                             Icon::exclamation, Buttons::ok};
const Message longFolder{"File path name too long. Locate data file in higher level folder",
                         "Input Data File", Icon::exclamation, Buttons::ok};
const Message longFile{"File name too long. Must be not more than 30 characters,", "Input Data File",
                       Icon::exclamation, Buttons::ok};

std::string nameOfLength(std::size_t length) {
    return std::string(length - 4, 'A') + ".DAT";
}
// "C:\" and one folder, so that all of it with the backslash at its end has this length.
std::string folderOfLength(std::size_t length) {
    return "C:\\" + std::string(length - 4, 'F') + "\\";
}

} // namespace

TEST(DataFileName, AcceptsASmallLetterNameInUpperCase) {
    EXPECT_EQ(namesOf(dataFileToOpen("c:\\data\\test.dat")),
              (DataFileNames{"C:\\DATA\\TEST.DAT", "C:\\DATA\\", "TEST"}));
}

TEST(DataFileName, DropsBlanksAroundTheChosenName) {
    EXPECT_EQ(namesOf(dataFileToOpen("  C:\\a b.dat  ")).name, "C:\\A B.DAT");
}

TEST(DataFileName, RaisesTheLettersAToZAlone) {
    EXPECT_EQ(dataFileName("z:\\a\xe9\xc3\xa9"), "Z:\\A\xe9\xc3\xa9");
}

TEST(DataFileName, SplitsAtTheLastBackslash) {
    const DataFileNames names = namesOf(dataFileToOpen("Z:\\A.DAT\\B.C\\D.E.DAT"));
    EXPECT_EQ(names.folder, "Z:\\A.DAT\\B.C\\");
    EXPECT_EQ(names.base, "D.E");
}

TEST(DataFileName, RefusesEveryOtherExtension) {
    for (const char* name :
         {"C:\\A.TXT", "C:\\A", "C:\\A.DATA", "C:\\A.DAT.BAK", "C:\\DAT", "C:\\A.DAT\\", ""}) {
        EXPECT_EQ(refusalOf(dataFileToOpen(name)), wrongExtension) << name;
        EXPECT_EQ(refusalOf(dataFileToSaveAs(name)), wrongExtension) << name;
    }
}

TEST(DataFileName, AcceptsANameOf30Characters) {
    EXPECT_EQ(namesOf(dataFileToOpen("C:\\" + nameOfLength(30))).base, std::string(26, 'A'));
}

TEST(DataFileName, RefusesANameOf31Characters) {
    EXPECT_EQ(refusalOf(dataFileToOpen("C:\\" + nameOfLength(31))), longFile);
}

TEST(DataFileName, AcceptsAFolderOf100Characters) {
    EXPECT_EQ(namesOf(dataFileToOpen(folderOfLength(100) + "A.DAT")).folder.size(), 100U);
}

TEST(DataFileName, RefusesAFolderOf101Characters) {
    EXPECT_EQ(refusalOf(dataFileToOpen(folderOfLength(101) + "A.DAT")), longFolder);
}

TEST(DataFileName, ChecksTheExtensionFirstAndTheFolderBeforeTheName) {
    EXPECT_EQ(refusalOf(dataFileToOpen(folderOfLength(101) + std::string(31, 'A'))), wrongExtension);
    EXPECT_EQ(refusalOf(dataFileToOpen(folderOfLength(101) + nameOfLength(31))), longFolder);
}

TEST(DataFileName, ChecksNoLengthWhenSaving) {
    EXPECT_EQ(namesOf(dataFileToSaveAs(folderOfLength(200) + nameOfLength(90))).base, std::string(86, 'A'));
}

TEST(DataFileName, NamesTheResultsFileBesideTheDataFile) {
    EXPECT_EQ(resultsFileName("C:\\DATA\\", " TEST "), "C:\\DATA\\TEST.SGR");
}

} // namespace korvel
