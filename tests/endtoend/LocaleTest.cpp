// A desktop that writes decimal commas: no number in a file or a window has one.
#include "endtoend/WindowsFixture.h"

#include <filesystem>
#include <map>

namespace korvel {

namespace {

const char* const german = "de_DE.UTF-8";

// A locale of the test's own, made from the system's sources.
class German {
  public:
    German() {
        m_made = runProgram({"localedef", "-i", "de_DE", "-f", "UTF-8", m_folder.path(german)}).status;
    }
    // Whether programs write commas in it.
    bool works() const {
        const std::string script = "import locale; locale.setlocale(locale.LC_ALL, ''); "
                                   "print(locale.format_string('%.1f', 1.5), end='')";
        return m_made == 0 && runProgram({"python3", "-c", script}, {"", settings()}).out == "1,5";
    }
    std::vector<std::string> settings() const {
        return {"LOCPATH=" + m_folder.path(""), std::string("LC_ALL=") + german,
                std::string("LANG=") + german};
    }

  private:
    TestFolder m_folder;
    int m_made = -1;
};

const German& germany() {
    static const German made;
    return made;
}

const std::vector<std::string> plain = {"LC_ALL=C.UTF-8"};

// What a command says and the files that it leaves.
struct Told {
    Outcome outcome;
    std::map<std::string, std::string> files;
};

class InGermany : public WindowsFixture {
  protected:
    void SetUp() override {
        if (!germany().works()) GTEST_SKIP() << "no sources of locales: the package locales is not installed";
        korvel.putSample("ALDER.DAT");
        for (const std::string file : {"ALDER.SGR", "ALDER2.SGR", "ALDER.OUT"})
            korvel.putResults(file);
    }
    Told tellOf(const std::vector<std::string>& command, const std::vector<std::string>& settings) const;
};

std::string textOfPdf(const std::string& file) {
    return runProgram({"pdftotext", "-layout", file, "-"}).out;
}

std::map<std::string, std::string> textsIn(const std::string& folder) {
    std::map<std::string, std::string> texts;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string path = entry.path().string();
        texts[entry.path().filename().string()] =
            entry.path().extension() == ".pdf" ? textOfPdf(path) : contentOf(path);
    }
    return texts;
}

const std::vector<std::vector<std::string>> commands = {
    {"run", "ALDER.DAT", "--wait"},
    {"info", "ALDER.SGR", "--points", "--values", "--json"},
    {"info", "ALDER.SGR"},
    {"csv", "ALDER.SGR"},
    {"report", "ALDER.SGR", "--reaches", "1,2"},
    {"listing", "ALDER.OUT"},
    {"graph", "ALDER.SGR", "--from", "1", "--to", "1", "--series", "0,1", "--output", "graph.svg"},
    {"graph", "ALDER.SGR", "--from", "1", "--to", "1", "--series", "0,1", "--output", "graph.pdf"},
    {"table", "ALDER.SGR"},
    {"table", "ALDER.SGR", "--format", "json"},
    {"changes", "ALDER.SGR", "ALDER2.SGR"},
    {"changes", "ALDER.SGR", "ALDER2.SGR", "--by", "point", "--format", "csv"},
    {"compliance", "ALDER.SGR", "ALDER2.SGR"},
    {"fit", "ALDER.SGR"},
    {"sources", "ALDER.SGR", "--determinand", "1"},
    {"network", "ALDER.SGR"},
    {"check", "ALDER.SGR"},
    {"help-page", "4"}};

Told InGermany::tellOf(const std::vector<std::string>& command,
                       const std::vector<std::string>& settings) const {
    const Outcome outcome = korvel.runKorvel(command, {korvel.dataFolder(), settings});
    return {outcome, textsIn(korvel.dataFolder())};
}

} // namespace

TEST_F(InGermany, EveryCommandWritesTheSameNumbers) {
    for (const std::vector<std::string>& command : commands) {
        const Told there = tellOf(command, germany().settings()), here = tellOf(command, plain);
        EXPECT_EQ(there.outcome.status, here.outcome.status) << command[0] << there.outcome.err;
        EXPECT_EQ(there.outcome.out, here.outcome.out) << command[0];
        EXPECT_EQ(there.outcome.err, here.outcome.err) << command[0];
        ASSERT_EQ(there.files.size(), here.files.size()) << command[0];
        for (const auto& [name, text] : here.files)
            EXPECT_TRUE(there.files.at(name) == text) << command[0] << ": " << name;
    }
}

TEST_F(InGermany, TheFormsShowTheSameNumbers) {
    std::vector<std::string> setUps, graphs;
    for (const std::vector<std::string>& settings : {plain, germany().settings()}) {
        further = settings;
        startWithoutWaiting({"ALDER.SGR"});
        screen.front(setUpTitle);
        chooseWholeRiver();
        setUps.push_back(screen.pictureOf(screen.front(setUpTitle)));
        const ShownWindow graph = plot();
        EXPECT_TRUE(waitFor([&] { return screen.pixelsOf(graph, "#0000FF") > 1000; }));
        screen.press({"ctrl+Right", "ctrl+Right", "ctrl+Right"}); // the values beside the graph
        graphs.push_back(screen.pictureOf(graph));
        endKorvel();
    }
    EXPECT_EQ(setUps[0], setUps[1]);
    EXPECT_EQ(graphs[0], graphs[1]);
}

TEST_F(InGermany, TheWindowsWriteTheSameFiles) {
    std::vector<std::map<std::string, std::string>> written;
    for (const std::vector<std::string>& settings : {plain, germany().settings()}) {
        further = settings;
        for (const std::string ending : {"SGR", "OUT", "LOD", "SUM", "SCN"})
            std::filesystem::remove(korvel.data("ALDER." + ending));
        startKorvel();
        chooseRun(0, "ALDER.DAT");
        waitForEngine("Finished");
        written.push_back(textsIn(korvel.dataFolder()));
        endKorvel();
    }
    EXPECT_GT(written[0].size(), 5u);
    EXPECT_TRUE(written[0] == written[1]);
}

} // namespace korvel
