// A desktop that writes decimal commas: no number in a file or a window has one.
#include "endtoend/WindowsFixture.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <utility>

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

    ShownWindow openReports();
    void tickColumns() const;
    void writeReports(const ShownWindow& form) const;
    void printListing(const ShownWindow& form) const;
    void answer(const std::string& dialog, const std::string& text) const;
    void await(const std::string& file) const;
    std::string settledPicture(const ShownWindow& form) const;
};

std::string textOfPdf(const std::string& file) {
    return runProgram({"pdftotext", "-layout", file, "-"}).out;
}

// Its sheets and the texts that they share; what a workbook says of itself holds the time.
std::string textOfWorkbook(const std::string& file) {
    const std::string script = "import sys, zipfile\n"
                               "parts = zipfile.ZipFile(sys.argv[1])\n"
                               "for name in sorted(parts.namelist()):\n"
                               "    if 'heet' in name or 'Strings' in name: print(parts.read(name))";
    return runProgram({"python3", "-c", script, file}).out;
}

std::string textOf(const std::filesystem::path& file) {
    if (file.extension() == ".pdf") return textOfPdf(file.string());
    return file.extension() == ".xlsx" ? textOfWorkbook(file.string()) : contentOf(file.string());
}

std::map<std::string, std::string> textsIn(const std::string& folder) {
    std::map<std::string, std::string> texts;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        texts[entry.path().filename().string()] = textOf(entry.path());
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

void InGermany::answer(const std::string& dialog, const std::string& text) const {
    const ShownWindow window = screen.front(dialog);
    screen.type(text);
    screen.press({"Return"});
    ASSERT_TRUE(screen.waitUntilGone(window)) << dialog;
}

void InGermany::await(const std::string& file) const {
    EXPECT_TRUE(waitFor([&] { return std::filesystem::exists(korvel.data(file)); })) << file;
}

// Once two looks at it are the same.
std::string InGermany::settledPicture(const ShownWindow& form) const {
    std::string before, now;
    waitFor([&] {
        before = std::exchange(now, screen.pictureOf(form));
        return before == now;
    });
    return now;
}

// From the main form. The letter R belongs to two items, which take turns.
ShownWindow InGermany::openReports() {
    openRunMenu();
    screen.press({"Escape", "alt+r", "Return"});
    screen.front("Korvel Reports");
    screen.press({"alt+o"});
    answer("Open results file", "ALDER.SGR");
    std::string file = korvel.data("ALDER.SGR");
    std::ranges::replace(file, '/', '\\');
    return screen.front("Reports for Z:" + file);
}

// Two determinands; targets, observed values, limits and upstream values besides what is ticked.
void InGermany::tickColumns() const {
    screen.press({"Tab", "Tab", "End", "Home", "shift+Down"});
    screen.press(
        {"Tab", "Tab", "Tab", "Tab", "Tab", "space", "Tab", "space", "Tab", "space", "Tab", "space"});
}

void InGermany::writeReports(const ShownWindow& form) const {
    screen.press({"alt+p"});
    screen.front("Printer");
    screen.press({"Return"});
    screen.front(form.title);
    screen.press({"alt+s"});
    await("ALDER.csv");
    screen.press({"shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab",
                  "shift+Tab", "Menu", "w"});
    answer("Save as workbook", "ALDER.xlsx");
    await("ALDER.xlsx");
}

void InGermany::printListing(const ShownWindow& form) const {
    screen.front(form.title);
    screen.press({"alt+v", "Return"});
    answer("Open output text file", "ALDER.OUT");
    screen.front("ALDER.OUT");
    screen.press({"alt+p"});
    screen.front("Printer");
    screen.press({"Return"});
    screen.front("ALDER.OUT");
    screen.press({"alt+c"});
    screen.front(form.title);
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

TEST_F(InGermany, TheReportFormShowsAndWritesTheSameNumbers) {
    std::vector<std::string> pictures;
    std::vector<std::map<std::string, std::string>> written;
    const auto atFirst = textsIn(korvel.dataFolder());
    for (const std::vector<std::string>& settings : {plain, germany().settings()}) {
        for (const auto& [name, text] : textsIn(korvel.dataFolder()))
            if (!atFirst.contains(name)) std::filesystem::remove(korvel.data(name));
        further = settings;
        startKorvel();
        const ShownWindow form = openReports();
        tickColumns();
        pictures.push_back(settledPicture(form));
        writeReports(form);
        printListing(form);
        pictures.push_back(settledPicture(form));
        written.push_back(textsIn(korvel.dataFolder()));
        endKorvel();
    }
    for (const char* const file : {"ALDER-report.pdf", "ALDER.csv", "ALDER.xlsx", "ALDER.OUT.pdf"})
        EXPECT_TRUE(written[0].contains(file)) << file;
    EXPECT_NE(written[0]["ALDER.csv"].find("2.857"), std::string::npos);
    EXPECT_TRUE(written[0] == written[1]);
    EXPECT_EQ(pictures[0], pictures[2]);
    EXPECT_EQ(pictures[1], pictures[3]);
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
