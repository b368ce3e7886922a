#include "commands/CommandFixture.h"

#include <filesystem>
#include <fstream>

namespace korvel {

namespace {

using enum ValueField;

class PublishCommand : public CommandFixture {
  protected:
    static ResultsFileBuilder river() {
        ResultsFileBuilder file;
        file.title("The Mill & its river").determinand(1, "BOD", 1).determinand(1, "DO", 1);
        file.reach(1, "Upper", 4, 2).reach(2, "Lower", 6, 0);
        file.point(1, 0, "Head", 0).setAll(0).set(meanValue, 1, 2).set(targetValue, 1, 4);
        file.point(1, 4, "Mill", 1).setAll(0).set(meanValue, 1, 6).set(targetValue, 1, 4);
        file.point(2, 0, "", 99).setAll(0).set(meanValue, 1, 1);
        return file;
    }

    int run(const std::vector<std::string>& arguments, const ConsoleTraits& console = {}) {
        const int status = CommandFixture::run(arguments, console);
        EXPECT_EQ(out, "");
        return status;
    }

    static std::string read(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    bool pageHolds(const std::string& part) const {
        return read(beside("a.html")).find(part) != std::string::npos;
    }
    std::string beside(const std::string& name) const {
        return (std::filesystem::path(a).parent_path() / name).string();
    }

    std::string a = put("a.sgr", river()), b = put("b.sgr", river());
};

TEST_F(PublishCommand, WritesAPageBesideTheFirstFile) {
    EXPECT_EQ(run({"publish", a, b}), 0) << errors;
    EXPECT_EQ(errors, "");
    EXPECT_TRUE(pageHolds("<title>The Mill &amp; its river</title>"));
    EXPECT_TRUE(read(beside("a.html")).ends_with("</html>\n"));
}

TEST_F(PublishCommand, TakesTitleSeriesAndWhatIsBadWhenLow) {
    EXPECT_EQ(run({"publish", a, "--title", "<Ours>", "--series", "Flow,1", "--low-is-bad", "BOD", "--output",
                   beside("a.html")}),
              0)
        << errors;
    EXPECT_TRUE(pageHolds("<title>&lt;Ours&gt;</title>"));
    EXPECT_TRUE(pageHolds("Judged are BOD by its mean (bad when low)."));
    EXPECT_FALSE(pageHolds("DO load"));
    EXPECT_EQ(run({"publish", a}), 0);
    EXPECT_TRUE(pageHolds("BOD by its mean, DO by its mean (bad when low)."));
    EXPECT_EQ(run({"publish", a, "--low-is-bad", "none"}), 0);
    EXPECT_TRUE(pageHolds("BOD by its mean, DO by its mean."));
}

TEST_F(PublishCommand, WritesTheSameBytesAgain) {
    EXPECT_EQ(run({"publish", a, b}), 0);
    const std::string first = read(beside("a.html"));
    EXPECT_EQ(run({"publish", a, b}), 0);
    EXPECT_EQ(read(beside("a.html")), first);
}

TEST_F(PublishCommand, KeepsTheOldPageWhereItRefuses) {
    const std::string circle = put("c.sgr", ResultsFileBuilder()
                                                .determinand(1, "BOD")
                                                .reach(1, "A", 5, 2)
                                                .reach(2, "B", 5, 1)
                                                .point(1, 0, "P", 1));
    fake.putFile("c.html", "old");
    EXPECT_EQ(run({"publish", circle}), 1);
    EXPECT_EQ(errors, "[exclamation] Page: c.sgr: Reaches 1, 2 run in a circle\n");
    EXPECT_EQ(read(beside("c.html")), "old");
    EXPECT_EQ(run({"publish", a, circle, "--output", beside("c.html")}), 1);
    EXPECT_EQ(read(beside("c.html")), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(beside(".")), {}), 4)
        << "nothing half-written stays";
}

TEST_F(PublishCommand, ReplacesNoInput) {
    const std::string before = read(b);
    EXPECT_EQ(run({"publish", a, b, "--output", b}), 1);
    EXPECT_EQ(errors, "[exclamation] File name: The output would replace the input.\n");
    EXPECT_EQ(read(b), before);
}

TEST_F(PublishCommand, RefusesWrongUsage) {
    EXPECT_EQ(run({"publish"}), 2);
    EXPECT_EQ(run({"publish", a, "--series", "Nothing"}), 2);
    EXPECT_EQ(run({"publish", a, "--low-is-bad", "Nothing"}), 2);
    EXPECT_EQ(run({"publish", a, "--format", "csv"}), 2);
    EXPECT_EQ(run(std::vector<std::string>(14, a)), 2);
    EXPECT_FALSE(std::filesystem::exists(beside("a.html")));
}

} // namespace

} // namespace korvel
