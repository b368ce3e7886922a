#include "basic/LateLibrary.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

using OfOneNumber = double (*)(double);

} // namespace

TEST(LateLibrary, FindsTheFunctionsOfALibrary) {
    LateLibrary library("libm.so.6");
    OfOneNumber root = nullptr;
    library.find("sqrt", root);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root(9), 3);
    EXPECT_EQ(library.failure(), "");
}

TEST(LateLibrary, SaysThatALibraryIsMissing) {
    LateLibrary library("libnobodyhas.so.1");
    OfOneNumber root = nullptr;
    library.find("sqrt", root);
    EXPECT_EQ(root, nullptr);
    EXPECT_EQ(library.failure(),
              "libnobodyhas.so.1: cannot open shared object file: No such file or directory");
}

TEST(LateLibrary, SaysWhichFunctionWasMissingFirst) {
    LateLibrary library("libm.so.6");
    OfOneNumber function = nullptr;
    library.find("rootOfAllEvil", function);
    EXPECT_EQ(function, nullptr);
    library.find("noSuchThing", function);
    library.find("sqrt", function);
    EXPECT_NE(function, nullptr);
    EXPECT_NE(library.failure().find("rootOfAllEvil"), std::string::npos) << library.failure();
}

} // namespace korvel
