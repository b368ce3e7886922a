#include "platform/Guide.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(Guide, LiesWhereItIsInstalledOrBesideTheBuildsProgram) {
    const std::vector<std::string> places{"/usr/lib/korvel/../../share/doc/korvel/guide.html",
                                          "/usr/lib/korvel/../guide/guide.html"};
    EXPECT_EQ(guidePlaces("/usr/lib/korvel"), places);
}

TEST(Guide, HasTheSamplesLieBesideIt) {
    const std::vector<std::string> places{"/usr/lib/korvel/../../share/doc/korvel/examples",
                                          "/usr/lib/korvel/../../../samples"};
    EXPECT_EQ(samplesPlaces("/usr/lib/korvel"), places);
}

TEST(Guide, IsOpened) {
    FakePlatform platform;
    OpenGuide(platform);
    EXPECT_EQ(platform.takeTranscript(), "guide /share/guide.html\n");
}

TEST(Guide, SaysWhereItIsNotInstalled) {
    FakePlatform platform;
    platform.guide = "";
    platform.willAnswer(Answer::ok);
    OpenGuide(platform);
    const std::string done = platform.takeTranscript();
    EXPECT_NE(done.find("The guide is not installed with this program."), std::string::npos) << done;
    EXPECT_EQ(done.find("guide /"), std::string::npos);
}

TEST(Guide, SaysWhereItLiesWhenNothingCanShowIt) {
    FakePlatform platform;
    platform.opensGuide = false;
    platform.willAnswer(Answer::ok);
    OpenGuide(platform);
    const std::string done = platform.takeTranscript();
    EXPECT_NE(done.find("Open it in a browser: /share/guide.html"), std::string::npos) << done;
}

} // namespace korvel
