#include "toolkit/paper/PdfOutline.h"

#include "basic/RunTimeError.h"
#include "platform/DiskFiles.h"
#include "platform/TemporaryFolder.h"
#include "toolkit/PageSample.h"
#include "toolkit/PdfReading.h"
#include "toolkit/paper/PdfPaper.h"

#include <QProcess>
#include <gtest/gtest.h>

#include <ctime>
#include <fstream>
#include <iterator>
#include <regex>

namespace korvel {

namespace {

class PdfOutlineTest : public testing::Test {
  protected:
    std::string documentOf(std::size_t pages, const std::shared_ptr<const DocumentOutline>& outline) {
        const auto job = m_paper.begin({"Title", Orientation::landscape, "", outline});
        for (std::size_t k = 0; k < pages; ++k)
            job->page(Drawing{printableLongSide, printableShortSide, 1, {}});
        job->finish();
        std::ifstream file(m_path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // What qpdf has to say against it.
    std::string complaints() const {
        QProcess qpdf;
        qpdf.setProcessChannelMode(QProcess::MergedChannels);
        qpdf.start("qpdf", {"--check", QString::fromStdString(m_path)});
        if (!qpdf.waitForFinished()) return "qpdf did not run";
        const std::string told = qpdf.readAll().toStdString();
        return qpdf.exitCode() == 0 ? "" : told;
    }

    TemporaryFolder m_folder;
    std::string m_path = m_folder.path("Atlas.pdf");
    DiskFiles m_files;
    PdfFilePaper m_paper{m_files, m_folder.model("Atlas.pdf")};
};

std::shared_ptr<DocumentOutline> threePages() {
    const auto outline = std::make_shared<DocumentOutline>();
    outline->language = "en";
    outline->bookmarks = {{"First", 0, 0}, {"Second \xC3\xA9 (x", 1, 1}, {"Third", 2, 1}, {"Last", 2, 0}};
    outline->links = {{{0, 0, 0.5, 0.1, 2}, {0.5, 0.9, 1, 1, 1}}, {}, {{0, 0, 1, 1, 0}}};
    return outline;
}

std::shared_ptr<DocumentOutline> onePage() {
    const auto outline = std::make_shared<DocumentOutline>();
    outline->language = "en";
    return outline;
}

} // namespace

TEST_F(PdfOutlineTest, AddsToWhatWasWritten) {
    const std::string plain = documentOf(3, nullptr);
    const std::string with = documentOf(3, threePages());
    EXPECT_EQ(plain.find("/Outlines"), std::string::npos);
    for (const char* part : {"/Lang <FEFF0065006E>", "/DisplayDocTitle true", "/PageMode /UseOutlines",
                             "<FEFF005300650063006F006E0064002000E9002000280078>"})
        EXPECT_NE(with.find(part), std::string::npos) << part;
    EXPECT_GT(with.find("/Outlines"), with.find("%%EOF")); // behind the first document's end
    EXPECT_EQ(complaints(), "");
}

TEST_F(PdfOutlineTest, TellsWhereItsObjectsBegin) {
    const std::string document = documentOf(3, threePages());
    const std::size_t update = document.rfind("xref\n", document.rfind("startxref") - 1);
    EXPECT_EQ(std::stoul(document.substr(document.rfind("startxref") + 9)), update);
    const std::string table = document.substr(update);
    const std::regex entry("(\\d+) 1\n(\\d{10}) 00000 n ");
    int objects = 0;
    for (std::sregex_iterator found(table.begin(), table.end(), entry), end; found != end; ++found, ++objects)
        EXPECT_EQ(
            document.compare(std::stoul((*found)[2]), (*found)[1].length() + 6, (*found)[1].str() + " 0 obj"),
            0);
    EXPECT_EQ(objects, 1 + 2 + 5); // catalog, lists of links, bookmarks and their root
}

TEST_F(PdfOutlineTest, SaysNoDay) {
    EXPECT_NE(documentOf(1, nullptr).find("/CreationDate"), std::string::npos);
    const std::string document = documentOf(1, onePage());
    EXPECT_EQ(document.find("/CreationDate"), std::string::npos);
    EXPECT_EQ(complaints(), "");
    EXPECT_TRUE(documentOf(1, onePage()) == document);
}

TEST_F(PdfOutlineTest, IsTheSameInEveryTimeZone) {
    std::vector<std::string> documents;
    for (const char* zone : {"UTC", "Asia/Tokyo", "America/St_Johns"}) {
        setenv("TZ", zone, 1);
        tzset();
        documents.push_back(documentOf(3, threePages()));
        EXPECT_EQ(complaints(), "") << zone;
    }
    unsetenv("TZ");
    tzset();
    EXPECT_TRUE(documents[0] == documents[1]);
    EXPECT_TRUE(documents[0] == documents[2]);
}

TEST_F(PdfOutlineTest, StandsWithoutBookmarksOrLinks) {
    const auto outline = std::make_shared<DocumentOutline>();
    outline->language = "en";
    EXPECT_NE(documentOf(1, outline).find("/Lang"), std::string::npos);
    EXPECT_EQ(complaints(), "");
}

TEST_F(PdfOutlineTest, RefusesPagesThatAreNotThere) {
    const auto outline = threePages();
    EXPECT_THROW(documentOf(2, outline), RunTimeError);
}

TEST(PdfUpdate, RefusesWhatIsNoDocument) {
    for (const char* bytes :
         {"", "%PDF-1.4", "startxref", "startxref\n99999\n%%EOF", "xref\n0 9999999\nstartxref\n0\n",
          "xref\n0 1\n0000000000 65535 f \ntrailer\n<< /Info 7 0 R /Root 9 0 R >>\nstartxref\n0\n"})
        EXPECT_THROW(pdfUpdate(bytes, {"en", {}, {}}, {}), RunTimeError) << bytes;
}

} // namespace korvel
