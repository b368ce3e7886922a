// A desktop that writes decimal commas: no number in a file or a window has one.
#include "endtoend/WindowsFixture.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>
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
        std::filesystem::copy_file(std::string(KORVEL_APP_FOLDER) + "/KORDAT4.TXT",
                                   korvel.application("KORDAT4.TXT"));
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

// All that it holds; its own bytes count what was done to it.
std::string textOfDatabase(const std::string& file) {
    const std::string script = "import sys, sqlite3\n"
                               "for line in sqlite3.connect(sys.argv[1]).iterdump(): print(line)";
    return runProgram({"python3", "-c", script, file}).out;
}

std::string withoutTimes(const std::string& record);

std::string textOf(const std::filesystem::path& file) {
    if (file.extension() == ".sqlite") return textOfDatabase(file.string());
    if (file.extension() == ".jsonl") return withoutTimes(contentOf(file.string()));
    if (file.extension() == ".pdf") return textOfPdf(file.string());
    return file.extension() == ".xlsx" ? textOfWorkbook(file.string()) : contentOf(file.string());
}

std::map<std::string, std::string> textsIn(const std::string& folder) {
    std::map<std::string, std::string> texts;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file()) texts[entry.path().filename().string()] = textOf(entry.path());
    return texts;
}

const std::vector<std::vector<std::string>> commands = {
    {"run", "ALDER.DAT", "--wait"},
    {"info", "ALDER.SGR", "--points", "--values", "--json"},
    {"info", "ALDER.SGR"},
    {"csv", "ALDER.SGR"},
    {"report", "ALDER.SGR", "--reaches", "1,2", "--determinands", "1,2"},
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
    {"help-page", "4"},
    {"batch", "ALDER.DAT", "--type", "4", "--wait"},
    {"report", "ALDER.SGR", "--reaches", "1,2", "--output", "report.xlsx"},
    {"graph", "ALDER.SGR", "--from", "1", "--to", "3", "--series", "0,1", "--output", "graph.png"},
    {"table", "ALDER.SGR", "--reaches", "1", "--output", "table.xlsx"},
    {"table", "ALDER.SGR", "--reaches", "1", "--output", "table.sqlite"},
    {"changes", "ALDER.SGR", "ALDER2.SGR", "--by", "river", "--format", "json"},
    {"compliance", "ALDER.SGR", "ALDER2.SGR", "--by", "station", "--format", "csv"},
    {"compliance", "ALDER.SGR", "--deterioration", "2.5", "--format", "json"},
    {"fit", "ALDER.SGR", "--by", "reach", "--format", "csv"},
    {"sources", "ALDER.SGR", "--determinand", "1", "--at", "7:2.5", "--format", "csv"},
    {"network", "ALDER.SGR", "--format", "json"},
    {"check", "ALDER.SGR", "--all", "--format", "json"},
    {"publish", "ALDER.SGR", "ALDER2.SGR", "--output", "page.html"},
    {"atlas", "ALDER.SGR", "--output", "atlas.pdf"},
    {"runs", "plan.csv"}};

// The first words of the list that --help prints.
std::set<std::string> commandsOf(const std::string& help) {
    std::istringstream lines(help.substr(help.find("Commands:\n") + 10));
    std::set<std::string> names;
    std::string line, name;
    while (std::getline(lines, line) && !line.empty() && std::istringstream(line) >> name)
        names.insert(name);
    return names;
}

// The record of a plan's runs holds when they ran.
std::string withoutTimes(const std::string& record) {
    return std::regex_replace(record, std::regex(R"#("(started|ended)":"[^"]*")#"), "");
}

Told InGermany::tellOf(const std::vector<std::string>& command,
                       const std::vector<std::string>& settings) const {
    std::filesystem::remove(korvel.data("plan.runs.jsonl"));
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

// The Explorer's is a window, which has a walk of its own.
TEST_F(InGermany, NoCommandIsLeftOut) {
    std::set<std::string> tried = {"explore"};
    for (const std::vector<std::string>& command : commands)
        tried.insert(command[0]);
    EXPECT_EQ(tried, commandsOf(korvel.runKorvel({"--help"}).out));
}

TEST_F(InGermany, EveryCommandWritesTheSameNumbers) {
    write(korvel.data("plan.csv"), "name,data_file,type\nbasic,ALDER.DAT,0\n");
    for (const std::vector<std::string>& command : commands) {
        const Told there = tellOf(command, germany().settings()), here = tellOf(command, plain);
        EXPECT_EQ(there.outcome.status, 0) << command[0] << there.outcome.err;
        EXPECT_EQ(here.outcome.status, 0) << command[0] << here.outcome.err;
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

TEST_F(InGermany, TheExplorerShowsTheSameNumbers) {
    std::vector<std::string> pictures;
    for (const std::vector<std::string>& settings : {plain, germany().settings()}) {
        further = settings;
        startWithoutWaiting({"explore", "ALDER.SGR", "ALDER2.SGR"});
        const ShownWindow window = screen.front("ALDER.SGR and 1 more - KORVEL Explorer");
        settledPicture(window);
        screen.press({"Home", "ctrl+Right", "ctrl+Right", "ctrl+Right"}); // values beside the picture
        pictures.push_back(settledPicture(window));
        endKorvel();
    }
    EXPECT_EQ(pictures[0], pictures[1]);
}

// One file through the form: the run-control file, what the engine writes, and what the forms say meanwhile.
TEST_F(InGermany, TheBatchFormAndTheHelpShowTheSame) {
    std::vector<std::string> pictures;
    std::vector<std::map<std::string, std::string>> written;
    for (const std::vector<std::string>& settings : {plain, germany().settings()}) {
        further = settings;
        startKorvel();
        screen.press({"alt+b"});
        const ShownWindow batch = screen.front("Batch Run Data");
        screen.press({"F1"});
        pictures.push_back(settledPicture(screen.front("Help")));
        screen.press({"Escape"});
        screen.front(batch.title);
        screen.press({"space"});
        answer("Select ONE data file for inclusion in Batch Run", "ALDER.DAT");
        screen.front(batch.title);
        pictures.push_back(settledPicture(batch));
        screen.press({"space"});
        waitForEngine("Finished");
        written.push_back(textsIn(korvel.dataFolder()));
        written.back()["RUNDAT.TMP"] = contentOf(korvel.application("RUNDAT.TMP"));
        endKorvel();
    }
    EXPECT_EQ(pictures[0], pictures[2]);
    EXPECT_EQ(pictures[1], pictures[3]);
    EXPECT_TRUE(written[0] == written[1]);
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
