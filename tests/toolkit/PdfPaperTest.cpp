#include "toolkit/paper/PdfPaper.h"

#include "basic/RunTimeError.h"
#include "platform/DiskFiles.h"
#include "platform/TemporaryFolder.h"
#include "toolkit/PageSample.h"
#include "toolkit/PdfReading.h"

#include <QImage>
#include <QRegularExpression>
#include <gtest/gtest.h>

#include <algorithm>

namespace korvel {

namespace {

constexpr double hundredth = 0.01; // inch
constexpr double sheetShortSide = 210 / 25.4, sheetLongSide = 297 / 25.4;
constexpr double besidePage = (sheetShortSide - printableShortSide) / 2;
constexpr double abovePage = (sheetLongSide - printableLongSide) / 2;

int errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

class PdfPaperTest : public testing::Test {
  protected:
    std::unique_ptr<PrintJob> begin(Orientation orientation = Orientation::portrait) {
        return m_paper.begin({"Title of the job", orientation, ""});
    }
    void print(const std::vector<Drawing>& pages, Orientation orientation = Orientation::portrait) {
        const auto job = begin(orientation);
        for (const Drawing& page : pages)
            job->page(page);
        job->finish();
    }
    std::vector<FoundWord> words() const { return pdfWords(m_path); }
    FoundWord word(const std::string& text) const {
        for (const FoundWord& found : words())
            if (found.text == text) return found;
        ADD_FAILURE() << "no word " << text;
        return {};
    }

    TemporaryFolder m_folder;
    std::string m_path = m_folder.path("Report.pdf");
    DiskFiles m_files;
    PdfFilePaper m_paper{m_files, m_folder.model("Report.pdf")};
};

// Pixels at 100 an inch, dark on white.
QImage picture(const std::string& path) {
    QImage image;
    const std::string bytes = outputOf("pdftoppm -r 100 -gray -f 1 -l 1 '" + path + "'");
    image.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
    return image;
}

QRect inkIn(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 200) ink |= QRect(x, y, 1, 1);
    return ink;
}

} // namespace

TEST_F(PdfPaperTest, WritesA4Sheets) {
    print({pageWith("one"), pageWith("two"), emptyPage()});
    EXPECT_EQ(pdfInfo(m_path, "Pages"), "3");
    EXPECT_EQ(pdfInfo(m_path, "Page size"), "595 x 842 pts (A4)");
    EXPECT_EQ(pdfInfo(m_path, "Title"), "Title of the job");
    print({pageWith("one", Orientation::landscape)}, Orientation::landscape);
    EXPECT_EQ(pdfInfo(m_path, "Page size"), "842 x 595 pts (A4)");
    EXPECT_EQ(pdfInfo(m_path, "Page rot"), "0");
}

TEST_F(PdfPaperTest, PutsTextsWhereThePageHasThem) {
    Drawing page = emptyPage();
    page.commands.emplace_back(textAt(0, 0, "corner"));
    page.commands.emplace_back(textAt(2.5, 3.25, "first", {"Arial", 10, true}));
    page.commands.emplace_back(textAt(6, 3.25, "second"));
    page.commands.emplace_back(textAt(1, 10, "listing", {"Courier New", 7, false}));
    print({page});
    for (const DrawnCommand& command : page.commands) {
        const auto& text = std::get<DrawnText>(command);
        const TextSize size = m_paper.metrics().measure(text.text, text.font);
        const FoundWord found = word(text.text);
        EXPECT_NEAR(found.left - besidePage, text.corner.x, hundredth) << text.text;
        EXPECT_NEAR(found.top - abovePage, text.corner.y, hundredth) << text.text;
        EXPECT_NEAR(found.right - found.left, size.width / 1440, hundredth) << text.text;
        EXPECT_NEAR(found.bottom - found.top, size.height / 1440, hundredth) << text.text;
    }
}

TEST_F(PdfPaperTest, EndsARightAlignedTextAtItsPlace) {
    Drawing page = emptyPage();
    for (const char* text : {"AVAWATAY.", "1111.111", "efficient"}) {
        const double width = m_paper.metrics().measure(text, {}).width / 1440;
        page.commands.emplace_back(
            textAt(5 - width, 1 + 0.2 * static_cast<double>(page.commands.size()), text));
    }
    print({page});
    for (const FoundWord& word : words())
        EXPECT_NEAR(word.right - besidePage, 5, hundredth / 2) << word.text;
}

TEST_F(PdfPaperTest, KeepsEveryTextFindable) {
    Drawing page = emptyPage();
    const std::vector<std::string> texts{"D/S Weir", "3.5e-07 <&>",
                                         "M\xc3\xbc"
                                         "hle",
                                         "95% \xe2\x89\xa4 \xce\xa9", "caf\xe9 noir"};
    for (std::size_t k = 0; k < texts.size(); ++k)
        page.commands.emplace_back(textAt(1, 1 + static_cast<double>(k), texts[k]));
    print({page});
    const std::string text = pdfText(m_path);
    for (const char* expected : {"D/S Weir", "3.5e-07 <&>",
                                 "M\xc3\xbc"
                                 "hle",
                                 "95% \xe2\x89\xa4 \xce\xa9", "caf\xc3\xa9 noir"})
        EXPECT_NE(text.find(expected), std::string::npos) << expected << " in " << text;
}

