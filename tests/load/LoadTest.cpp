// The largest things that the program takes, again and again: memory stays flat, and nothing takes long. Time
// limits are wide, so that only an endless loop or a square of the size breaks them.
#include "app/frmStart.h"
#include "basic/DiskNames.h"
#include "basic/Text.h"
#include "fakes/FakePlatform.h"
#include "fakes/ResultsFileBuilder.h"
#include "forms/FormDriver.h"
#include "global/GLOBAL.h"
#include "reports/frmListing.h"
#include "results/ResultsDataSet.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace korvel {

namespace fs = std::filesystem;

namespace {

class Load : public testing::Test {
  protected:
    Load() {
        GLOBAL = {};
        RESULTS = ResultsDataSet();
        platform.putFile("MISC.TXT", "C:\\OLD\r\n\r\nFalse\r\n");
        platform.putEngine();
        platform.closesForm = closeWindow;
        start = std::make_unique<frmStart>(platform);
        start->load();
    }
    ~Load() override {
        GLOBAL = {};
        RESULTS = ResultsDataSet();
    }
    void openInSetUp(const char* item, const std::string& file) {
        platform.willChoose(platform.pathOf(file));
        choose(formNamed("frmGraphData"), item);
    }
    void chooseWholeRun() {
        QWidget& setUp = formNamed("frmGraphData");
        auto &upstream = control<QComboBox>(setUp, "Combo_1"),
             &downstream = control<QComboBox>(setUp, "Combo_2");
        upstream.setCurrentIndex(0);
        downstream.setCurrentIndex(downstream.count() - 1);
        auto& series = control<QListWidget>(setUp, "lstDets");
        series.item(0)->setSelected(true);
        series.item(1)->setSelected(true);
    }
    void plot() {
        platform.willActOn("frmSimgraph", [this](ShownForm& graph) {
            dynamic_cast<QWidget&>(graph).grab();
            platform.takeTranscript();
        });
        choose(formNamed("frmGraphData"), "mnuPlot");
    }
    void openInReports(const std::string& file) {
        platform.willChoose(platform.pathOf(file));
        choose(formNamed("frmReports"), "mnuOpen");
    }
    std::string host(const std::string& file) { return hostPathOf(platform.pathOf(file)); }

    FakePlatform platform;
    std::unique_ptr<frmStart> start;
};

double secondsOf(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double residentMegabytes() {
    long pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1e6;
}

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int k = 0; k < times; ++k)
        all += text;
    return all;
}

// 59999 points x 10 determinands in two reaches, the last point in the second, or all by turns, so that every
// row of a report begins a new group.
void writeLargest(const std::string& path, bool byTurns) {
    std::ofstream file(path, std::ios::binary);
    file << "Largest\r\n0\r\n10\r\n";
    for (int d = 1; d <= 10; ++d)
        file << "1,\"Substance " << d << "\",1\r\n";
    file << "2\r\n   1 Upper                  10    2\r\n   2 Lower                  10    0\r\n";
    const std::string mean = "\"m\",2,1,3\r\n" + repeated("2,1,3\r\n", 3);
    const std::string observed = "\"o\",2\r\n" + repeated("2\r\n", 3);
    const std::string values =
        "\"f\",2,1,3,4\r\n\"f\",2,1,3,4\r\n" +
        repeated(repeated(mean, 2) + repeated(observed, 2) + repeated("\"t\",3\r\n", 2), 10);
    for (int i = 1; i <= 59999; ++i)
        file << (byTurns     ? 1 + i % 2
                 : i < 59999 ? 1
                             : 2)
             << "," << i * 0.001 << ",\"Weir " << i << "   \",0,1\r\n"
             << values;
}

// Reaches that each flow into the next; the last one nowhere, or into the first.
std::string chain(int reaches, bool closed) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD");
    for (int reach = 1; reach <= reaches; ++reach)
        file.reach(reach, "Reach", 1, reach < reaches ? reach + 1 : closed ? 1 : 0);
    for (int reach = 1; reach <= reaches; ++reach)
        file.point(reach, 0, "Head", 1);
    return file.text();
}

} // namespace

TEST_F(Load, TheLargestFilesTwentyTimesComparedPlottedAndReportedKeepMemoryFlat) {
    writeLargest(host("A.SGR"), false);
    fs::copy(host("A.SGR"), host("B.SGR"));
    double afterFirst = 0;
    for (int round = 1; round <= 20; ++round) {
        openInSetUp("mnuDataFile1", "A.SGR");
        openInSetUp("mnuDataFile2", "B.SGR");
        ASSERT_FALSE(GLOBAL.loadFailed) << round;
        if (round % 5 == 1) {
            chooseWholeRun();
            control<QRadioButton>(formNamed("frmGraphData"), "optPlotType_2").click();
            plot();
            openInReports("A.SGR");
            choose(formNamed("frmReports"), "mnuSpreadsheet");
        }
        platform.takeTranscript();
        if (round == 1) afterFirst = residentMegabytes();
    }
    EXPECT_EQ(RESULTS.pointCount, 59999);
    EXPECT_GT(fs::file_size(host("A.csv")), 1'000'000U);
    const double growth = residentMegabytes() - afterFirst;
    RecordProperty("growthInMegabytes", std::to_string(growth));
    std::printf("after the first round %.0f MB, 19 rounds later %+.1f MB\n", afterFirst, growth);
    EXPECT_LT(growth, 32);
}

