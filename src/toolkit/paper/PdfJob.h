// A print job as a PDF document: A4, vectors, text as text, a page at a time.
#pragma once

#include "drawing/paint/GlyphFonts.h"
#include "platform/Paper.h"
#include "toolkit/paper/PdfOutline.h"
#include "toolkit/paper/PdfTarget.h"

#include <QHashSeed>
#include <QIODevice>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>

#include <exception>

namespace korvel {

struct PdfJobSettings {
    std::string title;
    Orientation orientation = Orientation::portrait;
    QPageRanges pages;     // of the document that are made; empty: all
    std::string toTell;    // what finish() returns
    std::string file = {}; // model name; "" for a print system
    std::shared_ptr<const DocumentOutline> outline = {};
    std::shared_ptr<GlyphFonts> fonts = {}; // of whoever measured the texts; none: its own
};

// Where drawings of the printable area's proportions stand on their sheets.
SheetPlace sheetPlace(Orientation orientation);

// The writer's way out: a failure of the target is kept until the job can throw it.
class TargetDevice : public QIODevice {
  public:
    explicit TargetDevice(PdfTarget& target) : m_target(target) { open(WriteOnly | Unbuffered); }
    bool isSequential() const override { return true; }
    void throwFailure() const;

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override;

  private:
    PdfTarget& m_target;
    std::exception_ptr m_failure;
};

// The writer puts fonts into the document in the order of their hashes: the same in every process while one
// of these is there.
class SteadyHashes {
  public:
    SteadyHashes() { QHashSeed::setDeterministicGlobalSeed(); }
    ~SteadyHashes() { QHashSeed::resetRandomGlobalSeed(); }
    SteadyHashes(const SteadyHashes&) = delete;
    SteadyHashes& operator=(const SteadyHashes&) = delete;
};

class PdfJob : public PrintJob {
  public:
    PdfJob(PdfJobSettings settings, std::unique_ptr<PdfTarget> target);
    void page(const Drawing& drawing) override;
    std::string finish() override;
    std::string file() const override { return m_settings.file; }

  private:
    void beginPage();

    SteadyHashes m_hashes;
    PdfJobSettings m_settings;
    std::unique_ptr<PdfTarget> m_target;
    TargetDevice m_device;
    QPdfWriter m_writer;
    QPainter m_painter; // active from the first page on
    int m_pages = 0;
};

} // namespace korvel
