#include "commands/CommandFixture.h"
#include "toolkit/process/StopSignals.h"

#include <csignal>
#include <unistd.h>

namespace korvel {

namespace {

class AtlasCommand : public CommandFixture {
  protected:
    static ResultsFileBuilder river() {
        ResultsFileBuilder file;
        file.title("The Mill").determinand(1, "BOD", 1).determinand(1, "DO", 1).reach(1, "Mill", 4, 0);
        file.point(1, 1, "Weir", 2).point(1, 3, "Mouth", 2);
        return file;
    }

    // All texts of what was printed last.
    std::string printedWords() {
        std::string words;
        for (const Drawing& page : fake.printed().back().pages)
            for (const DrawnCommand& command : page.commands)
                if (const auto* text = std::get_if<DrawnText>(&command)) words += text->text + "\n";
        return words;
    }
    bool printed(const std::string& part) { return printedWords().find(part) != std::string::npos; }

    std::string a = put("a.sgr", river()), b = put("b.sgr", river());
};

} // namespace

TEST_F(AtlasCommand, PrintsADocumentBesideTheFirstFile) {
    EXPECT_EQ(run({"atlas", a, b}), 0) << errors;
    EXPECT_EQ(out + errors, "");
    ASSERT_EQ(fake.printed().size(), 1U);
    const auto& job = fake.printed().back();
    EXPECT_TRUE(job.finished);
    EXPECT_EQ(job.request.fallbackFile, fake.pathOf("a-atlas.pdf"));
    EXPECT_EQ(job.request.title, "The Mill");
    EXPECT_EQ(job.request.orientation, Orientation::landscape);
    ASSERT_TRUE(job.request.outline);
    EXPECT_EQ(job.request.outline->links.size(), job.pages.size());
    EXPECT_TRUE(printed("Changes from a.sgr to b.sgr"));
}

TEST_F(AtlasCommand, TakesTitleSeriesBadSideAndOutput) {
    const std::string file = hostPathOf(fake.pathOf("own.pdf"));
    EXPECT_EQ(run({"atlas", a, "--title", "Own", "--series", "Flow,BOD (Conc)", "--low-is-bad", "BOD",
                   "--output", file}),
              0)
        << errors;
    EXPECT_EQ(fake.printed().back().request.fallbackFile, fake.pathOf("own.pdf"));
    EXPECT_EQ(fake.printed().back().request.title, "Own");
    EXPECT_TRUE(printed("BOD (Conc), mean"));
    EXPECT_FALSE(printed("DO (Conc), mean"));
    EXPECT_TRUE(printed("BOD by the mean, low is bad; DO by the mean."));
    EXPECT_EQ(run({"atlas", a, "--low-is-bad", "none"}), 0);
    EXPECT_FALSE(printed("low is bad"));
}

TEST_F(AtlasCommand, RefusesWhatCannotBe) {
    EXPECT_EQ(run({"atlas", a, "--output", a}), 1);
    EXPECT_NE(errors.find("The output would replace the input."), std::string::npos) << errors;
    EXPECT_EQ(run({"atlas"}), 2);
    EXPECT_EQ(run({"atlas", a, "--series", "nothing"}), 2);
    EXPECT_EQ(run({"atlas", a, "--low-is-bad", "nothing"}), 2);
    EXPECT_EQ(run({"atlas", hostPathOf(fake.pathOf("none.sgr"))}), 1);
    EXPECT_TRUE(fake.printed().empty());
}

TEST_F(AtlasCommand, StopsAtCtrlC) {
    const StopSignals blocked; // from now on the signal waits
    ::kill(getpid(), SIGINT);
    EXPECT_EQ(run({"atlas", a}), 1);
    EXPECT_NE(errors.find("Stopped; nothing was written."), std::string::npos) << errors;
    EXPECT_FALSE(fake.printed().back().finished);
    EXPECT_EQ(run({"atlas", a}), 0) << errors;
}

TEST_F(AtlasCommand, FailsWithItsPaper) {
    fake.willFailPrinting(PrintStep::page);
    EXPECT_EQ(run({"atlas", a}), 1);
    EXPECT_NE(errors.find("482"), std::string::npos) << errors;
    EXPECT_FALSE(fake.printed().back().finished);
}

} // namespace korvel