// No report has more pages: every point is a row under a heading of its own, on landscape pages.
TEST_F(Load, TheLongestReportThereCanBe) {
    writeLargest(host("A.SGR"), true);
    openInReports("A.SGR");
    QWidget& form = formNamed("frmReports");
    auto& determinands = control<QListWidget>(form, "lstDets");
    for (int line = 0; line < determinands.count(); ++line)
        determinands.item(line)->setSelected(line < 9); // 18 columns, so that the page is landscape
    ASSERT_TRUE(control<QLabel>(form, "Label_8").text().contains("Landscape"));
    platform.takeTranscript();
    const double seconds = secondsOf([&] { choose(form, "mnuPrint"); });
    const std::size_t pages = platform.printed().at(0).pages.size();
    std::printf("%zu pages in %.1f s\n", pages, seconds);
    EXPECT_GT(pages, 2700U);
    EXPECT_TRUE(platform.printed().at(0).finished);
    EXPECT_LT(seconds, 60);
    platform.takeTranscript();
}

TEST_F(Load, AListingOfMoreThanThreeThousandPages) {
    platform.putFile("LONG.OUT", repeated("Reach 12   BOD     2.345\r\n", 265000));
    platform.willChoose(platform.pathOf("LONG.OUT"));
    const double seconds =
        secondsOf([&] { control<QPushButton>(formNamed("frmReports"), "cmdView_1").click(); });
    EXPECT_GT(platform.printed().at(0).pages.size(), 3000U);
    EXPECT_TRUE(platform.printed().at(0).finished);
    EXPECT_LT(seconds, 30);
    platform.takeTranscript();
}

TEST_F(Load, ABatchOfThreeHundredFiles) {
    for (int k = 1; k <= 300; ++k)
        platform.putFile(platform.pathOf("batch\\F" + std::to_string(k) + ".DAT"), "");
    choose(*start, "mnuBatch");
    QWidget& form = formNamed("frmBatch");
    platform.willChoose(platform.pathOf("batch\\F1.DAT"));
    auto& step = control<QPushButton>(form, "cmdBatch_1");
    EXPECT_LT(secondsOf([&] {
                  step.click();
                  step.click();
              }),
              10);
    const std::string text = platform.fileText("RUNDAT.TMP");
    EXPECT_EQ(std::ranges::count(text, '\n'), 1 + 3 * 300);
    EXPECT_TRUE(contains(text, "\\F300.DAT\r\n"));
    EXPECT_TRUE(contains(platform.takeTranscript(), "start engine {app}\\korvelf157.exe \n"));
}

TEST_F(Load, AFolderOfTwentyThousandFilesInTheBatchForm) {
    fs::create_directory(host("many"));
    for (int k = 1; k <= 20000; ++k)
        std::ofstream(host("many") + "/F" + std::to_string(k) + ".DAT");
    choose(*start, "mnuBatch");
    QWidget& form = formNamed("frmBatch");
    auto& list = control<QListWidget>(form, "lstSelectedFiles");
    platform.willChoose(platform.pathOf("many\\F1.DAT"));
    const double listing = secondsOf([&] { control<QPushButton>(form, "cmdBatch_1").click(); });
    EXPECT_EQ(list.count(), 20000);
    list.selectAll();
    const double removal = secondsOf([&] {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
        QApplication::sendEvent(&list, &key);
    });
    EXPECT_EQ(list.count(), 0);
    std::printf("20000 files listed in %.2f s, removed in %.2f s\n", listing, removal);
    EXPECT_LT(listing, 15);
    EXPECT_LT(removal, 15);
}

TEST_F(Load, AChainOfAllReachesOpenOrClosed) {
    for (const bool closed : {false, true}) {
        platform.putFile("CHAIN.SGR", chain(9999, closed));
        const double seconds = secondsOf([&] {
            openInSetUp("mnuDataFile1", "CHAIN.SGR");
            chooseWholeRun();
            plot();
        });
        EXPECT_EQ(control<QComboBox>(formNamed("frmGraphData"), "Combo_2").count(), 9999);
        EXPECT_EQ(GLOBAL.graphReachCount, 9999);
        EXPECT_EQ(GLOBAL.graphPointCounts[1], 9999);
        std::printf("a chain of 9999 reaches%s plotted in %.2f s\n", closed ? ", closed," : "", seconds);
        EXPECT_LT(seconds, 30);
        platform.takeTranscript();
    }
}

TEST_F(Load, LabelsOfThirtyThousandCharacters) {
    const std::string label(30000, 'W');
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "Upper");
    for (int k = 0; k < 20; ++k)
        file.point(1, k, label, 1);
    platform.putFile("LONG.SGR", file.text());
    const double seconds = secondsOf([&] {
        openInSetUp("mnuDataFile1", "LONG.SGR");
        chooseWholeRun();
        plot();
        openInReports("LONG.SGR");
        choose(formNamed("frmReports"), "mnuSpreadsheet");
        choose(formNamed("frmReports"), "mnuPrint");
    });
    EXPECT_TRUE(contains(platform.fileText("LONG.csv"), '"' + label + '"'));
    EXPECT_FALSE(platform.printed().at(0).pages.empty());
    platform.putFile("LONG.OUT", label + "\r\n" + label + "\r\n");
    frmListing listing(platform);
    QString seen;
    platform.willActOn("frmListing", [&](ShownForm& form) {
        auto& text = control<QPlainTextEdit>(form, "txtListing");
        text.grab();
        seen = text.toPlainText();
    });
    listing.view(platform.pathOf("LONG.OUT"));
    EXPECT_EQ(seen.toStdString(), label + "\n" + label + "\n");
    EXPECT_LT(seconds, 30);
    platform.takeTranscript();
}

} // namespace korvel
