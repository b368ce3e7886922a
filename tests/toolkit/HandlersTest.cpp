#include "toolkit/forms/Handlers.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class HandlersTest : public testing::Test {
  protected:
    FakePlatform platform;
    Handlers handlers{platform.platform().windows};
};

} // namespace

TEST_F(HandlersTest, RunWhatTheyAreGiven) {
    int runs = 0;
    handlers.run([&] { ++runs; });
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(platform.ended());
}

TEST_F(HandlersTest, EndTheProgramOnARunTimeError) {
    handlers.run([] { throw RunTimeError(errors::fileNotFound); });
    EXPECT_EQ(platform.takeTranscript(), "fail program: Run-time error '53': File not found\n");
    EXPECT_TRUE(platform.ended());
}

TEST_F(HandlersTest, EndTheProgramWhereMemoryIsOut) {
    handlers.run([] { throw std::bad_alloc(); });
    EXPECT_EQ(platform.takeTranscript(), "fail program: Run-time error '7': Out of memory\n");
}

TEST_F(HandlersTest, LetNoOtherExceptionThrough) {
    EXPECT_NO_THROW(handlers.run([] { throw std::out_of_range("line 9"); }));
    EXPECT_EQ(platform.takeTranscript(), "fail program: Run-time error '51': Internal error: line 9\n");
}

TEST_F(HandlersTest, PassOnWhatASignalHandsOverOrDropIt) {
    int sum = 0;
    handlers.guarded([&](int value) { sum += value; })(5);
    handlers.guarded([&] { sum += 100; })(5);
    EXPECT_EQ(sum, 105);
}

TEST_F(HandlersTest, GuardAConnectedAction) {
    handlers.guarded([] { throw RunTimeError(errors::overflow); })();
    EXPECT_EQ(platform.takeTranscript(), "fail program: Run-time error '6': Overflow\n");
}

} // namespace korvel
