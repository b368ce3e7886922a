#include "basic/RunTimeError.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace korvel {

namespace {

struct Described {
    int number;
    const char* description;
};

constexpr Described describedErrors[] = {
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {9, "Subscript out of range"},
    {13, "Type mismatch"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {61, "Disk full"},
    {62, "Input past end of file"},
    {70, "Permission denied"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {438, "Object doesn't support this property or method"},
    {482, "Printer error"},
    {1, "Application-defined or object-defined error"},
    {0, "Application-defined or object-defined error"},
    {-7, "Application-defined or object-defined error"},
    {32000, "Application-defined or object-defined error"},
};

TEST(RunTimeError, DescribesEveryNumber) {
    for (const auto& [number, description] : describedErrors) {
        const RunTimeError error(number);
        EXPECT_EQ(error.number, number);
        EXPECT_EQ(error.description, description) << number;
        EXPECT_STREQ(error.what(), description) << number;
    }
}

TEST(RunTimeError, MessageHasAnEmptyLineBeforeTheDescription) {
    EXPECT_EQ(RunTimeError(53).message(), "Run-time error '53':\n\nFile not found");
    EXPECT_EQ(RunTimeError(438).message(),
              "Run-time error '438':\n\nObject doesn't support this property or method");
}

TEST(RunTimeError, KeepsADescriptionOfItsOwn) {
    const RunTimeError error(53, "Nothing of that name");
    EXPECT_EQ(error.number, 53);
    EXPECT_EQ(error.message(), "Run-time error '53':\n\nNothing of that name");
}

TEST(RunTimeError, HasANumberForEveryFailedSystemCall) {
    const struct {
        int code;
        int number;
    } rows[] = {
        {ENOENT, 53}, {ENOTDIR, 76}, {ELOOP, 76},  {EACCES, 70}, {EPERM, 70},        {EROFS, 70},
        {EBUSY, 70},  {ETXTBSY, 70}, {ENOSPC, 61}, {EDQUOT, 61}, {EFBIG, 61},        {EIO, 57},
        {EISDIR, 75}, {EMFILE, 75},  {ENXIO, 75},  {EINVAL, 52}, {ENAMETOOLONG, 52}, {EILSEQ, 52},
    };
    for (const auto& row : rows)
        EXPECT_EQ(runTimeErrorOfErrno(row.code).number, row.number) << row.code;
}

} // namespace

} // namespace korvel