TEST_F(PdfPaperTest, EmbedsItsFonts) {
    Drawing page = emptyPage();
    for (const char* font : {"Arial", "Courier New", "Arial Narrow"})
        page.commands.emplace_back(
            textAt(1, 1 + static_cast<double>(page.commands.size()), font, {font, 8, false}));
    print({page});
    const std::string fonts = outputOf("pdffonts '" + m_path + "'");
    for (const char* name : {"LiberationSans", "LiberationMono", "LiberationSansNarrow"})
        EXPECT_TRUE(QRegularExpression(QString(name) + " +CID TrueType +Identity-H +yes")
                        .match(QString::fromStdString(fonts))
                        .hasMatch())
            << fonts;
}

TEST_F(PdfPaperTest, KeepsDashesAndWidths) {
    Drawing page = emptyPage();
    page.commands.emplace_back(DrawnLine{{1, 1}, {6, 1}, {{0, 0, 0}, 2, Dash::solid}});
    print({page});
    const std::string solid = pdfAsSvg(m_path);
    EXPECT_EQ(solid.find("stroke-dasharray"), std::string::npos);
    EXPECT_NE(solid.find("<path"), std::string::npos);
    page.commands = {DrawnLine{{1, 1}, {6, 1}, {{255, 0, 0}, 4, Dash::dashDot}}};
    print({page});
    EXPECT_NE(pdfAsSvg(m_path).find("stroke-dasharray"), std::string::npos);
    EXPECT_EQ(inkIn(picture(m_path)).height(), 1) << "4/300 inch at 100 pixels an inch";
}

TEST_F(PdfPaperTest, DrawsRulesThroughAllRowsAsOneLine) {
    Drawing page = emptyPage();
    for (int row = 0; row < 20; ++row)
        page.commands.emplace_back(
            DrawnLine{{1, 1 + row * 0.2}, {1, 1.2 + row * 0.2}, {{0, 0, 0}, 2, Dash::solid}});
    print({page});
    const std::string svg = pdfAsSvg(m_path);
    EXPECT_EQ(QString::fromStdString(svg).count(QRegularExpression("M [-0-9. ]+L ")), 1) << svg;
    const QRect ink = inkIn(picture(m_path));
    EXPECT_NEAR(ink.height(), 400, 2);
}

TEST_F(PdfPaperTest, FillsThePrintableAreaAndNothingBeyond) {
    Drawing page = emptyPage();
    const double right = page.width, bottom = page.height;
    page.commands.emplace_back(
        DrawnRun{{{0, 0}, {right, 0}, {right, bottom}, {0, bottom}, {0, 0}}, {{0, 0, 0}, 1, Dash::solid}});
    print({page});
    const QRect ink = inkIn(picture(m_path));
    EXPECT_NEAR(ink.left() / 100.0, besidePage, hundredth);
    EXPECT_NEAR(ink.top() / 100.0, abovePage, hundredth);
    EXPECT_NEAR((ink.right() + 1) / 100.0, besidePage + right, 2 * hundredth);
    EXPECT_NEAR((ink.bottom() + 1) / 100.0, abovePage + bottom, 2 * hundredth);
}

TEST_F(PdfPaperTest, KeepsTheProportionsOfAWideDrawing) {
    Drawing graph{12000, 6000, 1440, {}};
    const Font font{"Arial", 20, false};
    graph.commands.emplace_back(textAt(0, 0, "corner", font));
    graph.commands.emplace_back(textAt(6000, 3000, "middle", font));
    print({graph}, Orientation::landscape);
    const auto found = words();
    ASSERT_EQ(found.size(), 2u);
    const double scale = printableLongSide / 12000; // inches a twip
    EXPECT_NEAR(found[0].left, abovePage, hundredth);
    EXPECT_NEAR(found[0].top, (sheetShortSide - 6000 * scale) / 2, hundredth);
    EXPECT_NEAR(found[1].left, sheetLongSide / 2, hundredth);
    EXPECT_NEAR(found[1].top, sheetShortSide / 2, hundredth);
    EXPECT_NEAR(found[1].right - found[1].left, m_paper.metrics().measure("middle", font).width * scale,
                hundredth);
}

TEST_F(PdfPaperTest, ReplacesAFileWholeAtTheEnd) {
    m_folder.put("Report.pdf", "old");
    {
        const auto job = begin();
        job->page(pageWith("new"));
        EXPECT_EQ(m_folder.textOf("Report.pdf"), "old");
        EXPECT_EQ(job->finish(), "");
    }
    EXPECT_NE(pdfText(m_path).find("new"), std::string::npos);
    EXPECT_EQ(m_folder.entries(), 1);
}

TEST_F(PdfPaperTest, LeavesNothingOfADroppedJob) {
    m_folder.put("Report.pdf", "old");
    begin()->page(pageWith("new"));
    EXPECT_EQ(m_folder.textOf("Report.pdf"), "old");
    EXPECT_EQ(m_folder.entries(), 1);
}

TEST_F(PdfPaperTest, RefusesAFileThatIsHeldBeforeAnyPage) {
    m_folder.put(".~lock.Report.pdf#");
    EXPECT_EQ(errorOf([&] { begin(); }), errors::permissionDenied);
}

TEST_F(PdfPaperTest, RefusesAFolderThatIsMissing) {
    PdfFilePaper paper(m_files, m_folder.model("missing\\Report.pdf"));
    EXPECT_EQ(errorOf([&] { paper.begin({}); }), errors::pathNotFound);
}

} // namespace korvel
