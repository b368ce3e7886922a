#include "basic/RunTimeError.h"
#include "platform/DiskFiles.h"
#include "toolkit/CupsServer.h"
#include "toolkit/PageSample.h"
#include "toolkit/PdfReading.h"
#include "toolkit/paper/PdfPaper.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// One server for all tests that leave it as it is.
class PrintQueueTest : public testing::Test {
  protected:
    static void SetUpTestSuite() { s_server = std::make_unique<CupsServer>(); }
    static void TearDownTestSuite() { s_server.reset(); }

    static std::unique_ptr<CupsServer> s_server;
};

std::unique_ptr<CupsServer> PrintQueueTest::s_server;

// Paper for what was chosen, before any choice where `queue` is empty.
struct Printing {
    explicit Printing(const std::string& queue = "") {
        if (!queue.empty())
            choice.choose({.queue = QString::fromStdString(queue), .file = {}, .pages = {}, .further = {}});
    }
    std::unique_ptr<PrintJob> begin() {
        return paper.begin({"Results of KORVEL", Orientation::landscape, folder.model("RIVER-report.pdf")});
    }
    static int errorOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const RunTimeError& error) {
            return error.number;
        }
        return 0;
    }

    TemporaryFolder folder;
    DiskFiles files;
    PrinterChoice choice;
    QtPaper paper{choice, files};
};

const Drawing page = pageWith("landscape", Orientation::landscape);

} // namespace

TEST_F(PrintQueueTest, GetsTheDocumentWhole) {
    Printing printing("ready");
    const auto job = printing.begin();
    job->page(page);
    EXPECT_EQ(job->finish(), "");
    const std::string document = s_server->documentOf(1);
    EXPECT_EQ(pdfInfo(document, "Pages"), "1");
    EXPECT_EQ(pdfInfo(document, "Page size"), "842 x 595 pts (A4)");
    EXPECT_EQ(pdfWords(document).at(0).text, "landscape");
    EXPECT_EQ(s_server->jobAttribute(1, "job-name"), "Results of KORVEL");
    EXPECT_EQ(s_server->jobAttribute(1, "copies"), "1");
    EXPECT_EQ(s_server->jobAttribute(1, "page-ranges"), "");
    EXPECT_EQ(printing.folder.entries(), 0);
}

TEST_F(PrintQueueTest, GetsCopiesSidesAndPages) {
    Printing printing;
    printing.choice.choose({.queue = "ready",
                            .file = {},
                            .copies = 3,
                            .sides = QPrinter::DuplexLongSide,
                            .pages = QPageRanges::fromString("1-2,4"),
                            .further = {{"job-sheets", "none,none"}}});
    const auto job = printing.begin();
    job->page(page);
    job->finish();
    EXPECT_EQ(s_server->jobAttribute(2, "copies"), "3");
    EXPECT_EQ(s_server->jobAttribute(2, "sides"), "two-sided-long-edge");
    EXPECT_EQ(s_server->jobAttribute(2, "page-ranges"), "1-2,4-4");
    EXPECT_EQ(s_server->jobAttribute(2, "multiple-document-handling"), "separate-documents-collated-copies");
}

TEST_F(PrintQueueTest, IsTheDefaultOneBeforeAnyChoice) {
    Printing printing;
    const auto job = printing.begin();
    job->page(page);
    EXPECT_EQ(job->finish(), "");
    EXPECT_EQ(s_server->jobAttribute(3, "job-printer-uri")
                  .substr(s_server->jobAttribute(3, "job-printer-uri").rfind('/')),
              "/ready");
    EXPECT_EQ(printing.folder.entries(), 0);
}

TEST_F(PrintQueueTest, IsRefusedStoppedRejectingOrMissing) {
    for (const char* queue : {"stopped", "rejecting", "missing", "missing/instance"}) {
        Printing printing(queue);
        EXPECT_EQ(Printing::errorOf([&] { printing.begin(); }), errors::printerError) << queue;
        EXPECT_EQ(printing.folder.entries(), 0) << queue;
    }
}

TEST(PrintSystem, IsAskedAgainBeforeTheDocumentIsHandedOver) {
    CupsServer server;
    Printing printing("ready");
    const auto job = printing.begin();
    job->page(page);
    server.pause("ready");
    EXPECT_EQ(Printing::errorOf([&] { job->finish(); }), errors::printerError);
    EXPECT_EQ(server.jobAttribute(1, "job-name"), "");
}

TEST(PrintSystem, IsAPrinterErrorOnceItIsGone) {
    CupsServer server;
    Printing printing("ready");
    const auto job = printing.begin();
    job->page(page);
    server.stop();
    EXPECT_EQ(Printing::errorOf([&] { job->finish(); }), errors::printerError);
    EXPECT_EQ(Printing::errorOf([&] { printing.begin(); }), errors::printerError);
}

TEST(PrintSystem, GivesWayToTheRequestsFileWhereItHasNoPrinter) {
    forgetPrintSystem();
    Printing printing;
    const auto job = printing.begin();
    job->page(page);
    EXPECT_EQ(job->finish(), printing.folder.model("RIVER-report.pdf"));
    EXPECT_EQ(pdfInfo(printing.folder.path("RIVER-report.pdf"), "Pages"), "1");
}

TEST(PrintSystem, IsNotAskedWhereAFileWasChosen) {
    forgetPrintSystem();
    Printing printing;
    printing.choice.choose({.queue = {},
                            .file = QString::fromStdString(printing.folder.path("chosen.pdf")),
                            .pages = QPageRanges::fromString("2"),
                            .further = {}});
    const auto job = printing.begin();
    job->page(page);
    job->page(page);
    EXPECT_EQ(job->finish(), "");
    EXPECT_EQ(pdfInfo(printing.folder.path("chosen.pdf"), "Pages"), "1");
}

} // namespace korvel
