#include "toolkit/paper/PdfJob.h"

#include "basic/RunTimeError.h"
#include "platform/TemporaryFolder.h"
#include "toolkit/PageSample.h"
#include "toolkit/PdfReading.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// A disk that takes so many bytes.
class SmallDisk : public PdfTarget {
  public:
    explicit SmallDisk(std::size_t room) : m_room(room) {}
    void write(std::string_view bytes) override {
        if (bytes.size() > m_room) throw RunTimeError(errors::diskFull);
        m_room -= bytes.size();
    }
    void finish() override {}

  private:
    std::size_t m_room;
};

class Kept : public PdfTarget {
  public:
    Kept(const TemporaryFolder& folder, std::string& bytes) : m_folder(folder), m_bytes(bytes) {}
    void write(std::string_view bytes) override { m_bytes += bytes; }
    void finish() override { m_folder.put("kept.pdf", m_bytes); }

  private:
    const TemporaryFolder& m_folder;
    std::string& m_bytes;
};

int errorOfPrinting(PdfJob& job, int pages) {
    try {
        for (int k = 0; k < pages; ++k)
            job.page(pageWith("page " + std::to_string(k)));
        job.finish();
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

} // namespace

TEST(PdfJob, ThrowsWhatTheTargetThrows) {
    for (const std::size_t room : {0, 100, 3000}) {
        PdfJob job({}, std::make_unique<SmallDisk>(room));
        EXPECT_EQ(errorOfPrinting(job, 5), errors::diskFull) << room;
    }
    PdfJob job({}, std::make_unique<SmallDisk>(10'000'000));
    EXPECT_EQ(errorOfPrinting(job, 5), 0);
}

TEST(PdfJob, MakesTheChosenPages) {
    TemporaryFolder folder;
    std::string bytes;
    PdfJob job({"", Orientation::portrait, QPageRanges::fromString("2-3,5"), "told"},
               std::make_unique<Kept>(folder, bytes));
    for (int k = 1; k <= 6; ++k)
        job.page(pageWith("page" + std::to_string(k)));
    EXPECT_EQ(job.finish(), "told");
    std::string found;
    for (const FoundWord& word : pdfWords(folder.path("kept.pdf")))
        found += word.text + " ";
    EXPECT_EQ(found, "page2 page3 page5 ");
}

TEST(PdfJob, IsAPrinterErrorWithoutAPageInTheRange) {
    PdfJob job({"", Orientation::portrait, QPageRanges::fromString("7"), ""},
               std::make_unique<SmallDisk>(1'000'000));
    EXPECT_EQ(errorOfPrinting(job, 2), errors::printerError);
}

TEST(PdfJob, WritesPagesOutAsTheyAreMade) {
    TemporaryFolder folder;
    std::string bytes;
    PdfJob job({}, std::make_unique<Kept>(folder, bytes));
    job.page(pageWith("first"));
    for (int k = 0; k < 3; ++k) {
        const std::size_t before = bytes.size();
        job.page(pageWith("next"));
        EXPECT_GT(bytes.size(), before) << k;
    }
}

} // namespace korvel
